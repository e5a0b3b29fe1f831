#!/usr/bin/env bash
# Sets up, builds, and starts Orvik on a copy of the sample book, with settings of its own.
set -euo pipefail
cd "$(dirname "$0")"

./setup.sh
mkdir -p build
cmake --preset release >build/configure.log 2>&1 || { cat build/configure.log; exit 1; }

try=build/try
mkdir -p "$try/config/orvik"

if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
    cmake --build --preset release --target orvik
    # The settings that a first start would ask for.
    settings=$try/config/orvik/orvik.conf
    [ -f "$settings" ] || cp packaging/default.conf "$settings"
    cp samples/netscape4.ldif "$try/book.ldif"
    XDG_CONFIG_HOME="$PWD/$try/config" XDG_CACHE_HOME="$PWD/$try/cache" \
        XDG_STATE_HOME="$PWD/$try/state" \
        exec build/release/bin/orvik "$try/book.ldif"
fi

echo "There is no display, so the sample book is sorted and converted without a window:"
cmake --build --preset release --target orvik-batch
rm -f "$try/book.txt"
build/release/bin/orvik-batch --open samples/netscape4.ldif --sort address --save "$try/book.txt"
cat "$try/book.txt"
