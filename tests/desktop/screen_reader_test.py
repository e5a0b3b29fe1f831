"""Reads and uses the program as a screen reader does. Arguments: the program, a book."""

import sys

import pyatspi

from accessible import eventually, find, press, running


def rows(top, name):
    shown = find(top, pyatspi.ROLE_LIST, name)
    return [shown.getChildAtIndex(i).name for i in range(shown.childCount)]


def check_equal(read, expected):
    assert read == expected, read


def has(top, role, name):
    return lambda: find(top, role, name)


def check(program, book):
    frame = eventually(
        "the window", lambda: find(program, pyatspi.ROLE_FRAME, f"Orvik - {book}")
    )

    for menu in ["File", "Edit", "View", "Help"]:
        assert find(frame, pyatspi.ROLE_MENU_ITEM, menu) or find(
            frame, pyatspi.ROLE_MENU, menu
        ), menu

    check_equal(rows(frame, "E-mail addresses"), ["Berta@example.org", "Anna@example.org"])
    check_equal(rows(frame, "Nicknames"), ["Berta", "Anna"])
    assert find(frame, pyatspi.ROLE_STATUS_BAR, "Status bar")
    eventually("the count", has(frame, pyatspi.ROLE_LABEL, "2 items"))

    # Selecting a row in one list selects it in the other.
    addresses = find(frame, pyatspi.ROLE_LIST, "E-mail addresses")
    addresses.queryTable().addRowSelection(1)
    nicknames = find(frame, pyatspi.ROLE_LIST, "Nicknames").queryTable()
    eventually("the row beside it", lambda: nicknames.isRowSelected(1))

    button = find(frame, pyatspi.ROLE_PUSH_BUTTON, "Nicknames")
    check_equal(button.description, "Sort by NickName")
    press(button)
    eventually("the sort", lambda: rows(frame, "Nicknames") == ["Anna", "Berta"])
    eventually("its end", has(frame, pyatspi.ROLE_LABEL, "Ready"))


def main():
    program_file, book = sys.argv[1:]
    with running(program_file, book) as program:
        check(program, book)
    print("content")


main()
