# shellcheck shell=bash
# How each package is put together. Sourced by ./package, after setup.sh, with the folders `stage`
# and `dist` made and SOURCE_DATE_EPOCH set.

# Files and folders get the one time of the release, so that archives of them are always the same.
set_times() { find "$1" -exec touch --no-dereference --date="@$SOURCE_DATE_EPOCH" {} +; }

# What made this release: the Debian packages with compilers, libraries and tools, and their versions.
built_with() {
    say "Plyweld $(project_version) was built on Debian $(cut -d. -f1 /etc/debian_version) with:"
    say ""
    printf '%s\n' "${native_packages[@]}" "${windows_packages[@]}" "${package_packages[@]}" \
        g++-12 binutils binutils-mingw-w64-x86-64 gzip dpkg \
        $(jq -r '.[] | select(.in != []) | .packages[]' "$top/packaging/dependencies.json") |
        sort -u | while read -r package; do
        is_installed "$package" && dpkg-query -W -f='${Package} ${Version}\n' "$package"
    done
    say ""
    say "and these sources, by SHA-256:"
    say ""
    cat "$top/scripts/third-party.sha256"
    say ""
    say "and verovio $(verovio_version) from npm, as scripts/engraver/package-lock.json names it."
}

verovio_version() {
    jq -r '.packages["node_modules/verovio"].version' "$top/scripts/engraver/package-lock.json"
}

# The pages of a Windows package: guides, changelog, notices of all it holds.
windows_pages() {
    local notices="$stage/THIRD-PARTY.md"
    "$top/packaging/notices.sh" "$version" windows "${@:2}" >"$notices"
    "$top/packaging/guides.sh" "$1" "$version" "$top/docs/user-guide.md" \
        "$top/docs/guia-del-usuario.md" "$top/CHANGELOG.md" "$notices"
}

# Text files for Windows end their lines as Windows does.
windows_text() { sed 's/$/\r/' "$1"; }

make_windows_zip() {
    local name="plyweld-$version-windows-x64" file
    local folder="$stage/$name"
    mkdir -p "$folder/examples"
    for file in plyweld.exe FINALE.EXE plyweld.fxt plyweld-probe.fxt engraver.js; do
        cp "$build/windows/$file" "$folder/"
    done
    windows_pages "$folder/guide" zip
    sed "s/@VERSION@/$version/g" "$top/packaging/windows/README.txt" | windows_text - >"$folder/README.txt"
    windows_text "$stage/BUILT-WITH.txt" >"$folder/BUILT-WITH.txt"
    cp "$top/examples/"*.musicxml "$folder/examples/"
    set_times "$folder"
    (cd "$stage" && find "$name" | LC_ALL=C sort | zip -q -X -9 "$dist/$name.zip" -@)
}

# The setup program holds what Finale needs, and pages to read.
make_setup() {
    local folder="$stage/setup" listing="$stage/listing.nsh" defines
    mkdir -p "$folder"
    cp "$build/windows/plyweld.fxt" "$build/windows/plyweld-probe.fxt" "$folder/"
    windows_pages "$folder/guide" setup
    windows_text "$stage/BUILT-WITH.txt" >"$folder/BUILT-WITH.txt"
    set_times "$folder"
    (cd "$folder" && find . -type f -printf 'Delete "$Home\\%P"\n' && find . -mindepth 1 -depth \
        -type d -printf 'RMDir "$Home\\%P"\n') | LC_ALL=C sort | tr '/' '\\' >"$listing"
    # Folders after the files in them, the deepest first.
    { grep '^Delete' "$listing"; grep '^RMDir' "$listing" | LC_ALL=C sort -r; } >"$listing.sorted"
    defines=(-DVERSION="$version" -DVERSION_WORDS="$version.0.0" -DSTAGE="$folder"
        -DLISTING="$listing.sorted" -DSIZE="$(du -sk --apparent-size "$folder" | cut -f1)"
        -DOUTPUT="$dist/plyweld-$version-setup.exe")
    [ ! -s "$top/packaging/publisher" ] || defines+=(-DPUBLISHER="$(cat "$top/packaging/publisher")")
    quietly makensis -V2 -WX -INPUTCHARSET UTF8 "${defines[@]}" "$top/packaging/windows/setup.nsi" ||
        fail "the setup program could not be made"
}

