#!/usr/bin/env python3
"""Holds the rules against a small tree that keeps them all, and against each way to break one."""

import pathlib
import re
import subprocess
import sys
import tempfile

sys.dont_write_bytecode = True

import code_breaches
import text_breaches
from check import RULES, problems

BREACHES = code_breaches.BREACHES + text_breaches.BREACHES

HERE = pathlib.Path(__file__).parent


def good_tree():
    """The files of the good tree by path."""
    _, *parts = re.split(r"(?m)^== (.*)\n", (HERE / "good_tree.txt").read_text(encoding="utf-8"))
    return dict(zip(parts[::2], parts[1::2]))


def broken(breach):
    tree = good_tree()
    for change in breach.change:
        change(tree)
    return tree


class Folder:
    """A folder that holds one tree after the other; only what differs is written."""

    def __init__(self, root):
        self.root = pathlib.Path(root)
        self.tree = {}
        # What is no text may hold any letters.
        (self.root / "picture.png").write_bytes(b"\x89PNG the sp" + b"ec")
        (self.root / "program").write_bytes(b"\0 the sp" + b"ec")

    def hold(self, tree):
        for path in self.tree.keys() - tree.keys():
            (self.root / path).unlink()
        for path, text in tree.items():
            if self.tree.get(path) != text:
                (self.root / path).parent.mkdir(parents=True, exist_ok=True)
                (self.root / path).write_text(text, encoding="utf-8")
        self.tree = tree

    def problems(self, tree):
        self.hold(tree)
        return problems(self.root)

    def run(self, tree):
        """The exit status and the output of the program itself."""
        self.hold(tree)
        command = [sys.executable, HERE / "check.py", self.root]
        ran = subprocess.run(command, capture_output=True, text=True, check=False)
        return ran.returncode, (ran.stdout + ran.stderr).rstrip("\n")


def complaint(breach, found):
    """What is wrong with the answer to a breach, empty if nothing is."""
    if not found:
        return "passes"
    for one in found:
        if one.rule != breach.rule:
            return f"is refused for another reason: {one}"
    places = [f"{one.path}:{one.line}" for one in found if breach.says in one.text]
    if breach.where not in places:
        return f"is not told of: {found}"
    if len(found) != 1 + breach.more:
        return f"is told of {len(found)} times: {found}"
    return ""


def failures_in(folder):
    found = [f"the good tree is refused: {one}" for one in folder.problems(good_tree())]
    for breach in BREACHES:
        wrong = complaint(breach, folder.problems(broken(breach)))
        if wrong:
            found.append(f"{breach.rule}, {breach.where}, '{breach.says}': {wrong}")
    for rule in RULES.keys() - {breach.rule for breach in BREACHES}:
        found.append(f"{rule} is never broken")

    status, output = folder.run(good_tree())
    if status != 0:
        found.append(f"check.py refuses the good tree: {output}")
    first = BREACHES[0]
    status, output = folder.run(broken(first))
    told = rf"{first.where}: .*{first.says}.* \[{first.rule}\]"
    if status != 1 or not re.fullmatch(told, output):
        found.append(f"check.py tells of a breach with {status} and {output}")
    return found


def main():
    with tempfile.TemporaryDirectory() as root:
        failures = failures_in(Folder(root))
    print("\n".join(failures) or f"{len(BREACHES)} breaches of {len(RULES)} rules are noticed")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
