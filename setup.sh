#!/usr/bin/env bash
# Installs the Debian packages that building, testing and running Orvik need. Does nothing when all
# are there.
set -euo pipefail

packages=(
    # building
    g++ cmake ninja-build ccache pkg-config libcli11-dev libglib2.0-dev
    qt6-base-dev qt6-svg-dev qt6-tools-dev qt6-documentation-tools
    dpkg-dev file librsvg2-bin
    # testing
    libgtest-dev libgmock-dev libbenchmark-dev
    clang clang-format clang-tidy libclang-rt-14-dev
    xvfb xdotool x11-utils imagemagick openbox qt6ct
    at-spi2-core dbus python3 python3-pyatspi
    appstream desktop-file-utils lintian man-db mmdebstrap
    libglib2.0-bin libxml2-utils shared-mime-info
    # running: the window system's plug-ins, icons and a font
    qt6-qpa-plugins libqt6svg6 libqt6sql6-sqlite fonts-dejavu-core
)

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
