#!/usr/bin/env bash
# Gives orvik-book what is no address book, and files that cannot be read or written: each is named
# for what it is, nothing is written, and no input changes.
# Arguments: the program, and a picture.
set -euo pipefail
# shellcheck source=tests/batch/kit.sh
. "$(dirname "$0")/../batch/kit.sh"
picture=$2

printf 'BEGIN:VCARD\r\nVERSION:3.0\r\nUID:1\r\nN:Bo;;;;\r\nFN:Bo\r\nEMAIL:bo@example.org\r\nEND:VCARD\r\n' >bo.vcf
printf 'dn: cn=Al\ncn: Al\nmail: al@example.org\n' >al.ldif
cp bo.vcf bo.kept
cp al.ldif al.kept
unchanged() {
    cmp -s bo.vcf bo.kept || fail "an input changed"
    cmp -s al.ldif al.kept || fail "an input changed"
}
# refused NAME STATUS INPUT MESSAGE: by all verbs, with nothing written.
refused() {
    run "show $1" "$2" show "$3" --report never.json
    tells "$4"
    lines err 1
    run "convert $1" "$2" convert bo.vcf "$3" -o never.vcf --report never.json
    tells "$4"
    run "check $1" "$2" check "$3" --report never.json
    tells "$4"
    run "diff $1" "$2" diff bo.vcf "$3" --report never.json
    tells "$4"
    is_missing never.vcf
    is_missing never.json
    unchanged
}

# What is no address book.
refused "a picture" 65 "$picture" "this is a PNG image, no address book"
: >empty.vcf
refused "an empty file" 65 empty.vcf "orvik-book: empty.vcf: this is an empty file, no address book"
echo "Dear Al," >letter.ldif
refused "a letter" 65 letter.ldif "this is a text, no address book"
printf '<html><body>' >page.vcf
refused "a page" 65 page.vcf "this is an HTML page, no address book"
head -c 100000 /dev/zero >zeros
refused "zeros" 65 zeros "no address book"
test="nothing at standard input"
status=0
"$program" convert - -o never.vcf </dev/null 2>err || status=$?
[ "$status" = 65 ] || fail "exit status $status"
tells "orvik-book: -: this is an empty file"
status=0
"$program" show - <&- 2>err || status=$?
[ "$status" = 66 ] || fail "exit status $status where it is closed"
tells "-: Standard input is closed"
status=0
"$program" show - <"$work" 2>err || status=$?
[ "$status" = 66 ] || fail "exit status $status where it is a folder"
printf 'BEGIN:VCARD\r\nEND:VCARD\r\n' >nobody.vcf
run "a book of nobody" 1 convert nobody.vcf -o nobody.out.vcf
tells "nobody.vcf: line 1: skipped: it holds nothing"
has out "read 0   written 0"

# What cannot be read.
refused "a missing file" 66 gone.vcf "orvik-book: gone.vcf: File not found"
refused "a missing folder" 66 gone/book.vcf "gone/book.vcf: Path not found"
refused "a folder" 66 "$work" "This is a folder, no address book"
refused "a device" 66 /dev/zero "This is a device, no address book"
mkfifo pipe
refused "a pipe" 66 pipe "This is a pipe or another thing without an end; - reads standard input"
mkfifo pipe.vcf
run "a pipe to write" 73 convert bo.vcf -o pipe.vcf --force
tells "pipe.vcf: Path/File access error"
run "the first that fails decides" 65 show letter.ldif gone.vcf bo.vcf
has out "bo.vcf: vCard 3.0"
run "the first that fails decides of a check, too" 65 check letter.ldif gone.vcf bo.vcf
has out "1 checked: 1 valid, 0 odd, 0 bad"

# Half a file, and what data may name.
printf 'BEGIN:VCARD\r\nVERSION:3.0\r\nFN:Bo\r\nEMAIL:bo@exa' >half.vcf
run "half a card" 0 convert half.vcf -o half.out.vcf
has half.out.vcf "EMAIL:bo@exa"
tells "is cut off by the end of the file"
has out "doubtful 1"
printf 'dn: cn=Al\ncn: Al\njpegPhoto:< file:///etc/passwd\nseeAlso:< http://example.org/\n' >names.ldif
run "files and addresses in data" 0 convert names.ldif -o names.vcf
has names.vcf "file:///etc/passwd"
tells "names a file or an address that is never opened"
if grep -q root: names.vcf; then fail "a file that the data names was opened"; fi

# What is there already.
echo old >there.vcf
run "a file that is there" 73 convert bo.vcf -o there.vcf
tells "there.vcf: The file is there already; --force replaces it"
holds there.vcf old
run "a report that is there" 73 show bo.vcf --report there.vcf
holds there.vcf old
[ ! -s out ] || fail "prints: $(cat out)"
run "replaced" 0 convert bo.vcf -o there.vcf --force
cmp -s there.vcf bo.vcf || fail "it was not replaced"
ln -s there.vcf link.vcf
run "a link stays a link" 0 convert al.ldif -o link.vcf --force
has there.vcf "FN:Al"
[ -L link.vcf ] || fail "the link is gone"

