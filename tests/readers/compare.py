#!/usr/bin/env python3
"""Reads with the libraries of other address books what orvik-book wrote, and compares.

Arguments: orvik-book, orvik-book-touch, the folder of the reading programs, and the root of the project.
The books are our samples, some made up, and public cards where they are (tests/book_cli/public_cards.py).
Each goes to 3.0 and 4.0: as it is, through LDIF, and, if it is one of cards, with one nickname more, so
that it is written anew; and to the program of each library as its own. Names, addresses and phones have to be those that orvik-book shows of what it
read. What a library is known to read otherwise is counted (known.py); anything else fails. Lines that are
taken out or changed on purpose have to be seen.
"""

import collections
import json
import pathlib
import re
import subprocess
import sys
import tempfile

# Run from the sources, where nothing is to be left behind.
sys.dont_write_bytecode = True
sys.path.append(str(pathlib.Path(__file__).resolve().parent.parent / "book_cli"))

import known
import own_books
import own_cards
import public_cards
from public_cards import Count, run

PROGRAM, TOUCH, READERS, ROOT = sys.argv[1:5]
CONVERT = (PROGRAM, *public_cards.CONVERT)
LIBRARIES = {known.KCONTACTS: "kcontacts_cards", known.EVOLUTION: "evolution_cards"}
# The programs that read by these.
READ_BY = {"kaddressbook": known.KCONTACTS, "evolution": known.EVOLUTION}
SETS = ("netscape", "mozilla", "kcontacts", "evolution")


class Read:
    """By library: the cards, and what is known to be read otherwise."""

    cards = collections.Counter()
    known = collections.Counter()


def shown(path, data=None):
    """What orvik-book says of each contact of a book."""
    contacts = []
    for line in run(PROGRAM, "show", "--json", path, data=data).splitlines():
        one = json.loads(line)
        names = [each for each in one["properties"] if each["name"] == "N" and each["value"]]
        # The same one that the program shows.
        names.sort(key=lambda each: "LANGUAGE" in each["params"])
        parts = known.components(names[0]["value"].encode() if names else b"")
        contacts.append({**dict(zip(known.NAME, parts)), **one})
    return contacts


def read(library, written, folder):
    """What a library finds in cards."""
    path = folder / "written.vcf"
    path.write_bytes(written)
    done = subprocess.run([f"{READERS}/{LIBRARIES[library]}", path], capture_output=True)
    if done.returncode != 0:
        Count.fail(library, f"status {done.returncode}: {done.stderr}")
    return [json.loads(line) for line in done.stdout.splitlines()]


def check(path, how, written, source, wanted, folder, libraries=tuple(LIBRARIES)):
    """The libraries find what is wanted."""
    for library in libraries:
        found = read(library, written, folder)
        Read.cards[library] += len(wanted)
        for what, reason in known.differences(library, written, source, wanted, found):
            if reason is None:
                Count.fail(path, f"{how}: {library}: {what}")
            Read.known[library, reason] += 1


def changed(line):
    """A line without the last letter of its value that is no separator."""
    return re.sub(rb"[^:;,\s\\](?=[;,\s\\]*$)", b"", line)


def check_planted(path, written, wanted, folder):
    """Each line of a name, address or phone that is taken out or loses a letter is seen by each library."""
    lines = re.split(rb"(?<=\r\n)(?![ \t])", written)
    for library in LIBRARIES:
        for place, line in enumerate(lines):
            if not re.match(rb"(?:N|FN|EMAIL|TEL)[;:].*[^:;\s]\s*$", line, re.S):
                continue
            for other in {b"", changed(line)}:
                data = b"".join([*lines[:place], other, *lines[place + 1 :]])
                found = read(library, data, folder)
                told = known.differences(library, data, b"", wanted, found)
                Count.planted += 1
                if all(reason for _, reason in told):
                    Count.fail(path, f"{library}: nobody sees {other!r} instead of {line!r}")


def check_book(path, number, folder):
    source = path.read_bytes()
    wanted = shown(str(path))
    if not wanted:
        return
    ldif = run(*CONVERT, str(path), "--attributes", SETS[number % len(SETS)])
    through = shown("-", ldif)
    for version in "34":
        to = ("--vcard", version)
        written = run(*CONVERT, str(path), *to)
        check(path, f"to {version}.0", written, source, wanted, folder)
        again = run(*CONVERT, "-", *to, data=ldif)
        check(path, f"through LDIF to {version}.0", again, b"", through, folder)
        if path.suffix == ".vcf":
            touched = run(TOUCH, version, str(path))
            check(path, f"to {version}.0, touched", touched, b"", shown("-", touched), folder)
    check_programs(path, source, wanted, folder)


def check_programs(path, source, wanted, folder):
    """What is written for a program is read by its library."""
    for program, library in READ_BY.items():
        cards = folder / "for.vcf"
        run(*CONVERT, str(path), "--to", program, "-o", str(cards), "--force")
        written = cards.read_bytes()
        if program == "kaddressbook" and re.search(rb"(?im)^[\w-]+\.(EMAIL|TEL)", written):
            Count.fail(path, "KContacts would pass over a line")
        check(path, f"for {program}", written, source, wanted, folder, (library,))


def own_files(folder):
    """Our own books, as files."""
    for kind, books in (("ldif", own_books.LDIF), ("vcf", {**own_books.VCARD, **own_cards.CARDS})):
        for name, data in books.items():
            path = folder / f"{name}.{kind}"
            path.write_bytes(data)
            yield path
    yield from sorted(pathlib.Path(ROOT, "samples").glob("*.ldif"))


def check_own(folder):
    for number, path in enumerate(own_files(folder)):
        Count.files += 1
        check_book(path, number, folder)
    for library, names in known.KNOWN.items():
        for name in names:
            if not Read.known[library, name]:
                Count.fail("own books", f"{library}: not met: {name}")
    for name in ("old.ldif", "plain.vcf", "odd.vcf"):
        for version in "34":
            path = str(folder / name)
            written = run(*CONVERT, path, "--vcard", version)
            check_planted(path, written, shown(path), folder)


def main():
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        check_own(folder)
        public_cards.check_each(ROOT, lambda path, number: check_book(path, number, folder))
    for library in LIBRARIES:
        print(f"{library}: {Read.cards[library]} cards read")
        for name in known.KNOWN[library]:
            print(f"  {Read.known[library, name]:5d}  {name}")
    print(f"{Count.files} books, {Count.failed} failures, {Count.planted} planted differences")
    return Count.status()


if __name__ == "__main__":
    sys.exit(main())
