#!/usr/bin/env python3
"""Compares the rows of tables with what the csv module of Python reads.

Arguments: orvik-book-rows and the root of the project. The tables are made by chance and, where they are,
those of csv-spectrum: in the folder that ORVIK_CSV_SPECTRUM names, or in one of that name beside the
checkout. Each of these has its rows as JSON, too.
"""

import csv
import io
import json
import os
import pathlib
import random
import subprocess
import sys

PROGRAM, ROOT = sys.argv[1:3]
SIGNS = "ab \"',;\t|\r\né日"
KNOWN = 12  # tables of csv-spectrum
# The JSON of this table has another number than the table itself; Python reads what stands there.
OTHER_THAN_ITS_TABLE = {"location_coordinates": ("Contact Phone Number", "2095257564")}


class Count:
    tables = failed = 0


def fail(what):
    Count.failed += 1
    print(what[:600])


def rows_of(data, separator):
    """The rows as the program reads them."""
    done = subprocess.run([PROGRAM, separator], input=data, capture_output=True, check=True)
    rows, row, rest = [], [], done.stdout
    while rest:
        if rest[:1] == b"\n":
            rows.append(row)
            row, rest = [], rest[1:]
            continue
        length, rest = rest.split(b":", 1)
        row.append(rest[:int(length)].decode("utf-8"))
        rest = rest[int(length):]
    return rows


def by_python(text, separator):
    return [row for row in csv.reader(io.StringIO(text, newline=""), delimiter=separator) if row]


def compare(text, separator, what):
    Count.tables += 1
    ours, theirs = rows_of(text.encode("utf-8"), separator), by_python(text, separator)
    if ours != theirs:
        fail(f"{what}: {text!r}: {ours} is not {theirs}")


def made(chance):
    """A table of cells by chance, in one of the forms that it may have."""
    rows = [["".join(chance.choices(SIGNS, k=chance.randrange(6))) for _ in range(chance.randrange(1, 5))]
            for _ in range(chance.randrange(1, 6))]
    separator = chance.choice(",;\t|")
    text = io.StringIO()
    quoting = chance.choice((csv.QUOTE_ALL, csv.QUOTE_MINIMAL))
    writer = csv.writer(text, delimiter=separator, quoting=quoting, lineterminator="\r\n")
    writer.writerows(rows)
    table = text.getvalue()
    if quoting == csv.QUOTE_ALL and chance.random() < 0.5:
        # Any end of a row; those in cells stay.
        table = '"\n'.join(part for part in table.split('"\r\n'))
    return table, separator, rows


def check_by_chance():
    chance = random.Random(17)
    for _ in range(400):
        table, separator, rows = made(chance)
        compare(table, separator, "by chance")
        if "\r" not in "".join(map("".join, rows)) and rows_of(table.encode(), separator) != rows:
            fail(f"by chance: {table!r} is not {rows}")


def spectrum():
    named = os.environ.get("ORVIK_CSV_SPECTRUM")
    if named:
        return pathlib.Path(named)
    beside = pathlib.Path(ROOT).resolve().parent
    return next(iter(sorted(beside.glob("*/*/csv-spectrum"))), None)


def check_spectrum():
    folder = spectrum()
    if folder is None:
        print("csv-spectrum: not here (ORVIK_CSV_SPECTRUM names its folder), so left out")
        return
    right = 0
    for path in sorted((folder / "csvs").glob("*.csv")):
        wanted = json.loads((folder / "json" / f"{path.stem}.json").read_text(encoding="utf-8"))
        wanted = [wanted] if isinstance(wanted, dict) else wanted
        if path.stem in OTHER_THAN_ITS_TABLE:
            name, value = OTHER_THAN_ITS_TABLE[path.stem]
            wanted[0][name] = value
        compare(path.read_bytes().decode("utf-8"), ",", path.name)
        header, *rows = rows_of(path.read_bytes(), ",")
        found = [dict(zip(header, row, strict=True)) for row in rows]
        right += found == wanted
        if found != wanted:
            fail(f"{path.name}: {found} is not {wanted}")
    print(f"csv-spectrum: {right} of {KNOWN}")
    if right != KNOWN:
        fail("csv-spectrum: tables are missing")


def main():
    check_by_chance()
    check_spectrum()
    # The comparison itself: a wrong separator has to be seen.
    if rows_of(b"a,b\n", ";") == by_python("a,b\n", ","):
        fail("a planted mistake was not seen")
    print(f"{Count.tables} tables are read as Python reads them")
    return 1 if Count.failed else 0


if __name__ == "__main__":
    sys.exit(main())
