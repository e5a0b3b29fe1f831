#!/usr/bin/env bash
# Installs the Debian packages that Orvik needs. Does nothing when all are there.
#   ./setup.sh            for building and running the programs
#   ./setup.sh --package  also for making the Debian package
#   ./setup.sh --tests    also for ./test.sh and the other tools of developers
#   ./setup.sh --readers  also for what ./test.sh --full has other address books' libraries read
set -euo pipefail

packages=(
    # building
    g++ cmake ninja-build pkg-config libcli11-dev libglib2.0-dev libgmime-3.0-dev libicu-dev
    libuchardet-dev nlohmann-json3-dev
    qt6-base-dev qt6-tools-dev qt6-documentation-tools
    # the icon in sizes
    librsvg2-bin
    # running: what Qt loads by name (the window system, SVG, the help's database), and a font
    qt6-qpa-plugins libqt6svg6 libqt6sql6-sqlite fonts-dejavu-core
)
package_packages=(dpkg-dev file)
test_packages=(
    # compiling and checking
    ccache git libgtest-dev libgmock-dev libbenchmark-dev
    clang clang-format clang-tidy libclang-rt-14-dev python3
    # windows, and their pictures
    xvfb xdotool imagemagick openbox qt6ct at-spi2-core dbus python3-pyatspi weston qt6-wayland
    # what is installed, and the package
    appstream desktop-file-utils libglib2.0-bin libxml2-utils lintian locales man-db
    mmdebstrap shared-mime-info
    # interrupted savings
    strace
)
# Apart from the tests: KContacts brings Qt 5, and Evolution's library half a desktop.
reader_packages=(libkf5contacts-dev libebook-contacts1.2-dev)
case "${1:-}" in
    --package) packages+=("${package_packages[@]}") ;;
    --tests) packages+=("${package_packages[@]}" "${test_packages[@]}") ;;
    --readers) packages+=("${reader_packages[@]}") ;;
    "") ;;
    *) echo "usage: $0 [--package | --tests | --readers]" >&2; exit 2 ;;
esac

missing=()
for package in "${packages[@]}"; do
    status=$(dpkg-query --show --showformat='${db:Status-Status}' "$package" 2>/dev/null || true)
    [ "$status" = installed ] || missing+=("$package")
done
[ ${#missing[@]} -gt 0 ] || exit 0

as_root=()
if [ "$(id -u)" -ne 0 ]; then
    as_root=(sudo)
fi
echo "Installing: ${missing[*]}"
"${as_root[@]}" apt-get update --quiet --quiet
DEBIAN_FRONTEND=noninteractive \
    "${as_root[@]}" apt-get install --yes --quiet --quiet --no-install-recommends "${missing[@]}"
