#!/usr/bin/env bash
# Runs orvik-book for each program that a book can be written for: the file that it gets, where it is
# imported, and what is beyond its limits.
# Arguments: the program, and the folder of the sample books.
set -euo pipefail
# shellcheck source=tests/batch/kit.sh
. "$(dirname "$0")/../batch/kit.sh"
samples=$2

printf '%s\n' 'dn: cn=Al,mail=al@example.org' 'objectclass: person' 'cn: Al' 'mail: al@example.org' \
    'mozillaSecondEmail: al@example.net' 'mail: al@example.com' '' \
    'dn: cn=Bo,mail=bo@example.org' 'objectclass: person' 'cn: Bo' 'mail: bo@example.org' \
    'telephonenumber: +1 555 0100' '' \
    'dn: cn=Crew' 'objectclass: groupOfNames' 'cn: Crew' 'member: cn=Al,mail=al@example.org' \
    'member: cn=Bo,mail=bo@example.org' >lists.ldif
sed '/^dn: cn=Crew/,$d' lists.ldif >people.ldif

# gets PROGRAM ENDING FORM IMPORT: what it is given under an ending.
gets() {
    run "$1 $2" 0 convert people.ldif --to "$1" -o "$1.$2"
    [ "$(sed -n 1p out | cut -d' ' -f1-5)" = "read 2   written" ] || fail "prints: $(cat out)"
    has out "$1.$2: $3."
    has out "$4"
    [ "$(tail -n 1 out | cut -d' ' -f1)" = "Import" ] || fail "does not end with the import"
    run "equal for $1 in $2" 0 show "$1.$2"
    has out "2 people, 0 lists"
}
gets thunderbird vcf "vCard 4.0, UTF-8" "Import in Thunderbird: Address Book > Import, then vCard and the file"
gets thunderbird ldif "Thunderbird LDIF, ASCII" "Import in Thunderbird: Address Book > Import, then LDIF and the file"
gets google csv "Google CSV, UTF-8" "Import in Google Contacts: contacts.google.com, usually Import"
gets google vcf "vCard 3.0, UTF-8" "Import in Google Contacts: contacts.google.com, usually Import"
gets apple vcf "vCard 3.0, UTF-8" "Import in Contacts on a Mac: usually File > Import"
gets outlook csv "Outlook CSV, windows-1252" "Import in Outlook: File > Open & Export > Import/Export"
gets outlook-new csv "outlook.com CSV, UTF-8" "usually People > Manage contacts > Import contacts"
gets nextcloud vcf "vCard 3.0, UTF-8" "Import in Nextcloud: Contacts > Settings > Import contacts"
gets kaddressbook vcf "vCard 4.0, UTF-8" "Import in KAddressBook: File > Import, then vCard"
gets kaddressbook ldif "KContacts LDIF, ASCII" "Import in KAddressBook: File > Import, then LDIF"
gets evolution vcf "vCard 3.0, UTF-8" "Import in Evolution: File > Import > Import a single file"
gets evolution ldif "Evolution LDIF, ASCII" "Import in Evolution: File > Import > Import a single file"
for same in thunderbird.vcf google.vcf apple.vcf nextcloud.vcf kaddressbook.vcf evolution.vcf thunderbird.ldif kaddressbook.ldif \
    evolution.ldif; do
    run "nothing is lost in $same" 0 diff people.ldif $same
done
has apple.vcf "VERSION:3.0"
has outlook.csv "First Name,"
run "endings are those of formats" 0 convert people.ldif --to thunderbird -o other.VCARD
has other.VCARD "VERSION:4.0"
run "and of LDIF" 0 convert people.ldif --to thunderbird -o other.ldi
has other.ldi "objectclass: mozillaAbPersonAlpha"

# Without a name the program's own form; lists ask for one that has them.
run "people for Thunderbird" 0 convert people.ldif --to thunderbird
has out "VERSION:4.0"
tells "standard output: vCard 4.0, UTF-8."
tells "Import in Thunderbird: Address Book > Import, then vCard"
run "lists for Thunderbird" 0 convert lists.ldif --to thunderbird -o -
has out "objectclass: groupOfNames"
has out "member: cn=Bo,mail=bo@example.org"
tells "Import in Thunderbird: Address Book > Import, then LDIF"
run "lists for Evolution" 0 convert lists.ldif --to evolution
has out "objectclass: groupOfNames"
run "lists for KAddressBook" 0 convert lists.ldif --to kaddressbook
has out "display-name: Crew"
run "Google" 0 convert lists.ldif --to google
has out "* myContacts ::: Crew"
run "objects of what is written" 0 convert lists.ldif --to google -o objects.csv --json
lines out 3

