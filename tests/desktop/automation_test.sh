#!/usr/bin/env bash
# Stores an automation through the real preferences window at a first start, and runs it by a second
# start of the program and by orvik-batch. Arguments: the programs.
name=automation
program=$1
batch=$2
# shellcheck source=tests/desktop/display.sh
. "$(dirname "$0")/display.sh"
# shellcheck source=tests/desktop/bus.sh
. "$(dirname "$0")/bus.sh"

rm "$XDG_CONFIG_HOME/orvik/orvik.conf"
book "$work/book.ldif" Berta Anna
saved=$work/saved.txt
as_reader preferences_test.py "$program" "$work/book.ldif" "$saved"

check_saved() {
    [ "$(cat "$saved")" = "$(printf '"Anna" <Anna@example.org>\r\n"Berta" <Berta@example.org>\r')" ]
}
eventually check_saved

desktop-file-validate "$XDG_CONFIG_HOME/autostart/Orvik Auto.desktop" || fail "the start-up entry"

rm "$saved"
start "$program"
eventually check_saved

rm "$saved"
"$batch" --automation >>"$log" 2>&1 || fail "orvik-batch ended with $?"
check_saved || fail "orvik-batch saved something else"
