"""What a client of the accessibility bus does with the program: finds, reads, presses."""

import signal
import subprocess
import time
from contextlib import contextmanager

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


def press(item, action="Press"):
    actions = item.queryAction()
    names = [actions.getName(i) for i in range(actions.nActions)]
    assert actions.doAction(names.index(action)), names


def is_usable(item):
    states = item.getState()
    return states.contains(pyatspi.STATE_SHOWING) and states.contains(pyatspi.STATE_SENSITIVE)


def choose(item, row):
    """A row of a table or a list, and no other."""
    table = item.queryTable()
    assert table.addRowSelection(row), f"{item.name}: {row}"
    for other in list(table.getSelectedRows()):
        if other != row:
            table.removeRowSelection(other)


def text_of(item):
    return item.queryText().getText(0, -1)


def write(item, text):
    assert item.queryEditableText().setTextContents(text), f"{item.name}: {text}"


def cells(item):
    """What the cells of a table say, row by row."""
    table = item.queryTable()
    return [[table.getAccessibleAt(row, column).name for column in range(table.nColumns)] for row in range(table.nRows)]


@contextmanager
def running(*command):
    """Runs the program until the end of the block."""
    # A program looks for the accessibility bus once, so that is there before it.
    eventually("the bus", lambda: pyatspi.Registry.getDesktop(0).name == "main")
    program = subprocess.Popen(command)
    try:
        yield eventually("the program", application)
        assert program.poll() is None, f"the program ended with {program.returncode}"
    finally:
        program.send_signal(signal.SIGKILL)
        program.wait()