# Files of any name, for programs that read them where they lie.
declare -A reader_loses=([mutt]=1 [pine]=1 [abook]=0)
for reader in mutt pine abook; do
    run "$reader" $((reader_loses[$reader])) convert people.ldif --to "$reader" -o "any $reader" --allow-loss
    has out "Use it in "
    run "it is read" 0 show "any $reader"
done
has "any mutt" 'alias al \"Al\" <al@example.org>'
has "any mutt" 'alias al__al@example.net \"Al\" <al@example.net>'
has "any abook" "email=al@example.org,al@example.net,al@example.com"
run "lists for mutt" 1 convert lists.ldif --to mutt -o crew --allow-loss
has crew "alias Crew al, bo"
run "groups for abook" 0 convert lists.ldif --to abook -o "any abook" --force
has "any abook" "groups=Crew"
run "Pegasus Mail" 0 convert people.ldif --to pegasus -o people.txt
has people.txt "E-mail address:  al@example.org, al@example.net, al@example.com"
has out "Import in Pegasus Mail: usually"
run "a plain list" 1 convert people.ldif -o list.txt --allow-loss
has list.txt '"Al" <al@example.org>'
tells 'lost: TEL "+1 555 0100": has no place in the target'

# Lists where there are none.
run "a list in a card for Thunderbird" 0 convert lists.ldif --to thunderbird -o cards.vcf
tells 'lists.ldif: line 14: doubtful: "Crew": is a list, and the target knows none'
tells "Thunderbird takes lists from a .ldif file"
has out "doubtful 1"
run "a list in a table for Thunderbird" 1 convert lists.ldif --to thunderbird -o table.csv
tells 'lists.ldif: line 14: lost: FN "Crew": is a list, and the target knows none'
tells "Thunderbird takes lists from a .ldif file"
tells "so nothing is written; --allow-loss writes the rest"
is_missing table.csv
run "a list for Nextcloud" 0 convert lists.ldif --to nextcloud -o cloud.vcf --report cloud.json
has out "read 3   written 2   carried 0   lost 0"
[ "$(grep -c '^CATEGORIES:Crew' cloud.vcf)" = 2 ] || fail "no categories: $(cat cloud.vcf)"
if grep -q "KIND\|takes lists" cloud.vcf err; then fail "the list is a card, or is said to be in another file"; fi
[ "$(grep -c '"what":"read"' cloud.json)" = 3 ] || fail "the report has not all that was read"
printf 'BEGIN:VCARD\r\nVERSION:3.0\r\nUID:1\r\nN:;;;;\r\nFN:Al\r\nCATEGORIES:Oars\\,Rowers,Crew\r\nEND:VCARD\r\n' >cat.vcf
for name in Crew Rowers; do
    printf 'BEGIN:VCARD\r\nVERSION:3.0\r\nUID:%s\r\nN:;;;;\r\nFN:%s\r\nX-ADDRESSBOOKSERVER-KIND:group\r\n' $name $name
    printf 'X-ADDRESSBOOKSERVER-MEMBER:urn:uuid:1\r\nEND:VCARD\r\n'
done >>cat.vcf
run "categories beside lists" 0 convert cat.vcf --to nextcloud
has out 'CATEGORIES:Oars\,Rowers,Crew,Rowers'
sed 's/urn:uuid:1/urn:uuid:2/' cat.vcf >nobody.vcf
run "members of a list for Nextcloud who are nobody" 1 convert nobody.vcf --to nextcloud
tells 'lost: X-ADDRESSBOOKSERVER-MEMBER "urn:uuid:2": is not in these files'
run "files for Nextcloud" 0 convert lists.ldif --to nextcloud --split 1 -o parts.vcf
has parts-2.vcf "CATEGORIES:Crew"
printf '%s\n' '' 'dn: cn=Cy' 'objectclass: person' 'cn: Cy' '' 'dn: cn=All' 'objectclass: groupOfNames' 'cn: All' \
    'member: cn=Crew' 'member: cn=Cy' 'member: cn=Al,mail=al@example.org' | cat lists.ldif - >inner.ldif
run "a list in a list for Thunderbird" 0 convert inner.ldif --to thunderbird -o inner-thunderbird.ldif
tells_once 'inner.ldif: line 24: doubtful: MEMBER "Crew": is a list in a list'
tells_once 'inner.ldif: line 24: doubtful: MEMBER "Cy": has no address, and the target has nothing else'
has out "doubtful 3"
run "a list in a list for Evolution" 0 convert inner.ldif --to evolution -o inner-evolution.ldif
tells_once 'MEMBER "Crew": is a list in a list'
has out "doubtful 1"
run "a list in a list for KAddressBook" 0 convert inner.ldif --to kaddressbook -o inner-kaddressbook.ldif
if grep -q "MEMBER" err; then fail "tells of members: $(cat err)"; fi

