"""Ways to break a rule in the good tree of the self-test.

A breach is the rule that it breaks, the place and a part of the message that tells of it, the
changes to the tree, and how many messages more there are.
"""

import collections

Breach = collections.namedtuple("Breach", "rule where says change more", defaults=[0])


def inserted(path, line, text):
    """A line more in a file of the tree, or a file more."""

    def change(tree):
        lines = tree.get(path, "").splitlines()
        lines.insert(line - 1, text)
        tree[path] = "\n".join(lines) + "\n"

    return change


def replaced(path, old, new):
    def change(tree):
        assert tree[path].count(old) == 1, f"{path} names {old} not once"
        tree[path] = tree[path].replace(old, new)

    return change


def created(path, text="// Something.\n"):
    def change(tree):
        assert path not in tree, f"{path} is there"
        tree[path] = text

    return change


def removed(path):
    def change(tree):
        del tree[path]

    return change


def including(rule, path, header, says):
    """A source that includes what it may not, in line 2."""
    return Breach(rule, f"{path}:2", says, [inserted(path, 2, f"#include {header}")])


def saying(rule, path, text, says, line=1):
    """A file that says what it may not; its last line is the one that counts."""
    where = f"{path}:{line + text.count(chr(10))}"
    return Breach(rule, where, says, [inserted(path, line, text)])
