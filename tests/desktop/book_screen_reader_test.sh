#!/usr/bin/env bash
# Starts a Book window on a display and a session bus of its own, and lets a client of the
# accessibility bus read and use it, as a screen reader does. Argument: the program.
name=book-screen-reader
program=$1
# shellcheck source=tests/desktop/display.sh
. "$(dirname "$0")/display.sh"
# shellcheck source=tests/desktop/bus.sh
. "$(dirname "$0")/bus.sh"

as_reader book_screen_reader_test.py "$program" "$work"
