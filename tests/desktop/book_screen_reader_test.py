"""Reads and uses a Book window as a screen reader does. Arguments: the program, a folder."""

import pathlib
import sys

import pyatspi

from accessible import cells, choose, find, press, running, text_of, write
from book_reader import TITLE_OF_MOVE, TITLE_OF_SAVE, Reader

OLD = """version: 1

nonsense

dn: cn=Al Berg,mail=al@example.org
cn: Al Berg
mail: al@example.org

dn: cn=Bo
cn: Bo
mail: bo@localhost
"""
PHONE = """BEGIN:VCARD
VERSION:3.0
FN:Al Berg
N:Berg;Al;;;
EMAIL:al@example.org
TEL:555
END:VCARD
"""


def check_table(reader):
    table = reader.wait(pyatspi.ROLE_TABLE, "People and lists")
    reader.reads("names", lambda: [row[0] for row in cells(table)], ["Al Berg", "Bo", "Al Berg"])
    heads = [find(table, pyatspi.ROLE_TABLE_COLUMN_HEADER, name) for name in ["Name", "Addresses", "Source"]]
    assert all(heads), "a column has no name"
    reader.says("3 people")
    write(reader.wait(pyatspi.ROLE_TEXT, "Filter"), "local")
    reader.says("3 people; 1 shown")
    reader.reads("what is shown", lambda: [row[0] for row in cells(table)], ["Bo"])
    write(find(reader.top, pyatspi.ROLE_TEXT, "Filter"), "")
    reader.says("3 people")
    return table


def check_person(reader, table):
    page = reader.page("Person")
    choose(table, 2)
    reader.says("Al Berg")
    known = reader.wait(pyatspi.ROLE_TABLE, "All that is known", page)
    reader.contains("what is known", lambda: cells(known), ["Phone", "555", "line 6"])
    press(reader.wait(pyatspi.ROLE_PUSH_BUTTON, "Show as text", page))
    lines = reader.wait(pyatspi.ROLE_TEXT, "Lines of the file", page)
    reader.contains("the lines", lambda: text_of(lines), "TEL:555")


def check_problems(reader):
    page = reader.page("Problems")
    table = reader.wait(pyatspi.ROLE_TABLE, "Problems", page)
    bad = ['"bo@localhost": a domain without a dot', "Bo", "old.ldif, line 11"]
    reader.contains("the problems", lambda: cells(table), bad)
    choose(table, cells(table).index(bad))
    words = reader.wait(pyatspi.ROLE_TEXT, "The problem", page)
    reader.contains("the problem", lambda: text_of(words), "a domain without a dot")
    reader.press("Keep")
    reader.reads("what is left", lambda: bad in cells(table), False)


def check_duplicates(reader):
    page = reader.page("Duplicates")
    reader.press("Look for duplicates")
    groups = reader.wait(pyatspi.ROLE_TABLE, "Groups", page)
    reader.reads("the groups", lambda: [row[1:3] for row in cells(groups)], [["contained", "2"]])
    choose(groups, 0)
    sides = reader.wait(pyatspi.ROLE_TABLE, "Records beside each other", page)
    reader.contains("both records", lambda: [row[:3] for row in cells(sides)], ["Phone, not in all", "", "555"])
    reader.press("Merge")
    reader.says("2 people")
    reader.reads("the group", lambda: [row[0] for row in cells(groups)], ["merged"])


def check_move(program, reader, target):
    press(reader.wait(pyatspi.ROLE_MENU_ITEM, "Move to another program..."))
    dialog = Reader.of(program, pyatspi.ROLE_DIALOG, TITLE_OF_MOVE)
    programs = dialog.wait(pyatspi.ROLE_LIST, "Move to")
    choose(programs, [one.name for one in programs].index("Google Contacts"))
    dialog.says("Google Contacts")
    dialog.press("Save...")
    files = Reader.of(program, pyatspi.ROLE_DIALOG, TITLE_OF_SAVE)
    write(files.wait(pyatspi.ROLE_TEXT, "File name:"), str(target))
    files.press("Save")
    summary = dialog.wait(pyatspi.ROLE_TEXT, "Summary")
    dialog.contains("the summary", lambda: text_of(summary), f"{target}: Google CSV")
    dialog.press("Close")
    reader.says(f"Saved as {target}.")


def main():
    program_file, folder = sys.argv[1], pathlib.Path(sys.argv[2])
    files = [folder / "old.ldif", folder / "phone.vcf"]
    for file, text in zip(files, [OLD, PHONE]):
        file.write_text(text)
    with running(program_file, "--book", *map(str, files)) as program:
        reader = Reader.of(program, pyatspi.ROLE_FRAME, "Orvik - old.ldif, phone.vcf")
        table = check_table(reader)
        check_person(reader, table)
        check_problems(reader)
        check_duplicates(reader)
        check_move(program, reader, folder / "moved.csv")
    assert b"al@example.org" in (folder / "moved.csv").read_bytes()
    print("content")


main()
