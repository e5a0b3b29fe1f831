#!/usr/bin/env python3
"""Rules about the sources that no compiler knows.

Argument: the root of the project. Each breach is a line: where it is, what is wrong, and the rule.
"""

import collections
import sys

# The rules stand in the source tree, where nothing is to be left behind.
sys.dont_write_bytecode = True

import dependencies
import disk
import engine
import files
import handlers
import includes
import layers
import lists
import paths
import wording
from tree import Tree

RULES = {
    "level": layers.level,
    "mutual": layers.mutual,
    "engine": engine.engine,
    "engine-tests": engine.engine_tests,
    "listed": lists.listed,
    "tests-listed": lists.tests_listed,
    "spelling": includes.spelling,
    "names": includes.names,
    "qt": includes.qt,
    "system": includes.system,
    "disk": disk.disk,
    "dependencies": dependencies.dependencies,
    "handlers": handlers.handlers,
    "paths": paths.paths,
    "wording": wording.wording,
    "scenarios": files.scenarios,
    "length": files.length,
}

Problem = collections.namedtuple("Problem", "path line text rule")


def problems(root):
    tree = Tree(root)
    return sorted({Problem(*found, name) for name, rule in RULES.items() for found in rule(tree)})


def main():
    found = problems(sys.argv[1])
    for one in found:
        print(f"{one.path}:{one.line}: {one.text} [{one.rule}]")
    if not found:
        print(f"{len(RULES)} rules hold")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
