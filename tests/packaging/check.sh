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
for option in $(sed -n 's/^Exec=orvik//p' "$desktop" | grep -oE -- '--[a-z-]+'); do
    "$usr/bin/orvik" --help | grep -qE -- "$option([^a-z-]|\$)" || fail "the desktop entry gives $option"
done
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
    # Of a program with verbs each of them has a help of its own.
    verbs=$("$program" --help | sed -n '/^Subcommands:/,/^$/s/^  \([a-z]*\) .*/\1/p')
    for verb in "" $verbs; do
        # shellcheck disable=SC2086
        "$program" $verb --help
    done >"$work/help"
    for option in $(grep -oE -- '--[a-z-]+' "$work/help" | sort -u); do
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
package=$build/orvik_${version}_$(dpkg --print-architecture).deb
lintian --allow-root --fail-on error,warning "$package" || fail "lintian"

# -- Hardened. What each program shows of it is looked for in what users get;
dpkg-deb --extract "$package" "$work/package"
for program in "$work"/package/usr/bin/*; do
    name=$(basename "$program")
    readelf --wide --file-header --program-headers --dynamic --dyn-syms "$program" >"$work/elf"
    while read -r sign pattern; do
        grep -qE "$pattern" "$work/elf" || fail "$name has no $sign"
    done <<'SIGNS'
PIE                       FLAGS_1.* PIE
BIND_NOW                  \(FLAGS\).*BIND_NOW
RELRO                     GNU_RELRO
plain-data-stack          GNU_STACK.* RW +0x
stack-protector           __stack_chk_fail
checks-of-the-library     __glibcxx_assert_fail
SIGNS
done
# the window program calls nothing that has a fortified form;
readelf --wide --dyn-syms "$work"/package/usr/bin/* >"$work/symbols"
grep -qE ' __[a-z]+_chk@' "$work/symbols" || fail "no program has a fortified function"
# what leaves no trace is looked for in the command of each source that a program is made of.
grep '"command":' "$build/compile_commands.json" |
    grep -v verify_interface_header_sets >"$work/commands"
for flags in "-U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=3" -D_GLIBCXX_ASSERTIONS \
    -fstack-protector-strong -fstack-clash-protection; do
    ! grep -vF -e " $flags " "$work/commands" || fail "compiled without $flags"
done
! grep -E -e '-D_FORTIFY_SOURCE=3.*(_FORTIFY_SOURCE|-D_GLIBCXX_ASSERTIONS=0|-O0)' "$work/commands" ||
    fail "hardening is taken back"

# -- What it depends on is explained.
sed -n 's/^|\([^|]*\)|.*/\1/p' "$root/docs/dependencies.md" >"$work/explained"
for name in $(dpkg-deb --field "$package" Depends | sed 's/([^)]*)//g; s/[,|]/ /g'); do
    grep -qF "\`$name\`" "$work/explained" || fail "$name is not explained"
done

# -- Nothing of where it was built.
! grep -rlF -e "$(realpath "$root")" "$work/package" || fail "the folder of the sources is in it"

exit $failed
