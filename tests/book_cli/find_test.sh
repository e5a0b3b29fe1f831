#!/usr/bin/env bash
# Runs orvik-book find as a script would, over mail made up of odd messages. Who is in it was written
# down by hand. Argument: the program.
set -euo pipefail
# shellcheck source=tests/batch/kit.sh
. "$(dirname "$0")/../batch/kit.sh"

prints() { [ "$(cat out)" = "$1" ] || fail "prints: $(cat out)"; }
# people TEXT: "ADDRESS COUNT NAME" of each person that was printed, sorted.
people() {
    python3 - out >people <<'PY'
import json, sys
rows = [json.loads(line) for line in open(sys.argv[1], encoding="utf-8")]
for row in sorted(rows, key=lambda row: row["emails"]):
    name = "" if row["name"] in row["emails"] else row["name"]
    print(" ".join([row["emails"][0], str(row["count"]), name]).strip())
PY
    [ "$(cat people)" = "$1" ] || fail "people: $(diff people - <<<"$1" || true)"
}

# An mbox of every kind: with and without empty lines and dates, lengths that are wrong, quoted lines.
mkdir mail
cat >mail/Inbox <<'MBOX'
From ada@example.org Thu Jan  1 10:00:00 1998
Return-Path: <return@example.org>
Received: from x by y for <received@example.org>; Thu, 1 Jan 1998 10:00:00 +0100
Delivered-To: delivered@example.org
X-Sender: sender@example.org
List-Post: <mailto:list@example.org>
Errors-To: errors@example.org
Message-ID: <id1@example.org>
Content-Length: 99999
Date: Thu, 1 Jan 1998 10:00:00 +0100
From: =?iso-8859-1?q?Ada_M=FCller?= <Ada@Example.ORG>
To: Crew: bob@example.org, Cy <cy@example.org>;, "Day, Dora" < dora @ example.org >
Cc: eve@b=?utf-8?q?=C3=BC?=cher.example, (a comment) fay@example.org (Fay Foster)
Subject: subject@example.org

From the start: see gus@example.org.
>From hal@example.org Thu Jan  1 10:00:00 1998
> Message-ID: <id1@example.org>
> From: Ida Ives <ida@example.org>
In message <id1@example.org> you wrote.
logo@2x.png [cid:image001.png@01D5C2A3.4E5F6A70] ada@EXAMPLE.org

From 1844347792267117879@xxx
From: Ada Müller <ada@example.org>
Date: Fri, 2 Jan 1998 10:00:00 +0100
In-Reply-To: <id1@example.org>
Message-ID: <id2@example.org>
Content-Type: multipart/alternative; boundary=b

--b
Content-Type: text/plain; charset=utf-8
Content-Transfer-Encoding: quoted-printable

jo=40exam=
ple.org
--b
Content-Type: text/html

<p>jo@<b>example</b>.org <a href="mailto:kim%40example.org?cc=lee@example.org">K</a>
<img src="cid:img@example.org" alt="img@example.org">
--b--
From - 
From: "Mia" <mia@xn--bcher-kva.example>
Resent-To: mia@BÜCHER.example
Content-Type: multipart/mixed; boundary=b

--b
Content-Transfer-Encoding: base64

bmVkQGV4YW1wbGUub3Jn
--b
Content-Type: message/rfc822

From: Ola Olsen <ola@example.org>
Date: Wed, 3 Jan 1990 10:00:00 +0000
Message-ID: <id3@example.org>

id3@example.org pia@example.org
--b
Content-Type: message/delivery-status

Final-Recipient: rfc822; quin@example.org
Original-Message-ID: <id4@example.org>
--b
Content-Type: text/rfc822-headers

From: Ray Reed <ray@example.org>
Message-ID: <id5@example.org>
--b
Content-Type: image/png; name=file@example.org
Content-ID: <part1@example.org>
Content-Transfer-Encoding: base64

c2lkQGV4YW1wbGUub3Jn
--b--

From 
From: no-reply@example.org
Subject: the boundary is missing
Content-Type: multipart/mixed; boundary=missing

tom@example.org

From uma Mon Jan  5 10:00:00 1998
From: uma@example.org
Date: Mon, 5 Jan 1998 10:00:00 +0000
Content-Type: multipart/encrypted; boundary=b

--b
Content-Type: application/octet-stream

