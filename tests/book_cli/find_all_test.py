#!/usr/bin/env python3
"""Whether every person of generated mail is found, with name, and nobody else.

Argument: orvik-book. The mail is an mbox, a Maildir and single messages.
"""

import json
import pathlib
import subprocess
import sys
import tempfile

sys.dont_write_bytecode = True

import make_mail

PROGRAM = sys.argv[1]
SEEDS = range(5)
MESSAGES = 200


def write_mbox(path, folder):
    with open(path, "wb") as file:
        for _ in range(MESSAGES):
            file.write(b"From x@example.org Thu Jan  1 10:00:00 1998\n" + folder.message() + b"\n\n")


def write_maildir(path, folder):
    for part in ("cur", "new", "tmp", ".Sub/cur", ".Sub/new"):
        (path / part).mkdir(parents=True)
    for number in range(MESSAGES):
        part = ("cur", "new", ".Sub/cur", ".Sub/new")[number % 4]
        (path / part / f"{number}:2,S").write_bytes(folder.message())


def write_letters(path, folder):
    path.mkdir()
    for number in range(MESSAGES):
        (path / f"{number}.eml").write_bytes(folder.message().replace(b"\n", b"\r\n"))


def check(path, folder):
    done = subprocess.run([PROGRAM, "find", "--json", path], capture_output=True, text=True, check=False)
    if done.returncode != 0:
        sys.exit(f"{path}: exit status {done.returncode}: {done.stderr}")
    found = {}
    for line in done.stdout.splitlines():
        one = json.loads(line)
        address = make_mail.ascii_form(one["emails"][0])
        found[address] = None if one["name"] == one["emails"][0] else one["name"]
        if one["count"] != 1 or one["first"] != "1998-01-01T10:00:00Z" or len(one["seen"]) != 1:
            sys.exit(f"{path}: {line}")
    if found != folder.people:
        lacks = sorted(set(folder.people) - set(found))
        more = sorted(set(found) - set(folder.people))
        other = [(a, n, found[a]) for a, n in folder.people.items() if a in found and found[a] != n]
        sys.exit(f"{path}: lacks {lacks[:5]}, has {more[:5]}, other names {other[:5]}")
    return len(found)


def main():
    people = 0
    with tempfile.TemporaryDirectory() as work:
        for seed in SEEDS:
            for write in (write_mbox, write_maildir, write_letters):
                folder = make_mail.Folder(f"{seed} {write.__name__}")
                path = pathlib.Path(work, f"{seed}{write.__name__}")
                write(path, folder)
                people += check(path, folder)
    print(f"{people} people found, and nobody else")


main()
