#!/usr/bin/env bash
# Runs orvik-book dupes and clean as a script would: plans, what a person makes of them, and what is
# written. Arguments: the program, and the folder of the sample books.
set -euo pipefail
# shellcheck source=tests/batch/kit.sh
. "$(dirname "$0")/../batch/kit.sh"
samples=$2
unset LC_ALL LC_COLLATE LANG

prints() { [ "$(cat out)" = "$1" ] || fail "prints: $(cat out)"; }
same() { cmp -s "$1" "$2" || fail "$1 and $2 differ"; }
card() { printf 'BEGIN:VCARD\nVERSION:3.0\n' && printf '%s\n' "$@" && printf 'END:VCARD\n'; }

{
    card 'UID:a1' 'N:Abbott;Ada;;;' 'FN:Ada Abbott' 'EMAIL:ada@example.org' 'TEL;TYPE=home:+1 (555) 0100'
    card 'FN:B. Berg' 'EMAIL:bb@example.org' 'BDAY:1970'
    card 'FN:Sales' 'EMAIL:info@firm.example'
    card 'FN:Crew' 'X-ADDRESSBOOKSERVER-KIND:group' 'X-ADDRESSBOOKSERVER-MEMBER:cn=ADA ABBOTT,mail=Ada@Example.org' \
        'X-ADDRESSBOOKSERVER-MEMBER:urn:uuid:a1'
} >a.vcf
{
    printf '%s\n' 'dn: cn=ADA ABBOTT,mail=Ada@Example.org' 'cn: ADA ABBOTT' 'mail: Ada@Example.org' \
        'telephonenumber: 15550100' '' \
        'dn: cn=Ben Berg,mail=bb@example.org' 'cn: Ben Berg' 'mail: bb@example.org' \
        'mozillaSecondEmail: info@firm.example' '' 'dn: cn=Nobody' 'cn: Nobody' 'description: bare'
} >b.ldif

# Usage.
run "help" 0 dupes --help
has out "--merge agree"
run "help of clean" 0 clean --help
has out "--sort ORDER"
for wrong in dupes "dupes a.vcf a.vcf" "dupes a.vcf --merge all" "dupes a.vcf --plan -" "dupes a.vcf --sort name" \
    clean "clean --plan" "clean a.vcf --plan p" "clean --plan p --merge agree" "clean a.vcf --sort size" \
    "clean a.vcf --locale klingon" "clean a.vcf -o x.doc" "clean a.vcf a.vcf" "convert a.vcf --sort size" \
    "--sort name clean a.vcf" "show a.vcf --sort name"; do
    # shellcheck disable=SC2086
    run "usage: $wrong" 2 $wrong
    tells "--help"
done
run "a plan that is not there" 66 clean --plan plan.txt -o x.vcf

# A plan.
run "dupes" 0 dupes a.vcf b.ldif --plan plan.txt
prints '6 people, 1 list: 1 same, 0 contained, 1 agree, 1 share an address, 0 share a name
plan.txt: edit it, then: orvik-book clean --plan plan.txt -o book.vcf'
tells_nothing
holds plan.txt "# source a.vcf $(sha256sum <a.vcf | cut -d' ' -f1)
# source b.ldif $(sha256sum <b.ldif | cut -d' ' -f1)
merge  a.vcf:1  b.ldif:1   # same: Ada Abbott <ada@example.org>
ask    a.vcf:9  b.ldif:6   # agree: share bb@example.org, names \"B. Berg\" / \"Ben Berg\"
keep   a.vcf:15  b.ldif:6   # address: share info@firm.example: \"Sales\" / \"Ben Berg\""
run "dupes again" 0 dupes a.vcf b.ldif --plan again.txt
same plan.txt again.txt
run "a plan that is there" 73 dupes a.vcf b.ldif --plan plan.txt
run "a plan over a book" 73 dupes a.vcf b.ldif --plan b.ldif --force
run "dupes without a plan" 0 dupes a.vcf b.ldif
has out 'merge  a.vcf:1  b.ldif:1   # same: Ada Abbott <ada@example.org>'
lines out 4
run "dupes that agree" 0 dupes a.vcf b.ldif --merge agree
has out 'merge  a.vcf:9  b.ldif:6   # agree: '
run "dupes as objects" 0 dupes a.vcf b.ldif --json
python3 - out <<'CHECK' || fail "the objects are wrong"
import json, sys
found = [json.loads(line) for line in open(sys.argv[1], encoding="utf-8")]
assert [(one["action"], one["tier"]) for one in found] == [
    ("merge", "same"), ("ask", "agree"), ("keep", "address")], found
