#!/usr/bin/env bash
# Runs orvik-book as a script would: what each verb and option prints and writes, and the exit status.
# Arguments: the program, and the folder of the sample books.
set -euo pipefail
# shellcheck source=tests/batch/kit.sh
. "$(dirname "$0")/../batch/kit.sh"
samples=$2

prints() { [ "$(cat out)" = "$1" ] || fail "prints: $(cat out)"; }
same() { cmp -s "$1" "$2" || fail "$1 and $2 differ"; }

# An old book: letters of windows-1252, a list, a field that vCard has no name for.
printf '%s\n' 'dn: cn=J'$'\xF6''rg M'$'\xFC''ller,mail=j@example.org' 'objectclass: top' 'objectclass: person' \
    'cn: J'$'\xF6''rg M'$'\xFC''ller' 'givenname: J'$'\xF6''rg' 'sn: M'$'\xFC''ller' 'mail: j@example.org' \
    'telephonenumber: +1 555 0100' 'description: rows' 'xmozillanickname: joe' 'shoeSize: 42' '' \
    'dn: cn=Al,mail=al@example.org' 'objectclass: person' 'cn: Al' 'mail: al@example.org' '' \
    'dn: cn=Crew' 'objectclass: groupOfNames' 'cn: Crew' 'member: cn=Al,mail=al@example.org' >old.ldif
cp old.ldif kept.ldif
printf 'BEGIN:VCARD\r\nVERSION:3.0\r\nUID:1\r\nN:Bo;;;;\r\nFN:Bo\r\nEMAIL:bo@example.org\r\nEND:VCARD\r\n' >bo.vcf
printf 'BEGIN:VCARD\nVERSION:2.1\nN:Cy;;;;\nLABEL:x\nEND:VCARD\n' >cy.vcf

# Usage.
run "no verb" 2
run "help" 0 --help
has out "convert"
run "help of a verb" 0 convert --help
has out "--allow-loss"
run "version" 0 --version
has out "orvik-book "
for wrong in bogus show "show --bogus old.ldif" "diff old.ldif" "diff a b c" "show - -" \
    "show old.ldif --charset klingon" "show old.ldif -o x.vcf" "convert old.ldif -o x.doc" \
    "convert old.ldif -o x.ldif --vcard 3" "convert old.ldif -o x.vcf --attributes mozilla" \
    "convert old.ldif -o x.vcf --vcard 2" "convert old.ldif -o x --vcard 4 --attributes mozilla" \
    "convert old.ldif -o x.ldif --attributes pine" "convert old.ldif --json" \
    "show old.ldif --report -" check "check old.ldif -o x.vcf" "check old.ldif --vcard 4" "check - -"; do
    # shellcheck disable=SC2086
    run "usage: $wrong" 2 $wrong
    tells "--help"
done
run "an empty name" 2 show ""
run "an empty value" 2 convert old.ldif --output=

# show.
run "show" 0 show old.ldif
prints 'old.ldif: Netscape 4 LDIF, windows-1252 (assumed; e.g. "Jörg Müller"), LF, 2 people, 1 list
  addresses 2   phones 1   notes 1   nicknames 1 (xmozillanickname)   fields unknown to vCard: 1'
tells_nothing
run "show with a character set" 0 show --charset windows-1252 old.ldif
has out "LDIF, windows-1252, LF"
tells_nothing
run "show a card" 0 show cy.vcf
prints 'cy.vcf: vCard 2.1, ASCII, LF, 1 person, 0 lists
  addresses 0   phones 0   notes 0   nicknames 0'
