#!/usr/bin/env bash
# What orvik-batch tells of files and arguments that it can do nothing with: one true line, the right
# exit status, and nothing that a terminal would obey.
set -euo pipefail
# shellcheck source=tests/batch/kit.sh
. "$(dirname "$0")/kit.sh"

# tells_only LINE: one line, from its beginning to its end.
tells_only() {
    [ "$(cat err)" = "$1" ] || fail "does not tell only: $1 but: $(cat err)"
}

printf '"Di" <d@example.org>\r\n' >one.txt

# Names that are empty, also where the next argument could be taken for one.
for option in --open --extract --merge --save; do
    run "$option and an empty name" 2 $option ""
    tells "$option: a file's name is empty"
    run "$option= without a name" 2 $option= one.txt
    tells "$option: a file's name is empty"
done
run "--pim= without a name" 2 --pim= one.txt
tells "--pim: a file's name is empty"
run "--pim with an empty name" 2 --pim one.txt ""
tells "--pim: a file's name is empty"
is_missing book.ldif

# Standard input and output are no books.
for words in "--open -" "--extract -" "--merge -" "--open one.txt --save -" "--pim - b.csv" \
    "--pim one.txt -"; do
    # shellcheck disable=SC2086
    run "standard streams: $words" 2 $words
    tells "which is no book: the ending of its name tells the format, and it may be read twice."
    [ ! -s out ] || fail "prints: $(cat out)"
done
is_missing ./-
cp one.txt ./-
run "a file of that name" 0 --open ./- --save dash.txt
holds dash.txt "$(cat one.txt)"

# Each failure is told in one line.
run "a missing book" 66 --open gone.ldif
tells_only "orvik-batch: gone.ldif: Error: File not found"
run "a missing book to extract from" 66 --extract gone.ldif
tells_only "orvik-batch: gone.ldif: File not found"
run "a missing book to merge" 66 --open one.txt --merge gone.ldif --save never.txt
tells_only "orvik-batch: gone.ldif: File not found"
run "a missing folder" 66 --open gone/book.ldif
tells_only "orvik-batch: gone/book.ldif: Error: Path not found"
run "a folder" 66 --open .
tells_only "orvik-batch: .: Error: Path/File access error"
run "a folder to save to" 73 --open one.txt --save gone/book.ldif
tells_only "orvik-batch: gone/book.ldif: Path not found"
is_missing never.txt

# What is asked for is printed, or the program fails.
for word in --help --version; do
    run "$word" 0 $word
    [ -s out ] || fail "prints nothing"
    for output in ">/dev/full" ">&-"; do
        test="$word $output"
        status=0
        eval "\"\$program\" $word $output 2>err" || status=$?
        [ "$status" = 74 ] || fail "exit status $status instead of 74"
        tells_only "orvik-batch: Standard output cannot be written to"
    done
done

# A closed stream's number is no file's: what is told does not get into the book.
test="standard error is closed"
cp one.txt closed.pml
"$program" --open one.txt --save closed.pml --open gone.txt 2>&- || true
"$program" --open one.txt --save closed.txt --merge gone.txt 2>&- >&- <&- || true
holds closed.txt "$(cat one.txt)"
cmp -s one.txt closed.pml || fail "closed.pml is another one"

# Names and arguments are plain text: ESC, a line break, C1, a change of direction, no UTF-8.
odd=$'e\x1b[2J\n\x7f\xc2\x9b\xe2\x80\xae\xe2\x80\xa8\xd8\x9c\xff<b>J\xc3\xbcrg'
shown='e\x1B[2J\x0A\x7F\u009B\u202E\u2028\u061C\xFF<b>Jürg'
run "a name that steers" 66 --open "$odd"
tells_only "orvik-batch: $shown: Error: File not found"
run "a name that steers, to save to" 73 --open one.txt --save "gone/$odd.txt"
tells_only "orvik-batch: gone/$shown.txt: Path not found"
{ echo 'Mail e@example.org, please.'; seq 3300 | sed 's/.*/no address in this line/'; } >"$odd.mbox"
run "a name in a question" 0 --extract "$odd.mbox" --answer yes
tells "orvik-batch: $shown.mbox: The File $shown.mbox is pretty large"
lines err 1
run "an argument" 2 --open one.txt "$odd"
tells "The following argument was not expected: $shown"
lines err 2
run "an option" 2 "--$odd"
tells "$shown"
lines err 2
run "a value" 2 --open one.txt --sort "$odd"
tells "$shown"
lines err 2
mkdir -p "$odd/orvik/orvik.conf"
XDG_CONFIG_HOME="$work/$odd" run "the settings' name" 1 --automation
tells "The settings file $work/$shown/orvik/orvik.conf cannot be read."
lines err 1

exit $failed
