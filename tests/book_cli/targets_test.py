#!/usr/bin/env python3
"""Takes a book to each program, from there to each other one, and looks for all of its values.

Arguments: orvik-book, and "table" to print where the values stand. The files are read by a few lines
here, so that nothing of the program judges itself: each value is one word, which has to be in each file, or
is told as lost; and where a program has a place for it, it stands there.
"""

import base64
import collections
import contextlib
import csv
import io
import pathlib
import re
import subprocess
import sys
import tempfile

PROGRAM = str(pathlib.Path(sys.argv[1]).resolve())
FORMS = ("thunderbird.vcf", "thunderbird.ldif", "thunderbird.csv", "google.csv", "google.vcf", "apple.vcf",
         "outlook.csv", "outlook-new.csv", "nextcloud.vcf", "kaddressbook.vcf", "kaddressbook.ldif",
         "evolution.vcf", "evolution.ldif")
PEOPLE = 5
# What a person has, and the kind of each value.
VALUES = ("given", "family", "middle", "nick", "mail1", "mail2", "mail3", "cell", "home", "work", "fax", "street",
          "city", "office", "firm", "unit", "job", "web", "day", "note")
CARD = """BEGIN:VCARD\r
VERSION:3.0\r
UID:{uid}\r
N:{family};{given};{middle};;\r
FN:{given} {middle} {family}\r
NICKNAME:{nick}\r
EMAIL;TYPE=INTERNET,PREF:{mail1}\r
EMAIL;TYPE=INTERNET:{mail2}\r
EMAIL;TYPE=INTERNET:{mail3}\r
TEL;TYPE=CELL:{cell}\r
TEL;TYPE=HOME:{home}\r
TEL;TYPE=WORK:{work}\r
TEL;TYPE=FAX,WORK:{fax}\r
ADR;TYPE=HOME:;;{street};{city};;;\r
ADR;TYPE=WORK:;;{office};;;;\r
ORG:{firm};{unit}\r
TITLE:{job}\r
URL:{web}\r
BDAY:{day}\r
NOTE:{note}\r
CATEGORIES:Rowers\r
END:VCARD\r
"""
# Where a value stands in each kind of file: a column, an attribute, a line of a card.
COLUMNS = {
    "thunderbird.csv": {"given": "First Name", "family": "Last Name", "nick": "Nickname", "mail1": "Primary Email",
                        "mail2": "Secondary Email", "cell": "Mobile Number", "home": "Home Phone",
                        "work": "Work Phone", "fax": "Fax Number", "street": "Home Address", "city": "Home City",
                        "office": "Work Address", "firm": "Organization", "unit": "Department",
                        "job": "Job Title", "note": "Notes"},
    "google.csv": {"given": "First Name", "family": "Last Name", "middle": "Middle Name", "nick": "Nickname",
                   "mail1": "E-mail 1 - Value", "mail2": "E-mail 2 - Value", "mail3": "E-mail 3 - Value",
                   "firm": "Organization Name", "unit": "Organization Department", "job": "Organization Title",
                   "day": "Birthday", "note": "Notes"},
    "outlook.csv": {"given": "First Name", "family": "Last Name", "middle": "Middle Name",
                    "mail1": "E-mail Address", "mail2": "E-mail 2 Address", "mail3": "E-mail 3 Address",
                    "cell": "Mobile Phone", "home": "Home Phone", "work": "Business Phone",
                    "fax": "Business Fax", "street": "Home Street", "city": "Home City",
                    "office": "Business Street", "firm": "Company", "unit": "Department", "job": "Job Title",
                    "web": "Web Page", "note": "Notes"},
}
COLUMNS["outlook-new.csv"] = COLUMNS["outlook.csv"]
ATTRIBUTES = {"given": "givenname", "family": "sn", "mail1": "mail", "cell": "mobile", "home": "homephone",
              "work": "telephonenumber", "firm": "o|organizationname", "unit": "ou|departmentname|department", "job": "title",
              "note": "description"}
LINES = {"given": "N", "family": "N", "middle": "N", "nick": "NICKNAME", "mail1": "EMAIL", "mail2": "EMAIL",
         "mail3": "EMAIL", "cell": "TEL", "home": "TEL", "work": "TEL", "fax": "TEL", "street": "ADR",
         "city": "ADR", "office": "ADR", "firm": "ORG", "unit": "ORG", "job": "TITLE", "web": "URL",
         "day": "BDAY", "note": "NOTE"}
failed = 0
counts = collections.Counter()


def fail(what):
    global failed
    failed += 1
    print(what[:500])