vic@example.org
--b--

From wes Tue Jan  6 10:00:00 1998
From: wes@example.org
Content-Type: text/plain; charset=klingon
Content-Transfer-Encoding: x-tricky

xia@example.org
MBOX
cp mail/Inbox kept
expected='Ada@Example.ORG 2 Ada Müller
bob@example.org 1
cy@example.org 1 Cy
dora@example.org 1 Day, Dora
eve@bücher.example 1
fay@example.org 1 Fay Foster
gus@example.org 1
hal@example.org 1
ida@example.org 1 Ida Ives
jo@example.org 1
kim@example.org 1
lee@example.org 1
mia@bücher.example 1 Mia
ned@example.org 1
ola@example.org 1 Ola Olsen
pia@example.org 1
quin@example.org 1
ray@example.org 1 Ray Reed
tom@example.org 1
uma@example.org 1
wes@example.org 1
xia@example.org 1'
run "an mbox" 1 find --json mail/Inbox
people "$expected"
tells "mail/Inbox: line 84: part 1 (multipart/encrypted) is encrypted"
tells "mail/Inbox: line 95: part 1 (text/plain) nobody knows the encoding x-tricky"
tells "6 messages, 3 kB: 22 addresses, 1 seen twice or more"
tells "1 no-reply, 1 encrypted part, 1 in undecodable parts (listed with --report)"
cmp -s mail/Inbox kept || fail "the mail was changed"
sed 's/$/\r/' mail/Inbox >crlf
run "an mbox of DOS" 1 find --json crlf
people "$expected"
tr '\n' '\r' <mail/Inbox >mac
run "an mbox of old Macs" 1 find --json mac
people "$expected"
run "the headers alone" 0 find --json --headers-only --no-reply mail/Inbox
people 'Ada@Example.ORG 2 Ada Müller
bob@example.org 1
cy@example.org 1 Cy
dora@example.org 1 Day, Dora
eve@bücher.example 1
fay@example.org 1 Fay Foster
mia@bücher.example 1 Mia
no-reply@example.org 1
uma@example.org 1
wes@example.org 1'
tells "left out: "
run "who was seen twice" 1 find --json --min 2 mail/Inbox
people 'Ada@Example.ORG 2 Ada Müller'
run "since a day" 1 find --json --since 1998-01-02 --me UMA@example.org mail/Inbox
people 'ada@example.org 1 Ada Müller
jo@example.org 1
kim@example.org 1
lee@example.org 1
wes@example.org 1
xia@example.org 1'
tells "1 of --me, 1 older message, 2 without a date"

# What is printed of a person.
run "json" 1 find --json --min 2 mail/Inbox
python3 - out <<'CHECK' || fail "the object is wrong"
import json, sys
(ada,) = (json.loads(line) for line in open(sys.argv[1], encoding="utf-8"))
assert list(ada) == ["kind", "uid", "name", "given", "family", "nicknames", "emails", "phones",
                     "members", "properties", "origin", "count", "first", "last", "seen",
                     "seen_elsewhere"], list(ada)
assert (ada["kind"], ada["given"], ada["family"]) == ("person", "Ada", "Müller"), ada
assert (ada["first"], ada["last"]) == ("1998-01-01T09:00:00Z", "1998-01-02T09:00:00Z"), ada
assert ada["seen"] == [{"file": "mail/Inbox", "fields": ["From", "body"], "count": 2}], ada
assert ada["seen_elsewhere"] is False and ada["origin"]["file"] == "mail/Inbox", ada
CHECK

