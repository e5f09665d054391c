#!/usr/bin/env bash
# Writes the notices of what a package holds of other people's software, from dependencies.json:
#   notices.sh VERSION KIND...      KIND: windows, setup, portable, deb
# Versions and license texts are those of the Debian packages the build takes the software from;
# a text that none of them holds is in licenses/.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
table="$here/dependencies.json"
version=$1
shift

# The rows of these kinds, one per line.
rows() {
    jq -c --args '.[] | select(.in - (.in - $ARGS.positional) != [])' "$@" <"$table"
}

field() { jq -r ".$2" <<<"$1"; }

installed_version() {
    local package version
    package=$(jq -r '.npm // empty' <<<"$1")
    if [ -n "$package" ]; then
        jq -r --arg name "node_modules/$package" '.packages[$name].version' \
            "$here/../scripts/engraver/package-lock.json"
        return
    fi
    for package in $(jq -r '.packages[]' <<<"$1"); do
        version=$(dpkg-query -W -f='${Version}' "$package" 2>/dev/null || true)
        [ -z "$version" ] || { printf '%s' "$version"; return; }
    done
    printf '%s: none of its Debian packages is installed\n' "$(field "$1" name)" >&2
    return 1
}

printf '# Software of others in Plyweld %s\n\n' "$version"
printf 'Plyweld itself has no license until its owner chooses one.\n\n'
printf '| Name | Version | For | How | License |\n|---|---|---|---|---|\n'
rows "$@" | while read -r row; do
    found=$(installed_version "$row")
    printf '| %s | %s | %s | %s | %s |\n' "$(field "$row" name)" "$found" \
        "$(field "$row" for)" "$(field "$row" linked)" "$(field "$row" license)"
done
rows "$@" | while read -r row; do
    printf '\n## %s\n' "$(field "$row" name)"
    jq -r '.texts[]' <<<"$row" | while read -r text; do
        printf '\n~~~~\n%s\n~~~~\n' "$(cd "$here" && cat "$text")"
    done
done
