# shellcheck shell=bash
# Runs FINALE.EXE with its window, played by scripts, under Wine. Sourced after setup.sh.

# A Wine prefix with its own desktop, so that windows have frames and keep their places whatever the
# display does, and with scores to open in C:\Scores. Each name is a separate prefix, so that
# scripts do not affect each other.
ensure_desktop_prefix() {
    export WINEPREFIX="$build/wine-$1" WINEARCH=win64 WINEDEBUG=-all
    # A program that crashes ends instead of showing a dialog.
    export WINEDLLOVERRIDES="mscoree,mshtml,winedbg.exe="
    make_wine_prefix
    if [ ! -e "$WINEPREFIX/.desktop" ]; then
        local key='HKCU\Software\Wine\Explorer'
        quietly with_display wine reg add "$key" /v Desktop /d Default /f &&
            quietly with_display wine reg add "$key\\Desktops" /v Default /d 1280x1024 /f ||
            fail "Wine's desktop was not set"
        wine_server -w
        touch "$WINEPREFIX/.desktop"
    fi
    # Wine draws the buttons of title bars with this font, which Debian keeps where Wine does not look.
    mkdir -p "$WINEPREFIX/drive_c/windows/Fonts"
    cp /usr/share/wine/fonts/marlett.ttf "$WINEPREFIX/drive_c/windows/Fonts/"
    rm -rf "$WINEPREFIX/drive_c/Scores"
    mkdir -p "$WINEPREFIX/drive_c/Scores"
    cp "$top/examples/"*.musicxml "$WINEPREFIX/drive_c/Scores/"
}

# play LOCALE SCRIPT PICTURES, on a host of the manners PLYWELD_HOST: a line for each step on
# standard output, and the program's exit code. Needs a display and a prefix; ends after play_limit
# seconds whatever happens. @VERSION@ in a script is the project's version.
play_limit=120
play() {
    local status=0
    mkdir -p "$3"
    sed "s/@VERSION@/$(project_version)/g" "$2" >"$3/.script"
    LOCPATH="$build/locale" LC_ALL=$1 timeout "$play_limit" wine "$build/windows/FINALE.EXE" \
        ${PLYWELD_HOST:+--host "$PLYWELD_HOST"} script --pictures "$3" "$3/.script" \
        </dev/null >"$3/.played" 2>/dev/null || status=$?
    tr -d '\r' <"$3/.played"
    rm -f "$3/.played" "$3/.script"
    return "$status"
}

# What ./run --dialog shows: the program used as a person would, with a picture of each step. It is
# started again for each script of the tour.
show_tour() {
    local pictures="$build/run/dialog" script picture
    rm -rf "$pictures"
    mkdir -p "$pictures"
    for script in "$top/scripts/tour"/*.script; do
        play C.UTF-8 "$script" "$pictures" >"$pictures/played.log" || {
            cat "$pictures/played.log" >&2
            fail "the tour did not go as it should"
        }
        rm "$pictures/played.log"
    done
    wine_server -k || true
    for picture in "$pictures"/*.png; do
        say "$(basename "$picture" .en.png): $picture"
    done
}
