#!/usr/bin/env bash
# Builds the package of the last commit twice, each time as somebody else would, packs one of the two in
# memory again, and compares what comes out.
# Arguments: other packages of this commit that must be the same too.
set -euo pipefail
root=$(cd "$(dirname "$0")/../.." && pwd)
work=$(mktemp -d)
# Folders have other sizes in memory than on most disks.
memory=$(mktemp -d -p /dev/shm)
trap 'rm -rf "$work" "$memory"' EXIT

# Where de_DE is not installed; without its files it would be C again.
mkdir "$work/locales"
localedef -i de_DE -f UTF-8 "$work/locales/de_DE.UTF-8"
[ "$(LOCPATH=$work/locales LC_ALL=de_DE.UTF-8 locale decimal_point)" = , ]

# package FOLDER UMASK LOCALE ZONE JOBS: builds the package there. Without ccache, which would give the
# second build what the first one compiled.
package() (
    umask "$2"
    git clone --quiet "$root" "$1"
    cd "$1"
    person=(env -u SOURCE_DATE_EPOCH -u LANGUAGE LOCPATH="$work/locales" LC_ALL="$3" TZ="$4")
    {
        "${person[@]}" cmake --preset release -DORVIK_CCACHE:BOOL=OFF &&
            "${person[@]}" cmake --build --preset release --parallel "$5" --target deb
    } >"$work/log" 2>&1 || { cat "$work/log"; exit 1; }
)

package "$work/one" 022 C UTC0 2
package "$work/other people/orvik" 077 de_DE.UTF-8 EAST-9 1
(cd "$work/one/build/release" && cpack -G DEB -B "$memory" >"$work/log" 2>&1) ||
    { cat "$work/log"; exit 1; }
packages=("$work"/one/build/release/*.deb "$work"/other*/orvik/build/release/*.deb
    "$memory"/*.deb "$@")

sha256sum "${packages[@]}"
failed=0
for other in "${packages[@]:1}"; do
    cmp "${packages[0]}" "$other" || failed=1
done
[ $failed = 0 ] && exit

# Which files differ, and how each package came to its members.
for i in "${!packages[@]}"; do
    dpkg-deb --raw-extract "${packages[i]}" "$work/contents"
    (cd "$work/contents" && find . -type f -exec sha256sum {} + | sort -k 2) >"$work/$i"
    rm -r "$work/contents"
    { ar tv "${packages[i]}"; dpkg-deb --contents "${packages[i]}"; } >>"$work/$i"
    diff "$work/0" "$work/$i" || true
done
exit 1
