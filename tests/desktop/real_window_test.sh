#!/usr/bin/env bash
# Starts the real program on a display of its own, opens a book, finds the window, reads help for the
# preferences, and closes all.
# Argument: the program.
set -euo pipefail
program=$1
work=$(mktemp -d)
server=
orvik=

cleanup() {
    [ -z "$orvik" ] || kill "$orvik" 2>/dev/null || true
    [ -z "$server" ] || kill "$server" 2>/dev/null || true
    rm -rf "$work"
}
trap cleanup EXIT

fail() {
    echo "real-window: $1"
    cat "$work/log"
    exit 1
}

# Waits up to ten seconds until a command succeeds.
eventually() {
    for _ in $(seq 100); do
        if "$@" >"$work/found" 2>/dev/null; then return; fi
        sleep 0.1
    done
    fail "in vain: $*"
}

: >"$work/log"
mkfifo "$work/display"
Xvfb -displayfd 3 -screen 0 800x600x24 3<>"$work/display" >>"$work/log" 2>&1 &
server=$!
read -r -t 10 number <"$work/display" || fail "no display"
export DISPLAY=":$number"
unset WAYLAND_DISPLAY QT_QPA_PLATFORM

mkdir -p "$work/config/orvik"
printf '[Settings]\ntextSep=5\nOpen=1\nExtract=False\nSep=","\nAuto=False\n' \
    >"$work/config/orvik/orvik.conf"
for name in Anna Berta; do
    printf 'dn: cn=%s\r\nxmozillanickname: %s\r\nmail: %s@example.org\r\n\r\n' \
        "$name" "$name" "$name"
done >"$work/book.ldif"

XDG_CONFIG_HOME="$work/config" XDG_CACHE_HOME="$work/cache" "$program" "$work/book.ldif" >>"$work/log" 2>&1 &
orvik=$!
eventually xdotool search --onlyvisible --name "^Orvik - $work/book.ldif\$"
window=$(head -n 1 "$work/found")

# Without a window manager the focus may go elsewhere, so a key is sent until it has worked.
# shows TITLE WINDOW KEY...: sends keys to a window, and says whether a title is on the display.
shows() {
    xdotool windowfocus "$2"
    xdotool key "${@:3}"
    sleep 0.2
    xdotool search --onlyvisible --name "$1"
}
shows_not() {
    ! shows "$@"
}

# Help takes keys of its own while the preferences wait.
eventually shows '^Orvik Preferences$' "$window" alt+e f
preferences=$(tail -n 1 "$work/found")
eventually shows 'Orvik Help$' "$preferences" F1
eventually shows_not 'Orvik Help$' "$(tail -n 1 "$work/found")" Escape
xdotool search --onlyvisible --name '^Orvik Preferences$' >/dev/null || fail "no preferences"
eventually shows_not '^Orvik Preferences$' "$preferences" Escape

# The program ends without the help having been closed.
eventually shows 'Orvik Help$' "$window" F1

ask_to_quit() {
    xdotool windowfocus "$window"
    xdotool key ctrl+q
    xdotool search --onlyvisible --name '^Save\?$'
}
eventually ask_to_quit
box=$(tail -n 1 "$work/found")
answer_no() {
    xdotool windowfocus "$box"
    xdotool key alt+n
}
gone() {
    answer_no || true
    ! kill -0 "$orvik"
}
eventually gone
wait "$orvik" || fail "exit status $?"
