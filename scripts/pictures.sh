#!/usr/bin/env bash
# Draws the pictures of docs/images again: scores, report pages, dialogs and the window, each in its
# languages. Look at them before you commit them.
#   scripts/pictures.sh [SCORES]
# SCORES: a folder of scores, for the picture of a batch's index; without it, that one stays as it is.
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
. "$top/scripts/setup.sh"
images="$top/docs/images"

# index_picture SCORES LOCALE LANGUAGE
index_picture() {
    local work
    work=$(mktemp -d)
    LC_ALL=$2 LOCPATH="$build/locale" "$build/native/plyweld" merge "$1" -o "$work/merged" --verify \
        --quiet --report "$work/reports"
    quietly chromium --headless --no-sandbox --hide-scrollbars --window-size=960,760 \
        --screenshot="$images/index.$3.png" "file://$work/reports/index.html"
    rm -r "$work"
}

"$top/run" >/dev/null
cp "$top/build/run/before.png" "$top/build/run/after.png" "$images/"

"$top/tests/system/pages/run" >/dev/null
cp "$top/build/pages/carol-guide.png" "$images/report.en.png"
cp "$top/build/pages/villancico-guide.png" "$images/report.es.png"

"$top/tests/system/dialogs/run" first-use save-settings-1 save-settings-2 stop >/dev/null
for language in en es; do
    for picture in command alert progress save-settings submenu; do
        cp "$top/build/dialogs/$picture.$language.png" "$images/"
    done
    cp "$top/build/dialogs/program.$language.png" "$images/window.$language.png"
done
cp "$top/build/dialogs/merged.en.png" "$images/"
if [ $# -gt 0 ]; then
    ensure_spanish_locale
    index_picture "$1" C.UTF-8 en
    index_picture "$1" es_ES.UTF-8 es
fi
say "Drawn: $images"
