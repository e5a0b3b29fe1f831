#!/usr/bin/env python3
"""Converts the tables of each program and language, and looks for each of their cells in the cards.

Argument: orvik-book. The tables are read by the csv module of Python and the cards by a few lines here, so
that nothing of the program judges itself. Each goes to vCard 3.0 and 4.0, and to 3.0 through LDIF. A
value that is planted wrongly has to be seen.
"""

import csv
import io
import pathlib
import re
import subprocess
import sys
import tempfile

# Run from the build, where nothing is to be left in the sources.
sys.dont_write_bytecode = True

import card_lines
import table_values

PROGRAM = sys.argv[1]
TABLES = pathlib.Path(__file__).resolve().parent / "tables"
OUR_NAMES = {"X-ANNIVERSARY": "ANNIVERSARY"}


class Count:
    tables = cells = failed = planted = 0


def fail(path, what):
    Count.failed += 1
    print(f"{path.name}: {what}"[:400])


def run(*arguments):
    done = subprocess.run([PROGRAM, *map(str, arguments)], capture_output=True)
    if done.returncode:
        Count.failed += 1
        print(f"{arguments}: status {done.returncode}: {done.stderr.decode()[:300]}")
    return done


def unescaped(text):
    return re.sub(r"\\([nN,;:\\])", lambda one: "\n" if one[1] in "nN" else one[1], text)


def split(text, separator):
    return [part for part in re.findall(rf"((?:\\.|[^\\{separator}])*)(?:{separator}|$)", text, re.S)]


def lines_of(card):
    """The lines of a card: name, types, header, and the value as it is written."""
    for _, line in card_lines.unfolded(card):
        head, value = re.match(r'((?:[^":]|"[^"]*")*):(.*)$', line.decode("utf-8"), re.S).groups()
        name, *params = re.findall(r'(?:[^";]|"[^"]*")+', head)
        named = [param.split("=", 1) for param in params]
        types = {text.strip('"').lower() for key, text in named if key == "TYPE"}
        types |= {"pref" for key, text in named if key == "PREF"}
        header = [text.strip('"') for key, text in named if key == "X-ORVIK-HEADER"]
        name = re.sub("^X-ORVIK-VCARD-", "", name.upper().split(".")[-1])
        yield OUR_NAMES.get(name, name), types, header[0] if header else None, value


def holds(line, name, types, part, value):
    if line[0] != name or line[1] != set(types.split()):
        return False
    if name in ("BDAY", "ANNIVERSARY"):
        return line[3].replace("-", "") == value
    if part is None:
        values = split(line[3], ",") if name == "CATEGORIES" else [line[3]]
        return value in map(unescaped, values)
    parts = split(line[3], ";")
    return part < len(parts) and value in [unescaped(one) for one in split(parts[part], ",")]


def is_carried(line, header, value):
    """Whether a line is a column that vCard has no field for: its header comes back as it was."""
    if not line[0].startswith("X-ORVIK-CSV-") or unescaped(line[3]) != value:
        return False
    if line[2] is None:
        return line[0] == "X-ORVIK-CSV-" + header.upper()
    return re.sub("%(..)", lambda one: chr(int(one[1], 16)), line[2]) == header


def check_cell(lines, field, header, value, program, language):
    wanted = table_values.expected(field, program, language)
    if wanted is None:
        if not any(is_carried(line, header, value) for line in lines):
            return f"{header!r} is not carried: {value!r}"
        return None
    for name, types, part, text in wanted:
        labels = ("ADR", "LABEL") if "formatted" in field or field.startswith("adr.") else (name,)
        if not any(holds(line, label, types, part if label == "ADR" or name != "ADR" else None, text)
                   for line in lines for label in labels):
            return f"{header!r} ({field}): {name} {types} {part} is missing: {text!r}"
    return None


def plant(path, lines, field, header, value, program, language):
    """What is under another name, of another type, or one part further has to be missed."""
    wanted = table_values.expected(field, program, language)
    if wanted == []:
        return
    others = ([(f"{name}-PLANTED", types, header, text) for name, types, header, text in lines],
              [(name, types | {"planted"}, f"{header}y", text) for name, types, header, text in lines],
              [(name, types, header, ";" + text + "x") for name, types, header, text in lines])
    for planted in others:
        Count.planted += 1
        if not check_cell(planted, field, header + "x", value, program, language):
            fail(path, f"a planted mistake was not seen: {header!r}: {value!r}")


def cards_of(data):
    return re.findall(rb"BEGIN:VCARD.*?END:VCARD", data, re.S)


def check(path, rows, fields, program, language, data, how):
    cards = cards_of(data)
    if len(cards) != 3:
        return fail(path, f"{how}: {len(cards)} cards")
    lines = list(lines_of(cards[0]))
    for header, value, field in zip(rows[0], rows[1], fields, strict=True):
        Count.cells += 1
        problem = check_cell(lines, field, header, value, program, language)
        if problem:
            fail(path, f"{how}: {problem}")
        plant(path, lines, field, header, value, program, language)
    # What is empty is no line, and what is there is no other one.
    carried = [line for line in lines if line[0].startswith("X-ORVIK-CSV-")]
    expected = [field for field in fields if table_values.expected(field, program, language) is None]
    if len(carried) != len(expected):
        fail(path, f"{how}: {len(carried)} columns are carried, not {len(expected)}")


def check_table(path, folder):
    Count.tables += 1
    program, language, separator, charset, *fields = (
        path.with_suffix(".fields").read_text(encoding="utf-8").splitlines())
    separator = separator or "\t"
    text = path.read_bytes().decode(charset)
    if text.startswith("sep="):
        text = text.split("\n", 1)[1]
    rows = list(csv.reader(io.StringIO(text, newline=""), delimiter=separator))
    told = run("convert", path, "-o", folder / "three.vcf", "--force").stderr.decode()
    how = "by header" if program != "generic" else "by common words"
    if f"columns matched {how}, " not in told:
        fail(path, f"is not told: {told}")
    shown = run("show", path).stdout.decode()
    named = "" if program == "generic" else program + " "
    if f"{path.name}: {named}CSV, " not in shown:
        fail(path, f"is taken for another one: {shown}")
    check(path, rows, fields, program, language, (folder / "three.vcf").read_bytes(), "3.0")
    run("convert", path, "-o", folder / "four.vcf", "--vcard", "4", "--force")
    check(path, rows, fields, program, language, (folder / "four.vcf").read_bytes(), "4.0")
    run("convert", path, "-o", folder / "through.ldif", "--force")
    run("convert", folder / "through.ldif", "-o", folder / "back.vcf", "--force")
    check(path, rows, fields, program, language, (folder / "back.vcf").read_bytes(), "through LDIF")
    same = run("diff", path, folder / "back.vcf").stdout.decode()
    if not same.startswith("same 3   only left 0"):
        fail(path, f"differs: {same}")


def main():
    with tempfile.TemporaryDirectory() as folder:
        for path in sorted(TABLES.glob("*.csv")):
            check_table(path, pathlib.Path(folder))
    print(f"{Count.tables} tables, {Count.cells} cells, {Count.planted} planted")
    return 1 if Count.failed or not Count.planted or Count.tables < 50 else 0


if __name__ == "__main__":
    sys.exit(main())
