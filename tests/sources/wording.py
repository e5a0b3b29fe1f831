"""Papers that a reader of this tree does not have are not named in it."""

import re

# A name may run over the end of a comment's line.
GAP = r"(?:\s|//|#|\*)+"
# The freedesktop standards, and the common test files, are known under these names.
KNOWN = (
    rf"(?:Desktop{GAP}Entry|Autostart|Base{GAP}Directory|Icon{GAP}Theme){GAP}[S]pecification\b"
    r"|[s]hared/conformance\b"
)
# The brackets keep this file from naming them, too.
PAPERS = (
    rf"[s]pecification|[s]pec\.md|the{GAP}[s]pec\b|as{GAP}[s]pecified"
    rf"|[d]ecisions\.md|[d]ecision{GAP}[0-9]+|[s]hared/"
)
WORDS = re.compile(rf"{KNOWN}|(?P<paper>{PAPERS})", re.IGNORECASE)


def wording(tree):
    """The tree explains itself."""
    for path in sorted(tree.files):
        text = tree.text(path)
        for found in WORDS.finditer(text) if text else ():
            if found["paper"]:
                words = re.sub(GAP, " ", found["paper"])
                line = text.count("\n", 0, found.end()) + 1
                yield path, line, f"'{words}' names a paper that is not here"
