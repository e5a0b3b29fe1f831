#!/usr/bin/env bash
# Kills the real program while a Book window has changes, and looks at what the next start offers.
# Argument: the program.
name=book-recovery
program=$1
# shellcheck source=tests/desktop/display.sh
. "$(dirname "$0")/display.sh"
python3 "$(dirname "$0")/book_recovery_test.py" "$program" "$work" || fail "see above"
