#!/usr/bin/env python3
"""Checks the addresses of a public collection, which says of each what it is.

Arguments: orvik-book-addresses and the root of the project. The collection is read where it is:
isemail/test/*.xml below the folder that ORVIK_PUBLIC_ADDRESSES names, or below one that holds the
public collections beside the checkout. Its categories are the oracle: an address is bad if they
call it an error, and only then; and each category has one class.
"""

import os
import pathlib
import subprocess
import sys
import xml.etree.ElementTree

PROGRAM, ROOT = sys.argv[1:3]

# docs/book.md has this table in words.
CLASSES = {
    "VALID_CATEGORY": "valid",
    "DNSWARN": "valid",
    "RFC5321": "odd",
    "CFWS": "odd",
    "RFC5322": "odd",
    "DEPREC": "deprecated",
    "ERR": "bad",
}
# The collection moved one diagnosis to another category in its newer list.
MOVED = {"RFC5321_IPV6DEPRECATED": "DEPREC"}
# What the collection decides by something else than the syntax, or not by the letter of it.
OTHERWISE = {
    ("tests.xml", "5"): ("odd", "a domain without a dot, for which it has found a mail server"),
    ("tests-original.xml", "185"): ("deprecated", "a comment before a dot of the domain"),
    ("tests-original.xml", "279"): ("odd", "it does not look at what xn-- stands for"),
}


def folder():
    named = os.environ.get("ORVIK_PUBLIC_ADDRESSES")
    if named:
        return pathlib.Path(named)
    beside = sorted(pathlib.Path(ROOT).resolve().parent.glob("*/*/isemail"))
    return beside[0].parent if beside else None


def address_of(test):
    """The bytes: signs for control characters stand for these."""
    text = test.findtext("address") or ""
    return "".join(chr(ord(c) - 0x2400) if 0x2400 <= ord(c) < 0x2420 else c for c in text).encode()


def verdicts(addresses):
    lines = "".join(address.hex() + "\n" for address in addresses)
    done = subprocess.run([PROGRAM], input=lines, capture_output=True, text=True, check=True)
    return [line.split("\t") for line in done.stdout.splitlines()]


def check(path):
    """Prints what differs. Returns whether nothing does."""
    tests = list(xml.etree.ElementTree.parse(path).getroot().iter("test"))
    found = verdicts([address_of(test) for test in tests])
    right = errors = 0
    for test, (which, reason) in zip(tests, found, strict=True):
        diagnosis = test.findtext("diagnosis").removeprefix("ISEMAIL_")
        category = MOVED.get(diagnosis, test.findtext("category").removeprefix("ISEMAIL_"))
        wanted = OTHERWISE.get((path.name, test.get("id")), (CLASSES[category],))[0]
        errors += which == "bad"
        if which == wanted and (which == "valid") == (reason == ""):
            right += 1
        else:
            print(f"{path.name} {test.get('id')}: {address_of(test)}: {which}: {reason}; "
                  f"the collection says {diagnosis}, so {wanted}")
    known = sum(name == path.name for name, _ in OTHERWISE)
    print(f"{path.name}: {right} of {len(tests)} ({known} of them known to differ), {errors} bad")
    return bool(tests) and right == len(tests)


def main():
    public = folder()
    if public is None:
        print("public addresses: not here (ORVIK_PUBLIC_ADDRESSES names their folder), so left out")
        return 0
    lists = sorted((public / "isemail" / "test").glob("tests*.xml"))
    if not lists:
        print(f"{public}: holds no addresses")
        return 1
    return 0 if all([check(path) for path in lists]) else 1


sys.exit(main())
