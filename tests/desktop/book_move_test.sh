#!/usr/bin/env bash
# Drops old books on a Book window, merges one group of duplicates and moves the book, by keys and
# mouse; what is written must be what orvik-book makes of the same files and decisions. Arguments: the
# program, orvik-book, the source of the drag.
name=book-move
# shellcheck source=tests/desktop/display.sh
. "$(dirname "$0")/display.sh"
# shellcheck source=tests/desktop/bus.sh
. "$(dirname "$0")/bus.sh"

as_reader book_move_test.py "$@" "$work"