# Writing.
run "a vCard file" 1 find mail/Inbox --min 2 -o people.vcf --report report.json
prints '6 messages, 3 kB: 22 addresses, 1 seen twice or more
left out: 10 Message-IDs, 1 no-reply, 1 encrypted part, 1 in undecodable parts
people.vcf: 1 person, vCard 3.0, UTF-8.'
has people.vcf "FN:Ada Müller"
has people.vcf "N:Müller;Ada;;;"
has people.vcf "EMAIL:Ada@Example.ORG"
has people.vcf 'NOTE:Seen 2 times\, 1998-01-01 to 1998-01-02: mail/Inbox (From\, body)'
has report.json '"reason":"nobody knows the encoding x-tricky"'
has report.json '"value":"no-reply@example.org","target":"","reason":"nobody reads what is sent there"'
cp people.vcf first.vcf
run "it is there" 73 find mail/Inbox --min 2 -o people.vcf
run "again" 1 find mail/Inbox --min 2 -o people.vcf --force
cmp -s people.vcf first.vcf || fail "another file"
run "an LDIF file" 1 find mail/Inbox -o people.ldif
has people.ldif "mail: ida@example.org"
has people.ldif "cn: Ida Ives"
run "a vCard 4.0 file" 1 find mail/Inbox -o people4 --vcard 4
has people4 "VERSION:4.0"
run "what was written is a book" 0 show people.vcf
run "standard output" 1 find mail/Inbox --min 2
has out "BEGIN:VCARD"
tells "6 messages"
run "json beside a file" 1 find mail/Inbox --json --min 2 -o beside.vcf
lines out 1
has beside.vcf "Ada"
# For a program, as convert writes it.
run "a file for a program" 1 find mail/Inbox --min 2 -o people.csv --to google
has out "people.csv: 1 person, Google CSV, UTF-8."
has out "Import "
has people.csv "Ada@Example.ORG"
run "a table of no program" 2 find mail/Inbox -o table.csv
is_missing table.csv
printf 'To: =?utf-8?b?0JDQtNCw?= <ru@example.org>, b@example.org, c@example.org\n\n' >letter
run "letters that a table has not" 1 find letter --to outlook -o letter.csv
tells "lost"
is_missing letter.csv
run "and all others" 1 find letter --to outlook -o letter.csv --allow-loss
has letter.csv "b@example.org"
run "several files" 0 find letter -o part.vcf --split 2 --report split.json
prints '1 message, 73 bytes: 3 addresses, 0 seen twice or more
part-1.vcf to part-2.vcf: 3 people, vCard 3.0, UTF-8.
part-1.vcf: 2 records
part-2.vcf: 1 record'
has part-2.vcf "c@example.org"
has split.json '"file":"part-2.vcf"'
if grep -q '"what":"read"' split.json; then
    fail "people of mail were read from no book"
fi

# A Maildir with a folder in it, files of other kinds, and what is no file at all.
mkdir -p tree/box/{cur,new,tmp} tree/box/.Sub/{cur,new,tmp} tree/deep/er
printf 'From: A One <one@example.org>\n\n' >tree/box/cur/1:2,S
printf 'From: A One <one@example.org>\n\n' >tree/box/new/2
printf 'From: tmp@example.org\n\n' >tree/box/tmp/3
printf 'uid@example.org\n' >tree/box/uidlist
printf 'From: One <one@example.org>\n\n' >tree/box/.Sub/cur/4
printf 'To: two@example.org\n\n' >tree/deep/er/letter.eml
printf 'notes of three@example.org,one@example.org\n' >tree/deep/notes.txt
printf '\377\376' >tree/deep/wide.txt
printf 'four@example.org' | iconv -t utf-16le >>tree/deep/wide.txt
printf '\211PNG\r\n\032\n\0\0 png@example.org' >tree/deep/picture
printf 'From: locked@example.org\n\n' >tree/locked
mkfifo tree/pipe
ln -s .. tree/deep/loop
ln -s er/letter.eml tree/deep/letter
ln -s nowhere tree/dead
locked=0
# Nothing is locked for the superuser.
if [ "$(id -u)" -ne 0 ]; then
    chmod 0 tree/locked
    locked=70
else
    rm tree/locked
fi
test="a tree"
status=0
timeout 20 "$program" find --json tree --report tree.json >out 2>err </dev/null || status=$?
if [ "$locked" = 0 ]; then
    [ "$status" = 0 ] || fail "exit status $status: $(cat err)"
else
    [ "$status" != 0 ] || fail "exit status 0"
    tells "tree/locked: Permission denied"
fi
people 'four@example.org 1
one@example.org 4 A One
three@example.org 1
two@example.org 1'
tells "4 messages and 2 other texts"
has out '"seen":[{"file":"tree/box/.Sub","fields":["From"],"count":1},{"file":"tree/box","fields":["From"],"count":2},{"file":"tree/deep/notes.txt","fields":["body"],"count":1}]'
for line in '"file":"tree/pipe"' '"file":"tree/dead"' '"file":"tree/deep/loop"' 'is a PNG image, no text' \
    'is where programs are still writing' 'belongs to the mail server'; do
    has tree.json "$line"
