#!/usr/bin/env python3
"""Writes books as the CSV of each program, and looks for all that they say.

Arguments: orvik-book, and the program that writes CSV. What a book says is what orvik-book tells of it; the
tables are read by the csv module of Python, with columns and rules of their own here. No text may be
missing from a row without being told, and what has a column stands in it. A cell that is emptied, or that
changes its place, has to be seen.
"""

import csv
import io
import json
import pathlib
import subprocess
import sys
import tempfile

# Run from the build, where nothing is to be left in the sources.
sys.dont_write_bytecode = True

import csv_books
import csv_columns as columns

PROGRAM, WRITER = sys.argv[1:3]
TABLES = pathlib.Path(__file__).resolve().parent / "tables"
PROGRAMS = ("thunderbird", "google", "outlook", "outlook-new")
# Nobody misses these.
SILENT = {"UID", "REV", "PRODID", "VERSION", "KIND", "X-ORVIK-LDIF-DN", "X-ORVIK-LDIF-OBJECTCLASS", "PROFILE",
          "X-MOZILLA-HTML", "GENDER", "CLASS"}
SILENT_VALUES = {"Unspecified", "Normal", "False", "* myContacts"}
# Made of what stands elsewhere in the row.
MADE_UP = {"E-mail Type", "E-mail Display Name", "E-mail 2 Type", "E-mail 2 Display Name", "E-mail 3 Type",
           "E-mail 3 Display Name"}


class Count:
    tables = rows = cells = planted = failed = 0


def fail(name, what):
    Count.failed += 1
    print(f"{name}: {what}"[:500])


def plain(text):
    return text.replace("\r\n", "\n").replace("\r", "\n").strip()


def texts_of(one):
    """The texts of a property that a person must find again."""
    name, value = one["name"].upper(), one["value"]
    if name in SILENT or one["params"].get("ENCODING") == ["b"] or value.startswith("data:"):
        return []
    if name in ("BDAY", "ANNIVERSARY"):
        return []
    if name in ("N", "ADR", "ORG"):
        return [text for part in columns.parts_of(value) for text in part]
    if name in ("NICKNAME", "CATEGORIES"):
        # Several are told joined, one as it is.
        return [columns.unescaped(text) for text in columns.split(value, ",")[:-1] or [value]]
    if name == "X-ABLABEL":
        return [columns.without_marks(value)]
    return [columns.unescaped(value) if not name.startswith("X-ORVIK") and "\\" in value else value]


def of(record, *names):
    return [one for one in record["properties"] if one["name"].upper() in names and one["value"].strip(" ;,")]


def expect_reach(record, program, cells):
    labels = {one.get("group"): columns.without_marks(one["value"]) for one in of(record, "X-ABLABEL")}
    emails, phones, posts = of(record, "EMAIL"), of(record, "TEL"), of(record, "ADR")
    if program == "google":
        for sort, all_of_it in (("E-mail", emails), ("Phone", phones), ("Address", posts),
                                ("Website", of(record, "URL"))):
            # What is behind them is a line of the notes.
            for number, one in enumerate(all_of_it[:columns.MOST_NUMBERED], 1):
                label = labels.get(one.get("group")) if one.get("group") else None
                kind = label or columns.GOOGLE_KINDS.get(columns.kind_of(one))
                if kind is not None:
                    cells[f"{sort} {number} - Label"] = ("* " if columns.is_preferred(one) else "") + kind
                if sort != "Address":
                    cells[f"{sort} {number} - Value"] = one["value"]
    else:
        emails = sorted(emails, key=lambda one: not columns.is_preferred(one))
        names = (("Primary Email", "Secondary Email") if program == "thunderbird" else
                 ("E-mail Address", "E-mail 2 Address", "E-mail 3 Address"))
        cells.update(zip(names, (one["value"] for one in emails)))
        places = columns.THUNDERBIRD_PHONES if program == "thunderbird" else columns.OUTLOOK_PHONES
        for kind, names in places.items():
            cells.update(zip(names, (one["value"] for one in phones if columns.kind_of(one) == kind)))
    used = set()
    for number, one in enumerate(posts, 1):
        kind = columns.kind_of(one)
        if program != "google" and (kind in used or kind not in ("home", "work", "other") or
                                    program == "thunderbird" and kind == "other"):
            continue
        used.add(kind)
        for part, names in zip(columns.parts_of(one["value"]), columns.post_columns(program, number, kind)):
            lines = part[:len(names) - 1] + ([", ".join(part[len(names) - 1:])] if names else [])
            cells.update((column, line) for column, line in zip(names, lines) if line)


