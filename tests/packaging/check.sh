#!/usr/bin/env bash
# Checks what a build tree installs, and the Debian package made of it.
# Argument: the build tree of a release, with the target deb built.
set -euo pipefail
tests=$(cd "$(dirname "$0")" && pwd)
root=$tests/../..
build=$(cd "$1" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

failed=0
fail() {
    echo "packaging: $1"
    failed=1
}

# quiet COMMAND...: succeeds only without a word on standard error.
quiet() { "$@" 2>&1 >/dev/null | { ! grep .; }; }

usr=$work/usr
share=$usr/share
DESTDIR=$work cmake --install "$build" --prefix /usr >/dev/null

# -- The programs, and nothing else, were built, and no compiler's warning stops that.
! grep -q -e -Werror "$build/compile_commands.json" || fail "warnings are errors"
[ "$(ls "$build/bin")" = "$(ls "$usr/bin")" ] || fail "built, but not installed: $(ls "$build/bin")"

# -- The files.
(cd "$work" && find usr ! -type d -printf '/%p\n') | LC_ALL=C sort >"$work/found"
LC_ALL=C sort "$tests/files.txt" | diff - "$work/found" || fail "other files are installed"

# -- The desktop's files.
desktop=$share/applications/orvik.desktop
metainfo=$share/metainfo/example.orvik.orvik.metainfo.xml
desktop-file-validate "$desktop" || fail "the desktop entry"
appstreamcli validate-tree --no-net "$usr" || fail "the metainfo"
xmllint --noout "$metainfo" "$share/mime/packages/orvik-mime.xml" \
    "$share/icons/hicolor/scalable/apps/orvik.svg" || fail "XML"
! grep -E '^MimeType=.*text/(plain|html|csv)' "$desktop" || fail "files of others are claimed"
for icon in "$share"/icons/hicolor/*x*/apps/orvik.png; do
    size=$(basename "${icon%/apps/*}")
    file "$icon" | grep -q "PNG image data, ${size/x/ x }," || fail "an icon is not $size"
done

# -- The types, by name whatever the file holds, and, where that is safe, by contents.
cp /usr/share/mime/packages/freedesktop.org.xml "$share/mime/packages/"
XDG_DATA_DIRS=$share XDG_DATA_HOME=$work update-mime-database "$share/mime"
expect_type() {
    local type
    type=$(XDG_DATA_DIRS=$share XDG_DATA_HOME=$work gio info -a standard::content-type "$1" |
        sed -n 's/.*standard::content-type: //p')
    [ "$type" = "$2" ] || fail "$(basename "$1") is of type $type"
}
examples=$share/doc/orvik/examples
while read -r sample name type; do
    cp "$examples/$sample" "$work/$name"
    expect_type "$work/$name" "$type"
done <<'TYPES'
list.txt        a.ldif  text/x-ldif
list.txt        a.ldi   text/x-ldif
list.txt        a.nv    text/x-juno-addressbook
list.txt        a.abx   text/x-wordperfect-addressbook
list.txt        a.pml   text/x-pegasus-list
list.txt        a.txt   text/plain
netscape3.htm   a.htm   text/html
outlook.csv     a.csv   text/csv
netscape4.ldif  ldif    text/x-ldif
juno.nv         nv      text/x-juno-addressbook
pegasus.pml     pml     text/x-pegasus-list
list.txt        text    text/plain
TYPES

# -- The manual: correct, and complete.
for page in "$root"/packaging/man/*.1; do
    quiet man --warnings -E UTF-8 -l "$page" || fail "$(basename "$page")"
done
for program in "$usr"/bin/*; do
    name=$(basename "$program")
    man -E UTF-8 -l "$share/man/man1/$name.1" | col -b >"$work/manual"
    for option in $("$program" --help | grep -oE -- '--[a-z-]+' | sort -u); do
        grep -qE -- "$option([^a-z-]|\$)" "$work/manual" || fail "$name's manual lacks $option"
    done
done

# -- One version everywhere.
version=$(sed -n 's/^CMAKE_PROJECT_VERSION:STATIC=//p' "$build/CMakeCache.txt")
for program in "$usr"/bin/*; do
    "$program" --version | grep -qF "$version" || fail "$(basename "$program") has another version"
done
xmllint --xpath 'string(//release[1]/@version)' "$metainfo" | grep -qxF "$version" ||
    fail "the metainfo has another version"
dpkg-parsechangelog -l "$root/packaging/debian/changelog" -S Version | grep -qxF "$version" ||
    fail "Debian's changelog has another version"

# -- The package.
lintian --allow-root --fail-on error,warning \
    "$build/orvik_${version}_$(dpkg --print-architecture).deb" || fail "lintian"

exit $failed