# Letters that are none, and a mark before the first card.
printf 'BEGIN:VCARD\r\nVERSION:%s\r\nUID:1\r\nFN:Bj\303\266rk \303\251 \377\r\nN:x;;;;\r\nEMAIL:b@example.org\r\nEND:VCARD\r\n' \
    3.0 >broken.vcf
sed 's/VERSION:3.0/VERSION:4.0/' broken.vcf >broken4.vcf
for broken_name in broken broken4; do
    run "a broken letter stays for nobody" 0 convert $broken_name.vcf --vcard $([ $broken_name = broken ] && echo 3 || echo 4) \
        -o same.vcf --force
    cmp $broken_name.vcf same.vcf || fail "it is another one"
    for target in thunderbird.vcf thunderbird.ldif thunderbird.csv google.csv google.vcf apple.vcf outlook-new.csv nextcloud.vcf \
        kaddressbook.vcf kaddressbook.ldif evolution.vcf evolution.ldif outlook.vcf; do
        run "a broken letter for $target" 1 convert $broken_name.vcf --to "${target%%.*}" -o "whole.${target#*.}" --force --allow-loss
        tells 'lost: FN "Björk é \xFF": has bytes that are no text'
        python3 -c 'import sys; open(sys.argv[1], encoding="utf-8").read()' "whole.${target#*.}" || fail "no UTF-8"
    done
done
printf '\357\273\277BEGIN:VCARD\r\nVERSION:3.0\r\nUID:1\r\nN:;;;;\r\nFN:Bo\r\nEND:VCARD\r\n' >marked.vcf
run "a mark" 0 convert marked.vcf --to thunderbird -o unmarked.vcf
[ "$(head -c 5 unmarked.vcf)" = BEGIN ] || fail "the mark is there still"

# What a program does not show.
run "a third address for Thunderbird" 0 convert lists.ldif --to thunderbird -o three.ldif
tells 'lists.ldif: line 1: doubtful: EMAIL "al@example.com": is one more than the program takes'
has three.ldif "x-orvik-vcard-email;x-more: EMAIL:al@example.com"
has out "What is carried stays in the file; Thunderbird may not show all of it: EMAIL"
[ "$(grep -c '^mail:' three.ldif)" = 2 ] || fail "a person has two lines mail"
run "it comes back" 0 diff lists.ldif three.ldif

# KAddressBook passes over lines in groups.
printf 'BEGIN:VCARD\r\nVERSION:4.0\r\nUID:1\r\nFN:Bo\r\nitem1.EMAIL:bo@example.org\r\nitem1.X-ABLabel:Boat\r\nEND:VCARD\r\n' >groups.vcf
run "groups for KAddressBook" 0 convert groups.vcf --to kaddressbook -o ungrouped.vcf
has ungrouped.vcf "EMAIL;X-ORVIK-GROUP=item1:bo@example.org"
has ungrouped.vcf "item1.X-ABLabel:Boat"
has out "ungrouped.vcf: vCard 4.0, UTF-8. UIDs"
run "groups for others" 0 convert groups.vcf --vcard 4
has out "item1.EMAIL:bo@example.org"
run "groups that come back" 0 convert ungrouped.vcf --vcard 3
has out "item1.EMAIL:bo@example.org"

# Limits.
python3 - <<'PYTHON'
def write(name, cards):
    with open(name, "w", newline="\r\n", encoding="utf-8") as file:
        for number, card in enumerate(cards):
            file.write(f"BEGIN:VCARD\nVERSION:3.0\nUID:{number}\nN:;P{number};;;\nFN:P{number}\n"
                       f"{card}END:VCARD\n")

write("many.vcf", ["EMAIL:a@example.org\n"] * 3001)
write("huge.vcf", ["NOTE:" + "x" * 300000 + "\n", f"PHOTO;ENCODING=b;TYPE=JPEG:{'/9j/' * 60000}\n",
                   f"PHOTO;ENCODING=b;TYPE=JPEG:{'/9j/' * 90000}\n", "TEL:5\n"])