def expected(record, program):
    """The cells that are decided for a person."""
    program = program.split("-")[0]
    cells = {}
    expect_reach(record, program, cells)
    for one in of(record, "BDAY")[:1] + of(record, "ANNIVERSARY")[:1]:
        cells.update(columns.date_cells(one, program))
    if program == "google":
        for number, one in enumerate(of(record, "RELATED"), 1):
            cells[f"Relation {number} - Label"] = columns.kind_of(one).capitalize()
    for name, column in columns.SIMPLE[program].items():
        cells.update((column, one["value"].strip()) for one in of(record, name)[:1])
    for one in of(record, "N")[:1]:
        parts = (" ".join(part) for part in columns.parts_of(one["value"]))
        cells.update((column, part) for column, part in zip(columns.NAMES[program], parts) if column and part)
    for one in of(record, "ORG")[:1]:
        parts = (" ".join(part) for part in columns.parts_of(one["value"]))
        cells.update((column, part) for column, part in zip(columns.FIRMS[program], parts) if part)
    return cells


def groups_of(record, records):
    """The groups of a person: its own, and the lists that it is in, or that a list in them is in."""
    groups = [text for one in of(record, "CATEGORIES") for text in texts_of(one)]
    inner, open_lists = set(), [record["uid"]]
    while open_lists:
        member = open_lists.pop()
        for other in records:
            uids = {one.get("uid") for one in other["members"]}
            if other["kind"] == "list" and member in uids and other["uid"] not in inner:
                inner.add(other["uid"])
                open_lists.append(other["uid"])
    return groups, [one["name"] for one in records if one["uid"] in inner]


def is_made_of_parts(name, row, program):
    family, given, middle, prefix, suffix = (
        row.get(column, "") if column else "" for column in columns.NAMES[program.split("-")[0]])
    orders = ((given, family), (prefix, given, family, suffix), (prefix, given, middle, family, suffix))
    return name in [" ".join(filter(None, parts)) for parts in orders] + [f"{family}, {given}", family + given]


def problems(record, records, row, program, told):
    for column, value in expected(record, program).items():
        if program == "outlook":
            value = value.encode("cp1252", "replace").decode("cp1252")
        if plain(row.get(column, "")) != plain(value):
            yield f"{column} is {row.get(column)!r}, not {value!r}"
    whole = "\n".join(map(plain, row.values()))
    for one in record["properties"]:
        for text in texts_of(one):
            made = one["name"] == "FN" and is_made_of_parts(text, row, program)
            # A label may be the name of a column.
            made = made or one["name"] == "X-ABLabel" and any(
                column.startswith(text) and value for column, value in row.items())
            if plain(text) not in whole and not made and text not in SILENT_VALUES and text not in told:
                yield f"{one['name']}: {text!r} is missing"
        dates = one["name"].upper() in ("BDAY", "ANNIVERSARY")
        if dates and not columns.date_cells(one, program.split("-")[0]) and plain(one["value"]) not in whole:
            yield f"{one['name']}: {one['value']} is missing"
    groups, lists = groups_of(record, records)
    if program == "thunderbird":
        return
    cell = row["Labels"].split(" ::: ") if program == "google" else row["Categories"].split(";")
    for group in groups + lists:
        if group not in cell and group not in SILENT_VALUES and f"Group: {group}" not in row["Notes"]:
            yield f"group {group!r} is missing: {cell}"


def plant(name, record, records, row, program, told):
    """Each cell that is emptied, and each value that stands beside its place, is missed."""
    filled = [column for column, value in row.items() if value and column not in MADE_UP]
    for column in filled:
        planted = dict(row)
        planted[column] = ""
        twice = sum(row[column] in value for value in row.values()) > 1
        own_star = column == "Labels" and "myContacts" in row[column]
        Count.planted += 1
        if not twice and not own_star and not any(problems(record, records, planted, program, told)):
            fail(name, f"nobody missed {column!r}: {row[column]!r}")