assert found[0] == {"action": "merge", "tier": "same", "reason": "Ada Abbott <ada@example.org>",
                    "records": [{"file": "a.vcf", "line": 1, "name": "Ada Abbott"},
                                {"file": "b.ldif", "line": 1, "name": "ADA ABBOTT"}]}, found[0]
CHECK

# The plan is done.
run "clean" 0 clean --plan plan.txt --sort family -o book.vcf --report report.json
prints '7 read   1 merged away   6 written   0 values lost'
tells_once 'b.ldif: line 1: carried: FN "ADA ABBOTT": "Ada Abbott" of a.vcf, line 1 won'
tells_once 'b.ldif: line 1: carried: EMAIL "Ada@Example.org": "ada@example.org" of a.vcf, line 1 won'
tells_once 'b.ldif: line 1: carried: TEL "15550100": "+1 (555) 0100" of a.vcf, line 1 won'
lines err 3
has book.vcf 'TEL;TYPE=home;TYPE=work:+1 (555) 0100'
has book.vcf 'X-ORVIK-MERGED-EMAIL:Ada@Example.org'
[ "$(grep -c 'MEMBER:' book.vcf)" = 1 ] || fail "members: $(grep MEMBER: book.vcf)"
[ "$(grep '^FN:' book.vcf | tr -d '\r' | paste -sd,)" = 'FN:Ada Abbott,FN:B. Berg,FN:Ben Berg,FN:Crew,FN:Nobody,FN:Sales' ] ||
    fail "order: $(grep '^FN:' book.vcf)"
! grep -q 'has no place' report.json || fail "report: $(cat report.json)"
has report.json '{"what":"merged","file":"b.ldif","line":1,"field":"","value":"","target":"","reason":"is part of a.vcf, line 1"}'
has report.json '"field":"FN","value":"ADA ABBOTT","target":"X-ORVIK-MERGED-FN","reason":"\"Ada Abbott\" of a.vcf, line 1 won"}'
run "clean again" 0 clean --plan plan.txt --sort family -o again.vcf
same book.vcf again.vcf
run "clean over the plan" 73 clean --plan plan.txt -o plan.txt --vcard 3 --force
run "clean over a source" 73 clean --plan plan.txt -o a.vcf --force
run "clean without a plan" 0 clean a.vcf b.ldif -o without.ldif
prints '7 read   1 merged away   6 written   0 values lost'
has without.ldif 'x-orvik-vcard-x-orvik-merged-email'
run "clean those that agree" 0 clean a.vcf b.ldif --merge agree -o agree.vcf
prints '7 read   2 merged away   5 written   0 values lost'
tells_once 'a.vcf: line 9: carried: FN "B. Berg": "Ben Berg" of b.ldif, line 6 won'
has agree.vcf 'BDAY:1970'
run "clean to standard output" 0 clean a.vcf b.ldif
has out 'FN:Ada Abbott'
tells '7 read   1 merged away   6 written   0 values lost'
run "clean for a program" 0 clean a.vcf b.ldif --to google -o google.csv
has out '7 read   1 merged away   5 written   0 values lost'
run "clean in parts" 0 clean a.vcf b.ldif --split 4 -o part.vcf
has out 'part-1.vcf: 4 records'
run "clean what is clean" 0 clean book.vcf -o clean.vcf
prints '6 read   0 merged away   6 written   0 values lost'
same book.vcf clean.vcf
# What was merged holds all that it was made of.
run "the sources beside their book" 0 clean a.vcf b.ldif book.vcf --merge agree -o once.vcf
prints '13 read   8 merged away   5 written   0 values lost'

