"""Which folder of src may include which."""

import collections

from tree import folder_of, wing_of

# From the top down. A folder includes those below it, and those beside it that do not include it.
LEVELS = (
    ("desktop",),
    ("batch",),
    ("book_cli",),
    ("cli",),
    ("store",),
    ("program",),
    ("files", "formats", "extract", "listops", "settings", "aux"),
    ("app",),
    ("platform",),
)
LEVEL = {folder: level for level, folders in enumerate(LEVELS) for folder in folders}

# The forms, the commands and what they are made of.
CLASSIC = {folder for folder in LEVEL if LEVEL[folder] >= LEVEL["program"]}

# They stand apart from the levels: they know the engine, and nothing else but themselves.
ON_THE_ENGINE = {"book", "store"}

KNOWS_BOOK = {"desktop", "batch", "book_cli"}


def folder_includes(tree):
    """Each include that leads from one folder of src to another: file, line, both folders."""
    for path in tree.sources("src"):
        for line, target in tree.own_includes(path):
            if folder_of(target) != folder_of(path):
                yield path, line, folder_of(path), folder_of(target)


def level(tree):
    """Includes go down only."""
    for path in tree.sources("src"):
        if folder_of(path) not in LEVEL and folder_of(path) not in ON_THE_ENGINE:
            yield path, 1, "stands in no folder that has a level"
    for path, line, source, target in folder_includes(tree):
        if source not in LEVEL or source in ON_THE_ENGINE:
            continue
        if target == "book":
            if source not in KNOWS_BOOK:
                yield path, line, f"{source} does not know book"
        elif LEVEL.get(target, 0) < LEVEL[source]:
            yield path, line, f"{source} includes {target}, which stands above it"


def way_back(edges, source, target):
    """The folders on a way from target to source, or None."""
    ways = [[target]]
    seen = set()
    while ways:
        way = ways.pop(0)
        if way[-1] == source:
            return way
        if way[-1] not in seen:
            seen.add(way[-1])
            ways += [way + [end] for begin, end in sorted(edges) if begin == way[-1]]
    return None


def mutual(tree):
    """Of the folders of one level, and of the wings of desktop, none includes itself in a ring."""
    edges = collections.defaultdict(list)
    for path, line, source, target in folder_includes(tree):
        if source in LEVEL and LEVEL[source] == LEVEL.get(target):
            edges[source, target].append((path, line))
    for path in tree.sources("src"):
        for line, target in tree.own_includes(path):
            wings = wing_of(path), wing_of(target)
            if all(wings) and wings[0] != wings[1]:
                edges[wings].append((path, line))
    for source, target in sorted(edges):
        way = way_back(edges, source, target)
        # The rarest direction is the one to turn round; of equals it can be any.
        if way and len(edges[source, target]) <= min(len(edges[e]) for e in zip(way, way[1:])):
            other = "{}:{}".format(*edges[way[0], way[1]][0])
            for path, line in edges[source, target]:
                yield path, line, f"{source} and {target} include each other (see {other})"
