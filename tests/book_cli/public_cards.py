"""Public cards, and what the tests that convert them have in common."""

import os
import pathlib
import subprocess

# Collections of which at least two stand side by side.
COLLECTIONS = ("calcard", "ez-vcard", "ical4j-vcard")
# Some cards have letters that are cut, which nothing can hold.
CONVERT = ("convert", "--allow-loss")


class Count:
    """What was done, and what went wrong."""

    files = planted = failed = 0

    @classmethod
    def fail(cls, path, what):
        cls.failed += 1
        print(f"{path}: {what}"[:400])

    @classmethod
    def status(cls):
        """The exit status of a test; one that planted nothing has tested nothing."""
        return 1 if cls.failed or not cls.planted else 0


def run(*arguments, data=None):
    """What a program prints; its status may tell of something that was skipped."""
    done = subprocess.run(arguments, input=data, capture_output=True)
    if done.returncode not in (0, 1):
        Count.fail(arguments[-1], f"{arguments}: status {done.returncode}: {done.stderr}")
    return done.stdout


def folder(root):
    """The folder that ORVIK_PUBLIC_CARDS names, or one with the public collections beside the checkout
    at root, or None."""
    named = os.environ.get("ORVIK_PUBLIC_CARDS")
    if named:
        return pathlib.Path(named)
    beside = pathlib.Path(root).resolve().parent
    for one in sorted(beside.glob("*/*")):
        if sum((one / name).is_dir() for name in COLLECTIONS) >= 2:
            return one
    return None


def check_each(root, check):
    """Calls check(path, number) for each public card, if there are any."""
    public = folder(root)
    if public is None:
        print("public cards: not here (ORVIK_PUBLIC_CARDS names their folder), so left out")
        return
    own = Count.files
    for number, path in enumerate(sorted(public.rglob("*.vcf"))):
        Count.files += 1
        check(path, number)
    print(f"public cards: {Count.files - own} files")
    if Count.files == own:
        Count.fail(public, "holds no cards")
