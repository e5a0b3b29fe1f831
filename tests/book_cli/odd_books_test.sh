#!/usr/bin/env bash
# Runs orvik-book with old books of which a line or two are odd: nobody is lost, and what is odd is told.
# Argument: the program.
set -euo pipefail
# shellcheck source=tests/batch/kit.sh
. "$(dirname "$0")/../batch/kit.sh"

# People without a nickname, as the window's commands write them.
printf 'alias "a" a@example.org\r\nalias "" cy@example.org\r\nalias "b" b@example.org\r\n' >nndbase.txt
run "nobody's nickname" 0 convert nndbase.txt -o nicknames.vcf
has nicknames.vcf "EMAIL:cy@example.org"
[ "$(grep -c '^NICKNAME' nicknames.vcf)" = 2 ] || fail "other nicknames"

# The first person of a table is no header.
printf '%s\n' 'Ada Abbott,"ada@example.org,ada@example.net",555 0100,n1,ada' \
    'Ben Berg,ben@example.org,555 0101,n2,ben' 'Cy Cox,cy@example.org,555 0102,n3,cy' >people.csv
run "a first row of several addresses" 0 show people.csv
has out "3 people, 0 lists"
has out "addresses 4"
run "each is checked by itself" 0 check people.csv
{
    echo "# abook"
    cat people.csv
} >abook.csv
run "a comment before the rows" 0 convert abook.csv -o abook.vcf
[ "$(grep -c '^EMAIL' abook.vcf)" = 4 ] || fail "other addresses"
printf 'Searching ... 2 entries\na@example.org\tAda Abbott\tx\nb@example.org\tBen Berg\ty\n' >answer
run "an answer for mutt" 1 show answer
has out "2 people"
tells 'line 1: skipped: "Searching ... 2 entries": belongs to no record'

# Names with a comma that were saved with commas.
printf '"Ada" <ada@example.org>,"Berg" <>," <ben@example.org>" < Ben>,"" <cy@example.org>,' >commas.txt
run "a saving with commas" 0 convert commas.txt -o commas.vcf
has commas.vcf "FN:Berg\, Ben"
has commas.vcf "EMAIL:ben@example.org"
has commas.vcf "EMAIL:cy@example.org"

# Books of pine and Eudora by their names.
printf 'ben o\tBen\tben@example.org\nlu\tLu\nada\tAda\tada@example.org\n' >.addressbook
run "a nickname with a blank" 0 show .addressbook
has out "pine address book"
has out "3 people"
tells "has signs that the format does not know"
tells "has fewer parts than it should"
printf 'junk\nalias ada ada@example.org\nmore junk\nnote ada <name:Ada>\n' >NNdbase.txt
run "lines that nobody knows" 1 show NNdbase.txt
has out "1 person"
tells 'line 1: skipped: "junk": belongs to no record'

# Bookmarks are no people, and Netscape 3's own page is a book.
printf '%s\n' '<!DOCTYPE NETSCAPE-Bookmark-file-1>' '<DL><p>' \
    '<DT><A HREF="http://example.org/">Example</A>' '<DT><A HREF="mailto:web@example.org">Web</A>' '</DL><p>' >marks.htm
run "bookmarks" 65 convert marks.htm -o marks.vcf
tells "this is a file of bookmarks"
is_missing marks.vcf
sed 's/Bookmark/Addressbook/' marks.htm >address.htm
run "a page of addresses" 0 show address.htm
has out "Netscape 3 HTML"

# The letters of entries are counted where they stand.
printf '\\TITLE T\r\n"J\xc3\xb6rg" <a@example.org>\r\n"Zo\xeb" <b@example.org>\r\n' >LETTERS.PML
run "two sets of letters" 0 show LETTERS.PML
has out "(1 entry, line 3)"

# Why a list is lost, and where it is not.
printf 'BEGIN:VCARD\r\nVERSION:4.0\r\nUID:urn:uuid:%s\r\nFN:%s\r\n%s\r\nEND:VCARD\r\n' \
    1 Ada EMAIL:a@example.org 2 Crew $'KIND:group\r\nMEMBER:urn:uuid:1' >crew.vcf
{
    cat crew.vcf
    printf 'BEGIN:VCARD\r\nVERSION:4.0\r\nFN:Ben\r\nEMAIL:b@example.org\r\nEND:VCARD\r\n'
} >more.vcf
run "a list and somebody else" 1 convert more.vcf -o TEAM.PML
tells "is not all that the book holds, and a file of the target is one list and its members"
is_missing TEAM.PML
run "lists as text" 1 convert more.vcf --to pegasus -o more.txt
tells "Pegasus Mail takes a list from a .pml file, made of a book of that list and its members"
run "as it is told" 0 convert crew.vcf --to pegasus -o CREW.PML
run "the list is there" 0 show CREW.PML
has out "1 person, 1 list"

printf 'BEGIN:VCARD\r\nVERSION:4.0\r\nFN:%s\r\nNICKNAME:x\r\nEMAIL:%s@example.org\r\nEND:VCARD\r\n' Ada a Ben b >twice.vcf
run "a nickname of two" 0 convert twice.vcf --to mutt -o aliases
tells "is the nickname of another record, too, and was numbered"

# The notes of find are nobody's own.
printf 'To: Ada Abbott <a@example.org>, Ben Berg <b@example.org>\n\n' >letter
for target in people.nv people.txt people.pml; do
    run "people of mail as $target" 0 find letter -o $target
    has $target "b@example.org"
done

exit $failed
