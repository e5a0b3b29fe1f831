#!/usr/bin/env python3
"""Checks the people of public mail, of which others say what its headers hold.

Arguments: orvik-book and the root of the project. The collections are read where they are:
mail-parser/resources (messages and header lines, each with its expected parse as JSON) and
MimeKit/UnitTests/TestData/mbox (folders, with where each message begins) below the folder that
ORVIK_PUBLIC_MAIL names, or below one that holds the public collections beside the checkout.
"""

import json
import os
import pathlib
import subprocess
import sys
import tempfile

PROGRAM, ROOT = sys.argv[1:3]

FIELDS = {"from", "sender", "reply_to", "to", "cc", "bcc"} | {
    f"resent_{name}" for name in ("from", "sender", "reply_to", "to", "cc", "bcc")
}

# Where the collection's parse is no address: what is found instead, and why.
OTHERWISE = {
    "Mary Smith <@node.test:mary@example.net>, , jdoe@test  . example\n": (
        {"mary@example.net", "jdoe@test.example"},
        "a route, and blanks beside a dot",
    ),
    "John Doe <jdoe@machine(comment).  example>\n": (
        {"jdoe@machine.example"},
        "blanks beside a dot",
    ),
    "Pete(A nice \n \\\n ) chap) <pete(his\n account)@silly\n .test(his host)>\n": (
        set(),
        "a backslash before a line break inside of a comment",
    ),
}


def folder():
    named = os.environ.get("ORVIK_PUBLIC_MAIL")
    if named:
        return pathlib.Path(named)
    beside = sorted(pathlib.Path(ROOT).resolve().parent.glob("*/*/mail-parser"))
    return beside[0].parent if beside else None


def addresses(value):
    """All that stand anywhere in an expected parse."""
    if isinstance(value, dict):
        if value.get("address"):
            yield value["address"].lower()
        value = list(value.values())
    if isinstance(value, list):
        for one in value:
            yield from addresses(one)


def of_message(message):
    """Those of the headers of people, in enclosed messages, too."""
    for part in message["parts"]:
        for header in part["headers"]:
            name = header["name"] if isinstance(header["name"], str) else ""
            if name in FIELDS:
                yield from addresses(header["value"])
        if isinstance(part["body"], dict) and "Message" in part["body"]:
            yield from of_message(part["body"]["Message"])


def found(path):
    """The addresses in headers, and how many messages there are."""
    done = subprocess.run(
        [PROGRAM, "find", "--json", "--no-reply", path], capture_output=True, text=True, check=False
    )
    people = [json.loads(line) for line in done.stdout.splitlines()]
    in_headers = {
        one["emails"][0].lower()
        for one in people
        if any(field != "body" for place in one["seen"] for field in place["fields"])
    }
    count = [word for word in done.stderr.split("orvik-book: ") if " message" in word]
    return in_headers, int(count[-1].split(" message")[0].replace(" ", "")) if count else -1


def compare(name, wanted, have):
    if wanted != have:
        print(f"{name}: lacks {sorted(wanted - have)}, has {sorted(have - wanted)}")
    return wanted == have


def check_messages(public):
    files = sorted((public / "mail-parser" / "resources" / "eml").rglob("*.eml"))
    right = people = 0
    for path in files:
        wanted = set(of_message(json.loads(path.with_suffix(".json").read_text("utf-8"))))
        right += compare(path.name, wanted, found(path)[0])
        people += len(wanted)
    print(f"messages: {right} of {len(files)}, {people} addresses")
    return files and right == len(files)


def plain(address):
    """An address of a link as an address."""
    return address.removeprefix("mailto:").split("?")[0]


def check_headers(public):
    rows = json.loads((public / "mail-parser" / "resources" / "address.json").read_text("utf-8"))
    right = 0
    with tempfile.TemporaryDirectory() as work:
        path = pathlib.Path(work, "one.eml")
        for row in rows:
            header = row["header"]
            path.write_text(f"To: {header.rstrip()}\nSubject: x\n\n", "utf-8")
            # Places in the web are in that collection, too, as lists have them.
            wanted = {plain(one) for one in addresses(row["expected"])}
            wanted = {one for one in wanted if "@" in one and "/" not in one}
            wanted = OTHERWISE.get(header, (wanted,))[0]
            right += compare(repr(header), wanted, found(path)[0])
    print(f"headers: {right} of {len(rows)} ({len(OTHERWISE)} of them known to differ)")
    return rows and right == len(rows)


def check_folders(public):
    places = sorted((public / "MimeKit").rglob("*.unix-offsets.json"))
    right = 0
    for path in places:
        mbox = path.with_name(path.name.replace(".unix-offsets.json", ".mbox.txt"))
        wanted = len(json.loads(path.read_text("utf-8")))
        have = found(mbox)[1]
        right += wanted == have
        if wanted != have:
            print(f"{mbox.name}: {have} messages, {wanted} expected")
    print(f"folders: {right} of {len(places)}")
    return places and right == len(places)


def main():
    public = folder()
    if public is None:
        print("public mail: not here (ORVIK_PUBLIC_MAIL names its folder), so left out")
        return 0
    checks = (check_messages, check_headers, check_folders)
    return 0 if all([check(public) for check in checks]) else 1


sys.exit(main())
