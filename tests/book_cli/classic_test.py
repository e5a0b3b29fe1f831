#!/usr/bin/env python3
"""Saves books with orvik-batch in each format, and looks for all that they hold in what orvik-book reads.

Arguments: orvik-book, orvik-batch, the folder of the samples. Who is in a book is what the list says that
orvik-batch makes of it. An address that is planted wrongly has to be missed.
"""

import json
import os
import pathlib
import re
import subprocess
import sys
import tempfile

BOOK, BATCH = (str(pathlib.Path(name).resolve()) for name in sys.argv[1:3])
SAMPLES = pathlib.Path(sys.argv[3]).resolve()
# What a list can hold, and what the formats do to it.
ODD = ('"R&D <rows>" <al@example.org>\r\n"Ren&eacute;e" <re@example.org>\r\n"O\'Neil, Pat" <pat@example.org>\r\n'
       '"" <nobody@example.org>\r\n"Cy: Coe" <100%cy@example.org>\r\n"J\xf6rg" <j@example.org>\r\n')
NAMES = ("saved.txt", "saved.htm", "saved.nv", "saved.pml", "saved.ldif", "nndbase.txt")
failed = 0
counts = {"commas": 0}


def fail(what):
    global failed
    failed += 1
    print(what[:500])


def run(program, *arguments, cwd):
    environment = dict(os.environ, XDG_CONFIG_HOME=str(cwd / "config"))
    done = subprocess.run([program, *map(str, arguments)], capture_output=True, cwd=cwd, env=environment)
    if done.returncode not in (0, 1):
        fail(f"{arguments}: status {done.returncode}: {done.stderr.decode()}")
    return done.stdout.decode()


def pairs_of(path):
    """Nickname and address of each entry of a list that orvik-batch wrote."""
    pairs = re.findall(r'"(.*)" <(.*)>', path.read_bytes().decode("latin-1"))
    return [(nickname.strip(), address) for nickname, address in pairs]


def as_saved(pair, ending):
    """A page and an exchanged pair say less than the list does."""
    nickname, address = pair
    if ending != ".ldif" and "@" in nickname and "@" not in address:
        return address, nickname
    if ending == ".htm":
        return nickname.replace("&eacute;", "\xe9"), address.replace(" ", "_")
    return nickname, address


def missing(people, pair):
    nickname, address = pair
    return not any(address in one["emails"] and
                   (not nickname or nickname in [name.strip() for name in (one["name"], *one["nicknames"])])
                   for one in people)


def check(book, folder):
    run(BATCH, "--open", book, "--save", folder / "pairs.txt", cwd=folder)
    pairs = pairs_of(folder / "pairs.txt")
    if len(pairs) < 6:
        fail(f"{book.name}: {len(pairs)} entries")
    for saved_as in NAMES:
        saved = folder / saved_as
        ending = saved.suffix
        run(BATCH, "--open", book, "--save", saved, cwd=folder)
        # Added to a book that is there.
        if ending in (".htm", ".nv"):
            run(BATCH, "--open", book, "--save", saved, cwd=folder)
        people = [json.loads(line) for line in run(BOOK, "show", "--json", saved, cwd=folder).splitlines()]
        people = [one for one in people if one["kind"] == "person"]
        times = 2 if ending in (".htm", ".nv") else 1
        if len(people) != times * len(pairs):
            fail(f"{book.name}, {saved_as}: {len(people)} people, not {times * len(pairs)}")
        for pair in pairs:
            if missing(people, as_saved(pair, ending)):
                fail(f"{book.name}, {saved_as}: {pair} is missing")
            if not missing(people, (pair[0], pair[1] + "x")):
                fail(f"{book.name}, {saved_as}: a planted address was not missed")
        saved.unlink()
    check_commas(book, pairs, folder)
    return len(pairs)


def check_commas(book, pairs, folder):
    """Saving with commas makes two entries of a name with one. Of a list it has made a single entry before."""
    if book.suffix not in (".ldif", ".csv", ".abx"):
        return
    saved = folder / "commas.txt"
    run(BATCH, "--separator", "comma", "--open", book, "--save", saved, cwd=folder)
    people = [json.loads(line) for line in run(BOOK, "show", "--json", saved, cwd=folder).splitlines()]
    for pair in pairs:
        if missing(people, pair):
            fail(f"{book.name}, commas: {pair} is missing")
        if not missing(people, (pair[0], pair[1] + "x")):
            fail(f"{book.name}, commas: a planted address was not missed")
    counts["commas"] += len(people)
    saved.unlink()


def main():
    books = sorted(SAMPLES.iterdir())
    entries = 0
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        (folder / "odd.txt").write_bytes(ODD.encode("latin-1"))
        for book in (*books, folder / "odd.txt"):
            entries += check(book, folder)
    print(f"{len(books) + 1} books, {entries} entries, {len(NAMES)} formats, "
          f"{counts['commas']} people behind commas, {failed} failures")
    return 1 if failed or len(books) < 7 or counts["commas"] < 40 else 0


if __name__ == "__main__":
    sys.exit(main())
