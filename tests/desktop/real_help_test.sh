#!/usr/bin/env bash
# Reads the help of the real program while its preferences wait, and leaves the program with the help
# open. Argument: the program.
name=real-help
program=$1
# shellcheck source=tests/desktop/display.sh
. "$(dirname "$0")/display.sh"

start "$program"
process=$!
eventually xdotool search --onlyvisible --name '^Orvik$'
window=$(head -n 1 "$work/found")

# Help takes keys of its own while the preferences wait.
eventually shows '^Orvik Preferences$' "$window" alt+e f
preferences=$(tail -n 1 "$work/found")
eventually shows 'Orvik Help$' "$preferences" F1
eventually shows_not 'Orvik Help$' "$(tail -n 1 "$work/found")" Escape
xdotool search --onlyvisible --name '^Orvik Preferences$' >/dev/null || fail "no preferences"
eventually shows_not '^Orvik Preferences$' "$preferences" Escape

# Windows whose forms know no help, and boxes, have a page too.
eventually shows '^About Orvik$' "$window" alt+h a
about=$(tail -n 1 "$work/found")
eventually shows 'Orvik Help$' "$about" F1
eventually shows_not 'Orvik Help$' "$(tail -n 1 "$work/found")" Escape
eventually shows_not '^About Orvik$' "$about" Escape
eventually shows '^Save\?$' "$window" ctrl+q
question=$(tail -n 1 "$work/found")
eventually shows '^What a message means - Orvik Help$' "$question" F1
eventually shows_not 'Orvik Help$' "$(tail -n 1 "$work/found")" Escape
eventually shows_not '^Save\?$' "$question" Escape

# The program ends without the help having been closed.
eventually shows 'Orvik Help$' "$window" F1
quit "$window" "$process"
