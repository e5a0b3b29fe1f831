"""Drops old books on a Book window, cleans and moves them. Arguments: the program, orvik-book, the
source of the drag, a folder."""

import pathlib
import select
import subprocess
import sys

import pyatspi

from accessible import cells, eventually, running, text_of
from book_reader import TITLE_OF_MOVE, TITLE_OF_SAVE, Reader
from real_program import PROGRAM, press_keys, windows, xdo

BOOK, SOURCE, WORK = sys.argv[2], sys.argv[3], pathlib.Path(sys.argv[4])
# Of the window; the display has as much.
WIDTH, HEIGHT = 800, 600
FILES = {
    "old.ldif": """dn: cn=Al Berg,mail=al@example.org
cn: Al Berg
mail: al@example.org
telephonenumber: 555 1234

dn: cn=Team
objectclass: groupofnames
cn: Team
member: cn=Al Berg,mail=al@example.org
member: cn=No,mail=no@example.org
""",
    "phone.vcf": """BEGIN:VCARD
VERSION:3.0
FN:Al Berg
N:Berg;Al;;;
EMAIL:al@example.org
NOTE:from the phone
END:VCARD
BEGIN:VCARD
VERSION:3.0
FN:Cy Dean
N:Dean;Cy;;;
EMAIL:cy@example.org
END:VCARD
""",
    "table.csv": """Name,E-mail Address,Home Phone
Cy Dean,cy@example.org,555 77
\u00c9va Ford,eva@example.org,
""",
}


def drop(files, x, y, is_done):
    """Drags files from a window of another program to a place on the display, and waits for the end."""
    with subprocess.Popen([SOURCE, *files], stdout=subprocess.PIPE) as source:
        eventually("the source of the drag", lambda: windows("^Files to drag$"))
        xdo("mousemove", "20", "20", "mousedown", "1")

        def is_taken():
            # Only a mouse that moves makes the other program answer.
            xdo("mousemove", str(x), str(y), "mousemove", str(x + 1), str(y + 1))
            ready = select.select([source.stdout], [], [], 0.1)[0]
            return ready and source.stdout.readline() == b"taken\n"

        eventually("the files to be taken", is_taken)
        xdo("mouseup", "1")
        eventually("what was dropped", is_done)
        source.kill()


def click(item):
    """In its middle, once that is on the display."""

    def shown():
        place = item.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
        return place.width > 0 and place.x + place.width < WIDTH and place

    place = eventually(f"{item.name} to be on the display", shown)
    xdo("mousemove", str(place.x + place.width // 2), str(place.y + place.height // 2), "click", "1")


def merge(reader):
    """The second of two groups, by a click and a key."""
    press_keys("^Orvik - ", "ctrl+3")
    page = reader.usable(pyatspi.ROLE_FILLER, "Duplicates")
    press_keys("^Orvik - ", "alt+d")
    groups = reader.wait(pyatspi.ROLE_TABLE, "Groups", page)
    tiers = lambda: [row[:2] for row in cells(groups)]
    reader.reads("two groups", tiers, [["undecided", "contained"], ["undecided", "agree"]])
    click(groups.queryTable().getAccessibleAt(1, 0))
    reader.says("2 records of Al Berg:")
    press_keys("^Orvik - ", "alt+m")
    reader.says("4 people, 1 list")
    reader.reads("one group left", tiers, [["undecided", "contained"], ["merged", "agree"]])


def move(program, target):
    """To the second program, whatever is lost."""
    press_keys("^Orvik - ", "ctrl+s")
    dialog = Reader.of(program, pyatspi.ROLE_DIALOG, TITLE_OF_MOVE)
    dialog.usable(pyatspi.ROLE_PUSH_BUTTON, "Save...")
    title = f"^{TITLE_OF_MOVE}$"
    press_keys(title, "alt+v", "Down")
    dialog.says("Google Contacts")
    dialog.usable(pyatspi.ROLE_CHECK_BOX, "Leave these out: 1 value would be lost")
    press_keys(title, "alt+l")
    dialog.usable(pyatspi.ROLE_PUSH_BUTTON, "Save...")
    press_keys(title, "alt+s")
    files = Reader.of(program, pyatspi.ROLE_DIALOG, TITLE_OF_SAVE)
    name = files.wait(pyatspi.ROLE_TEXT, "File name:")
    press_keys(f"^{TITLE_OF_SAVE}$", "ctrl+a")
    xdo("type", "--delay", "10", str(target))
    files.reads("the name", lambda: text_of(name), str(target))
    press_keys(f"^{TITLE_OF_SAVE}$", "Return")
    summary = dialog.wait(pyatspi.ROLE_TEXT, "Summary")
    dialog.contains("the summary", lambda: text_of(summary), f"{target}: Google CSV")
    return text_of(summary)


def as_tool():
    """What orvik-book writes, and says, after the same decisions."""
    plan, target = WORK / "plan.txt", WORK / "expected.csv"
    subprocess.run([BOOK, "dupes", *FILES, "--plan", plan], cwd=WORK, check=True, capture_output=True)
    text = plan.read_text()
    assert text.count("\nmerge ") == text.count("\nask ") == 1, text
    plan.write_text(text.replace("\nmerge ", "\nkeep ").replace("\nask ", "\nmerge "))
    command = [BOOK, "clean", "--plan", plan, "--to", "google", "--allow-loss", "-o", target]
    done = subprocess.run(command, cwd=WORK, check=False, capture_output=True)
    assert done.returncode == 1, done  # a value is lost
    return target.read_bytes()


def main():
    for name, text in FILES.items():
        (WORK / name).write_text(text)
    target = WORK / "moved.csv"
    with running(PROGRAM, "--book") as program:
        reader = Reader.of(program, pyatspi.ROLE_FRAME, "Orvik - Address book")
        xdo("windowsize", windows("^Orvik - ")[0], str(WIDTH), str(HEIGHT))
        reader.usable(pyatspi.ROLE_PUSH_BUTTON, "Open an address book")
        title = "Orvik - old.ldif, phone.vcf and 1 more"
        drop([WORK / name for name in FILES], WIDTH // 2, HEIGHT // 2, lambda: reader.top.name == title)
        reader.says("5 people, 1 list")
        merge(reader)
        summary = move(program, target)
        assert "lost 1\n" in summary, summary
        eventually("nothing to be unsaved", lambda: reader.top.name == title)
    expected = as_tool()
    assert target.read_bytes() == expected, f"{target.read_bytes()}\nand not\n{expected}"
    assert all((WORK / name).read_text() == text for name, text in FILES.items()), "a source is another one"
    print("content")


main()
