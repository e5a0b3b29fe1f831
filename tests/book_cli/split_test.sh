#!/usr/bin/env bash
# Runs orvik-book where it writes several files, leaves out whom an older book has, and reports.
# Argument: the program.
set -euo pipefail
# shellcheck source=tests/batch/kit.sh
. "$(dirname "$0")/../batch/kit.sh"

# person NAME...: a record of LDIF for each; list NAME MEMBER...
person() {
    for name in "$@"; do
        printf '%s\n' "dn: cn=$name,mail=$name@example.org" 'objectclass: person' "cn: $name" "mail: $name@example.org" ''
    done
}
list() {
    printf '%s\n' "dn: cn=$1" 'objectclass: groupOfNames' "cn: $1"
    shift
    for name in "$@"; do echo "member: cn=$name,mail=$name@example.org"; done
    echo
}
names() { sed -n 's/^FN://p' "$1" | tr -d '\r' | paste -sd' '; }
hold() { [ "$(names "$1")" = "$2" ] || fail "$1 holds $(names "$1")"; }

person Al Bo Cy Di Ed >five.ldif
run "files of two" 0 convert five.ldif -o p.vcf --split 2 --report p.json
[ "$(cat out)" = "read 5   written 5   carried 0   lost 0
p-1.vcf to p-3.vcf: vCard 3.0, UTF-8. UIDs stay the same on the next run.
p-1.vcf: 2 records
p-2.vcf: 2 records
p-3.vcf: 1 record" ] || fail "prints: $(cat out)"
hold p-1.vcf "Al Bo"
hold p-2.vcf "Cy Di"
hold p-3.vcf "Ed"
is_missing p.vcf
has p.json '{"what":"written","file":"p-3.vcf","line":0,"field":"","value":"1","target":"","reason":"records are in this file"}'
cat p-?.vcf >together.vcf
run "the files together" 0 diff five.ldif together.vcf
run "the same UIDs as in one file" 0 convert five.ldif -o one.vcf
cmp -s one.vcf together.vcf || fail "the cards are others"
person Al Bo Cy Di Ed Fy Gus Hal Ivy Jo >ten.ldif
run "numbers that sort" 0 convert ten.ldif -o dir.d.vcf --split 1
[ "$(echo dir.d-*.vcf)" = "dir.d-01.vcf dir.d-02.vcf dir.d-03.vcf dir.d-04.vcf dir.d-05.vcf dir.d-06.vcf dir.d-07.vcf dir.d-08.vcf dir.d-09.vcf dir.d-10.vcf" ] || fail "$(echo dir.d-*)"
hold dir.d-10.vcf Jo
run "one file" 0 convert five.ldif -o whole.vcf --split 5
hold whole-1.vcf "Al Bo Cy Di Ed"
is_missing whole-2.vcf
run "a folder with a dot" 2 convert five.ldif -o a.d/book --split 5
mkdir a.d
run "a name in it" 0 convert five.ldif -o a.d/book --vcard 3 --split 5
hold a.d/book-1 "Al Bo Cy Di Ed"

# Other formats.
run "LDIF" 0 convert five.ldif -o l.ldif --split 3
[ "$(head -n 1 l-2.ldif)" = "version: 1" ] || fail "no version in each file"
run "LDIF together" 0 convert l-?.ldif -o l.all.ldif
run "is the same" 0 diff five.ldif l.all.ldif
printf 'Name,E-mail Address,Notes\n' >rows.csv
printf 'P%d,p%d@example.org,"a\nb, ""c"""\n' 1 1 2 2 3 3 >>rows.csv
run "a table" 0 convert rows.csv --to google -o g.csv --split 2
has out "g-1.csv: 2 records"
has out "g-2.csv: 1 record"
[ "$(head -n 1 g-1.csv)" = "$(head -n 1 g-2.csv)" ] || fail "no header in each file"
run "the rows" 0 show --json g-1.csv g-2.csv
lines out 3
run "rows of a part" 0 show g-1.csv
has out "2 people"
for table in thunderbird outlook outlook-new; do
    run "a table for $table" 0 convert rows.csv --to $table -o $table.csv --split 1
    run "its parts" 0 show $table-1.csv $table-2.csv $table-3.csv
    has out "together: 3 people"
done
printf 'BEGIN:VCARD\nVERSION:3.0\nFN:Al\nEND:VCARD\nBEGIN:VCARD\nVERSION:3.0\nFN:Bo\nEND:VCARD\n' >lf.vcf
run "cards stay as they are" 0 convert lf.vcf -o lf-part.vcf --split 1
cat lf-part-?.vcf | cmp -s - lf.vcf || fail "the cards were changed"

# Lists.
{ person Al Bo Cy Di; list Pair Bo Di; list All Al Bo Cy Di; } >lists.ldif
run "a list with its members" 0 convert lists.ldif -o t.vcf --split 3
hold t-1.vcf "Bo Di Pair"
hold t-2.vcf "Al Cy All"
tells_once 'lists.ldif: line 27: doubtful: "All": has members in other files'
run "a member in another file" 1 show t-2.vcf
tells "is not in these files"
run "lists that have room" 0 convert lists.ldif -o u.vcf --split 6
hold u-1.vcf "Al Bo Cy Di Pair All"
tells_nothing
run "lists that have none" 0 convert lists.ldif -o v.vcf --split 1
hold v-1.vcf Al
hold v-6.vcf All
tells '"Pair": has members in other files'
run "lists as labels" 0 convert lists.ldif --to google -o labels.csv --split 3
has labels-1.csv "* myContacts ::: All"
has labels-2.csv "* myContacts ::: Pair ::: All"
tells_nothing

# Files that are there, or cannot be written.
echo old >there-2.vcf
run "a file that is there" 73 convert five.ldif -o there.vcf --split 2
tells "there-2.vcf: The file is there already; --force replaces it"
is_missing there-1.vcf
holds there-2.vcf old
run "replaced" 0 convert five.ldif -o there.vcf --split 2 --force
hold there-2.vcf "Cy Di"
mkdir folder-2.vcf
run "a folder" 73 convert five.ldif -o folder.vcf --split 2 --force
tells "folder-2.vcf: This is a folder; a file in it needs a name"
is_missing folder-1.vcf
cp five.ldif in-1.ldif
run "over itself" 73 convert in-1.ldif -o in.ldif --split 2 --force
tells "in-1.ldif: This file is read, and a book is never written over itself"
cmp -s in-1.ldif five.ldif || fail "an input changed"
run "over an older book" 73 convert five.ldif --new-since in-1.ldif -o in-1.ldif --force
tells "in-1.ldif: This file is read, and a book is never written over itself"
run "over the report" 73 convert five.ldif -o rep.vcf --split 2 --report rep-2.vcf
tells "The report and the book would be one file"
is_missing rep-1.vcf
echo old >one
for link in "ln -s" ln; do
    $link one two-1.vcf
    $link one two-2.vcf
    run "two names of a file by $link" 73 convert five.ldif -o two.vcf --split 3 --force
    tells "two-2.vcf: This is the same file as another part of the book"
    holds one old
    rm two-1.vcf two-2.vcf
done
ln -s new-file two-1.vcf
ln -s new-file two-2.vcf
run "two names of no file" 73 convert five.ldif -o two.vcf --split 3
is_missing new-file
run "a missing folder" 73 convert five.ldif -o gone/x.vcf --split 2
tells "gone/x-1.vcf: Path not found"
{ person Al; printf 'dn: cn=Big,mail=big@example.org\ncn: Big\nmail: big@example.org\ndescription: %0100000d\n' 1; } >full.ldif
test="a disk that is full half-way"
status=0
(trap '' XFSZ; ulimit -f 40; "$program" convert full.ldif -o full.vcf --split 1 >out 2>err) || status=$?
[ "$status" = 74 ] || fail "exit status $status instead of 74"
tells "full-2.vcf: "
tells "Written are only full-1.vcf"
hold full-1.vcf Al
is_missing full-2.vcf

# --new-since.
person Bo Di >old.ldif
run "who is new" 0 convert five.ldif --new-since old.ldif -o new.vcf --report new.json
has out "read 5   left out 2   written 3   carried 0   lost 0"
hold new.vcf "Al Cy Ed"
has new.json '{"what":"left out","file":"five.ldif","line":6,"field":"","value":"Bo","target":"","reason":"is in an older book"}'
run "since several" 0 convert five.ldif --new-since old.ldif --new-since p-1.vcf -o newer.vcf
hold newer.vcf "Cy Ed"
run "since what was written" 0 convert five.ldif --new-since one.vcf -o none.vcf
has out "left out 5   written 0"
printf 'BEGIN:VCARD\nVERSION:3.0\nUID:7\nFN:Other name\nEND:VCARD\n' >uid.old.vcf
printf 'BEGIN:VCARD\nVERSION:3.0\nUID:urn:uuid:7\nFN:Al\nEND:VCARD\nBEGIN:VCARD\nVERSION:3.0\nUID:8\nFN:Bo\nEND:VCARD\n' >uid.vcf
run "by UID" 0 convert uid.vcf --new-since uid.old.vcf
has out "FN:Bo"
if grep -q FN:Al out; then fail "one of an equal UID is new"; fi
sed 's/^mail:.*/&\ntelephonenumber: 5/' old.ldif >phones.ldif
run "by name and address" 0 convert five.ldif --new-since phones.ldif
if grep -q FN:Bo out; then fail "one of an equal name and address is new"; fi
{ cat five.ldif; person Bo; } >twice.ldif
run "who is there twice" 0 convert twice.ldif --new-since old.ldif -o twice.vcf
hold twice.vcf "Al Cy Ed"
person Crew >crew.person.ldif
run "lists" 0 convert lists.ldif --new-since old.ldif -o lists.vcf
tells_nothing
hold lists.vcf "Al Cy Pair All"
[ "$(grep -c 'MEMBER.*mailto:' lists.vcf)" = 4 ] || fail "members have no addresses: $(cat lists.vcf)"
printf '%s\n' BEGIN:VCARD VERSION:4.0 UID:a FN:Al EMAIL:al@example.org END:VCARD BEGIN:VCARD VERSION:4.0 UID:l FN:Crew \
    KIND:group MEMBER:urn:uuid:a END:VCARD >cards.vcf
run "lists of cards" 0 convert cards.vcf --new-since p-1.vcf --vcard 4
has out "MEMBER:mailto:al@example.org"
tells_once "left out 1"
if grep -q skipped err; then fail "a member is missed: $(cat err)"; fi
run "a list that is there" 0 convert lists.ldif --new-since lists.ldif -o nobody.vcf
has out "left out 6   written 0"
printf 'BEGIN:VCARD\nVERSION:3.0\nFN:Pair\nEND:VCARD\n' >pair.vcf
run "a list is no person of its name" 0 convert lists.ldif --new-since pair.vcf -o pairs.vcf
has out "left out 0"
run "an older book that is none" 66 convert five.ldif --new-since gone.ldif -o never.vcf
tells "gone.ldif: File not found"
is_missing never.vcf
run "standard input twice" 2 convert - --new-since -
tells "standard input can be read once only"
test="an older book from standard input"
"$program" convert five.ldif --new-since - <old.ldif >out 2>err || fail "exit status $?"
tells "left out 2"

# What check reports.
list Crew Al >members.ldif
printf 'member: cn=X,mail=x@@example.org\nmember: cn=Nobody\n\n' | cat <(sed '$d' members.ldif) - <(person Al) >wrong.ldif
run "members of lists" 1 check wrong.ldif --report check.json
[ "$(cat out)" = "wrong.ldif:5  x@@example.org          bad: two @                     kept, flagged
2 checked: 1 valid, 0 odd, 1 bad" ] || fail "prints: $(cat out)"
[ "$(cat check.json)" = '{"file":"wrong.ldif","line":5,"address":"x@@example.org","class":"bad","reason":"two @"}
{"file":"wrong.ldif","line":11,"address":"Al@example.org","class":"valid","reason":""}' ] || fail "reports: $(cat check.json)"
{ echo 'From me'; echo; cat cards.vcf; } >junk.vcf
run "a report of what was skipped, too" 1 check junk.vcf --report junk.json
has junk.json '{"file":"junk.vcf","line":7,"address":"al@example.org","class":"valid","reason":""}'
has junk.json '{"what":"skipped","file":"junk.vcf","line":1,"field":"","value":"From me",'

exit $failed
