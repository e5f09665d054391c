# shellcheck shell=bash
# Counting for the tests of packages. Sourced after setup.sh.
passed=0
failed=0

# verdict NAME COMMAND...
verdict() {
    local name=$1
    shift
    if "$@"; then
        say "ok: $name"
        passed=$((passed + 1))
    else
        say "FAILED: $name"
        failed=$((failed + 1))
    fi
}

finish() {
    say "$passed passed, $failed failed"
    [ "$failed" -eq 0 ] && [ "$passed" -gt 0 ]
    exit
}
