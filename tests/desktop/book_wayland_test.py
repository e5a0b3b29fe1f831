"""Uses a Book window where there is no keyboard and no mouse, as a screen reader does. Arguments: the
program, a file; and the process of the display, if the display is to go when the book was changed."""

import os
import pathlib
import signal
import subprocess
import sys

import pyatspi

import kept_book
from accessible import application, eventually, find, press
from book_reader import Reader

PROGRAM, FILE = sys.argv[1], pathlib.Path(sys.argv[2])
KEPT = pathlib.Path(os.environ["XDG_STATE_HOME"]) / "orvik/book-recovery"
PERSON = b"\r\nFN:Al Berg\r\n"


def kept():
    return [copy["text"] for copy in kept_book.copies(KEPT)]


def change(process, program, display):
    """Two records become one; what is kept when the display goes is that one."""
    reader = Reader.of(program, pyatspi.ROLE_FRAME, f"Orvik - {FILE.name}")
    reader.says("2 people")
    reader.page("Duplicates")
    reader.press("Look for duplicates")
    reader.press("Merge")
    reader.says("1 person")
    eventually("the change to be kept", lambda: len(kept()) == 1)
    os.kill(display, signal.SIGKILL)
    process.wait(20)
    [text] = kept()
    assert text.count(PERSON) == 1, text


def restore(program):
    """The next one offers it."""
    button = eventually("an offer", lambda: find(program, pyatspi.ROLE_PUSH_BUTTON, "Restore"))
    press(button)
    eventually(
        "the book", lambda: find(program, pyatspi.ROLE_FRAME, f"Orvik - {FILE.name} (restored)*")
    )
    Reader(program).says("1 person")
    eventually("it to be kept anew", lambda: len(kept()) == 1)


def main():
    loses_display = len(sys.argv) > 3
    if loses_display:
        card = "BEGIN:VCARD\nVERSION:3.0\nFN:Al Berg\nEMAIL:al@example.org\nEND:VCARD\n"
        FILE.write_text(card + card)
    with subprocess.Popen([PROGRAM, "--book", *([FILE] if loses_display else [])]) as process:
        try:
            program = eventually("the program", application)
            if loses_display:
                change(process, program, int(sys.argv[3]))
            else:
                restore(program)
        finally:
            process.kill()
    print("content")


main()
