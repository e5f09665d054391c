#!/usr/bin/env bash
# Makes HTML pages from Markdown, each complete in itself but for its pictures:
#   guides.sh FOLDER VERSION MARKDOWN...
# Links to other pages of the same run lead to the HTML; pictures of docs/images are copied.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
folder=$1 version=$2
shift 2
rm -rf "$folder"
mkdir -p "$folder/images"

page_name() {
    local name
    name=$(basename "$1" .md)
    printf '%s.html' "${name,,}"
}

links=()
for text in "$@"; do
    links+=(-e "s#href=\"(\.\./|docs/)*$(basename "$text")\"#href=\"$(page_name "$text")\"#g")
done

# A link to a text without a page here would be broken: only its words stay.
links+=(-e 's#<a href="[^":]*\.md">([^<]*)</a>#\1#g')

for text in "$@"; do
    language=en
    [[ $(basename "$text") == guia* ]] && language=es
    title=$(sed -n 's/^# //p;T;q' "$text")
    {
        printf '<!DOCTYPE html>\n<html lang="%s">\n<head>\n<meta charset="utf-8">\n' "$language"
        printf '<meta name="viewport" content="width=device-width, initial-scale=1">\n'
        printf '<title>%s</title>\n<style>\n' "$title"
        cat "$here/guide.css"
        printf '</style>\n</head>\n<body>\n<main>\n'
        cmark-gfm --extension table "$text" | sed -E "${links[@]}"
        printf '</main>\n<footer>Plyweld %s</footer>\n</body>\n</html>\n' "$version"
    } >"$folder/$(page_name "$text")"
done

grep -hoE 'src="images/[^"]+"' "$folder"/*.html | sort -u | sed -E 's/src="(.*)"/\1/' |
    while read -r picture; do
        cp "$here/../docs/$picture" "$folder/$picture"
    done
