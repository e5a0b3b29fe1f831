#!/usr/bin/env bash
# Starts the program on a Wayland compositor without a screen: a book that its automation sorts is kept
# when the compositor is taken away, and offered by the next start. So is what a Book window has made of
# its book. The tests of drops, of recovery and of the Book window that need no keys run there, too.
# Arguments: the program, and the one of the tests.
#
# The compositor has no seat. So there is no clipboard, which a program can only claim with a key or a
# button, and no key can be sent: Qt would look for the method of input of a keyboard.
name=wayland
program=$1
tests=$2
# shellcheck source=tests/desktop/display.sh
. "$(dirname "$0")/display.sh"
# shellcheck source=tests/desktop/bus.sh
. "$(dirname "$0")/bus.sh"
unset DISPLAY
export QT_QPA_PLATFORM=wayland WAYLAND_DISPLAY=orvik-test ORVIK_KEEP_WITHIN=50

compositor() {
    # One that was killed has left its own.
    rm -f "$XDG_RUNTIME_DIR/$WAYLAND_DISPLAY"
    start weston --backend=headless-backend.so --socket="$WAYLAND_DISPLAY" --no-config --idle-time=0
    weston=$!
    eventually test -S "$XDG_RUNTIME_DIR/$WAYLAND_DISPLAY"
}
kept() { cat "$XDG_STATE_HOME"/orvik/recovery/*/book; }
ended() { ! kill -0 "$1"; }

book "$work/book.ldif" Berta Anna
cat >>"$XDG_CONFIG_HOME/orvik/orvik.conf" <<END
aOpenName=$work/book.ldif
[Settings\\\\AutoSteps]
1=5
2=4
3=0
END
sed -i 's/^Auto=.*/Auto=True/' "$XDG_CONFIG_HOME/orvik/orvik.conf"

compositor
start "$program"
orvik=$!
eventually kept
{ kill -9 "$weston" && wait "$weston"; } 2>/dev/null || true
eventually ended "$orvik"
kept >"$work/copy" || fail "the lost display lost the book"
grep -qa "Anna@example.org" "$work/copy" || fail "another book is kept: $(cat "$work/copy")"
sed -i 's/^Auto=.*/Auto=False/' "$XDG_CONFIG_HOME/orvik/orvik.conf"

compositor
start "$program"
orvik=$!
# While it is asked about, its lock is kept.
asks() { ! flock --nonblock "$XDG_STATE_HOME"/orvik/recovery/*/running true; }
eventually asks
kill -TERM "$orvik"
eventually ended "$orvik"
kept | cmp - "$work/copy" || fail "a book that was offered is another one"

# A Book window keeps its book, too; what is pressed in it a screen reader presses.
rm -r "$XDG_STATE_HOME/orvik/recovery"
{
    as_reader book_wayland_test.py "$program" "$work/twice.vcf" "$weston"
    wait "$weston" || true
} 2>/dev/null
compositor
as_reader book_wayland_test.py "$program" "$work/twice.vcf"

# Without keys and without a limit of file sizes, which the compositor's memory is subject to. What the
# Wayland libraries leak is theirs; a sanitized build looks for our leaks where there is no compositor.
book_tests=$(printf 'Book%s*:' Checks Document Duplicates. Keeper MoveDialog Plans WindowsTest Worker)
ASAN_OPTIONS=${ASAN_OPTIONS:+$ASAN_OPTIONS:}detect_leaks=0 "$tests" --gtest_filter="$book_tests*Drop*:Form1Recovery*:Form1Restore*:RecoveryKeeper*-$(
    printf '*%s*:' AChangeIsKeptSoon IsOnTheDiskAllTheTime CannotBeKept WhileAPersonTypes
)" >>"$log" 2>&1 || fail "the tests failed"
