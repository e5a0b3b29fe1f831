"""The table of the main window's commands in the description, held against the sources."""

import collections
import re

DOCUMENT = "docs/architecture.md"
HEADER = ["subsystem", "file", "handlers"]
TABLES = "src/app/form1_tables.cpp"
FORM = "src/app/form1.h"

# A handler in the table: the line, and the file that the line names.
Row = collections.namedtuple("Row", "line file")

DEFINITION = re.compile(r"[A-Za-z_][\w:<>,&* ]*[ &*]Form1::(\w+)\(")


def cells(line):
    return [cell.strip() for cell in line.strip().strip("|").split("|")]


def table(tree):
    """The rows of the table by handler; None without a table."""
    rows = None
    for number, line in tree.lines(DOCUMENT) if DOCUMENT in tree.files else ():
        if rows is None:
            if line.startswith("|") and cells(line) == HEADER:
                rows = collections.defaultdict(list)
        elif not line.startswith("|"):
            break
        elif len(cells(line)) == len(HEADER):
            _, file, handlers = cells(line)
            for name in re.findall(r"`(\w+)`", handlers):
                rows[name].append(Row(number, file.strip("`")))
    return rows


def named(tree):
    """The handlers that the form's tables name, each with the first line that does."""
    found = {}
    for number, line in tree.lines(TABLES) if TABLES in tree.files else ():
        for name in re.findall(r"&Form1::(\w+)", line):
            found.setdefault(name, number)
    return found


def definitions(tree):
    """Where member functions of the form are defined, by name."""
    found = collections.defaultdict(list)
    for path in tree.sources("src"):
        for number, line in tree.lines(path):
            at = DEFINITION.match(line)
            if at:
                found[at[1]].append((path, number))
    return found


def handlers(tree):
    """Each handler is in one row of the table, and defined in the file of its row alone."""
    rows, used, defined = table(tree), named(tree), definitions(tree)
    if rows is None:
        yield DOCUMENT, 1, f"has no table | {' | '.join(HEADER)} |"
        return
    if not used:
        yield TABLES, 1, "names no handler"
        return
    for name in used.keys() - rows.keys():
        yield TABLES, used[name], f"{name} is in no row of {DOCUMENT}"
    for name, places in rows.items():
        first = places[0]
        if name not in used:
            yield DOCUMENT, first.line, f"{name} is no handler of a menu or a button"
            continue
        for place in places[1:]:
            yield DOCUMENT, place.line, f"{name} is in line {first.line} already"
        if first.file not in {path for path, _ in defined[name]}:
            yield DOCUMENT, first.line, f"{name} is not defined in {first.file}"
        for path, number in defined[name]:
            if path != first.file:
                yield path, number, f"{name} belongs into {first.file}"
    for number, line in tree.lines(FORM) if FORM in tree.files else ():
        for name in re.findall(r"\b(\w+)\([^;]*\)[^;]*\{", line):
            if name in used:
                yield FORM, number, f"{name} is defined in the header"
