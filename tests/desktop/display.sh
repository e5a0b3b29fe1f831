# A display and a user of their own for tests of the real program. To be sourced; it needs $name, the
# test's name, and leaves nothing behind. Shell variables: $work, a folder; $log, what everybody said.
set -euo pipefail
work=$(mktemp -d)
log=$work/log
started=()

# start COMMAND...: runs a command in the background; $! is its process.
start() {
    "$@" >>"$log" 2>&1 &
    started+=($!)
}

cleanup() {
    local process
    for process in "${started[@]}"; do
        kill "$process" 2>/dev/null || true
    done
    # The display is gone, and with it whatever drew on it.
    wait 2>/dev/null || true
    rm -rf "$work"
}
trap cleanup EXIT

fail() {
    echo "$name: $1"
    cat "$log"
    exit 1
}

# Waits up to ten seconds until a command succeeds; what it prints is in $work/found.
eventually() {
    for _ in $(seq 100); do
        if "$@" >"$work/found" 2>/dev/null; then return; fi
        sleep 0.1
    done
    fail "in vain: $*"
}

: >"$log"
mkfifo "$work/display"
# Programs that come and go do not reset it.
Xvfb -noreset -displayfd 3 -screen 0 800x600x24 3<>"$work/display" >>"$log" 2>&1 &
started+=($!)
read -r -t 10 number <"$work/display" || fail "no display"
export DISPLAY=":$number"
unset WAYLAND_DISPLAY QT_QPA_PLATFORM

# Nothing of the user's is read or written.
export HOME=$work/home
export XDG_CONFIG_HOME=$work/config XDG_STATE_HOME=$work/state XDG_CACHE_HOME=$work/cache
export XDG_DATA_HOME=$work/data XDG_RUNTIME_DIR=$work/runtime
mkdir -p "$HOME" "$XDG_CONFIG_HOME/orvik" "$XDG_STATE_HOME" "$XDG_CACHE_HOME" "$XDG_DATA_HOME"
mkdir -m 700 "$XDG_RUNTIME_DIR"

# The settings of a user who has been here before.
printf '[Settings]\ntextSep=5\nOpen=1\nExtract=False\nSep=,\nAuto=False\n' \
    >"$XDG_CONFIG_HOME/orvik/orvik.conf"

# book FILE NAME...: writes a book with an entry for each name.
book() {
    local file=$1 entry
    shift
    for entry in "$@"; do
        printf 'dn: cn=%s\r\nxmozillanickname: %s\r\n' "$entry" "$entry"
        printf 'mail: %s@example.org\r\nxnavusehtmlmail: TRUE\r\n\r\n' "$entry"
    done >"$file"
}

# Without a window manager the focus may go elsewhere, so a key is sent until it has worked.

# shows TITLE WINDOW KEY...: sends keys to a window, and says whether a title is on the display.
shows() {
    xdotool windowfocus "$2"
    xdotool key "${@:3}"
    sleep 0.2
    xdotool search --onlyvisible --name "$1"
}
shows_not() { ! shows "$@"; }

# ended PROCESS BOX KEY: sends a key to a box, and says whether the process is gone.
ended() {
    xdotool windowfocus "$2" || true
    xdotool key "$3" || true
    ! kill -0 "$1"
}

# quit WINDOW PROCESS: leaves the program as a user does who saves nothing.
quit() {
    eventually shows '^Save\?$' "$1" ctrl+q
    eventually ended "$2" "$(tail -n 1 "$work/found")" alt+n
    wait "$2" || fail "exit status $?"
}
