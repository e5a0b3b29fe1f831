#!/usr/bin/env python3
"""Makes the tables in tests/book_cli/tables: one for each program and language whose headers are known
well enough, with three people of nobody's book. Run it when data/csv_headers.txt changes.

What the headers mean is written beside each table, NAME.fields, for the test."""

import csv
import io
import pathlib
import re
import sys

sys.dont_write_bytecode = True

from table_values import value_of

HERE = pathlib.Path(__file__).resolve().parent
WORDS = HERE.parents[1] / "src/book/data/csv_headers.txt"
# Words that few programs have are found one by one, see the others.
FEWEST = 15
FORMS = {  # the separator and the character set; others are parted by commas and are UTF-8
    "generic-it": (";", "utf-8"),
    "generic-nl": ("|", "utf-8"),
    "generic-pl": ("\t", "utf-8-sig"),
    "outlook-de": (",", "cp1252"),
    "outlook-es": (",", "cp1252"),
    "outlook-express-de": (";", "cp1252"),
    "outlook-fr": (";", "cp1252"),
    "outlook-it": (";", "cp1252"),
    "thunderbird-ja": (",", "shift_jis"),
    "thunderbird-ru": (",", "cp1251"),
    "thunderbird-zh-cn": ("\t", "utf-16"),
}


def blocks():
    for block in WORDS.read_text(encoding="utf-8").split("\n\n")[1:]:
        head, *lines = block.strip("\n").split("\n")
        yield *head.split("\t"), [line.split("\t") for line in lines]


def columns_of(words, generic):
    """The header of a whole file: each place once, then the fields that have no place."""
    places, fields, found = {}, set(), []
    for _, position, field, text in words:
        if position != "0" and position not in places:
            places[position] = (field, text)
    for position in sorted(places, key=int):
        found.append(places[position])
        fields.add(places[position][0])
    headers = {text.casefold() for _, text in found}
    for trust, position, field, text in words:
        # A whole address is not written beside its parts, nor are words that programs do not mix.
        whole = field.startswith("adr.") and not generic
        if position == "0" and field not in fields and text.casefold() not in headers and not whole:
            found.append((field, re.sub(r" N( - )", r" 1\1", text)))
            fields.add(field)
            headers.add(text.casefold())
    return found


def write(program, language, words):
    name = re.sub(r"[^a-z0-9]+", "-", f"{program} {language}".lower()).strip("-")
    separator, charset = FORMS.get(name, (",", "utf-8"))
    columns = columns_of(words, program == "generic") + [("none", "Boathouse?")]
    ben = {"given": "Ben", "family": "Berg", "fn": "Ben Berg", "email1": "ben@example.org",
           "emailN": "ben@example.org"}
    rows = [[text for _, text in columns],
            [value_of(field, program, language) for field, _ in columns],
            [ben.get(field, "") for field, _ in columns],
            [{**ben, "fn": "Cy", "given": "Cy", "family": "", "email1": "", "emailN": ""}.get(field, "")
             for field, _ in columns]]
    text = io.StringIO()
    if name == "generic-it":
        text.write(f"sep={separator}\r\n")
    csv.writer(text, delimiter=separator).writerows(rows)
    (HERE / "tables" / f"{name}.csv").write_bytes(text.getvalue().encode(charset))
    fields = [program, language, separator, charset] + [field for field, _ in columns]
    (HERE / "tables" / f"{name}.fields").write_text("\n".join(fields) + "\n", encoding="utf-8")


def main():
    (HERE / "tables").mkdir(exist_ok=True)
    for program, language, words in blocks():
        if len(words) >= FEWEST:
            write(program, language, words)


if __name__ == "__main__":
    main()
