#!/usr/bin/env bash
# Starts the real program twice on a display of its own, opens a book in both, finds the windows, and
# closes them. Argument: the program.
name=real-window
program=$1
# shellcheck source=tests/desktop/display.sh
. "$(dirname "$0")/display.sh"

book "$work/book.ldif" Anna Berta
start "$program" "$work/book.ldif"
first=$!
# Nothing keeps a second program from the same book.
start "$program" "$work/book.ldif"
second=$!
windows() {
    xdotool search --onlyvisible --name "^Orvik - $work/book.ldif\$"
    [ "$(wc -l <"$work/found")" -eq 2 ]
}
eventually windows
mapfile -t found <"$work/found"

# Without a window manager the focus may go elsewhere, so a key is sent until it has worked.
ask_to_quit() {
    xdotool windowfocus "$window"
    xdotool key ctrl+q
    xdotool search --onlyvisible --name '^Save\?$'
}
answer_no() {
    xdotool windowfocus "$box"
    xdotool key alt+n
}
gone() {
    answer_no || true
    ! kill -0 "$program_id"
}
for window in "${found[@]}"; do
    program_id=$(xdotool getwindowpid "$window")
    eventually ask_to_quit
    box=$(tail -n 1 "$work/found")
    eventually gone
done
wait "$first" || fail "exit status $?"
wait "$second" || fail "exit status $?"
