# shellcheck shell=bash
# What ./run, ./check and the benchmarks need on a Debian 12 machine. Sourced, not run; the
# caller has set `top`, the project's folder. Everything is installed once: a second
# call does nothing. Anything that is not a Debian package goes into build/.

build="$top/build"

say() { printf '%s\n' "$*"; }
fail() {
    printf '%s: %s\n' "${0##*/}" "$*" >&2
    exit 1
}

project_version() {
    sed -nE 's/^project\(Plyweld VERSION ([0-9]+\.[0-9]+)\.[0-9]+ .*/\1/p' "$top/CMakeLists.txt"
}

# Runs a noisy command quietly; its output is shown only when it fails.
quietly() {
    local log status=0
    log=$(mktemp)
    "$@" >"$log" 2>&1 </dev/null || status=$?
    if [ "$status" -ne 0 ]; then
        cat "$log" >&2
        printf 'failed (%s): %s\n' "$status" "$*" >&2
    fi
    rm -f "$log"
    return "$status"
}

as_root() {
    if [ "$(id -u)" -eq 0 ]; then
        "$@"
    elif command -v sudo >/dev/null; then
        sudo "$@"
    else
        fail "needs root or sudo to install Debian packages"
    fi
}

is_installed() {
    [ "$(dpkg-query -W -f='${db:Status-Status}' "$1" 2>/dev/null)" = installed ]
}

# Those of the named Debian packages that are not installed, one per line.
missing_packages() {
    local package
    for package in "$@"; do
        is_installed "$package" || say "$package"
    done
}

# What apt-get would download and how much room that takes, in its own words; nothing when it
# does not know the packages.
installation_size() {
    { LC_ALL=C apt-get install --assume-no -q --no-install-recommends "$@" 2>/dev/null </dev/null ||
        true; } |
        sed -nE -e 's/^Need to get ([^/ ]+ .B)(\/[^ ]+ .B)? of archives\.$/\1 to download/p' \
            -e 's/^After this operation, (.*) of additional disk space will be used\.$/, \1 on disk/p' |
        tr -d '\n'
}