def person(number):
    values = {kind: f"{kind.capitalize()}q{number}" for kind in VALUES}
    for kind in ("mail1", "mail2", "mail3"):
        values[kind] = f"{kind}q{number}@example.org"
    for place, kind in enumerate(("cell", "home", "work", "fax")):
        values[kind] = f"+47 55 {place}0 {number:02d}"
    # A letter that windows-1252 has.
    values["family"] = f"Ærøq{number}"
    values["web"] = f"http://www.example.org/q{number}"
    values["day"] = f"19{60 + number}-04-0{number}"
    return values


def letters(name, data):
    return data.decode("cp1252" if name.startswith("outlook.") else "utf-8-sig")


def records(name, text):
    """For each record the fields by name, each a list of its texts."""
    if name.endswith(".csv"):
        for row in csv.DictReader(io.StringIO(text, newline="")):
            yield {column: [cell] for column, cell in row.items() if cell}
        return
    unfolded = re.sub(r"\r?\n[ \t]", "", text)
    for block in re.split(r"END:VCARD" if name.endswith(".vcf") else r"(?:\r?\n){2,}", unfolded):
        fields = collections.defaultdict(list)
        for line in block.splitlines():
            found = re.match(r"(?:item\d+\.)?([\w-]+)([^:]*?)(::?) ?(.*)", line)
            if found:
                value = base64.b64decode(found[4]).decode() if found[3] == "::" else found[4]
                fields[found[1].upper() if name.endswith(".vcf") else found[1].lower()].append(value)
        if "FN" in fields or "mail" in fields:
            yield fields


def places_of(name, kind):
    if name.endswith(".csv"):
        return [COLUMNS[name].get(kind, "")]
    table = LINES if name.endswith(".vcf") else ATTRIBUTES
    return table.get(kind, "").split("|")


def is_there(value, text):
    """A date is there in any order, a text with the escapes of cards."""
    text = text.replace("\\,", ",").replace("\\;", ";").replace("\\:", ":")
    date = re.fullmatch(r"(\d{4})-0?(\d+)-0?(\d+)", value)
    if date:
        year, month, day = date.groups()
        return all(part in text for part in (year, month, day)) or value.replace("-", "") in text
    return value in text


def check(route, name, data, told, people):
    """Each value of each person is in one record, at its place if the file has one for it."""
    found = list(records(name, letters(name, data)))
    if len(found) != len(people):
        fail(f"{route}: {len(found)} people")
    for values in people:
        mine = [one for one in found if any(values["mail1"] in text for texts in one.values() for text in texts)]
        if len(mine) != 1:
            fail(f"{route}: {values['mail1']} is in {len(mine)} records")
            continue
        whole = "\n".join(text for texts in mine[0].values() for text in texts)
        for kind, value in values.items():
            at = [text for place in places_of(name, kind) if place for text in mine[0].get(place, [])]
            if any(is_there(value, text) for text in at):
                counts[name, "in place"] += 1
            elif is_there(value, whole):
                counts[name, "elsewhere"] += 1
                first_step = route.count(">") == 1
                if any(places_of(name, kind)) and first_step:
                    fail(f"{route}: {kind} {value} is not at its place: {at}")
            elif value in told:
                counts[name, "lost"] += 1
            else:
                fail(f"{route}: {kind} {value} is nowhere, and that is not told")
        if "Rowers" not in whole:
            fail(f"{route}: {values['mail1']} is in no group")


def convert(source, form, target):
    done = subprocess.run([PROGRAM, "convert", source, "--to", form.split(".")[0], "-o", target, "--force",
                           "--allow-loss"], capture_output=True)
    if done.returncode not in (0, 1):
        fail(f"{source} to {form}: status {done.returncode}: {done.stderr.decode()}")
    return done.stderr.decode()


def planted(name, data, people):
    """A value that is taken away has to be missed."""
    global failed
    kept, before = failed, counts.copy()
    missed = []
    for kind in VALUES:
        value = people[0][kind].encode("cp1252" if name.startswith("outlook.") else "utf-8")
        broken = data.replace(value, b"x" * len(value))
        if kind in ("day", "mail1") or broken == data:
            continue
        with contextlib.redirect_stdout(io.StringIO()):
            check("planted>" + name, name, broken, "", people)
        if failed == kept:
            missed.append(kind)
        failed = kept
    if missed:
        fail(f"planted: {missed} of {name} are not missed")
    counts.clear()
    counts.update(before)


