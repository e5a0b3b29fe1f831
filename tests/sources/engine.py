"""The engine knows neither windows nor commands, and its tests need none."""

import lists
from layers import ON_THE_ENGINE
from tree import folder_of


def engine(tree):
    """The engine includes only itself; store and book include only the engine and themselves."""
    parts = lists.engine(tree)
    for path in tree.sources("src"):
        folder = folder_of(path)
        if path not in parts and folder not in ON_THE_ENGINE:
            continue
        for line, target in tree.own_includes(path):
            own = folder in ON_THE_ENGINE and folder_of(target) == folder
            if target not in parts and not own:
                yield path, line, f"{target} is no part of the engine"


def stranger(tree, parts, header, seen):
    """The first file that a header of the unit tests brings and the engine's tests do without, or
    None. The header itself may be one."""
    if header in seen or header in parts:
        return None
    seen.add(header)
    if not header.startswith("tests/unit/"):
        return header
    for _, target in tree.own_includes(header):
        found = stranger(tree, parts, target, seen)
        if found:
            return found
    return None


def engine_tests(tree):
    """The engine's tests include the engine, and helpers that need no more: no platform."""
    parts = lists.engine(tree)
    for one in lists.tests(tree):
        if one.kind != "engine" or one.file not in tree.files:
            continue
        for line, target in tree.own_includes(one.file):
            found = stranger(tree, parts, target, set())
            if found:
                brings = "is" if found == target else f"brings {found}, which is"
                yield one.file, line, f"{target} {brings} nothing for a test of the engine"