# A plan that a person edited.
sed 's/^ask /merge/; /^keep/d' plan.txt | tac | sed 's/^merge/  Merge/; s/Merge/merge/; 1i # my own' >edited.txt
run "an edited plan" 0 clean --plan edited.txt -o edited.vcf
prints '7 read   2 merged away   5 written   0 values lost'
sed '/^#/!d' plan.txt >none.txt
run "a plan of nothing" 0 clean --plan none.txt -o none.vcf
prints '7 read   0 merged away   7 written   0 values lost'
{ sed '/^#/!d' plan.txt; printf 'merge a.vcf:9 a.vcf:15\nmerge b.ldif:6 a.vcf:15\n'; } >joined.txt
run "one record in two lines" 0 clean --plan joined.txt -o joined.vcf
prints '7 read   2 merged away   5 written   0 values lost'
{ cat plan.txt; printf 'merge a.vcf:15 b.ldif:6\nmerge a.vcf:2 b.ldif:1\nglue a.vcf:1\n'; } >wrong.txt
run "a line that is none" 1 clean --plan wrong.txt -o wrong.vcf
tells 'wrong.txt: line 5: this keeps apart what line 6 merges'
tells 'wrong.txt: line 7: a.vcf:2: no record begins on this line'
tells 'wrong.txt: line 8: a line begins with merge, ask, keep or #'
tells_once 'wrong.txt: Nothing is written'
is_missing wrong.vcf
sed -i '$d' wrong.txt
run "lines that cannot be done" 1 clean --plan wrong.txt -o wrong.vcf
tells 'wrong.txt: line 5: this keeps apart what line 6 merges'
tells 'wrong.txt: line 7: a.vcf:2: no record begins on this line'
tells 'wrong.txt: Nothing is written'
[ ! -s out ] || fail "prints: $(cat out)"
is_missing wrong.vcf
{ sed '/^#/!d' plan.txt; echo 'merge a.vcf:1 a.vcf:20'; } >kinds.txt
run "a person and a list" 1 clean --plan kinds.txt -o wrong.vcf
tells 'kinds.txt: line 3: a person and a list cannot become one'

{ sed '/^#/!d' plan.txt; echo 'merge a.vcf:1 a.vcf:1'; } >twice.txt
run "a record twice in a line" 1 clean --plan twice.txt -o wrong.vcf
tells 'twice.txt: line 3: a.vcf:1: the line names this record twice'
printf '# source a.vcf 12\nglue a.vcf:1\nmerge a.vcf:1 a.vcf:9\n' >lacks.txt
run "a source that is none" 1 clean --plan lacks.txt -o wrong.vcf
tells 'lacks.txt: line 1: a source needs its name and the 64 digits of its SHA-256'
tells 'lacks.txt: line 2: a line begins with merge, ask, keep or #'
lines err 3
echo 'merge a.vcf:1 a.vcf:9' >lacks.txt
run "no source at all" 1 clean --plan lacks.txt -o wrong.vcf
tells 'lacks.txt: line 1: the plan names no source; a line "# source FILE SHA-256" does for each'

