"""What a single file looks like."""

import re

LONGEST = 400


def length(tree):
    """A file is small enough to be read as a whole."""
    for path in sorted(tree.files):
        if re.match(r"(?:src|tests)/.*\.(?:h|cpp|py|sh)$", path):
            count = (tree.text(path) or "").count("\n")
            if count > LONGEST:
                yield path, LONGEST + 1, f"has {count} lines, more than {LONGEST}"


def scenarios(tree):
    """A scenario ends with what is expected of it, and expects nothing before it acts."""
    for path in sorted(tree.files):
        if not re.match(r"tests/scenarios/.*\.scn$", path):
            continue
        steps = [(n, line) for n, line in tree.lines(path) if not re.match(r"#|[ \t]*$", line)]
        if not steps:
            yield path, 1, "has no step"
            continue
        (first, begin), (last, end) = steps[0], steps[-1]
        if begin.startswith(">"):
            yield path, first, "begins with an expectation"
        if not end.startswith(">"):
            yield path, last, "ends without an expectation"
