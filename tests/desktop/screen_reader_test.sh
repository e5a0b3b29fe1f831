#!/usr/bin/env bash
# Starts the real program on a display and a session bus of its own, and lets a client of the
# accessibility bus read and use it, as a screen reader does. Argument: the program.
name=screen-reader
program=$1
# shellcheck source=tests/desktop/display.sh
. "$(dirname "$0")/display.sh"

# Berta is before Anna, so that a sort can be seen.
book "$work/book.ldif" Berta Anna
export QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1 NO_AT_BRIDGE=0
unset DBUS_SESSION_BUS_ADDRESS AT_SPI_BUS_ADDRESS

# The bus goes, with all that it started, when the reader is done.
if ! timeout --kill-after=5 50 dbus-run-session -- \
    /usr/bin/python3 "$(dirname "$0")/screen_reader_test.py" "$program" "$work/book.ldif" \
    >>"$log" 2>&1; then
    fail "the reader was not content"
fi
