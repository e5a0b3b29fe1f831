#!/usr/bin/env bash
# Runs orvik-batch as a script would, and looks at its files, its messages and its exit status.
# Arguments: the program, and the folder of the sample books.
set -euo pipefail
# shellcheck source=tests/batch/kit.sh
. "$(dirname "$0")/kit.sh"
samples=$2
large='pretty large (77 kilobytes) and may take a long time to process. Proceed anyway?'

# settings OPEN SOURCE DESTINATION STEP1 STEP2 STEP3
settings() {
    mkdir -p config/orvik
    cat >config/orvik/orvik.conf <<SETTINGS
[Settings]
textSep=5
Open=$1
Extract=False
Sep=;
Auto=False
info=1
aClose=1
aOpenName=$2
aSaveName=$3
[Settings\\AutoSteps]
1=$4
2=$5
3=$6
4=0
5=
SETTINGS
}

printf '"Cy" <c@example.org>\r\n"Al" <b@example.org>\r\n"Bo" <a@example.org>\r\n' >three.txt
printf '"Di" <d@example.org>\r\n' >one.txt
# Of a large file mostly the beginning is looked at.
{ echo 'Mail e@example.org, please.'; seq 3300 | sed 's/.*/no address in this line/'; } >large.mbox

# Usage.
run "no step" 2
tells "A step is required"
run "help" 0 --help
has out "--automation"
run "version" 0 --version
has out "orvik-batch "
for wrong in --bogus "--sort up" "--separator blank" "--answer perhaps" "--open a --extract b" \
    "--open a --open b" "--pim a" "book.ldif" "--merge a b" --open --sort; do
    # shellcheck disable=SC2086
    run "usage $wrong" 2 $wrong
    tells "--help"
done

