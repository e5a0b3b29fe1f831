#!/usr/bin/env bash
# Interrupts orvik-batch while it saves, and looks at what is left. strace puts the signal into the
# very call where it hurts. Argument: the program.
set -euo pipefail
program=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"
export XDG_CONFIG_HOME="$work/config" XDG_STATE_HOME="$work/state"
failed=0

fail() {
    echo "saving: $test: $1"
    failed=1
}
# books: the files of the folder, hidden ones too, in one line.
books() { find books -mindepth 1 -printf '%f\n' | LC_ALL=C sort | tr '\n' ' '; }
is_left() { [ "$(books)" = "$1" ] || fail "there is $(books)instead of $1"; }
tells() { grep -qF -- "$1" err || fail "does not tell: $1 but: $(cat err)"; }
tells_nothing() { [ ! -s err ] || fail "tells: $(cat err)"; }
has() { grep -qF -- "$2" "$1" || fail "$1 has no: $2"; }
# run STATUS ARGUMENT...
run() {
    local wanted=$1 status=0
    shift
    # The shell tells of a program that a signal ended.
    { "$@" >out 2>err </dev/null; } 2>/dev/null || status=$?
    [ "$status" = "$wanted" ] || fail "exit status $status instead of $wanted: $(cat err)"
}
# disturbed STATUS INJECTION ARGUMENT...: runs the program while strace disturbs some of its calls. A
# sanitized one cannot look for leaks then, as it would have to trace itself.
disturbed() {
    local -x ASAN_OPTIONS=${ASAN_OPTIONS:+$ASAN_OPTIONS:}detect_leaks=0
    local wanted=$1 injection=$2
    shift 2
    run "$wanted" strace -f -o trace -e trace=all -e "inject=$injection" "$program" "$@"
}
fresh() {
    rm -rf books state
    mkdir books
    cp old.txt books/book.txt
}
died() { echo $((128 + $1)); }

printf '"Cy" <c@example.org>\r\n' >old.txt
printf '"Di" <d@example.org>\r\n' >new.txt
# What a save that nothing disturbs makes of it.
"$program" --open new.txt --save saved.txt

test="a save that waits"
fresh
flock -o books sleep 2 &
holder=$!
sleep 0.3
run 0 "$program" --open new.txt --save books/book.pml
wait "$holder"
grep -qE 'books/book.pml: Waiting for (flock \(process [0-9]+\)|another program), which is saving into this folder$' err ||
    fail "does not tell whom it waits for: $(cat err)"
has books/book.pml "d@example.org"

test="a save that waits in vain"
flock -o books sleep 12 &
holder=$!
sleep 0.3
run 73 "$program" -q --open new.txt --save books/book.pml
grep -qE 'books/book.pml: Permission denied: .* was still saving into this folder\.$' err ||
    fail "does not tell whom it waited for: $(cat err)"
kill "$holder" 2>/dev/null || true
wait "$holder" || true

test="a link onto a full device"
for ending in nv htm pml txt ldif; do
    ln -s /dev/full "full.$ending"
    run 74 "$program" --open new.txt --save "full.$ending"
    tells "full.$ending: Disk full"
    [ -L "full.$ending" ] || fail "full.$ending is no link any more"
done

test="an interrupted book is told of, and nothing of it goes"
fresh
cp books/book.txt books/book.txt.orvik-copy
printf '"Ed" <e@example.org>\r\n' >books/book.txt
run 0 "$program" --open books/book.txt --save other.txt
tells "books/book.txt: A saving of this file was interrupted. Its old contents stand in $(realpath books)/book.txt.orvik-copy"
run 0 "$program" -q --open new.txt --save books/book.txt
tells_nothing
cmp -s old.txt books/book.txt.orvik-copy || fail "the copy was touched"
is_left "book.txt book.txt.orvik-copy "

test="a book that this program saves twice"
fresh
run 0 "$program" --open books/book.txt --save books/book.txt --save books/book.txt
tells_nothing

if ! command -v strace >/dev/null; then
    echo "saving: strace is not there, so nothing was interrupted"
    exit $failed
fi
if ! strace -o trace true 2>/dev/null; then
    echo "saving: nothing may be traced here, so nothing was interrupted"
    exit $failed
fi

for name in TERM INT HUP KILL; do
    number=$(kill -l "$name")
    # The folder's own sync comes behind the rename.
    for call in linkat:when=1 rename:when=1 fsync:when=1 fsync:when=2; do
        test="$name at $call"
        fresh
        disturbed "$(died "$number")" "$call:signal=$name" --open new.txt --save books/book.txt
        if cmp -s old.txt books/book.txt; then
            [ "$call" = fsync:when=1 ] || [ "$name" = KILL ] || fail "what was named was not saved"
        else
            cmp -s saved.txt books/book.txt || fail "half a book: $(cat books/book.txt)"
        fi
        [ "$name" = KILL ] || is_left "book.txt "
        if [ "$name" = KILL ] && [ "$call" = rename:when=1 ]; then
            books | grep -qE '^\.orvik-[0-9a-f]{16}\.tmp book\.txt $' || fail "there is $(books)"
        fi
        run 0 "$program" --open new.txt --save books/other.txt
        is_left "book.txt other.txt "
    done
    for call in ftruncate:when=1 fsync:when=1 fsync:when=3; do
        test="$name at $call in place"
        fresh
        ln books/book.txt books/link.txt
        disturbed "$(died "$number")" "$call:signal=$name" --open new.txt --save books/book.txt
        if [ "$name" != KILL ]; then
            is_left "book.txt link.txt "
            cmp -s old.txt books/book.txt || cmp -s saved.txt books/book.txt ||
                fail "half a book: $(cat books/book.txt)"
        elif ! cmp -s old.txt books/book.txt; then
            cmp -s old.txt books/book.txt.orvik-copy || fail "the old contents are lost"
            run 0 "$program" --open books/book.txt --save other.txt
            tells "A saving of this file was interrupted."
        fi
    done
done

for error in EPERM ENOENT EXDEV EOPNOTSUPP; do
    test="a disk whose files can have no second name: $error"
    fresh
    chmod 640 books/book.txt
    disturbed 0 "linkat:error=$error" --open new.txt --save books/book.txt --save books/book.pml
    tells_nothing
    is_left "book.pml book.txt "
    cmp -s saved.txt books/book.txt || fail "holds $(cat books/book.txt)"
    [ "$(stat -c %a books/book.txt)" = 640 ] || fail "the permissions are others"
done

test="a disk that keeps no attributes"
fresh
if python3 -c 'import os; os.setxattr("books/book.txt", "user.colour", b"red")' 2>/dev/null; then
    disturbed 0 "fsetxattr:error=EOPNOTSUPP" --open new.txt --save books/book.txt
    tells "books/book.txt: Not all extended attributes of the file could be kept"
fi

exit $failed