# Inputs are never written, under whatever name.
ln bo.vcf hard.vcf
ln -s bo.vcf soft.vcf
mkdir folder
for name in bo.vcf ./bo.vcf folder/../bo.vcf hard.vcf soft.vcf "$work/bo.vcf"; do
    for force in "" --force; do
        # shellcheck disable=SC2086
        run "over itself: $name $force" 73 convert bo.vcf -o "$name" --vcard 4 $force
        tells "$name: This file is read, and a book is never written over itself"
        # shellcheck disable=SC2086
        run "a report over it: $name $force" 73 diff al.ldif bo.vcf --report "$name" $force
        tells "$name: This file is read"
        unchanged
    done
done
run "over a second input" 73 convert al.ldif bo.vcf -o soft.vcf --force
unchanged
test="over standard input"
status=0
# shellcheck disable=SC2094
"$program" convert - -o bo.vcf --vcard 4 --force <bo.vcf 2>err || status=$?
[ "$status" = 73 ] || fail "exit status $status"
status=0
# shellcheck disable=SC2094
"$program" convert bo.vcf --vcard 4 >>bo.vcf 2>err || status=$?
[ "$status" = 73 ] || fail "exit status $status onto the end of it"
tells "Standard output is a file that is read"
unchanged
for name in new.vcf ./new.vcf folder/../new.vcf; do
    run "book and report as one file: $name" 73 convert bo.vcf -o new.vcf --report "$name"
    tells "The report and the book would be one file"
    is_missing new.vcf
done

# What cannot be written.
run "a missing folder to write" 73 convert bo.vcf -o gone/new.vcf
tells "gone/new.vcf: Path not found"
run "a folder to write" 73 convert bo.vcf -o folder --vcard 3 --force
tells "folder: This is a folder; a file in it needs a name"
run "a report in a missing folder" 73 convert bo.vcf -o new.vcf --report gone/report
is_missing new.vcf
if [ "$(id -u)" -ne 0 ]; then
    chmod a-w folder
    run "a folder that takes nothing" 73 convert bo.vcf -o folder/new.vcf
    tells "folder/new.vcf: Permission denied"
    chmod u+w folder
    chmod a-r al.ldif
    run "a file that may not be read" 66 show al.ldif
    tells "al.ldif: Permission denied"
    chmod u+r al.ldif
fi
run "a full device" 74 convert bo.vcf -o /dev/full --vcard 3
tells "/dev/full: Disk full"
cp bo.vcf full.vcf
test="a full disk"
status=0
(trap '' XFSZ; ulimit -f 0; "$program" convert al.ldif -o full.vcf --force 2>&1 | cat >/dev/null
 exit "${PIPESTATUS[0]}") || status=$?
[ "$status" = 74 ] || fail "exit status $status instead of 74"
cmp -s full.vcf bo.vcf || fail "the old book is not whole"
for arguments in "show bo.vcf" "show --json bo.vcf" "check bo.vcf" "check --json bo.vcf" "convert bo.vcf" "diff bo.vcf al.ldif" --help; do
    test="a full standard output: $arguments"
    status=0
    # shellcheck disable=SC2086
    "$program" $arguments >/dev/full 2>err || status=$?
    [ "$status" = 74 ] || fail "exit status $status instead of 74"
    tells "Standard output cannot be written to"
    test="a closed standard output: $arguments"
    status=0
    # shellcheck disable=SC2086
    "$program" $arguments >&- 2>err || status=$?
    [ "$status" = 74 ] || fail "exit status $status instead of 74"
done
test="a reader who has gone"
for _ in $(seq 3000); do cat bo.vcf; done >many.vcf
set +e
"$program" show --json many.vcf 2>err | head -n 1 >/dev/null
status=${PIPESTATUS[0]}
set -e
[ "$status" = 74 ] || fail "exit status $status instead of 74"
set +e
"$program" check --json many.vcf 2>err | head -n 1 >/dev/null
status=${PIPESTATUS[0]}
set -e
[ "$status" = 74 ] || fail "exit status $status instead of 74 of a check"
is_missing never.vcf

# What nothing can hold.
printf 'BEGIN:VCARD\nVERSION:3.0\nFN:a\xff\x81b\nNOTE:\xc3\xa4\nEND:VCARD\n' >broken.vcf
run "a loss" 1 convert broken.vcf --vcard 4 -o lost.vcf
tells 'broken.vcf: line 1: lost: FN "a\xFF\x81b": has bytes that are no text'
[ ! -e lost.vcf ] || fail "something was written"
run "a loss that is allowed" 1 convert broken.vcf --vcard 4 -o lost.vcf --allow-loss
has out "lost 1"
has lost.vcf "NOTE:ä"
run "no loss" 0 convert broken.vcf -o stays.vcf
cmp -s broken.vcf stays.vcf || fail "the card was changed"

# What is easily mistaken.
run "an option before the verb" 2 --json show bo.vcf
tells "--json: options stand behind the verb show"
run "a file without a verb" 2 bo.vcf
tells "bo.vcf: a verb stands first: show, convert, check, diff, find, dupes or clean"
run "nothing at all" 2
tells "orvik-book: a verb stands first"
run "a folder by its name" 2 convert bo.vcf -o folder/
tells "folder/ is a folder; a file in it needs a name"
run "a file twice" 0 show bo.vcf ./bo.vcf
tells "./bo.vcf: This is the same file as bo.vcf, and is read again"

exit $failed
