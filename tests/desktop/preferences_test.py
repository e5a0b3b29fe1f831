"""Stores an automation as a user does at the first start: in the preferences window.

Arguments: the program, the source, the destination, and the file that the automation writes.
"""

import os
import subprocess
import sys

import pyatspi

from accessible import eventually, find, press, running


def fill(dialog, name, text):
    box = find(dialog, pyatspi.ROLE_TEXT, name)
    assert box.queryEditableText().setTextContents(text), name


def choose_by_key(dialog, combo_name, key):
    """A closed combo box takes the next item at an arrow key."""
    combo = find(dialog, pyatspi.ROLE_COMBO_BOX, combo_name)
    before = combo.name, combo.queryText().getText(0, -1) if "Text" in dir(combo) else None

    def pressed():
        combo.queryComponent().grabFocus()
        subprocess.run(["xdotool", "search", "--onlyvisible", "--name", "^Orvik Preferences$",
                        "windowfocus", "--sync", "key", key], check=True)
        return True

    eventually(combo_name, pressed)
    return before


def store(program, source, destination):
    dialog = eventually(
        "the preferences", lambda: find(program, pyatspi.ROLE_DIALOG, "Orvik Preferences")
    )
    tabs = find(dialog, pyatspi.ROLE_PAGE_TAB_LIST, "Orvik Preferences")
    press(find(tabs, pyatspi.ROLE_PAGE_TAB, "Automation"))
    press(find(dialog, pyatspi.ROLE_CHECK_BOX, "Use Automation"), "Toggle")
    eventually("the steps", lambda: find(dialog, pyatspi.ROLE_TEXT, "Save File"))
    press(find(dialog, pyatspi.ROLE_CHECK_BOX, "Run on Startup"), "Toggle")
    press(find(dialog, pyatspi.ROLE_RADIO_BUTTON, "Open"), "Toggle")
    fill(dialog, "Step 1", source)
    fill(dialog, "Save File", destination)
    choose_by_key(dialog, "Step 2", "Up")
    press(find(dialog, pyatspi.ROLE_PUSH_BUTTON, "OK"))


def main():
    program_file, source, destination = sys.argv[1:]
    with running(program_file) as program:
        store(program, source, destination)
        # The start goes on with what was stored.
        eventually("the main window", lambda: find(program, pyatspi.ROLE_FRAME, "Orvik"))
        eventually("the saved file", lambda: os.path.exists(destination))
    print("stored")


main()