# Formats, and the order of the steps.
run "convert" 0 --open three.txt --save b.ldif --save b.nv --save b.htm --save b.pml --save b.txt
tells_nothing
has b.ldif "mail: c@example.org"
has b.nv "c@example.org"
has b.htm "mailto:c@example.org"
holds b.txt "$(cat three.txt)"
run "sort by address" 0 --open three.txt --sort address --save sorted.txt
holds sorted.txt "$(printf '"Bo" <a@example.org>\r\n"Al" <b@example.org>\r\n"Cy" <c@example.org>\r')"
run "sort by nickname" 0 --open three.txt --sort nickname --save sorted.txt
holds sorted.txt "$(printf '"Al" <b@example.org>\r\n"Bo" <a@example.org>\r\n"Cy" <c@example.org>\r')"
run "saving before and after" 0 --open three.txt --save before.txt --merge one.txt --save after.txt
lines before.txt 3
lines after.txt 4
run "merging into nothing" 0 --merge three.txt --merge one.txt --save merged.txt
holds merged.txt "$(cat after.txt)"
run "commas" 0 --open b.ldif --separator comma --save commas.txt
holds commas.txt '"Cy" <c@example.org>,"Al" <b@example.org>,"Bo" <a@example.org>,'
run "reading commas" 0 --open commas.txt --separator comma --save again.ldif
has again.ldif "mail: a@example.org"
run "Juno by commas" 1 --open b.ldif --separator comma --save never.nv
tells "never.nv: A Juno book can only be saved with entries separated by newlines"
is_missing never.nv
run "a short ending" 0 --open three.txt --save short.ldi
has short.ldif "mail: c@example.org"
for sample in "$samples"/*; do
    run "sample $sample" 0 --open "$sample" --save sample.ldif
    case $sample in
        *.ldif) tells_once "netscape4.ldif: 47 attributes of 26 entries were not read" ;;
        *.pml) tells_once "pegasus.pml: 1 attribute of 1 entry was not read" ;;
        *) tells_nothing ;;
    esac
    has sample.ldif "mail: "
done

# Targets that exist.
cp b.pml twice.pml
run "a list is added to" 0 --open one.txt --save twice.pml
has twice.pml "c@example.org"
has twice.pml "d@example.org"
cp b.htm twice.htm
run "a Netscape 3 book is added to" 0 --open one.txt --save twice.htm
has twice.htm "mailto:c@example.org"
has twice.htm "mailto:d@example.org"
run "LDIF is replaced" 0 --open one.txt --save b.ldif
has b.ldif "mail: d@example.org"
if grep -q "c@example.org" b.ldif; then fail "the old book is still there"; fi
echo "no book" >bad.htm
run "a bad Netscape 3 book stays" 1 --open one.txt --save bad.htm --save never.txt
tells "bad.htm: Bad Netscape 3.x Address Book!"
holds bad.htm "no book"
is_missing never.txt

# What is not read.
printf 'dn: x\r\nmail: a@example.org\r\ntelephonenumber: 5\r\ndescription: y\r\n' >phone.ldif
printf 'BEGIN:VCARD\r\nFN:Al\r\nEND:VCARD\r\n' >card.txt
cp card.txt card.nv
printf 'From a@example.org Mon\nTo: b@example.org\n\nHello\n\n' >Inbox
run "phones" 0 --open phone.ldif --save noted.txt
tells_once "orvik-batch: phone.ldif: 2 attributes of 1 entry were not read"
lines err 1
run "phones, merged twice" 0 --open three.txt --merge phone.ldif --merge one.txt --save noted.txt
tells_once "phone.ldif: 2 attributes of 1 entry were not read"
lines err 1
run "phones, quietly" 0 -q --open phone.ldif --save noted.txt
tells_nothing
printf 'dn: x\r\ntelephonenumber: 5\r\n' >nobody.ldif
run "phones of nobody, which is no book" 1 --open nobody.ldif
tells_once "nobody.ldif: Error: Invalid procedure call or argument"
lines err 1
run "a vCard" 0 --open card.txt --save noted.ldif
tells_once "card.txt: The contents look like a vCard"
run "a mail folder" 0 --open Inbox --save noted.ldif
tells_once "Inbox: The contents look like a mail folder"
run "a mail folder for its addresses" 0 --extract Inbox --save noted.txt
tells_nothing
run "a vCard that is refused" 1 --open card.nv
tells "answered no"
tells_once "card.nv: The contents look like a vCard"
run "what was written" 0 --open b.ldif --merge b.nv --merge b.htm --merge b.txt
tells_nothing

# Extraction and its question.
run "a large file is declined" 1 --extract large.mbox --save never.txt
tells "$large - answered no"
tells "large.mbox: There are no entries now"
is_missing never.txt
run "a large file is accepted" 0 --extract large.mbox --answer yes --save found.txt
tells "$large - answered yes"
holds found.txt "$(printf '"e@example.org" <e@example.org>\r')"
run "quiet" 0 -q --extract large.mbox --answer yes --save found.txt
tells_nothing
run "nothing found" 1 --extract bad.htm
tells "There were no addresses found in this file."

# The handheld export.
printf 'dn: x\r\ngivenname: Al\r\nmail: A1\r\n\r\n' >pim.ldif
run "the handheld export" 0 --pim pim.ldif pim.csv
holds pim.csv "$(printf 'Al,A1\r\n\r')"
run "names in brackets" 0 --pim pim.ldif '[pim,csv]'
holds '[pim,csv]' "$(printf 'Al,A1\r\n\r')"
run "a missing book" 66 --pim gone.ldif pim.csv
tells "gone.ldif: File not found"
ln pim.ldif same.ldif
run "an export over its own book" 73 --pim pim.ldif same.ldif
tells "same.ldif: A book cannot be exported over itself"
holds pim.ldif "$(printf 'dn: x\r\ngivenname: Al\r\nmail: A1\r\n\r')"
test="six savers at once"
# Six programs save ten times each into one book, and every entry is there.
for ending in htm nv pml; do
    savers=()
    for saver in 1 2 3 4 5 6; do
        (
            for save in 1 2 3 4 5 6 7 8 9 10; do
                printf '"N%s.%s" <a%s.%s@example.org>\r\n' $saver $save $saver $save >in.$saver.txt
                "$program" --open in.$saver.txt --save all.$ending 2>>savers.log || exit 1
            done
        ) &
        savers+=($!)
    done
    for saver in "${savers[@]}"; do
        wait "$saver" || fail "a saver into .$ending: $(cat savers.log)"
    done
    found=$(grep -oE 'a[1-6]\.[0-9]+@example' all.$ending | sort -u | wc -l)
    [ "$found" = 60 ] || fail "all.$ending has $found entries of 60"
done

run "an export that cannot be created" 73 --pim pim.ldif gone/pim.csv
tells "gone/pim.csv: Path not found"

# Files that fail; nothing is saved after them.
for name in gone.ldif gone/book.ldif "$work" three.txt/book; do
    for step in --open --extract --merge; do
        run "no input $step $name" 66 $step "$name" --save never.txt
        lines err 1
        tells "orvik-batch: $name: "
        is_missing never.txt
    done
done
run "a missing folder" 73 --open three.txt --save gone/book.ldif
tells "gone/book.ldif: Path not found"
run "no such format" 73 --open three.txt --save book.doc
tells "book.doc: Bad file name or number"
run "a folder" 73 --open three.txt --save "$work/config.ldif/"
cp three.txt full.txt
test="a full disk"
status=0
(trap '' XFSZ; ulimit -f 0; "$program" --open one.txt --save full.txt 2>&1 | cat >/dev/null
 exit "${PIPESTATUS[0]}") || status=$?
[ "$status" = 74 ] || fail "exit status $status instead of 74"
holds full.txt "$(cat three.txt)"
: >empty.ldif
run "an empty book" 1 --open empty.ldif
tells "#USR&002"
tells "answered no"
run "an empty book whose format would be chosen" 1 --open empty.ldif --answer yes
tells "The format would have to be chosen by hand"
run "no entries" 1 --save never.txt
tells "#USR&001"
is_missing never.txt

# Limits.
for i in $(seq 501); do printf '%s@example.org\r\n' "$i"; done >many.txt
run "too many to sort" 1 --open many.txt --sort address --save never.txt
tells "Orvik cannot sort more than 500 addresses."
is_missing never.txt
for i in $(seq 2500); do printf '%s@example.org\r\n' "$i"; done >long.txt
run "a long book" 0 --open long.txt --save long.nv
tells_once "long.txt: An Error type #USR&003"
tells_once "long.nv: An Error type #USR&003"
run "a long book, quietly" 0 -q --open long.txt --save long.ldif
tells_nothing
[ "$(grep -c '^mail: ' long.ldif)" = 2500 ] || fail "entries are missing"

# The automation.
run "no settings" 1 --automation
tells "The settings are not complete."
is_missing config
settings 1 three.txt auto.txt 5 3 1
run "the automation" 0 --automation --save later.ldif
tells_nothing
# What is stored as a sort by nickname sorts by address.
holds auto.txt "$(printf '"Bo" <a@example.org>\r\n"Al" <b@example.org>\r\n"Cy" <c@example.org>\r')"
has later.ldif "mail: a@example.org"
cp config/orvik/orvik.conf settings
run "the settings' separator" 0 --automation --pim pim.ldif pim.csv
holds pim.csv "$(printf 'Al;A1\r\n\r')"
cmp -s config/orvik/orvik.conf settings || fail "the settings changed"
settings 4 three.txt auto.txt 5 3 1
run "settings are not read for other steps" 0 --open three.txt --pim pim.ldif pim.csv
holds pim.csv "$(printf 'Al,A1\r\n\r')"
run "a format that is always asked" 1 --automation
tells "The format would have to be chosen by hand"
settings 1 three.txt auto.txt 5 "" 1
run "an empty step" 1 --automation
tells "automation, step 2: Type mismatch"
settings 1 gone.txt auto.txt 5 3 1
run "a missing source" 66 --automation
tells "gone.txt: File not found"
settings 1 three.txt gone/auto.txt 5 3 1
run "a destination that cannot be created" 73 --automation
tells "gone/auto.txt: Path not found"
settings 1 large.mbox auto.txt 2 3 1
run "an automation that extracts" 0 --automation --answer yes
holds auto.txt "$(printf '"e@example.org" <e@example.org>\r')"
echo "no settings" >config/orvik/orvik.conf
run "settings that cannot be read" 1 --automation
tells "orvik.conf cannot be read."
lines err 1
holds config/orvik/orvik.conf "no settings"

exit $failed
