#!/usr/bin/env bash
# What the window program does with its arguments before there is a window. Argument: the program.
set -euo pipefail
program=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"
unset DISPLAY WAYLAND_DISPLAY QT_QPA_PLATFORM
export LC_ALL=C.UTF-8
failed=0

# check NAME STATUS: what the last run ended with, and that it told what stands in wanted, if anything.
check() {
    if [ "$status" != "$2" ] || ! diff -u wanted err; then
        echo "arguments: $1: exit status $status: $(cat err)"
        failed=1
    fi
}

: >wanted
for word in --help --help-all --version -h -v; do
    status=0
    "$program" $word >out 2>err || status=$?
    check "$word" 0
    [ -s out ] || { echo "arguments: $word prints nothing"; failed=1; }
done
echo "orvik: Standard output cannot be written to" >wanted
for word in --help --help-all --version; do
    status=0
    "$program" $word >/dev/full 2>err || status=$?
    check "$word into a full device" 74
    status=0
    "$program" $word >&- 2>err || status=$?
    check "$word into a closed stream" 74
done

# What is quoted is text.
echo "Unknown option 'e\x1B[2J\x0A\u202E\u009B<b>'." >wanted
status=0
"$program" $'--e\x1b[2J\n\xe2\x80\xae\xc2\x9b<b>' >out 2>err || status=$?
check "an unknown option" 1
echo "orvik: There is no display. orvik-batch does the same without one." >wanted
for words in "book.ldif" "--book" "--book a.ldif b.vcf"; do
    status=0
    # shellcheck disable=SC2086
    "$program" $words >out 2>err || status=$?
    check "no display: $words" 1
done
"$program" --help | grep -q -e '--book' || { echo "arguments: --book is not explained"; failed=1; }
echo "Unexpected value after '--book'." >wanted
status=0
"$program" --book=a.ldif >out 2>err || status=$?
check "a value of --book" 1
exit $failed