def check(source, program):
    written = subprocess.run([WRITER, program, source], capture_output=True)
    name = f"{source.name} as {program}"
    if written.returncode:
        return fail(name, f"status {written.returncode}: {written.stderr.decode()[:300]}")
    told = written.stderr.decode("utf-8", "replace")
    told = "\n".join(line for line in told.splitlines() if line.startswith("lost "))
    told = told.replace("\\x0D", "\r").replace("\\x0A", "\n")
    charset = {"outlook": "cp1252", "outlook-new": "utf-8-sig"}.get(program, "utf-8")
    if (program == "outlook-new") != written.stdout.startswith(b"\xef\xbb\xbf"):
        fail(name, "has a mark, or none")
    ends = written.stdout.count(b"\r\n")
    if program == "thunderbird" and ends and source.suffix != ".csv" or program != "thunderbird" and not ends:
        fail(name, "has other line ends")
    rows = list(csv.reader(io.StringIO(written.stdout.decode(charset), newline=""), strict=True))
    if not columns.header_is_right(rows[0], program):
        return fail(name, f"has other columns: {rows[0]}")
    shown = subprocess.run([PROGRAM, "show", "--json", source], capture_output=True).stdout.decode()
    records = [json.loads(line) for line in shown.splitlines()]
    people = [one for one in records if one["kind"] == "person"]
    if len(rows) != len(people) + 1 or any(len(row) != len(rows[0]) for row in rows):
        return fail(name, f"has {len(rows) - 1} rows for {len(people)} people")
    Count.tables += 1
    for record, row in zip(people, rows[1:]):
        Count.rows += 1
        Count.cells += sum(map(bool, row))
        row = dict(zip(rows[0], row, strict=True))
        for problem in problems(record, records, row, program, told):
            fail(name, problem)
        plant(name, record, records, row, program, told)
    again = pathlib.Path(source.parent / "again.csv")
    again.write_bytes(written.stdout)
    if subprocess.run([WRITER, program, again], capture_output=True).stdout != written.stdout:
        fail(name, "is another one when it is read and written")


def check_own_tables():
    """What a program wrote has the same cells once more."""
    for name, program in (("thunderbird-en", "thunderbird"), ("google-en", "google"), ("outlook-en", "outlook")):
        path = TABLES / f"{name}.csv"
        charset = path.with_suffix(".fields").read_text(encoding="utf-8").splitlines()[3]
        written = subprocess.run([WRITER, program, path], capture_output=True).stdout
        charset_out = "cp1252" if program == "outlook" else "utf-8"
        old = list(csv.DictReader(io.StringIO(path.read_bytes().decode(charset), newline="")))
        new = list(csv.DictReader(io.StringIO(written.decode(charset_out), newline="")))
        for before, after in zip(old, new, strict=True):
            for column in after:
                # The values of one cell have columns of their own, and those of no column are notes.
                free = column in MADE_UP or column == "Anniversary" and "-" in before[column]
                if column != "Notes" and not free and column in before and before[column] not in SILENT_VALUES and (
                        " ::: " not in before[column] or column == "Labels"):
                    added = column == "Labels" and after[column] == "* myContacts" and not before[column]
                    if before[column] != after[column] and not added and not is_joined(before, column):
                        fail(path.name, f"{column} was {before[column]!r}, is {after[column]!r}")
                Count.cells += 1


def is_joined(row, column):
    """Whether a numbered column of Google has another number, as a cell before it had several values."""
    return column.split(" - ")[0][:-2] in ("E-mail", "Phone") and any(
        " ::: " in value for name, value in row.items() if name.split(" - ")[0][:-2] == column.split(" - ")[0][:-2])


def main():
    with tempfile.TemporaryDirectory() as folder:
        sources = csv_books.write_all(pathlib.Path(folder)) + sorted(TABLES.glob("*.csv"))
        for source in sources:
            copy = pathlib.Path(folder) / source.name
            copy.write_bytes(source.read_bytes())
            for program in PROGRAMS:
                check(copy, program)
    check_own_tables()
    print(f"{Count.tables} tables, {Count.rows} rows, {Count.cells} cells, {Count.planted} planted")
    return 1 if Count.failed or Count.tables < 200 or not Count.planted else 0


if __name__ == "__main__":
    sys.exit(main())
