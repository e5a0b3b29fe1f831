#!/usr/bin/env python3
"""Kills a program that has a Book window alone, and looks at what is kept and offered.

Arguments: the program, a folder."""

import os
import pathlib
import signal
import stat
import subprocess
import sys
import time

import kept_book
from real_program import PROGRAM, eventually, fail, focus, windows, xdo

WORK = pathlib.Path(sys.argv[2])
FILE = WORK / "old.ldif"
ROOT = pathlib.Path(os.environ["XDG_STATE_HOME"]) / "orvik/book-recovery"
WINDOW, BOX = "^Orvik - ", "^Orvik$"


def leave(name, people):
    """What a program that was killed has left."""
    cards = b"".join(
        f"BEGIN:VCARD\r\nVERSION:4.0\r\nFN:{one}\r\nX-OWN:of {one}\r\nEND:VCARD\r\n".encode() for one in people
    )
    folder = ROOT / name
    ROOT.mkdir(mode=0o700, exist_ok=True)
    folder.mkdir(mode=0o700)
    (folder / "running").touch()
    fields = {
        "seconds": b"1700000000",
        "entries": str(len(people)).encode(),
        "file": b"/b/lost.vcf",
        "caption": b"",
        "mode": b"vCard",
        "text": cards,
        "box": b"",
        "end": b"",
    }
    with open(folder / "book", "wb") as file:
        file.write(b"orvik-recovery 1\n")
        for field, value in fields.items():
            file.write(f"{field} {len(value)}\n".encode() + value + b"\n")


def texts():
    return [copy["text"].decode() for copy in kept_book.copies(ROOT)]


class BookProgram:
    """A running program that has Book windows alone."""

    def __init__(self, *files, boxes=0, arguments=("--book",)):
        environment = dict(os.environ, ORVIK_KEEP_WITHIN="50")
        self.process = subprocess.Popen([PROGRAM, *arguments, *map(str, files)], env=environment)
        self.main = None
        if not arguments:
            self.main = eventually("a main window", lambda: self.own(BOX))[0]
            focus(self.main)
            # The link before the lists.
            xdo("key", "--delay", "100", "shift+Tab", "Return")
        self.window = eventually("a Book window", lambda: self.own(WINDOW))[0]
        if boxes:
            eventually("an offer", lambda: self.own(BOX))

    def own(self, title):
        """Of this program, but for its main window."""
        main = vars(self).get("main")
        return [w for w in windows(title) if w != main and xdo("getwindowpid", w) == [str(self.process.pid)]]

    def press(self, key):
        focus(eventually("a box", lambda: self.own(BOX))[-1])
        xdo("key", "--delay", "0", key)

    def close(self):
        focus(self.window)
        xdo("key", "--delay", "0", "ctrl+w")

    def kill(self, number=signal.SIGKILL):
        self.process.send_signal(number)
        status = self.process.wait(20)
        if status != -number:
            fail(f"signal {number} ended it with {status}")

    def quit(self, *keys):
        """Closes the window, answers what it asks, and waits for the end."""
        self.close()
        for key in keys:
            self.press(key)
        if self.process.wait(20) != 0:
            fail(f"exit status {self.process.returncode}")


def check_private():
    for path in [ROOT, *ROOT.glob("*"), *ROOT.glob("*/book")]:
        mode = stat.S_IMODE(path.stat().st_mode)
        if mode != (0o700 if path.is_dir() else 0o600):
            fail(f"{path} has {mode:o}")


def changed():
    """A person's change is kept in time, and a kill leaves it for the next program."""
    FILE.write_text("dn: cn=Cy\ncn: Cy\nshoeSize: 42\n\ndn: cn=Di\ncn: Di\n")
    program = BookProgram(FILE)
    eventually("the file to be read", lambda: program.own(f"^Orvik - {FILE.name}"))
    focus(program.window)
    xdo("key", "--delay", "100", "Down", "Delete")
    eventually("the change to be kept", lambda: len(texts()) == 1)
    if "\nFN:Cy\r\n" not in texts()[0] or "42\r\n" not in texts()[0] or "Di" in texts()[0]:
        fail(f"not what was changed is kept: {texts()}")
    # Undone, there is nothing to be kept; done again, there is.
    focus(program.window)
    xdo("key", "--delay", "100", "ctrl+z")
    eventually("nothing to be kept", lambda: not texts())
    xdo("key", "--delay", "100", "ctrl+shift+z")
    eventually("the change to be kept", lambda: len(texts()) == 1)
    program.kill()
    program = BookProgram(boxes=1)
    program.press("Return")
    eventually("Cy to be back", lambda: program.own(r"^Orvik - old\.ldif \(restored\)"))
    eventually("Cy to be kept anew", lambda: len(texts()) == 1 and "\nFN:Cy\r\n" in texts()[0])
    program.quit("alt+d")
    if ROOT.exists():
        fail("what was discarded is still there")


