#!/usr/bin/env bash
# Lets the command write its manual page and completions, as they are installed below share/:
#   command_line.sh PLYWELD FOLDER
set -euo pipefail
export LC_ALL=C.UTF-8
command=$1 folder=$2
rm -rf "$folder"
# write FILE ARGUMENT...
write() {
    local file="$folder/$1"
    shift
    mkdir -p "$(dirname "$file")"
    "$command" "$@" >"$file"
}
write man/man1/plyweld.1 man
write bash-completion/completions/plyweld completion bash
write zsh/vendor-completions/_plyweld completion zsh
write fish/vendor_completions.d/plyweld.fish completion fish