run "show several" 0 show bo.vcf cy.vcf
has out "bo.vcf: vCard 3.0, ASCII, CR LF, 1 person"
has out "together: 2 people, 0 lists"
test="standard input"
status=0
"$program" show - bo.vcf <cy.vcf >out 2>err || status=$?
[ "$status" = 0 ] || fail "exit status $status"
has out "-: vCard 2.1"
has out "bo.vcf: vCard 3.0"
test="a pipe"
# shellcheck disable=SC2002
cat cy.vcf | "$program" show - >out || fail "exit status $?"
has out "1 person"
run "the sample" 0 show "$samples/netscape4.ldif"
has out "Netscape 4 LDIF, ASCII, CR LF, 40 people, 0 lists"
has out "addresses 40   phones 0   notes 0   nicknames 36 (xmozillanickname)"
{ echo 'From me'; echo; cat bo.vcf; } >junk.vcf
run "show what has junk before it" 1 show junk.vcf
has out "vCard 3.0 (line 3 begins a card)"
tells 'junk.vcf: line 1: skipped: "From me": belongs to no record'
printf 'BEGIN:VCARD\nVERSION:3.0\nFN:Crew\nX-ADDRESSBOOKSERVER-KIND:group\nX-ADDRESSBOOKSERVER-MEMBER:urn:uuid:1\nEND:VCARD\n' >crew.vcf
run "a member that is not there" 1 show crew.vcf
tells "is not in these files"
printf 'BEGIN:VCARD\nVERSION:3.0\nFN:Crew\nX-EVOLUTION-LIST:TRUE\nEMAIL:bo@example.org\nEMAIL:cy@example.org\nEND:VCARD\n' >evolution.vcf
run "a member of Evolution that is not there" 1 show evolution.vcf bo.vcf
tells_once 'evolution.vcf: line 1: skipped: EMAIL "cy@example.org": is not in these files'
printf 'BEGIN:VCARD\nVERSION:3.0\nFN:J\303\203\302\266rg M\303\203\302\274ller\nEND:VCARD\n' >twice.vcf
run "letters that were encoded twice" 0 show twice.vcf
tells 'twice.vcf: line 1: doubtful: "JÃ¶rg, MÃ¼ller": looks encoded twice'
run "a member of another file" 0 show crew.vcf bo.vcf

# --json.
run "json" 0 show --json old.ldif
lines out 3
python3 - out <<'CHECK' || fail "the objects are wrong"
import json, sys
ada, al, crew = (json.loads(line) for line in open(sys.argv[1], encoding="utf-8"))
assert list(ada) == ["kind", "uid", "name", "given", "family", "nicknames", "emails", "phones",
                     "members", "properties", "origin"], list(ada)
assert (ada["kind"], ada["name"], ada["given"]) == ("person", "Jörg Müller", "Jörg"), ada
assert (ada["nicknames"], ada["emails"]) == (["joe"], ["j@example.org"]), ada
assert ada["phones"] == ["+1 555 0100"] and ada["origin"] == {"file": "old.ldif", "line": 1}, ada
size = [one for one in ada["properties"] if one["name"] == "X-ORVIK-LDIF-shoeSize"]
assert size == [{"name": "X-ORVIK-LDIF-shoeSize", "params": {}, "value": "42", "file": "old.ldif",
                 "line": 11}], size
assert [one["value"] for one in ada["properties"] if one["name"] == "N"] == ["Müller;Jörg;;;"]
assert crew["kind"] == "list" and ada["members"] == [], crew
assert crew["members"] == [{"name": "Al", "address": "al@example.org", "uid": al["uid"]}], crew
CHECK
cp out first
run "json again" 0 show --json old.ldif
same out first
printf 'BEGIN:VCARD\nVERSION:3.0\nitem1.TEL;TYPE=a,b:5\nNOTE;CHARSET=UTF-8:x\xFFy\nEND:VCARD\n' >bytes.vcf
run "json of bytes that are no text" 0 show --json bytes.vcf
has out $'x\uFFFDy'
has out '"params":{"TYPE":["a","b"]},"value":"5","file":"bytes.vcf","line":3,"group":"item1"'
tells "has bytes that are no text"

