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

# A Wine prefix for installing things.
ensure_packages_prefix() {
    export WINEPREFIX="$build/wine-packages" WINEARCH=win64 WINEDEBUG=-all LC_ALL=C.UTF-8
    export WINEDLLOVERRIDES="mscoree,mshtml=;winedbg.exe=d"
    make_wine_prefix
}