def restored(number):
    """What was left is restored, belongs to the new program, and survives its end."""
    program = BookProgram(boxes=1)
    program.press("Return")
    eventually("the records to be kept anew", lambda: len(texts()) == 1 and not (ROOT / "left").exists())
    text = texts()[0]
    for line in ("FN:Ann", "FN:Ben", "X-OWN:of Ann", "X-OWN:of Ben"):
        if f"\n{line}\r\n" not in text:
            fail(f"{line} is lost: {text}")
    if kept_book.copies(ROOT)[0]["file"] != b"/b/lost.vcf":
        fail("the file's name is lost")
    check_private()
    # A running program's records are offered to nobody.
    other = BookProgram(FILE)
    time.sleep(0.5)
    if other.own(BOX):
        fail("a running program's records are offered")
    other.quit()
    program.kill(number)
    if texts() != [text]:
        fail(f"signal {number} lost the records")


def beside_the_main_window():
    """Opened by its link, a Book window stays when the main window goes, and all is kept."""
    leave("left", ["Ann"])
    program = BookProgram(boxes=1, arguments=())
    program.press("Return")
    eventually("Ann to be kept anew", lambda: len(texts()) == 1 and not (ROOT / "left").exists())
    program.kill(signal.SIGTERM)
    if len(texts()) != 1:
        fail("TERM lost the records of a Book window beside the main window")
    program = BookProgram(boxes=1, arguments=())
    program.press("alt+d")
    eventually("the copy to go", lambda: not texts())
    focus(program.main)
    xdo("key", "ctrl+q")
    focus(eventually("its question", lambda: program.own(r"^Save\?$"))[0])
    xdo("key", "alt+n")
    eventually("the main window to go", lambda: program.main not in windows(BOX))
    time.sleep(0.3)
    if program.process.poll() is not None or not program.own(WINDOW):
        fail("the Book window went with the main window")
    program.quit()


def main():
    FILE.write_text("dn: cn=Cy\ncn: Cy\nmail: cy@example.org\n")
    # Nothing is left by a program that has changed nothing.
    BookProgram(FILE).quit()
    if ROOT.exists():
        fail("there is a copy of what was not changed")
    if f"{FILE}\n" not in (ROOT.parent / "books").read_text():
        fail("the file is not among the last books")
    leave("left", ["Ann", "Ben"])
    for number in (signal.SIGKILL, signal.SIGTERM, signal.SIGHUP, signal.SIGINT):
        restored(number)
    # Not now, with a file that was named, too.
    program = BookProgram(FILE, boxes=1)
    program.press("Escape")
    eventually("the box to go", lambda: not program.own(BOX))
    program.quit()
    if len(texts()) != 1:
        fail("Not now lost the records")
    # What is closed is asked about.
    program = BookProgram(boxes=1)
    program.press("Return")
    eventually("the box to go", lambda: not program.own(BOX))
    eventually("the records to be kept anew", lambda: len(texts()) == 1)
    program.close()
    program.press("Escape")
    eventually("the question to go", lambda: not program.own(BOX))
    if program.process.poll() is not None or len(texts()) != 1:
        fail("Cancel closed the window")
    program.quit("alt+d")
    if ROOT.exists():
        fail("what was discarded is still there")
    # The other window's copies are not offered here, and these not there.
    leave("left", ["Ann"])
    main_window = subprocess.Popen([PROGRAM])
    eventually("the main window", lambda: windows(BOX))
    time.sleep(0.5)
    if len(windows(BOX)) > 1:
        fail("the main window offers what a Book window has left")
    main_window.terminate()
    main_window.wait(20)
    program = BookProgram(boxes=1)
    program.press("alt+d")
    eventually("the copy to go", lambda: not texts())
    program.quit()
    changed()
    beside_the_main_window()
    print("a Book window: changed, restored after KILL, TERM, HUP and INT; not now, discarded, closed, left alone by the main window")


main()