write("crowd.vcf", [""] * 50001)
write("heavy.vcf", ["NOTE:" + "x" * 200000 + "\n"] * 260)
PYTHON
run "too many for Google" 1 convert many.vcf --to google -o many.csv
tells "Google Contacts is said to take 3000 people at a time, and there are 3001. So nothing is written; --split 3000 writes 2 files"
is_missing many.csv
run "too many for standard output" 1 convert many.vcf --to google
tells "--split 3000 -o NAME.csv writes 2 files"
[ ! -s out ] || fail "something was written"
run "files that are too large" 1 convert many.vcf --to google -o many.vcf.csv --split 3001
tells "--split 3000 writes 2 files"
run "as it says" 0 convert many.vcf --to google -o many.csv --split 3000
has out "many-1.csv: 3000 records"
has out "many-2.csv: 1 record"
has out "Import each file in Google Contacts"
run "as many as there may be" 0 convert people.ldif --to google -o few.csv --split 3000
run "cards for Outlook" 1 convert people.ldif --to outlook -o cards.vcf --force
tells "Outlook reads the first card of a vCard file and no other, and there are 2. So nothing is written; --split 1 writes 2 files, and a .csv file may hold all"
run "a card for Outlook each" 0 convert people.ldif --to outlook -o card.vcf --split 1
has card-2.vcf "FN:Bo"
run "one card for Outlook" 0 convert groups.vcf --to outlook -o one.vcf
run "large cards for Apple" 0 convert huge.vcf --to apple -o apple-huge.vcf
tells 'huge.vcf: line 1: doubtful: "P0": is larger than the program takes'
[ "$(grep -c 'doubtful: PHOTO: is larger than the program takes' err)" = 1 ] || fail "other pictures: $(cat err)"
tells_once '"P2": is larger than the program takes'
has out "byte for byte as it was"
run "large cards that are written anew" 0 convert huge.vcf people.ldif --to apple -o apple-anew.vcf
tells 'huge.vcf: line 1: doubtful: "P0": is larger than the program takes'
run "too many for iCloud" 0 convert crowd.vcf --to apple -o crowd-apple.vcf
tells "iCloud keeps at most 50000 contacts of one user, and there are 50001"
run "too much for iCloud" 0 convert heavy.vcf --to apple -o heavy-apple.vcf
tells "iCloud keeps at most 48 MB of one user without pictures, and there are 50"
run "too many for Google in all" 0 convert crowd.vcf --to google -o crowd-google.csv --split 3000
tells "Google Contacts is said to keep at most 25000 contacts of one user, and there are 50001"
printf 'BEGIN:VCARD\r\nVERSION:3.0\r\nUID:1\r\nN:;;;;\r\nFN:Bo\r\nPHOTO;ENCODING=b;TYPE=%s:%s\r\nEND:VCARD\r\n' \
    WEBP UklGRg== JPEG /9j/4AAQ GIF R0lGODdh "x-ms-bmp" Qk0= "" UklGRg== >kinds.vcf
sed 's/;TYPE=:/:/' kinds.vcf >pictures.vcf
run "kinds of pictures for Apple" 0 convert pictures.vcf --to apple -o pictures-apple.vcf
for line in 1 29; do
    tells_once "pictures.vcf: line $line: doubtful: PHOTO: is in the file, but the program does not read it"
done
[ "$(grep -c PHOTO: err)" = 2 ] || fail "other pictures: $(cat err)"
run "pictures for Google" 0 convert pictures.vcf --to google -o pictures-google.vcf
[ "$(grep -c 'PHOTO: is in the file, but the program does not read it' err)" = 5 ] || fail "not all: $(cat err)"
printf 'BEGIN:VCARD\r\nVERSION:3.0\r\nUID:1\r\nN:;;;;\r\nFN:Bo\r\nPHOTO;VALUE=uri:https://example.org/a.jpg\r\nEND:VCARD\r\n' >linked.vcf
run "the address of a picture for Google" 0 convert linked.vcf --to google -o linked-google.vcf
tells_nothing
run "no limit for others" 0 convert crowd.vcf --to nextcloud -o crowd-cloud.vcf
tells_nothing

# Mistakes.
for wrong in "people.ldif --to eudora" "people.ldif --to google --vcard 3" "people.ldif --to google --attributes mozilla" \
    "people.ldif --to google -o x.ldif" "people.ldif --to apple -o x.csv" "people.ldif --to apple -o x" \
    "people.ldif --to google --split 0 -o x.csv" "people.ldif --to google --split -1 -o x.csv" \
    "people.ldif --to google --split many -o x.csv" "people.ldif --to google --split 5" "people.ldif -o x.csv"; do
    # shellcheck disable=SC2086
    run "usage: $wrong" 2 convert $wrong
    tells "--help"
done
run "an ending of another format" 2 convert people.ldif --to google -o x.ldif
tells "for google a file ends in .csv or .vcf, not as x.ldif does"
run "a table for nobody" 2 convert people.ldif -o x.csv
tells "the columns of x.csv depend on the program; --to names it: thunderbird, google, outlook, outlook-new"
run "files on standard output" 2 convert people.ldif --split 5
tells "--split: needs -o FILE"

# The samples.
for sample in netscape4.ldif outlook.csv; do
    for program_name in thunderbird google apple outlook outlook-new nextcloud kaddressbook evolution; do
        run "$sample for $program_name" 0 convert "$samples/$sample" --to "$program_name"
        tells "Import in "
    done
done

exit $failed
