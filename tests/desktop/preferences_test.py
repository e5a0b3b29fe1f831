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


def xdotool(*words):
    subprocess.run(["xdotool", *words], check=True)


def choose_above(dialog, chosen, above):
    """Opens a combo box with the mouse, and takes the item above the chosen one with the keys."""
    combo = find(dialog, pyatspi.ROLE_COMBO_BOX, chosen)
    place = combo.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
    xdotool("mousemove", str(place.x + place.width // 2), str(place.y + place.height // 2))
    xdotool("click", "1")

    def shown():
        item = find(combo, pyatspi.ROLE_LIST_ITEM, above)
        return item.getState().contains(pyatspi.STATE_SHOWING)

    eventually("the open list", shown)
    xdotool("key", "Up", "Return")

    def taken():
        # It is called what it shows.
        combo.clear_cache()
        return combo.name == above

    eventually(above, taken)


def store(program, source, destination):
    dialog = eventually(
        "the preferences", lambda: find(program, pyatspi.ROLE_DIALOG, "Orvik Preferences")
    )
    press(find(dialog, pyatspi.ROLE_PAGE_TAB, "Automation"))
    press(find(dialog, pyatspi.ROLE_CHECK_BOX, "Use Automation"), "Toggle")
    eventually("the steps", lambda: find(dialog, pyatspi.ROLE_TEXT, "Save File"))
    press(find(dialog, pyatspi.ROLE_CHECK_BOX, "Run on Startup"), "Toggle")
    press(find(dialog, pyatspi.ROLE_RADIO_BUTTON, "Open"), "Toggle")
    fill(dialog, "Step 1", source)
    fill(dialog, "Save File", destination)
    choose_above(dialog, "Done", "Sort by Nickname")
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
