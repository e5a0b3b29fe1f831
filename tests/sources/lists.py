"""The CMake lists: what is part of the engine, what of the forms, and the tests of both.

A folder of src lists its own files:

    orvik_sources(engine NAME.cpp NAME.h)
    orvik_tests(engine NAME_test.cpp)       stands in tests/unit/FOLDER/
"""

import collections
import functools
import re

from layers import CLASSIC

KINDS = ("engine", "forms")

# One word of a list: the file that it names, the line where it does, and the list's first word.
Entry = collections.namedtuple("Entry", "file place line kind")


def without_comments(text):
    return re.sub(r"#[^\n]*", "", text)


@functools.cache
def entries(tree, call, home):
    """What the folders of src list with one call, which names files of home/FOLDER."""
    found = []
    for folder in tree.folders_of_src():
        place = f"src/{folder}/CMakeLists.txt"
        text = without_comments(tree.text(place)) if place in tree.files else ""
        for one in re.finditer(rf"\b{call}\s*\(\s*(\w+)([^()]*)\)", text):
            for word in re.finditer(r"[^\s\"]+", one[2]):
                line = text.count("\n", 0, one.start(2) + word.start()) + 1
                found.append(Entry(f"{home}/{folder}/{word[0]}", place, line, one[1]))
    return found


def sources(tree):
    """What the classic folders list; any other folder makes a target of its own."""
    found = entries(tree, "orvik_sources", "src")
    return [one for one in found if one.place.split("/")[1] in CLASSIC]


def tests(tree):
    return entries(tree, "orvik_tests", "tests/unit")


def engine(tree):
    """The files of the engine."""
    return {one.file for one in sources(tree) if one.kind == "engine"}


def mistaken(tree, found):
    """Entries that name nothing, name it again, or name it for nobody."""
    seen = {}
    for one in found:
        name = one.file.rpartition("/")[2]
        if one.place.split("/")[1] in CLASSIC and one.kind not in KINDS:
            yield one.place, one.line, f"{one.kind} is neither {' nor '.join(KINDS)}"
        if one.file not in tree.files:
            yield one.place, one.line, f"there is no {one.file}"
        elif one.file in seen:
            yield one.place, one.line, f"{name} is listed already ({seen[one.file]})"
        seen.setdefault(one.file, f"{one.place}:{one.line}")


def listed(tree):
    """Each file of a classic folder is in one list."""
    for folder in tree.folders_of_src():
        place = f"src/{folder}/CMakeLists.txt"
        if place not in tree.files:
            yield place, 1, "is missing"
    yield from mistaken(tree, sources(tree))
    named = {one.file for one in sources(tree)}
    for path in tree.sources(*(f"src/{folder}" for folder in CLASSIC)):
        if path not in named:
            yield path, 1, "is in no list of its folder"


def tests_listed(tree):
    """Each unit test is in one list, its folder's; a folder that is not classic may leave it to the
    lists of tests/unit."""
    found = list(tests(tree))
    for place in sorted(tree.files):
        home = re.fullmatch(r"(tests/unit(?:/\w+)?)/CMakeLists\.txt", place)
        for number, line in tree.lines(place) if home else ():
            for word in re.findall(r"[\w/]+_test\.cpp", without_comments(line)):
                file = f"{home[1]}/{word.lstrip('/')}"
                if file.split("/")[2] not in CLASSIC:
                    found.append(Entry(file, place, number, ""))
    yield from mistaken(tree, found)
    named = {one.file for one in found}
    for path in tree.sources("tests/unit"):
        if path.endswith("_test.cpp") and path not in named:
            yield path, 1, "is in no list, so it is never run"
