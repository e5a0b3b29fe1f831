#!/usr/bin/env bash
# Lets each allocation of a program for the command line fail once, also those before main and while
# the arguments are read: each run says so and nothing else, and leaves the old file or the new one.
# Arguments: the program with starved_new.cpp in it, and what it is called.
set -euo pipefail
program=$1
name=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"
export XDG_CONFIG_HOME="$work/config"
failed=0
printf '"Cy" <c@example.org>\r\n"Al" <a@example.org>\r\n' >two.txt

# starve FEWEST EVERY ARGUMENT...: how many allocations there are at least, and every which one fails.
starve() {
    local fewest=$1 every=$2 at=1 status
    shift 2
    rm -f book.ldif
    "$program" "$@" >wanted 2>wanted.err 9>/dev/null || true
    [ ! -e book.ldif ] || mv book.ldif wanted.ldif
    while :; do
        rm -f book.ldif
        status=0
        ORVIK_STARVED_AT=$at "$program" "$@" >out 2>err 9>fired || status=$?
        [ -s fired ] || break
        # What can do without the memory does all the same.
        if [ "$status" = 71 ]; then
            [ "$(wc -l <err)" = 1 ] && grep -qE "^$name: .*Out of memory\$" err ||
                tell "tells: $(cat err)"
        elif ! cmp -s out wanted || ! cmp -s err wanted.err; then
            tell "exit status $status: $(cat err)"
        fi
        [ ! -e book.ldif ] || cmp -s book.ldif wanted.ldif || tell "leaves half a file"
        at=$((at + every))
    done
    [ "$at" -gt "$fewest" ] || tell "has no more allocations"
}
tell() {
    echo "starved: $* (allocation $at)"
    failed=1
}

list() {
    printf 'dn: cn=Al\ncn: Al\nmail: a@example.org\nshoeSize: 42\n\ndn: cn=Crew\nobjectclass: groupOfNames\ncn: Crew\nmember: cn=Al\n'
}

if [ "$name" != orvik-book-csv ]; then
    starve 100 3 --bogus
    starve 100 11 --version
    starve 300 13 --help
fi
if [ "$name" = orvik-batch ]; then
    starve 500 13 --open two.txt --sort address --save book.ldif
elif [ "$name" = orvik-book-csv ]; then
    list >two.ldif
    starve 500 401 google two.ldif
    starve 500 401 outlook two.ldif
    starve 500 401 thunderbird two.ldif
else
    list >two.ldif
    starve 500 41 convert two.ldif --attributes kcontacts -o book.ldif
    starve 500 41 convert two.ldif --vcard 4
    starve 500 41 show two.ldif
    starve 500 41 show --json two.ldif
    printf 'dn: cn=Cy\ncn:: Q3k=\nmail:: Y3lAYsO8Y2hlci5leGFtcGxl\nmail: cy@@example.org\n' >letters.ldif
    starve 500 41 check letters.ldif
    starve 500 41 check --json letters.ldif
    starve 500 41 diff two.ldif two.ldif
    starve 500 401 dupes two.ldif letters.ldif
    starve 500 401 clean two.ldif letters.ldif --sort name -o book.ldif
    printf 'From: Al <a@example.org>\nMessage-ID: <i@example.org>\n\n=C3 c@example.org\n' >letter.eml
    starve 500 41 find letter.eml -o book.ldif
    starve 500 41 find letter.eml --json
    printf 'First Name,Last Name,E-mail 1 - Value,Hobby\nCy,Castell,c@example.org,Rows\n' >two.csv
    starve 500 401 convert two.csv -o book.ldif
fi
[ "$(find . -name '.orvik*')" = "" ] || { echo "starved: litter"; failed=1; }
exit $failed
