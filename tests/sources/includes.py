"""How includes are spelled, and which libraries are known where."""

import collections
import fnmatch
import re

from tree import folder_of

# Who includes what beyond the C++ library, below src/desktop: files of src, and headers.
BEYOND = (
    ("batch/*", "CLI/*"),
    ("book/*", "glib.h"),
    ("book/ascii_domain.cpp", "unicode/*"),
    ("book/charset*.cpp", "unicode/*"),
    ("book/charset_guess.cpp", "uchardet/*"),
    ("book/unseen_letters.cpp", "unicode/*"),
    ("book/match/*.cpp", "unicode/*"),
    ("book/order.cpp", "unicode/*"),
    ("book/unicode_form.cpp", "unicode/*"),
    ("book/html_entities.cpp", "unicode/*"),
    ("book/mail/*.cpp", "gmime/*"),
    ("book/mail/gmime_use.h", "gmime/*"),
    ("book/mail/raw_part.h", "gmime/*"),
    ("book_cli/*", "CLI/*"),
    ("book_cli/json_lines.cpp", "nlohmann/*"),
    ("cli/*", "CLI/*"),
    ("platform/system_*", "*"),
    ("store/*", "glib.h"),
)
WITH_QT = re.compile(
    r"(?:src|tests)/desktop/|tests/bench/(?:window_bench.cpp|book_window_bench.cpp|own_folder.h|timed_application.h)$|tests/readers/kcontacts_cards.cpp$"
)


def spelling(tree):
    """A header of ours stands in quotes, is spelled from src or from tests, and ends in .h."""
    for path in tree.sources("src", "tests"):
        for one in tree.includes(path):
            target = tree.resolve(path, one.name)
            if one.quoted and not target:
                tops = "src or tests" if path.startswith("tests/") else "src"
                yield path, one.line, f'"{one.name}" is not spelled from {tops}'
            elif target and not one.quoted:
                yield path, one.line, f"<{one.name}> is ours and stands in quotes"
            elif target and not target.endswith(".h"):
                yield path, one.line, f'"{one.name}" is no header'


def names(tree):
    """A name says which file is meant."""
    found = collections.defaultdict(list)
    for path in tree.sources("src", "tests"):
        found[path.rpartition("/")[2]].append(path)
    for name, paths in found.items():
        for path in paths[1:] if name != "main.cpp" else ():
            yield path, 1, f"has the name of {paths[0]}"


def qt(tree):
    """Only the windows know Qt, what measures them, and what is built apart."""
    for path in tree.sources("src", "tests"):
        for one in tree.includes(path):
            if one.name.startswith("Q") and not WITH_QT.match(path):
                yield path, one.line, f"{one.name} outside desktop"


def known(path, include):
    inside = path.removeprefix("src/")
    return any(
        fnmatch.fnmatchcase(inside, where) and fnmatch.fnmatchcase(include.name, what)
        for where, what in BEYOND
    )


def system(tree):
    """Below the windows the C++ library is enough, but for the few that work with the system."""
    for path in tree.sources("src"):
        if folder_of(path) == "desktop":
            continue
        for one in tree.includes(path):
            # Headers of the C++ library have neither an ending nor a folder; Qt has its own rule.
            library = not re.search(r"[./]", one.name) and one.name != "csignal"
            if one.quoted or library or one.name.startswith("Q") or tree.resolve(path, one.name):
                continue
            if not known(path, one):
                yield path, one.line, f"<{one.name}> is not of the C++ library"