# convert.
run "convert" 0 convert old.ldif -o out.vcf
tells_once 'orvik-book: old.ldif: windows-1252 (assumed; e.g. "Jörg Müller"); --charset names'
prints 'read 3   written 3   carried as X- fields: 1 kind, 1 value   lost 0
out.vcf: vCard 3.0, UTF-8. UIDs stay the same on the next run.'
has out.vcf "FN:Jörg Müller"
has out.vcf "X-ORVIK-LDIF-shoeSize:42"
same old.ldif kept.ldif
run "convert again" 0 convert old.ldif -o again.vcf
same out.vcf again.vcf
run "convert to 4.0" 0 convert --vcard 4 old.ldif -o four.vcf
has four.vcf "VERSION:4.0"
run "convert a card of 2.1" 0 convert cy.vcf -o three.vcf
has three.vcf "VERSION:3.0"
has three.vcf "LABEL:x"
run "a copy" 0 convert bo.vcf -o copy.vcf --report copy.json
has copy.json '{"what":"kept","file":"","line":0,"field":"","value":"4",'
has out "copy.vcf: vCard 3.0, UTF-8, byte for byte as it was. UIDs stay"
same bo.vcf copy.vcf
run "a name without an ending" 0 convert bo.vcf -o plain --vcard 4
has plain "VERSION:4.0"
run "back to LDIF" 0 convert out.vcf -o back.ldif
prints 'read 3   written 3   carried 0   lost 0
back.ldif: Mozilla LDIF, ASCII.'
has back.ldif "shoeSize: 42"
for set in netscape mozilla kcontacts evolution; do
    run "attributes of $set" 0 convert old.ldif -o $set.ldif --attributes $set
    has $set.ldif "mail: al@example.org"
done
has kcontacts.ldif "shoeSize: 42"
run "LDIF stays" 0 convert mozilla.ldif -o stays.ldif
same mozilla.ldif stays.ldif
run "several files" 0 convert old.ldif bo.vcf cy.vcf -o all.vcf
has out "read 5   written 5"
has all.vcf "FN:Cy"
{ printf '\xEF\xBB\xBF'; cat bo.vcf; printf '\x1A\xEF\xBB\xBF'; cat cy.vcf; printf '\x1A'; } >joined.vcf
run "files that were joined" 0 convert joined.vcf -o parted.vcf
tells_nothing
has out "read 2   written 2   carried 0   lost 0"
has parted.vcf "FN:Cy"
printf 'version: 1\nservices:\n  web: 2\n' >services.yaml
run "the version of something else" 65 show services.yaml
tells "this is a text, no address book"
run "standard output" 0 convert bo.vcf
same bo.vcf out
tells "read 1   written 1   carried 0   lost 0"
run "standard output by name" 0 convert cy.vcf --attributes mozilla -o -
has out "sn: Cy"
test="through a pipe"
"$program" convert - <old.ldif 2>err | "$program" convert - -o pipe.vcf >out 2>err || fail "$?"
has pipe.vcf "X-ORVIK-LDIF-shoeSize:42"
run "json of what is written" 0 convert --json bo.vcf -o json.vcf
has out '"emails":["bo@example.org"]'
run "a report" 0 convert old.ldif -o told.vcf --report report.json
python3 - report.json <<'CHECK' || fail "the report is wrong"
import json, sys
told = [json.loads(line) for line in open(sys.argv[1], encoding="utf-8")]
for one in told:
    assert list(one) == ["what", "file", "line", "field", "value", "target", "reason"], one
read = [one for one in told if one["what"] == "read"]
assert [(one["file"], one["line"], one["value"]) for one in read] == [
    ("old.ldif", 1, "Jörg Müller"), ("old.ldif", 13, "Al"), ("old.ldif", 18, "Crew")], read
(carried,) = [one for one in told if one["what"] == "carried"]
assert (carried["line"], carried["field"], carried["value"], carried["target"]) == (
    1, "X-ORVIK-LDIF-shoeSize", "42", "X-ORVIK-LDIF-shoeSize"), carried
