#!/usr/bin/env bash
# Starts the real program twice on a display of its own, opens a book in both, finds the windows, and
# closes them. Argument: the program.
name=real-window
program=$1
# shellcheck source=tests/desktop/display.sh
. "$(dirname "$0")/display.sh"

book "$work/book.ldif" Anna Berta
start "$program" "$work/book.ldif"
# Nothing keeps a second program from the same book.
start "$program" "$work/book.ldif"
windows() {
    xdotool search --onlyvisible --name "^Orvik - $work/book.ldif\$"
    [ "$(wc -l <"$work/found")" -eq 2 ]
}
eventually windows
mapfile -t found <"$work/found"
for window in "${found[@]}"; do
    quit "$window" "$(xdotool getwindowpid "$window")"
done
[ -s "$XDG_STATE_HOME/orvik/window.conf" ] || fail "the window's place was not kept"
[ "$(stat -c %a "$XDG_STATE_HOME/orvik/books")" = 600 ] || fail "others can read the last books"
grep -q "file://$work/book.ldif" "$XDG_DATA_HOME/recently-used.xbel" || fail "the desktop was not told"
