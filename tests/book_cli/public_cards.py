"""Where public cards are, for the tests that read them."""

import os
import pathlib

# Collections of which at least two stand side by side.
COLLECTIONS = ("calcard", "ez-vcard", "ical4j-vcard")


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
