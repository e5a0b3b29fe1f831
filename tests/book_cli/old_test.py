#!/usr/bin/env python3
"""Reads a made-up book of each old mail program, and takes it to each format and back.

Argument: orvik-book. What the records of a book are is written down beside it; its words are looked for
in each file that is written by a few lines here, so that nothing of the program judges itself.
"""

import json
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

PROGRAM = str(pathlib.Path(sys.argv[1]).resolve())
BOOKS = pathlib.Path(__file__).resolve().parent / "old"
FORMS = {
    "LIST4C76.PML": "Pegasus Mail distribution list",
    "LIST5029.PML": "Pegasus Mail distribution list",
    "PMAIL1.TXT": "Pegasus Mail addresses as text",
    "PMAIL2.TXT": "Pegasus Mail addresses as text",
    "NNdbase.txt": "Eudora nicknames",
    "eudora-oldest.txt": "Eudora nicknames",
    "dot-mailrc": "mailrc aliases",
    "muttrc": "mutt aliases",
    "dot-addressbook": "pine address book",
    "abook.addressbook": "abook address book",
    "address.htm": "Netscape 3 HTML",
    "browser-saved.html": "Netscape 3 HTML",
    "addrbook.nv": "Juno address book",
    "wordperfect.abx": "WordPerfect address book",
    "cc-mail.txt": "cc:Mail directory",
    "list-of-forms.txt": "plain list",
    "groups.csv": "CSV",
}
# Words by which programs call things; what they call is looked for.
SYNTAX = set(
    "alias note group TITLE name first last company title address city state zip country phone fax mobile web "
    "otheremail otherphone otherweb address2 city2 phone2 fax2 mobile2 web2 email workphone nick url notes "
    "anniversary groups Name Key Street Postal E-mail Of Phone Fax Notes number Email Dept tags abook "
    "DT DD DL BR H3 HREF mailto ALIASID ALIASOF NICKNAME FOLDED amp lt gt eacute dt dd dl br h3 href aliasid aliasof nickname "
    "Type Entry Version MList Alias Member Deleted Primary Mobile Birth Address Work Locn Addr Cmts".split())
# Lines that are no records, which the program names instead.
SKIPPED = re.compile(r"set |ignore |unalias |source |macro |group -group |#|\[|program=|version=|<!|It will be|Do Not|"
                     ":::TAGMAP|<(TITLE|H1|html|h1|/body)|Version:")
failed = 0


def fail(what):
    global failed
    failed += 1
    print(what[:600])


def run(*arguments, status=None, cwd=BOOKS):
    done = subprocess.run([PROGRAM, *map(str, arguments)], capture_output=True, cwd=cwd)
    if done.returncode not in ((0, 1) if status is None else (status,)):
        fail(f"{arguments}: status {done.returncode}: {done.stderr.decode()}")
    return done


def records(*files):
    """A line for each record: what it is called, its addresses, and who its members are."""
    lines = []
    shown = run("show", "--json", *files).stdout.decode()
    check_lines(shown, files)
    for line in shown.splitlines():
        one = json.loads(line)
        members = [member["name"] or member["address"] for member in one["members"]]
        lines.append("|".join([one["kind"], one["name"], *one["nicknames"], *one["emails"]]) +
                     (" : " if members else "") + ", ".join(members))
    return lines


def expect(what, found, expected):
    if found != expected:
        fail(f"{what}:\n" + "\n".join(sorted(set(found) ^ set(expected))))


def words_of(path):
    """The words of a book that are no syntax of its program."""
    lines = re.split(rb"[\r\n]+", path.read_bytes())
    text = "\n".join(line.decode("latin-1") for line in lines if not SKIPPED.match(line.decode("latin-1")))
    text = re.sub(r"=\?(.*?)\?Q\?(.*?)\?=", "", text, flags=re.I)
    return set(re.findall(r"[A-Za-z][A-Za-z0-9.-]*[A-Za-z0-9]|[0-9]{3,}", text)) - SYNTAX