(doubt,) = [one for one in told if one["what"] == "doubtful"]
assert "assumed" in doubt["reason"] and not [one for one in told if one["what"] == "lost"], doubt
CHECK
run "what was skipped" 1 convert junk.vcf -o skipped.vcf --report skipped.json
has skipped.vcf "FN:Bo"
has skipped.json '{"what":"skipped","file":"junk.vcf","line":1,"field":"","value":"From me",'
has out "lost 0   skipped 1"

# check.
run "check" 0 check old.ldif bo.vcf
prints "3 checked: 3 valid, 0 odd, 0 bad"
tells 'old.ldif: windows-1252 (assumed; e.g. "Jörg Müller"); --charset names another set'
run "check the sample" 0 check "$samples/netscape4.ldif"
prints "40 checked: 40 valid, 0 odd, 0 bad"
run "check a book without addresses" 0 check cy.vcf
prints "0 checked: 0 valid, 0 odd, 0 bad"
{
    printf 'BEGIN:VCARD\nVERSION:3.0\nFN:Joe\nEMAIL:joe@example.org\nTEL:joe@@\n'
    printf 'EMAIL:\nEMAIL;TYPE=work:joe@@example.org\nEND:VCARD\n'
    printf 'BEGIN:VCARD\nVERSION:3.0\nFN:Al\nEMAIL:al@bücher.example\nEMAIL:al@localhost\n'
    printf 'EMAIL:/O=FIRST/OU=SITE/CN=AL\nEMAIL:"a".l@example.org\nEMAIL:al@\033[2J\nEND:VCARD\n'
    printf 'BEGIN:VCARD\nVERSION:3.0\nFN:Jö\nEMAIL:jöö@@example.org\nEMAIL:%070d@example.org\nEND:VCARD\n' 7
} >flagged.vcf
cp flagged.vcf flagged.kept
run "check what is flagged" 1 check flagged.vcf
prints 'flagged.vcf:7  joe@@example.org        bad: two @                     kept, flagged
flagged.vcf:12  al@bücher.example       valid: al@xn--bcher-kva.example in ASCII  kept
flagged.vcf:13  al@localhost            odd: a domain without a dot    kept, flagged
flagged.vcf:14  /O=FIRST/OU=SITE/CN=AL  odd: an Exchange name, no internet address  kept, flagged
flagged.vcf:15  "a".l@example.org       deprecated: quotes, blanks or comments beside a dot of the name  kept, flagged
flagged.vcf:16  al@\x1B[2J              bad: a control letter in the domain  kept, flagged
flagged.vcf:21  jöö@@example.org        bad: two @                     kept, flagged
flagged.vcf:22  000000000000000000000000000000000000000000000000000000000000...  odd: a name longer than 64 bytes  kept, flagged
9 checked: 2 valid, 3 odd, 1 deprecated, 3 bad'
tells_nothing
same flagged.vcf flagged.kept
run "check as objects" 1 check --json flagged.vcf bo.vcf
lines out 10
python3 - out <<'CHECK' || fail "the objects are wrong"
import json, sys
found = [json.loads(line) for line in open(sys.argv[1], encoding="utf-8")]
keys = ["file", "line", "address", "class", "reason"]
assert [list(one) for one in found] == [keys, keys, keys + ["ascii"]] + [keys] * 7, found
assert found[1] == {"file": "flagged.vcf", "line": 7, "address": "joe@@example.org", "class": "bad",
                    "reason": "two @"}, found[1]
assert found[2] == {"file": "flagged.vcf", "line": 12, "address": "al@bücher.example", "class": "valid",
                    "reason": "", "ascii": "al@xn--bcher-kva.example"}, found[2]
assert found[6]["address"] == "al@\x1b[2J" and len(found[8]["address"]) == 82, found
assert found[9]["file"] == "bo.vcf" and found[9]["line"] == 6, found
CHECK
sed '/@@\|2J/d' flagged.vcf >odd.vcf
run "check what is odd alone" 0 check odd.vcf
has out "6 checked: 2 valid, 3 odd, 1 deprecated, 0 bad"
printf 'dn: cn=Al\ncn: Al\nmail: al@example.org\nmail:: YWxAQGV4YW1wbGUub3Jn\nmozillaSecondEmail: a l@example.org\n' >two.ldif
run "check LDIF" 1 check two.ldif
has out "two.ldif:4  al@@example.org         bad: two @"
has out "two.ldif:5  a l@example.org         bad: a blank in the name"
run "check with a report" 1 check two.ldif --report checked.json
has checked.json '{"file":"two.ldif","line":4,"address":"al@@example.org","class":"bad","reason":"two @"}'
run "check what has junk before it" 1 check junk.vcf
prints "1 checked: 1 valid, 0 odd, 0 bad"
tells 'junk.vcf: line 1: skipped: "From me": belongs to no record'
test="check standard input"
status=0
"$program" check - <flagged.vcf >out 2>err || status=$?
[ "$status" = 1 ] || fail "exit status $status"
has out "-:7  joe@@example.org"

# diff.
run "equal books" 0 diff old.ldif out.vcf
prints "same 3   only left 0   only right 0   changed 0"
for other in four.vcf back.ldif netscape.ldif mozilla.ldif kcontacts.ldif evolution.ldif; do
    run "equal to $other" 0 diff old.ldif $other
done
sed 's/EMAIL:bo@example.org/EMAIL:bo@example.net/' bo.vcf >other.vcf
cat cy.vcf >>other.vcf
cat bo.vcf crew.vcf >some.vcf
run "other books" 1 diff some.vcf other.vcf
prints "same 0   only left 1   only right 1   changed 1
changed: Bo (some.vcf, line 1), Bo (other.vcf, line 1): EMAIL
only left: Crew (some.vcf, line 8)
only right: Cy (other.vcf, line 8)"
run "other books as objects" 1 diff --json some.vcf other.vcf
lines out 3
has out '{"what":"changed","fields":["EMAIL"],"left":{"kind":"person","uid":"1"'
test="a book and standard input"
"$program" diff bo.vcf - <copy.vcf >out || fail "exit status $?"
prints "same 1   only left 0   only right 0   changed 0"

# What is printed is text.
printf 'BEGIN:VCARD\nVERSION:3.0\nFN:\033[2J\xE2\x80\xAEx\nEND:VCARD\n' >steers.vcf
run "a name that would steer the terminal" 1 diff steers.vcf bo.vcf
has out '\x1B[2J\u202Ex'
if grep -q "$(printf '\033')" out err; then fail "the terminal is steered"; fi
cp bo.vcf "$(printf 'a\nb.vcf')"
run "a name of two lines" 0 show "$(printf 'a\nb.vcf')"
has out 'a\x0Ab.vcf: vCard'
cp bo.vcf '[a,b]'
run "a name in brackets" 0 show '[a,b]'
has out "[a,b]: vCard"

# Many fields, members and parameters of one record.
python3 - <<'PYTHON'
def write(name, text):
    with open(name, "w", newline="\n", encoding="utf-8") as file:
        file.write("BEGIN:VCARD\nVERSION:4.0\nUID:x\nFN:L\n" + text + "END:VCARD\n")

write("fields.vcf", "item1.X;P=1;Q=2;p=3:\xe9\n" + "TEL:1\n" * 5000)
write("members.vcf", "KIND:group\n" + "MEMBER:x\n" * 5000)
write("params.vcf", "TEL" + "".join(f";P{i}=1" for i in range(5000)) + ":1\n")
PYTHON
for what in fields members params; do
    run "many $what" 0 show --json "$what.vcf"
    python3 - "$what" <<'PYTHON' || fail "not the record"
import json, sys

record = json.loads(open("out", encoding="utf-8").read())
first = record["properties"][2]
if sys.argv[1] == "fields":
    good = (len(record["properties"]) == 5003 and len(record["phones"]) == 5000
            and first == {"name": "X", "params": {"P": ["1", "3"], "Q": ["2"]}, "value": "\xe9",
                          "file": "fields.vcf", "line": 5, "group": "item1"})
elif sys.argv[1] == "members":
    good = record["members"] == [{"name": "L", "address": "", "uid": "x"}] * 5000
else:
    good = list(first["params"]) == [f"P{i}" for i in range(5000)]
sys.exit(0 if good else 1)
PYTHON
done

# CSV by its headers.
printf '%s\r\n' 'Vorname;Nachname;E-Mail-Adresse;Verein?' 'Ada;Abbott;ada@example.org;Rowers' \
    'Ben;Berg;ben@example.org;' >people.csv
run "show a table" 0 show people.csv
prints 'people.csv: Outlook Express CSV, ASCII, CR LF, 2 people, 0 lists
  addresses 2   phones 0   notes 0   nicknames 0   columns unknown to vCard: 1'
tells_once 'orvik-book: people.csv: columns matched by header, German: "Vorname" -> given name, "Nachname" -> family name, "E-Mail-Adresse" -> address, "Verein?" -> kept under its header'
run "convert a table" 0 convert people.csv -o people.vcf --report people.json
has out "read 2   written 2   carried as X- fields: 1 kind, 1 value   lost 0"
tells 'columns matched by header, German: "Vorname" -> given name'
has people.vcf "X-ORVIK-CSV-Verein;X-ORVIK-HEADER=Verein?:Rowers"
has people.vcf "N:Abbott;Ada;;;"
has people.json '"reason":"columns matched by header, German: '
run "a table and its cards" 0 diff people.csv people.vcf
has out "same 2   only left 0   only right 0   changed 0"
run "a column as asked" 0 convert people.csv --map "Verein?=groups" --map nachname=none -o -
has out "CATEGORIES:Rowers"
has out "X-ORVIK-CSV-Nachname:Berg"
tells '"Verein?" -> groups (as asked)'
run "a column that is not there" 0 show people.csv --map Age=note
tells "people.csv: --map: there is no column Age"
run "letters of two bytes in a plain file" 0 show people.csv --charset utf-16le
tells "people.csv: --charset: the file is not in UTF-16LE"
run "check a table" 0 check people.csv --report checked_table.json
prints "2 checked: 2 valid, 0 odd, 0 bad"
tells_once 'people.csv: columns matched by header, German: "Vorname" -> given name'
has checked_table.json '"reason":"columns matched by header, German: '
printf 'Vorname;Nachname;Ort;Verein?\r\nAda;Abbott;Ulm;ada@@example.org\r\n' >club.csv
run "check without the column" 0 check club.csv
prints "0 checked: 0 valid, 0 odd, 0 bad"
run "check a column as asked" 1 check club.csv --map "Verein?=address"
has out "club.csv:2  ada@@example.org        bad: two @"
tells '"Verein?" -> address (as asked)'
for wrong in Verein Verein=nonsense =note; do
    run "a wrong map: $wrong" 2 show people.csv --map "$wrong"
    tells "--map"
done
printf 'Ada,ada@example.org\nBen,"ben@example.org\nCy,cy@example.org\n' >bare.csv
run "a table without a header" 0 show bare.csv
has out "bare.csv: CSV, ASCII, LF, 3 people"
tells 'columns matched by their cells: column 1 -> name, column 2 -> address'
tells 'bare.csv: line 2: doubtful: ""ben@example.org": has a quote without an end'
run "the sample table" 0 convert "$samples/outlook.csv" -o sample.vcf
prints 'read 6   written 6   carried 0   lost 0
sample.vcf: vCard 3.0, UTF-8. UIDs stay the same on the next run.'
tells 'outlook.csv: columns matched by header, English: "Name" -> name, "E-mail Address" -> address'

exit $failed
