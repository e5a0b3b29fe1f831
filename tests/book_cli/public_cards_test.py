#!/usr/bin/env python3
"""Converts cards, and looks for each of their lines in what is written.

Arguments: orvik-book, orvik-book-touch, and the root of the project. The cards are a few of our own
and, where they are, public ones: files *.vcf anywhere below the folder that ORVIK_PUBLIC_CARDS names,
or below one that holds the public collections beside the checkout. Each goes to 3.0 and 4.0, and
through LDIF, as it is and with one nickname more, so that it is written anew. Then no line may lack,
and the program finds no difference itself. Losses that are planted have to be seen.
"""

import json
import pathlib
import subprocess
import sys
import tempfile

# Run from the build, where nothing is to be left in the sources.
sys.dont_write_bytecode = True

import card_lines
import own_cards
import public_cards
from public_cards import Count, run

PROGRAM, TOUCH, ROOT = sys.argv[1:4]
CONVERT = (PROGRAM, *public_cards.CONVERT)
SETS = ("netscape", "mozilla", "kcontacts", "evolution")


class Compared:
    runs = lines = 0


def compare(path, source, written, how, empty_ones=True):
    Compared.runs += 1
    Compared.lines += len(card_lines.fields(source))
    for name, text in card_lines.missing(source, written):
        if text or empty_ones:
            Count.fail(path, f"{how}: {name} is missing: {text!r}")


def check_conversions(path, source, number):
    through = run(*CONVERT, path, "--attributes", SETS[number % len(SETS)])
    for version in "34":
        written = run(*CONVERT, path, "--vcard", version)
        compare(path, source, written, f"to {version}.0")
        touched = run(TOUCH, version, path)
        compare(path, source, touched, f"to {version}.0, touched")
        cards = source.upper().count(b"BEGIN:VCARD")
        if not 0 < touched.count(b"NICKNAME:touched") <= cards:
            Count.fail(path, "not each card was touched")
        again = run(*CONVERT, "-", "--vcard", version, data=through)
        # LDIF has no line for a name that is nothing but separators.
        compare(path, source, again, f"through LDIF to {version}.0", empty_ones=False)
        check_equal(path, written)
        check_equal(path, again)


def check_equal(path, written):
    """The program itself finds no difference between what was read and what was written."""
    done = subprocess.run([PROGRAM, "diff", path, "-"], input=written, capture_output=True)
    shown = done.stdout.decode()
    if "only left 0   only right 0   changed 0" not in shown:
        Count.fail(path, f"is not the same as what was written: {shown}")


def check_views(path, source):
    """Names, addresses and phones are found wherever a regular expression finds them."""
    people = [json.loads(line) for line in run(PROGRAM, "show", "--json", path).splitlines()]
    found = {
        "FN": [person["name"] for person in people],
        "EMAIL": [text for person in people for text in person["emails"]],
        "TEL": [text for person in people for text in person["phones"]],
    }
    for name, views in found.items():
        plain = [view.rstrip("\n").replace("\\", "") for view in views]
        for text in card_lines.texts(source, name):
            if name == "FN" and shown_elsewhere(people, text):
                continue
            if text not in plain:
                Count.fail(path, f"{name} is not found: {text!r} in {views}")


def shown_elsewhere(people, text):
    """Another name of somebody who has several is among the fields."""
    several = (
        one["value"]
        for person in people
        if sum(one["name"] == "FN" for one in person["properties"]) > 1
        for one in person["properties"]
        if one["name"] == "FN"
    )
    return text in several


def check_planted(path, source):
    """Each line that is taken out, and each value that loses a letter, is seen."""
    written = run(*CONVERT, path, "--vcard", "4")
    lines = [line for _, line in card_lines.unfolded(written)]
    wanted = set(card_lines.fields(source))
    for place, line in enumerate(lines):
        one = card_lines.fields(line)
        if not one or one[0] not in wanted or len(one[0][1]) < 3:
            continue
        # The last letters may be separators, which say nothing.
        cut = line[:-2]
        for other in [[]] if card_lines.fields(cut) == one else [[], [cut]]:
            Count.planted += 1
            without = b"\r\n".join(lines[:place] + other + lines[place + 1 :])
            if not card_lines.missing(source, without):
                Count.fail(path, f"nobody sees that this is lost: {line!r}")


def check_nobody(path):
    """A card of nothing is skipped, and nothing comes of it."""
    written = run(PROGRAM, "convert", path)
    told = subprocess.run([PROGRAM, "show", path], capture_output=True)
    if written or told.returncode != 1 or b"skipped" not in told.stderr:
        Count.fail(path, f"{written} {told}")


def check(path, number):
    source = path.read_bytes()
    if not card_lines.fields(source):
        check_nobody(str(path))
        return
    check_conversions(str(path), source, number)
    check_views(str(path), source)
    if "invalid" in path.parts:
        told = subprocess.run([PROGRAM, "show", str(path)], capture_output=True).stderr.decode()
        if "doubtful" not in told:
            Count.fail(path, f"nothing is said of it: {told}")


def main():
    with tempfile.TemporaryDirectory() as folder:
        for number, (name, card) in enumerate(own_cards.CARDS.items()):
            path = pathlib.Path(folder) / f"{name}.vcf"
            path.write_bytes(card)
            check(path, number)
            check_planted(str(path), card)
    public_cards.check_each(ROOT, check)
    print(f"{Compared.runs} files written, {Compared.lines} lines, {Count.failed} failures, "
          f"{Count.planted} planted losses")
    return Count.status()


sys.exit(main())
