"""Kills the program, and cancels, in the middle of a Book window's Move. The target must be the old
file or the new one, and nothing beside it. Arguments: the program, orvik-book, a folder."""

import fcntl
import os
import pathlib
import signal
import subprocess
import sys
import time

import pyatspi

from accessible import application, eventually, find, text_of
from book_reader import TITLE_OF_MOVE, TITLE_OF_SAVE, Reader
from real_program import PROGRAM, press_keys, windows, xdo

BOOK, WORK = sys.argv[2], pathlib.Path(sys.argv[3])
SOURCE, TARGET = WORK / "heavy.vcf", WORK / "target/moved.csv"
OLD = b"what was there before\n"
MOVE = f"^{TITLE_OF_MOVE}$"
CANCELLED = "Cancelled; nothing was written"
# A file that takes a while to be written, and few people who take none to be read.
PEOPLE, LETTERS = 200, 100_000
# So often a moment is waited for that may pass unseen on a busy machine.
TRIES = 20


def heavy():
    note = "n" * LETTERS
    return "".join(
        f"BEGIN:VCARD\nVERSION:3.0\nFN:P{i}\nN:{i};P;;;\nEMAIL:p{i}@example.org\nNOTE:{note}\nEND:VCARD\n"
        for i in range(PEOPLE)
    )


def check(*expected):
    """Nothing is beside the target, and it is one of these; says which."""
    assert os.listdir(TARGET.parent) == [TARGET.name], os.listdir(TARGET.parent)
    contents = TARGET.read_bytes()
    assert contents in expected, f"neither old nor new: {len(contents)} bytes, {contents[:100]}"
    return expected.index(contents)


class Moving:
    """A program whose window is about to move a book to Google."""

    def __init__(self):
        self.process = subprocess.Popen([PROGRAM, "--book", SOURCE])
        self.program = eventually("the program", application)
        Reader.of(self.program, pyatspi.ROLE_FRAME, f"Orvik - {SOURCE.name}").says(f"{PEOPLE} people")
        press_keys("^Orvik - ", "ctrl+s")
        self.dialog = Reader.of(self.program, pyatspi.ROLE_DIALOG, TITLE_OF_MOVE)
        self.dialog.usable(pyatspi.ROLE_PUSH_BUTTON, "Save...")
        press_keys(MOVE, "alt+v", "Down")
        self.dialog.says("Google Contacts")

    def save(self):
        """Says where to, and that the file there may go."""
        TARGET.write_bytes(OLD)
        self.dialog.usable(pyatspi.ROLE_PUSH_BUTTON, "Save...")
        press_keys(MOVE, "alt+s")
        files = Reader.of(self.program, pyatspi.ROLE_DIALOG, TITLE_OF_SAVE)
        name = files.wait(pyatspi.ROLE_TEXT, "File name:")
        press_keys(f"^{TITLE_OF_SAVE}$", "ctrl+a")
        xdo("type", "--delay", "5", str(TARGET))
        files.reads("the name", lambda: text_of(name), str(TARGET))
        press_keys(f"^{TITLE_OF_SAVE}$", "Return")
        # The box that asks bears the program's name.
        press_keys("^Orvik$", "alt+r")

    def ends(self):
        """Waits for the end of a save, and for another one to be possible; whether it was cancelled."""

        def end():
            back = find(self.dialog.top, pyatspi.ROLE_PUSH_BUTTON, TITLE_OF_MOVE)
            is_saved = back and back.getState().contains(pyatspi.STATE_SHOWING)
            return "saved" if is_saved else find(self.dialog.top, pyatspi.ROLE_LABEL, CANCELLED) and "cancelled"

        is_cancelled = eventually("the end of the save", end) == "cancelled"
        if not is_cancelled:
            self.dialog.press(TITLE_OF_MOVE)
        return is_cancelled

    def is_writing(self):
        """Whether a file without a name is open in the folder of the target."""
        files = pathlib.Path(f"/proc/{self.process.pid}/fd")
        for one in files.iterdir():
            try:
                if os.readlink(one).startswith(f"{TARGET.parent}/") and os.stat(one).st_nlink == 0:
                    return True
            except OSError:
                pass  # it has just been closed
        return False

    def stop_in_the_middle(self):
        """Stops the program while it writes. The save may be over before that is seen: then again."""
        for _ in range(TRIES):
            self.save()
            while self.is_saving() and not self.is_writing():
                time.sleep(0.0005)
            self.process.send_signal(signal.SIGSTOP)
            os.waitpid(self.process.pid, os.WUNTRACED)
            if self.is_writing():
                return
            self.process.send_signal(signal.SIGCONT)
            self.ends()
        raise AssertionError("no save was seen")

    def is_saving(self):
        """The target is the old one still; it is read in no time."""
        return TARGET.stat().st_size == len(OLD)

    def kill(self):
        self.process.kill()
        assert self.process.wait(20) == -signal.SIGKILL


def waiting(moving):
    """Another program saves into the folder, and the save waits for it."""
    folder = os.open(TARGET.parent, os.O_RDONLY)
    fcntl.flock(folder, fcntl.LOCK_EX)
    moving.save()
    labels = lambda: [one.name for one in moving.dialog.all(pyatspi.ROLE_LABEL)]
    eventually("the wait", lambda: any(": Waiting for " in text for text in labels()))
    return folder


def main():
    SOURCE.write_text(heavy())
    TARGET.parent.mkdir()
    expected = WORK / "expected.csv"
    subprocess.run([BOOK, "convert", SOURCE, "--to", "google", "-o", expected], check=True, capture_output=True)
    new = expected.read_bytes()

    moving = Moving()
    folder = waiting(moving)
    moving.dialog.usable(pyatspi.ROLE_PUSH_BUTTON, "Cancel")
    press_keys(MOVE, "alt+a")
    assert moving.ends()
    check(OLD)
    os.close(folder)

    moving.stop_in_the_middle()
    press_keys(MOVE, "Escape")
    moving.process.send_signal(signal.SIGCONT)
    is_cancelled = moving.ends()
    check(OLD if is_cancelled else new)

    moving.stop_in_the_middle()
    moving.kill()
    check(OLD)

    # At some moment.
    moving = Moving()
    moving.save()
    moving.kill()
    print(f"cancelled in the middle: {is_cancelled}; killed at some moment: {['old', 'new'][check(OLD, new)]}")


main()
