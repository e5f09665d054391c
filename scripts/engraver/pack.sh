#!/usr/bin/env bash
# Writes the engraver as report pages take it: pack.sh FOLDER-OF-VEROVIO OUT.js
# A script of one constant: Verovio's toolkit, compressed, in base64, below its notice and licenses.
set -euo pipefail
folder=$1 output=$2
here=$(cd "$(dirname "$0")" && pwd)
version=$(sed -nE 's/^ *"version": "(.*)",$/\1/p' "$folder/package.json")
licenses=/usr/share/common-licenses
{
    printf '/*\nVerovio %s, a music engraving library: www.verovio.org\n' "$version"
    printf 'Copyright (c) Laurent Pugin and others\n\n'
    printf 'Verovio is free software under the GNU Lesser General Public License, version 3 or later,\n'
    printf 'which follows with the license that it builds on. Source: github.com/rism-digital/verovio,\n'
    printf 'tag version-%s. What follows is the unchanged file dist/verovio-toolkit-wasm.js of its\n' "$version"
    printf 'package, compressed with gzip, in base64: another version can be put in its place. Its music\n'
    printf 'fonts are under the SIL Open Font License, version 1.1, which comes last.\n\n'
    cat "$licenses/LGPL-3" "$licenses/GPL-3" "$here/../../packaging/licenses/OFL-1.1.txt"
    printf '*/\nconst plyweldEngraver = "'
    gzip -9 -n -c "$folder/dist/verovio-toolkit-wasm.js" | base64 -w 0
    printf '";\n'
} >"$output"
