#!/usr/bin/env bash
# Kills the program, and cancels, while a Book window writes a book for another program. Arguments: the
# program, orvik-book.
name=book-kill
# shellcheck source=tests/desktop/display.sh
. "$(dirname "$0")/display.sh"
# shellcheck source=tests/desktop/bus.sh
. "$(dirname "$0")/bus.sh"

patience=150
as_reader book_kill_test.py "$@" "$work"
