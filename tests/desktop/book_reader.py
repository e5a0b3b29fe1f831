"""Who reads a Book window on the accessibility bus, and waits for what is said."""

import pyatspi

from accessible import eventually, everything, find, is_usable, press

TITLE_OF_MOVE = "Move to another program"
TITLE_OF_SAVE = "Save for another program"


class Reader:
    """Of a window or a dialog; every wait ends with an error that says for what it was."""

    def __init__(self, top):
        self.top = top

    @classmethod
    def of(cls, program, role, title):
        return cls(eventually(f"the window {title}", lambda: find(program, role, title)))

    def wait(self, role, name, top=None):
        return eventually(f"{pyatspi.ROLE_NAMES.get(role, role)} {name}", lambda: find(top or self.top, role, name))

    def all(self, role):
        return [one for one in everything(self.top) if one.getRole() == role]

    def says(self, text):
        self.wait(pyatspi.ROLE_LABEL, text)

    def reads(self, what, read, expected):
        def attempt():
            found = read()
            assert found == expected, found
            return True

        eventually(f"{what}: {expected}", attempt)

    def contains(self, what, read, part):
        def attempt():
            found = read()
            assert part in found, found
            return True

        eventually(f"{what} with {part}", attempt)

    def usable(self, role, name):
        """It can be used now, or in time."""
        item = self.wait(role, name)
        eventually(f"{name} to be usable", lambda: is_usable(item))
        return item

    def press(self, name):
        press(self.usable(pyatspi.ROLE_PUSH_BUTTON, name))

    def page(self, name):
        """Of the panel, by its tab."""
        press(self.wait(pyatspi.ROLE_PAGE_TAB, name))
        return self.usable(pyatspi.ROLE_FILLER, name)
