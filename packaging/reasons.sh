#!/usr/bin/env bash
# Writes docs/dependencies.md from dependencies.json: why each was chosen, and what was not.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
cat <<'TEXT'
# Dependencies

The project's dependencies, from `packaging/dependencies.json`; `packaging/reasons.sh` writes this
page. `tests/packages/notices` compares the table with what the builds really read and link, and
`packaging/notices.sh` makes the notices of each package from it. The code is C++20 and needs nothing
else at run time: on Windows nothing but Windows' own libraries.

Versions are those of Debian 12. The two libraries built from Debian's sources, and the npm packages,
are pinned by hash (`scripts/third-party.sha256`, each `package-lock.json`). A release records the versions it was built with in `BUILT-WITH.txt`.

TEXT
printf '| Name | For | How it is used | License |\n|---|---|---|---|\n'
jq -r '.[] | "| \(.name) | \(.for) | \(.linked) | \(.license) |"' "$here/dependencies.json"
printf '\n## Why these\n\n'
jq -r '.[] | "- **\(.name).** \(.chosen) Not chosen: \(.not)"' "$here/dependencies.json"
cat <<'TEXT'

## Tools

CMake, Ninja, GCC 12 and MinGW-w64 build; ccache saves time; clang-format and clang-tidy check; Wine
runs the Windows build; lintian and debootstrap check packages, Chromium opens the guides and the
report pages. None of them is part of a package.
TEXT