done
run "a link that is named" 0 find --json tree/deep/letter
people 'two@example.org 1'
run "one that is not there" 66 find --json nothere tree/deep/er
tells "nothere: File not found"
people 'two@example.org 1'
# shellcheck disable=SC2046
run "many that are not there" 66 find --json $(seq -f gone%.0f 1 23) tree/deep/er --report gone.json
people 'two@example.org 1'
tells_once "gone20: File not found"
tells "3 more cannot be read; --report FILE names all"
! grep -q "gone21" err || fail "tells: $(cat err)"
has gone.json '"file":"gone23"'
run "a pipe" 66 find tree/pipe
tells "tree/pipe: is a pipe, a device or another thing without an end"
run "what it wrote is no mail" 0 find tree/deep/er -o tree/deep/er/found.vcf
run "what it wrote is no mail, again" 0 find --json tree/deep/er --force -o tree/deep/er/found.vcf
people 'two@example.org 1'
run "nobody" 0 find tree/box/uidlist --headers-only -o nobody.vcf
has out "0 addresses"

# What mail programs show to nobody is passed over, and told.
mkdir -p unseen/box/{cur,new}
cat >unseen/folder <<'MBOX'
From MAILER-DAEMON Mon Nov  2 09:00:00 2026
From: Mail System Internal Data <MAILER-DAEMON@host.example>
Subject: DON'T DELETE THIS MESSAGE -- FOLDER INTERNAL DATA
X-IMAP: 1

This text is part of the internal format; admin@host.example

From - Mon Nov 02 09:00:00 2026
X-Mozilla-Status: 0009
From: deleted@example.org

also@example.org

From - Mon Nov 02 09:00:00 2026
X-Mozilla-Status: 0001
From: kept@example.org

MBOX
printf 'From: trash@example.org\n\n' >unseen/box/cur/1:2,ST
printf 'From: read@example.org\n\n' >unseen/box/cur/2:2,S
run "deleted messages" 0 find --json unseen --report unseen.json
people 'kept@example.org 1
read@example.org 1'
tells "2 messages, "
tells "left out: 2 deleted messages, 1 message of a folder about itself"
has unseen.json '"file":"unseen/box/cur/1:2,ST","line":0,"field":"","value":"","target":"","reason":"is deleted"'
has unseen.json '"file":"unseen/folder","line":8,"field":"","value":"","target":"","reason":"is deleted"'
has unseen.json '"line":1,"field":"","value":"","target":"","reason":"holds what a mail server keeps of the folder"'
run "deleted messages without a report" 0 find unseen -o unseen.vcf
has out "1 message of a folder about itself (listed with --report)"
run "a deleted one that is named" 0 find --json unseen/box/cur/1:2,ST
people 'trash@example.org 1'

# Folders and messages of other programs.
printf '\1\1\1\1\nFrom: m1@example.org\n\nx\n\1\1\1\1\n\1\1\1\1\nFrom: m2@example.org\nMessage-ID: <id@mid.example>\n\ny\n\1\1\1\1\n' >mmdf
printf '64\nFrom: em@example.org\nMessage-ID: <q1@mid.example>\n\nhello x@y.org\n<?xml version="1.0"?>\n<plist><string>p@l.example</string></plist>\n' >1.emlx
run "MMDF and a message of Apple Mail" 0 find --json mmdf 1.emlx
people 'em@example.org 1
m1@example.org 1
m2@example.org 1
x@y.org 1'
tells "3 messages, "
tells "left out: 2 Message-IDs"

# Usage.
run "help" 0 find --help
for word in --headers-only --min --since --me --no-reply --report; do has out "$word"; done
has out "Exit status: 0 all"
! grep -q 'standard input' out || fail "find reads no standard input"
run "help of show" 0 show --help
has out "A file named - is standard input."
run "nothing to look through" 2 find
run "own addresses before the paths" 0 find --json --me two@example.org tree/deep/er
people ''
for wrong in "find -" "find x --since yesterday" "find x --since 2024-02-30" "find x --min 0" "find x --me" \
    "find x -o y.doc" "find x --charset utf-8" "find x --me @"; do
    # shellcheck disable=SC2086
    run "usage: $wrong" 2 $wrong
done
run "standard input" 2 find -
tells "find reads files and folders; a file of this name is ./-"

exit $failed
