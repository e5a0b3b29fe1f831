#!/usr/bin/env bash
# Kills the real program while a person works, and looks at what the next start offers. Arguments: the
# program, and how many kills there are of each kind, 1 if nothing is said.
name=recovery
program=$1
kills=${2:-1}
# It may be followed by the other program, which is not needed.
[[ $kills =~ ^[0-9]+$ ]] || kills=1
# shellcheck source=tests/desktop/display.sh
. "$(dirname "$0")/display.sh"
python3 "$(dirname "$0")/recovery_test.py" "$program" "$work" "$kills" || fail "see above"
