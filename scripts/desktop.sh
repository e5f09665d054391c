# Runs FINALE.EXE with its window, played by scripts, under Wine. Sourced after setup.sh.

# A Wine prefix with a desktop of its own, so that windows have their frames and keep their
# places whatever the display does, with scores to open in C:\Scores.
ensure_desktop_prefix() {
    export WINEPREFIX="$build/wine-desktop" WINEARCH=win64 WINEDEBUG=-all
    export WINEDLLOVERRIDES="mscoree,mshtml,winedbg.exe="
    mkdir -p "$build"
    if [ ! -e "$WINEPREFIX/.ready" ]; then
        say "Preparing Wine's prefix in build/wine-desktop"
        local key='HKCU\Software\Wine\Explorer'
        quietly with_display wine wineboot --init || fail "Wine could not make its prefix"
        quietly wine reg add "$key" /v Desktop /d Default /f || fail "Wine's desktop was not set"
        quietly wine reg add "$key\\Desktops" /v Default /d 1280x1024 /f ||
            fail "Wine's desktop was not set"
        wine_server -w
        touch "$WINEPREFIX/.ready"
    fi
    mkdir -p "$WINEPREFIX/drive_c/Scores"
    cp "$top/examples/"*.musicxml "$WINEPREFIX/drive_c/Scores/"
}

# play LOCALE SCRIPT [OPTION...]: the program's exit code, its lines on standard output. What
# goes wrong with the display itself is over after the time that a script has.
play() {
    local locale=$1 script=$2
    shift 2
    LOCPATH="$build/locale" LC_ALL=$locale timeout ${PLAY_LIMIT:-240} wine "$build/windows/FINALE.EXE" script \
        "$@" "$script" </dev/null 2>/dev/null | tr -d '\r'
    return "${PIPESTATUS[0]}"
}