def unfolded(path):
    data = re.sub(r"\r?\n ", "", path.read_bytes().decode())
    return data.replace("\\n", "\n").replace("\\,", ",")


def check_lines(text, what):
    """The lines of a source say nothing in another file."""
    if "x-orvik-line" in text:
        fail(f"{what} names a line: {text[:300]}")


def check_trips(folder, name, files):
    """All that a book says is in each card, and its records come back from each format."""
    expected = (BOOKS / f"{name}.records").read_text(encoding="utf-8").splitlines()
    expect(name, records(*files), expected)
    for arguments in (["a.vcf"], ["b.vcf", "--vcard", "4"], ["c.ldif"]):
        written = folder / arguments[0]
        run("convert", *files, "-o", written, "--force", *arguments[1:])
        check_lines(written.read_bytes().decode(), f"{name} by {written.name}")
        expect(f"{name} by {written.name}", records(written), expected)
        if len(files) == 1:
            same = run("diff", files[0], written).stdout.decode()
            if f"same {len(expected)}   only left 0   only right 0   changed 0" not in same:
                fail(f"{name} and {written.name}: {same}")
        again = folder / ("d.ldif" if written.suffix == ".vcf" else "d.vcf")
        run("convert", written, "-o", again, "--force")
        expect(f"{name} by {written.name} and {again.name}", records(again), expected)
        if written.suffix == ".vcf":
            text = unfolded(written)
            for file in files:
                for word in words_of(BOOKS / file):
                    # Lists inside are named by UID.
                    if word not in text and not word.endswith(".PML"):
                        fail(f"{file}: {word!r} is not in {written.name}")


def check_forms(folder):
    """Each book is what it is under any name, and no other one."""
    for name, form in FORMS.items():
        for other in ("book", "book.txt", "book.csv", "book.vcf", "book.ldif", "book.htm", "book.nv", "book.abx", "book.pml"):
            shutil.copy(BOOKS / name, folder / other)
            found = run("show", other, cwd=folder).stdout.decode()
            if f": {form}" not in found:
                fail(f"{name} as {other}: {found}")
            (folder / other).unlink()


def check_lists():
    told = run("convert", "LIST4C76.PML", "PMAIL1.TXT", "PMAIL2.TXT", "-o", "-", status=1).stderr.decode()
    for wanted in ('LIST4C76.PML: list "Team": 3 members found in PMAIL1.TXT, PMAIL2.TXT; 1 list inside\n',
                   'skipped: MEMBER "Di Dorn": is not in these files\n',
                   'skipped: MEMBER "@LIST5029.PML": is not in these files\n'):
        if wanted not in told:
            fail(f"lists: {wanted!r} is not told: {told}")
    told = run("show", "LIST5029.PML", "LIST4C76.PML").stderr.decode()
    if 'LIST5029.PML: list "Rowers": 1 list inside\n' not in told:
        fail(f"lists inside: {told}")


def check_binary(folder):
    book = b"Friends" + bytes(121) + b"\1\0Ada Abbott" + bytes(446)
    (folder / "ADDR0001.PMR").write_bytes(book)
    told = run("show", "ADDR0001.PMR", status=65, cwd=folder).stderr.decode()
    if "this is a binary book of Pegasus Mail: Pegasus Mail exports it as tagged text" not in told:
        fail(f"binary book: {told}")


def main():
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        check_trips(folder, "pegasus", ["LIST4C76.PML", "LIST5029.PML", "PMAIL1.TXT", "PMAIL2.TXT"])
        for book in FORMS:
            if not book.startswith(("LIST", "PMAIL")):
                check_trips(folder, book, [book])
        check_forms(folder)
        check_binary(folder)
    check_lists()
    print(f"{len(FORMS)} books of old programs, {failed} failures")
    return failed > 0


if __name__ == "__main__":
    sys.exit(main())