# Installs those of the named Debian packages that are missing. Their names are kept in
# $build/debian-packages, so that they can be removed later.
ensure_packages() {
    local missing size
    mapfile -t missing < <(missing_packages "$@")
    [ ${#missing[@]} -gt 0 ] || return 0
    command -v apt-get >/dev/null ||
        fail "needs these Debian packages, and apt-get is not here: ${missing[*]}"
    size=$(installation_size "${missing[@]}")
    # The lists fetched earlier are used if possible; otherwise new ones are fetched.
    if [ -z "$size" ]; then
        quietly as_root apt-get update -q || fail "the package lists could not be fetched"
        size=$(installation_size "${missing[@]}")
    fi
    say "Installing Debian packages (with what they need: ${size:-size unknown}): ${missing[*]}"
    local install=(env DEBIAN_FRONTEND=noninteractive apt-get install -y -q --no-install-recommends)
    if ! as_root "${install[@]}" "${missing[@]}" >/dev/null 2>&1 </dev/null; then
        quietly as_root apt-get update -q || fail "the package lists could not be fetched"
        quietly as_root "${install[@]}" "${missing[@]}" || fail "the packages could not be installed"
    fi
    mkdir -p "$build"
    printf '%s\n' "${missing[@]}" >>"$build/debian-packages"
}

native_packages=(g++ cmake ninja-build pkg-config libpugixml-dev libzip-dev libcli11-dev
    libgtest-dev libgmock-dev nlohmann-json3-dev libutfcpp-dev cmark-gfm jq ccache)
windows_packages=(g++-mingw-w64-x86-64-posix libz-mingw-w64-dev dpkg-dev ca-certificates)
wine_packages=(wine wine64 fonts-wine xvfb xauth locales)
check_packages=(clang-format-14 clang-tidy-14 libxml2-utils unzip git python3-jsonschema)
reader_packages=(musescore3 unzip)
package_packages=(nsis zip)
picture_packages=(librsvg2-bin fonts-liberation woff2)
# A Node.js that is there is used as it is.
engraver_packages=()
command -v node >/dev/null || engraver_packages=(nodejs npm)

# pugixml and libzip for the Windows build, in the versions that Debian builds natively: their
# source packages, known by their hashes, unpacked to build/third_party. The lists they come from are the machine's
# own, asked for source packages, kept beside them.
ensure_third_party() {
    local home="$build/third_party" package
    [ -e "$home/pugixml/src/pugixml.cpp" ] && [ -e "$home/libzip/lib/zip.h" ] && return 0
    say "Unpacking the sources of pugixml and libzip"
    local apt="$home/apt"
    mkdir -p "$apt/lists/partial" "$apt/cache/archives/partial" "$apt/sources"
    source_package_lists "$apt/sources"
    local options=(-o "Dir::Etc::sourcelist=/dev/null" -o "Dir::Etc::sourceparts=$apt/sources"
        -o "Dir::State::lists=$apt/lists" -o "Dir::Cache=$apt/cache" -o "APT::Sandbox::User=")
    quietly apt-get -q "${options[@]}" update || fail "the source package lists could not be fetched"
    rm -rf "$home/unpacked"
    mkdir -p "$home/unpacked"
    (cd "$home/unpacked" && quietly apt-get -q "${options[@]}" source --download-only pugixml libzip) ||
        fail "the source packages of pugixml and libzip could not be fetched"
    (cd "$home/unpacked" && quietly sha256sum --check --strict "$top/scripts/third-party.sha256") ||
        fail "these are not the sources that scripts/third-party.sha256 names"
    for package in pugixml libzip; do
        rm -rf "${home:?}/$package"
        (cd "$home/unpacked" && quietly dpkg-source --no-check -x "$package"_*.dsc) ||
            fail "the source package $package could not be unpacked"
        mv "$home/unpacked/$package"-*/ "$home/$package"
    done
    rm -rf "$home/unpacked" "$apt"
}

# Writes the machine's Debian lists to folder $1, each asking for source packages only.
source_package_lists() {
    local list stem
    for list in /etc/apt/sources.list /etc/apt/sources.list.d/*.list; do
        [ -e "$list" ] || continue
        stem=$(basename "$list" .list)
        sed -nE 's/^[[:space:]]*deb[[:space:]]/deb-src /p' "$list" >"$1/$stem.list"
    done
    for list in /etc/apt/sources.list.d/*.sources; do
        [ -e "$list" ] || continue
        sed -E 's/^Types:.*$/Types: deb-src/' "$list" |
            awk -v RS= -v ORS='\n\n' '!seen[$0]++ && /debian/' >"$1/$(basename "$list")"
    done
    # The same list in two files would only be warned about; an empty one is harmless.
    find "$1" -type f -empty -delete
}

# The engraver that draws the pictures.
ensure_engraver() {
    ensure_packages "${engraver_packages[@]}"
    command -v npm >/dev/null || fail "node is here but npm is not; install the npm that belongs to it"
    local home="$build/engraver"
    [ -e "$home/node_modules/verovio/package.json" ] &&
        cmp -s "$top/scripts/engraver/package-lock.json" "$home/package-lock.json" && return 0
    say "Installing verovio into build/engraver"
    mkdir -p "$home"
    cp "$top/scripts/engraver/package.json" "$top/scripts/engraver/package-lock.json" "$home/"
    (cd "$home" && quietly npm ci --no-audit --no-fund --ignore-scripts) ||
        fail "verovio could not be installed"
}

# Turns an engraved page into a picture: draw_page IN.svg OUT.png. The page brings its music font
# along in a form that the renderer does not read, so it gets the font as a file.
draw_page() {
    local fonts="${2%.png}.fonts"
    mkdir -p "$fonts"
    sed -nE 's/.*url\(data:application\/font-woff2;[^,]*base64,([^)]*)\).*/\1/p' "$1" | head -n 1 |
        base64 -d >"$fonts/music.woff2"
    if [ -s "$fonts/music.woff2" ]; then
        quietly woff2_decompress "$fonts/music.woff2" || fail "the engraver's music font cannot be read"
    fi
    cat >"$fonts/fonts.conf" <<END
<?xml version="1.0"?>
<!DOCTYPE fontconfig SYSTEM "fonts.dtd">
<fontconfig><include>/etc/fonts/fonts.conf</include><dir>$(realpath "$fonts")</dir></fontconfig>
END
    FONTCONFIG_FILE="$(realpath "$fonts")/fonts.conf" \
        rsvg-convert --background-color white --width 1600 --output "$2" "$1"
    rm -r "$fonts"
}

# A Wine prefix of the project's own, made once.
ensure_wine_prefix() {
    export WINEPREFIX="$build/wine" WINEARCH=win64 WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml=;winedbg.exe=d"
    make_wine_prefix
}

# Makes the prefix at WINEPREFIX unless this version of Wine has made it already.
make_wine_prefix() {
    local version
    version=$(wine --version 2>/dev/null)
    [ "$(cat "$WINEPREFIX/.ready" 2>/dev/null)" = "$version" ] && return 0
    say "Preparing Wine's prefix in build/${WINEPREFIX##*/}"
    rm -rf "${WINEPREFIX:?}"
    mkdir -p "$build"
    quietly with_display wine wineboot --init || fail "Wine could not make its prefix"
    quietly wine_server -w || fail "Wine's server did not end"
    link_wine_libraries
    keep_out_of_home
    say "$version" >"$WINEPREFIX/.ready"
}

# Wine links the user's documents and other folders to the home folder. What a test writes there
# belongs in the prefix.
keep_out_of_home() {
    find "$WINEPREFIX/drive_c/users" -mindepth 2 -maxdepth 2 -type l |
        while read -r link; do rm "$link" && mkdir "$link"; done
}

# A new prefix holds copies of all of Wine's libraries, 600 MB; links to the originals are enough.
# Wine must not update such a prefix, or it would write through the links.
link_wine_libraries() {
    local originals=/usr/lib/x86_64-linux-gnu/wine/x86_64-windows copy original
    for copy in "$WINEPREFIX"/drive_c/windows/system32/{,drivers/}*; do
        original="$originals/${copy##*/}"
        [ -f "$original" ] && cmp -s "$copy" "$original" && ln -sf "$original" "$copy"
    done
    say disable >"$WINEPREFIX/.update-timestamp"
}

wine_server() { "$(command -v wineserver || echo /usr/lib/wine/wineserver64)" "$@"; }

# Runs a command with an X display: the existing one, or a new one.
with_display() {
    if [ -n "${DISPLAY:-}" ]; then
        "$@"
    else
        xvfb-run -a -s "-screen 0 1280x1024x24" "$@"
    fi
}

# Runs a Windows program with a display, and waits until Wine's own processes have ended too.
run_windows_program() {
    with_display bash -c 'status=0
        wine "$@" </dev/null || status=$?
        "$(command -v wineserver || echo /usr/lib/wine/wineserver64)" -w
        exit "$status"' "$0" "$@"
}

# Spanish, for programs run with LOCPATH="$build/locale": the machine's locales stay as they are.
ensure_spanish_locale() {
    [ -e "$build/locale/es_ES.UTF-8/LC_CTYPE" ] && return 0
    mkdir -p "$build/locale"
    quietly localedef --no-archive -i es_ES -f UTF-8 "$build/locale/es_ES.UTF-8" ||
        fail "the Spanish locale could not be made"
}

# Two clones of the project share what ccache keeps.
export CCACHE_BASEDIR="$top" CCACHE_NOHASHDIR=1

# Configures and builds a preset: build_preset PRESET TARGET...
build_preset() {
    local preset=$1 launcher=()
    shift
    command -v ccache >/dev/null && launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
    if [ ! -e "$build/$preset/build.ninja" ]; then
        (cd "$top" && quietly cmake --preset "$preset" "${launcher[@]}") || return 1
    fi
    quietly cmake --build "$build/$preset" --parallel "$(nproc)" ${1:+--target "$@"}
}
