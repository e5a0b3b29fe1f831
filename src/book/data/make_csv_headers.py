#!/usr/bin/env python3
"""Makes csv_headers.txt, the header words that the reader of CSV knows.

Argument: a table of header words with the columns program, version, language, header, field, position,
source and note. The source of a row begins with A where the words were seen in files of the program, or
are its own, with B for the lists of others, and with C where nobody has proved them. Taken are

A  rows of trust A,
2  rows of trust B that two sources agree on: a row that names two, and a row whose word another source
   reads as the same field in the same language,
C  the words of no program, which are looked at last, and OWN_WORDS below.

What is written has a block for each program and language, and a line for each word: trust, position (0
where it may stand anywhere), field, and the word.
"""

import collections
import csv
import pathlib
import sys
import unicodedata

HEAD = """\
# Header words of CSV files by program and language, made by make_csv_headers.py.
# A line is trust, position, field, word; the page docs/formats/csv-headers.md explains them.
"""

PROGRAMS = {
    "Outlook Express / Windows Address Book": "Outlook Express",
    "Outlook Express / Windows Address Book / Windows Contacts": "Outlook Express",
    "Windows Live Mail / Windows Mail": "Windows Mail",
}
# Formats of their own, and words that nobody has seen.
LEFT_OUT = ("GMX", "Apple-style")
# Lists of which a second one is known as a whole, or up to a column.
SECOND_LIST = {
    ("Outlook", "es"): 92,
    ("Outlook", "fr"): 92,
    ("Outlook", "it"): 92,
    ("Outlook", "pl"): 14,
}
# Words for one name that several lists have for the whole one, too.
BOTH_NAMES = {("Outlook", "es"), ("Outlook", "fr"), ("Outlook", "it")}
# Words of no program that the table has for programs alone: what stands before a name.
OWN_WORDS = {
    ("generic", "de"): [("prefix", "Titel"), ("prefix", "Anrede")],
    ("generic", "nl"): [("prefix", "Titel")],
}
# Sources that are several by themselves.
SEVERAL = ("B+", "B: public", "; ", " and ", ", ")
# What a numbered column of Google holds.
NUMBERED = {
    "phone.<label>": "phoneN",
    "phone.<label>.label": "phoneN.label",
    "phone.<type>": "phoneN.label",
    "phone": "phoneN",
    "url.<label>": "urlN",
    "url.<label>.label": "urlN.label",
    "url": "urlN",
    "url.label": "urlN.label",
    "adr.label": "adrN.label",
    "adr.formatted": "adrN.formatted",
    "street": "adrN.street",
    "street2": "adrN.street2",
    "city": "adrN.city",
    "pobox": "adrN.pobox",
    "region": "adrN.region",
    "zip": "adrN.zip",
    "country": "adrN.country",
    "org": "orgN",
    "title": "orgN.title",
    "dept": "orgN.dept",
}


def program_of(row):
    program, version = row["program"], row["version"]
    if program == "Google":
        return "Google" if version.startswith("new") else "Google (old)"
    if program == "Outlook" and version.startswith("outlook.com"):
        return "outlook.com"
    return PROGRAMS.get(program, program)


def language_of(row):
    language = row["language"].split(" ")[0]
    # The British words of one program stand beside its American ones.
    return "en" if language == "en-GB" else language


def normalised(header):
    plain = unicodedata.normalize("NFKC", header).casefold().replace('"', "")
    return " ".join(plain.split())


def word_key(row):
    return (language_of(row).split("-")[0], normalised(row["header"]), row["field"])


def has_second_list(row):
    last = SECOND_LIST.get((program_of(row), language_of(row)))
    if last is None or "not in the standard" in row["note"]:
        return False
    return last == 92 or (row["position"].isdigit() and int(row["position"]) <= last)


def origins_of(row):
    """The sources that a row names, as far as one can be told from another."""
    source = row["source"]
    found = {source if source.startswith("A") else "list " + source}
    if has_second_list(row):
        found.add("second list of " + program_of(row))
    return found


def trust_of(row, origins):
    source = row["source"]
    if source.startswith("A"):
        return "A"
    if source.startswith("C"):
        return "C" if row["program"] == "generic" else None
    if (program_of(row), language_of(row)) in BOTH_NAMES and "ambiguous" in row["note"]:
        return "2"
    several = any(sign in source for sign in SEVERAL) or has_second_list(row)
    return "2" if several or len(origins[word_key(row)]) > 1 else None


def field_of(row):
    field = row["field"]
    return NUMBERED.get(field, field) if " N - " in row["header"] else field


def blocks_of(rows):
    origins = collections.defaultdict(set)
    for row in rows:
        if not row["source"].startswith("C"):
            origins[word_key(row)] |= origins_of(row)
    blocks = collections.defaultdict(dict)
    for row in rows:
        trust = trust_of(row, origins)
        if row["program"].startswith(LEFT_OUT) or trust is None or not row["field"]:
            continue
        position = int(row["position"]) if row["position"].isdigit() else 0
        block = blocks[program_of(row), language_of(row)]
        key = (normalised(row["header"]), field_of(row), position)
        # The first one is that of the greatest trust.
        if key not in block or "A2C".index(trust) < "A2C".index(block[key][0]):
            block[key] = (trust, position, field_of(row), " ".join(row["header"].split()))
    for name, words in OWN_WORDS.items():
        for field, word in words:
            blocks[name].setdefault((normalised(word), field, 0), ("C", 0, field, word))
    return blocks


def main():
    with open(sys.argv[1], encoding="utf-8", newline="") as table:
        rows = list(csv.DictReader(table, delimiter="\t", quoting=csv.QUOTE_NONE))
    lines = [HEAD]
    for (program, language), block in blocks_of(rows).items():
        lines.append(f"\n{program}\t{language}\n")
        lines += ["\t".join(map(str, line)) + "\n" for line in block.values()]
    pathlib.Path(__file__).with_name("csv_headers.txt").write_text("".join(lines), encoding="utf-8")


if __name__ == "__main__":
    main()