# Members of lists: one by its record, one without an address, a list in a list, and who is nobody.
LISTS = """BEGIN:VCARD\r
VERSION:3.0\r
UID:bare\r
N:;Bareq;;;\r
FN:Bareq\r
TEL;TYPE=HOME:+47 55 00 01\r
END:VCARD\r
BEGIN:VCARD\r
VERSION:3.0\r
UID:inner\r
N:Innerq;;;;\r
FN:Innerq\r
X-ADDRESSBOOKSERVER-KIND:group\r
X-ADDRESSBOOKSERVER-MEMBER:urn:uuid:u0\r
END:VCARD\r
BEGIN:VCARD\r
VERSION:3.0\r
UID:outer\r
N:Outerq;;;;\r
FN:Outerq\r
X-ADDRESSBOOKSERVER-KIND:group\r
X-ADDRESSBOOKSERVER-MEMBER:urn:uuid:u1\r
X-ADDRESSBOOKSERVER-MEMBER:urn:uuid:bare\r
X-ADDRESSBOOKSERVER-MEMBER:urn:uuid:inner\r
END:VCARD\r
"""
# What becomes of the lists: labels in a field of each person, records, or nothing.
LABELS = {"google.csv": "Labels", "outlook.csv": "Categories", "outlook-new.csv": "Categories",
          "nextcloud.vcf": "CATEGORIES"}
RECORDS = ("thunderbird.ldif", "kaddressbook.ldif", "evolution.ldif", "apple.vcf")
MEMBERS = {"u0": {"Innerq", "Outerq"}, "u1": {"Outerq"}, "bare": {"Outerq"}}


def labels_of(name, data):
    """The lists in the field of each person, by what names the person."""
    found = {}
    for one in records(name, letters(name, data)):
        whole = "\n".join(text for texts in one.values() for text in texts)
        field = "\n".join(text for text in one.get(LABELS[name], []))
        for uid, word in (("u0", "mail1q1@"), ("u1", "mail1q2@"), ("bare", "Bareq")):
            if word in whole:
                found[uid] = {label for label in ("Innerq", "Outerq") if label in re.split(r" ::: |[;,\n]", field)}
    return found


def check_lists(name, data, told):
    if name in LABELS:
        if labels_of(name, data) != MEMBERS:
            fail(f"lists>{name}: {labels_of(name, data)}")
        return
    text = re.sub(r"\r?\n[ \t]", "", letters(name, data))
    blocks = re.split(r"END:VCARD" if name.endswith(".vcf") else r"\n\n", text)
    lists = {word: [block for block in blocks if re.search(rf"(?im)^(fn|cn):+ ?{word}\r?$", block)]
             for word in ("Innerq", "Outerq")}
    count = {word: len(re.findall(r"(?im)^(?:x-addressbookserver-)?member:", block[0])) if block else 0
             for word, block in lists.items()}
    known = name in RECORDS
    # All that was there is in cards and in LDIF; what the program does not make of it is told.
    if not name.endswith(".csv") and count != {"Innerq": 1, "Outerq": 3}:
        fail(f"lists>{name}: members {count}")
    expected = {"is a list, and the target knows none": 0 if known else 2,
                'MEMBER "Innerq": is a list in a list': name in ("thunderbird.ldif", "evolution.ldif"),
                'MEMBER "Bareq": has no address': name == "thunderbird.ldif"}
    for words, times in expected.items():
        if told.replace("X-ADDRESSBOOKSERVER-", "").count(words) != times:
            fail(f"lists>{name}: {words!r} is told {told.count(words)} times, not {int(times)}:\n{told}")


def main():
    people = [person(number) for number in range(1, PEOPLE + 1)]
    with tempfile.TemporaryDirectory() as folder:
        work = pathlib.Path(folder)
        source = work / "source.vcf"
        source.write_bytes("".join(CARD.format(uid=f"u{i}", **one) for i, one in enumerate(people)).encode())
        for first in FORMS:
            at_first = work / first
            told = convert(source, first, at_first)
            check(f"source>{first}", first, at_first.read_bytes(), told, people)
            planted(first, at_first.read_bytes(), people)
            for second in FORMS:
                at_second = work / ("second-" + second)
                more = convert(at_first, second, at_second)
                check(f"source>{first}>{second}", second, at_second.read_bytes(), told + more, people)
        source.write_bytes(source.read_bytes() + LISTS.encode())
        for form in FORMS:
            target = work / ("lists-" + form)
            told = convert(source, form, target)
            check_lists(form, target.read_bytes(), told)
    if "table" in sys.argv:
        for form in FORMS:
            print(f"{form:20}", *(f"{what} {counts[form, what]:5}" for what in ("in place", "elsewhere", "lost")))
    pairs = len(FORMS) ** 2
    print(f"{len(FORMS)} forms, {pairs} pairs, {sum(counts.values())} values, {failed} failures")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
