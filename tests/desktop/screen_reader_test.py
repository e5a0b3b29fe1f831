"""Reads and uses the program as a screen reader does. Arguments: the program, a book."""

import signal
import subprocess
import sys
import time

import pyatspi
from gi.repository import GLib

DEADLINE = 15


def eventually(what, attempt):
    """Calls attempt until it returns something, and returns that."""
    end = time.monotonic() + DEADLINE
    problem = None
    while time.monotonic() < end:
        try:
            found = attempt()
            if found:
                return found
        except Exception as error:  # what is being built or torn down cannot be read
            problem = error
        # What the program has told is taken in only here.
        while GLib.MainContext.default().iteration(False):
            pass
        time.sleep(0.05)
    raise AssertionError(f"in vain: {what} ({problem})")


def everything(item):
    yield item
    # A list of many rows is not walked through.
    for i in range(min(item.childCount, 100)):
        child = item.getChildAtIndex(i)
        if child is not None:
            yield from everything(child)


def application():
    desktop = pyatspi.Registry.getDesktop(0)
    # It may have been read before the program was there, or had its name.
    desktop.clear_cache()
    for program in desktop:
        if program is not None:
            program.clear_cache()
        if program is not None and program.name == "orvik":
            return program
    return None


def find(top, role, name):
    for item in everything(top):
        if item.getRole() == role and item.name == name:
            return item
    return None


def press(item):
    actions = item.queryAction()
    names = [actions.getName(i) for i in range(actions.nActions)]
    assert actions.doAction(names.index("Press")), names


def rows(top, name):
    shown = find(top, pyatspi.ROLE_LIST, name)
    return [shown.getChildAtIndex(i).name for i in range(shown.childCount)]


def check_equal(read, expected):
    assert read == expected, read


def has(top, role, name):
    return lambda: find(top, role, name)


def check(book):
    program = eventually("the program", application)
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
    # A program looks for the accessibility bus once, so that is there before it.
    eventually("the bus", lambda: pyatspi.Registry.getDesktop(0).name == "main")
    program = subprocess.Popen([program_file, book])
    try:
        check(book)
        print("content")
    finally:
        program.send_signal(signal.SIGKILL)
        program.wait()


main()