# Sources that are others by now.
mkdir other
cp plan.txt b.ldif other/
cp book.vcf other/a.vcf
cd other
run "a plan for its own output" 1 clean --plan plan.txt -o new.vcf
tells 'plan.txt: line 1: a.vcf is not what it was when the plan was made'
is_missing new.vcf
rm b.ldif
echo 'glue a.vcf:1' >>plan.txt
run "a source that is gone" 66 clean --plan plan.txt -o new.vcf
tells 'b.ldif: File not found'
tells 'plan.txt: line 6: a line begins with merge, ask, keep or #'
is_missing new.vcf
cd ..
cp a.vcf 'my: "book" #1.vcf'
run "a name that needs quotes" 0 dupes 'my: "book" #1.vcf' b.ldif --plan odd.txt
has odd.txt 'merge  "my: \"book\" #1.vcf":1  b.ldif:1   # same: '
run "a plan with quotes" 0 clean --plan odd.txt -o odd.vcf
prints '7 read   1 merged away   6 written   0 values lost'
test="standard input"
"$program" dupes - b.ldif --plan stdin.txt <a.vcf >out 2>err || fail "exit status $?"
has stdin.txt 'merge  -:1  b.ldif:1   # same: '
"$program" clean --plan stdin.txt -o stdin.vcf <a.vcf >out 2>err || fail "exit status $?"
prints '7 read   1 merged away   6 written   0 values lost'

# Sorting.
{ card 'FN:Zoe' 'EMAIL:b@a.example'; card 'FN:Örjan' 'EMAIL:a@b.example'; card 'FN:adam' 'N:Xu;adam;;;'; } >names.vcf
names() { [ "$(grep '^FN:' "$1" | tr -d '\r' | cut -c4- | paste -sd' ')" = "$2" ] || fail "order: $(grep '^FN:' "$1")"; }
run "sort by name" 0 convert names.vcf --sort name -o name.vcf
names name.vcf 'adam Örjan Zoe'
run "sort as in Sweden" 0 convert names.vcf --sort name --locale sv -o sv.vcf
names sv.vcf 'adam Zoe Örjan'
test="sort by the environment"
LC_ALL=sv_SE.UTF-8 "$program" convert names.vcf --sort name -o env.vcf >out 2>err || fail "exit status $?"
names env.vcf 'adam Zoe Örjan'
run "sort by family" 0 clean names.vcf --sort family -o family.vcf
names family.vcf 'Örjan adam Zoe'
run "sort by address" 0 clean names.vcf --sort address -o address.vcf
names address.vcf 'Örjan Zoe adam'
run "sort by domain" 0 clean names.vcf --sort domain -o domain.vcf
names domain.vcf 'Zoe Örjan adam'
run "sort by nothing" 0 clean names.vcf --sort none -o nothing.vcf
same names.vcf nothing.vcf

# Books that know nothing of each other call two people alike: each list means the one of its own book.
for at in home work; do
    printf '%s\n' 'dn: cn=Ada' 'cn: Ada' "mail: ada@$at.example" '' 'dn: cn=Club' 'objectclass: groupOfNames' \
        'cn: Club' 'member: cn=Ada' >$at.ldif
done
run "two lists of one name" 0 clean home.ldif work.ldif -o clubs.vcf
prints '4 read   0 merged away   4 written   0 values lost'
[ "$(grep -c 'KIND:group' clubs.vcf) $(grep 'MEMBER:' clubs.vcf | sort -u | wc -l)" = '2 2' ] ||
    fail "members: $(grep MEMBER: clubs.vcf)"

# Three books that overlap become one, which holds each of them.
run "the first 25 of the sample" 0 convert "$samples/netscape4.ldif" --split 25 -o some.vcf
run "the others, and those of a table" 0 convert some-2.vcf "$samples/outlook.csv" -o rest.ldif
run "a story" 0 clean "$samples/netscape4.ldif" some-1.vcf rest.ldif --sort name -o story.vcf
prints '86 read   46 merged away   40 written   0 values lost'
run "the story holds the sample" 0 diff "$samples/netscape4.ldif" story.vcf
prints 'same 40   only left 0   only right 0   changed 0'
run "the story holds the first 25" 1 diff some-1.vcf story.vcf
has out 'same 25   only left 0   only right 15   changed 0'

exit $failed