# installed PRESET FOLDER PREFIX: what `cmake --install` puts there
installed() {
    DESTDIR=$2 quietly cmake --install "$build/$1" --prefix "$3" --strip ||
        fail "the $1 build could not be installed"
    chmod 644 "$2$3"/lib/plyweld/*.so
}

make_portable() {
    local name="plyweld-$version-linux-x64"
    installed portable "$stage" "/$name"
    cp "$stage/BUILT-WITH.txt" "$stage/$name/share/doc/plyweld/"
    set_times "$stage/$name"
    tar -C "$stage" --sort=name --owner=0 --group=0 --numeric-owner --mode=go-w \
        --mtime="@$SOURCE_DATE_EPOCH" -c "$name" | gzip -9n >"$dist/$name.tar.gz"
}

make_deb() {
    local folder="$stage/deb" documents="$stage/deb/usr/share/doc/plyweld" depends
    installed native "$folder" /usr
    cp "$stage/BUILT-WITH.txt" "$documents/"
    cp "$top/packaging/debian/copyright" "$documents/"
    debian_changelog | gzip -9n >"$documents/changelog.gz"
    find "$folder/usr/share/man" -name '*.1' -exec gzip -9n {} + 2>/dev/null || true
    install -Dm644 "$top/packaging/debian/lintian-overrides" "$folder/usr/share/lintian/overrides/plyweld"
    mkdir -p "$folder/DEBIAN" "$stage/shlibdeps/debian"
    # dpkg-shlibdeps wants a source package around it.
    printf 'Source: plyweld\n\nPackage: plyweld\nArchitecture: amd64\n' >"$stage/shlibdeps/debian/control"
    depends=$(cd "$stage/shlibdeps" && dpkg-shlibdeps -O --ignore-missing-info \
        -l"$folder/usr/lib/plyweld" "$folder"/usr/lib/plyweld/* 2>/dev/null | sed 's/^shlibs:Depends=//')
    sed -e "s/@VERSION@/$version/" -e "s/@DEPENDS@/$depends/" \
        -e "s/@SIZE@/$(du -sk --apparent-size "$folder/usr" | cut -f1)/" \
        "$top/packaging/debian/control" >"$folder/DEBIAN/control"
    (cd "$folder" && find usr -type f -print0 | LC_ALL=C sort -z | xargs -0 md5sum >DEBIAN/md5sums)
    chmod -R go-w "$folder"
    set_times "$folder"
    quietly dpkg-deb --root-owner-group --build "$folder" "$dist/plyweld_${version}_amd64.deb" ||
        fail "the Debian package could not be made"
}

# The section of CHANGELOG.md for this version, without its heading.
changes() { awk -v version="$version" '/^## /{on = ($2 == version)} on && !/^## /' "$top/CHANGELOG.md"; }

debian_changelog() {
    printf 'plyweld (%s) bookworm; urgency=medium\n\n' "$version"
    printf '  * See guide/changelog.html.\n\n'
    printf ' -- %s  %s\n' "$(sed -n 's/^Maintainer: //p' "$top/packaging/debian/control")" \
        "$(date --utc --date="@$SOURCE_DATE_EPOCH" -R)"
}

release_notes() {
    [ -n "$(changes)" ] || fail "CHANGELOG.md says nothing about version $version"
    printf '# Plyweld %s\n\n%s\n' "$version" "$(date --utc --date="@$SOURCE_DATE_EPOCH" +%F)"
    changes
    printf '\n## Files\n\n'
    printf -- '- `plyweld-%s-setup.exe`: the plug-in, for Finale on 64-bit Windows\n' "$version"
    printf -- '- `plyweld-%s-windows-x64.zip`: the plug-in, and a command and a window to try it without Finale\n' "$version"
    printf -- '- `plyweld_%s_amd64.deb`: the command, for Debian 12\n' "$version"
    printf -- '- `plyweld-%s-linux-x64.tar.gz`: the command, for other distributions: unpack it anywhere\n' "$version"
    printf -- '- `SHA256SUMS`: check with `sha256sum -c SHA256SUMS`\n'
}
