#!/usr/bin/env bash
# Starts the real program on a display and a session bus of its own, and lets a client of the
# accessibility bus read and use it, as a screen reader does. Argument: the program.
name=screen-reader
program=$1
# shellcheck source=tests/desktop/display.sh
. "$(dirname "$0")/display.sh"
# shellcheck source=tests/desktop/bus.sh
. "$(dirname "$0")/bus.sh"

# Berta is before Anna, so that a sort can be seen.
book "$work/book.ldif" Berta Anna
as_reader screen_reader_test.py "$program" "$work/book.ldif"
