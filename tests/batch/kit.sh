# shellcheck shell=bash disable=SC2034
# How the tests of the programs for the command line run one, in a folder of their own. The first
# argument of the test is the program.
program=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"
export XDG_CONFIG_HOME="$work/config"
failed=0

fail() {
    echo "$(basename "$program"): $test: $1"
    failed=1
}

# run NAME STATUS ARGUMENT...: runs the program; what it printed is in out and err.
run() {
    test=$1
    local wanted=$2 status=0
    shift 2
    "$program" "$@" >out 2>err </dev/null || status=$?
    if [ "$status" -ne "$wanted" ]; then
        fail "exit status $status instead of $wanted: $(cat err)"
    fi
}
tells() { grep -qF -- "$1" err || fail "does not tell: $1 but: $(cat err)"; }
tells_nothing() { [ ! -s err ] || fail "tells: $(cat err)"; }
tells_once() { [ "$(grep -cF -- "$1" err)" = 1 ] || fail "does not tell once: $1 but: $(cat err)"; }
holds() { [ "$(cat "$1")" = "$2" ] || fail "$1 holds: $(cat "$1")"; }
is_missing() { [ ! -e "$1" ] || fail "$1 is there"; }
has() { grep -qF -- "$2" "$1" || fail "$1 has no: $2"; }
lines() { [ "$(wc -l <"$1")" = "$2" ] || fail "$1 has $(wc -l <"$1") lines"; }
