#!/usr/bin/env python3
"""Makes mutants of the engine and the forms, by chance and the same ones each time, and says which
of them no test notices.

    mutants.py BUILD [--count N] [--seed S] [--only NUMBER...]

BUILD is a build of the preset "mutants". A mutant is one token of a source changed: an operator, a
bound or a constant. It is killed by the engine's tests, the unit tests, the scenarios or 4000 steps
of orvik-depth, whichever comes first. Fails if less than nine of ten are killed."""

import argparse
import os
import pathlib
import random
import re
import subprocess
import sys
import tempfile

from tree import ROOT, Tree

# Seconds that a program may take: all unit tests, or anything else.
LONGEST_OF_ALL = 300
LONGEST = 60
FOLDERS = ("app", "aux", "extract", "files", "formats", "listops", "platform", "program", "settings")
# Of system calls little can be seen without a system that fails: tests/reliability does that.
LEFT_OUT = {"platform/system_process.cpp", "platform/system_files_signals.cpp"}

OPERATORS = {
    "<": ("<=", ">="), ">": (">=", "<="), "<=": ("<", ">"), ">=": (">", "<"),
    "==": ("!=",), "!=": ("==",), "&&": ("||",), "||": ("&&",),
    "+": ("-",), "-": ("+",), "+=": ("-=",), "-=": ("+=",), "++": ("--",), "--": ("++",),
    "true": ("false",), "false": ("true",),
}
# A template's brackets, pointers, references and lambdas have no blanks on both sides.
TOKEN = re.compile(
    r"(?<= )(?:<=|>=|==|!=|&&|\|\||\+=|-=|[<>+-])(?= )|\+\+|--|\b(?:true|false)\b|"
    r"(?<![\w.\"'])\d+(?![\w.\"'])")
COMMENT_OR_STRING = re.compile(r"//[^\n]*|\"(?:\\.|[^\"\\])*\"|'(?:\\.|[^'\\])*'|^#[^\n]*", re.M)


def places(path, text):
    """Every token that can be changed, with its other texts."""
    hidden = [m.span() for m in COMMENT_OR_STRING.finditer(text)]
    for found in TOKEN.finditer(text):
        at = found.start()
        line = text[text.rfind("\n", 0, at) + 1:text.find("\n", at)]
        if any(start <= at < end for start, end in hidden) or "operator" in line:
            continue
        token = found[0]
        # "auto&& x" and the bits of a constant are no conditions.
        if token.isdigit():
            others = (str(int(token) + 1), str(int(token) - 1)) if int(token) else ("1",)
        else:
            others = OPERATORS[token]
        for other in others:
            yield path, at, token, other


def choose(count, seed):
    every = []
    for folder in FOLDERS:
        for path in sorted((ROOT / "src" / folder).glob("*.cpp")):
            if f"{folder}/{path.name}" not in LEFT_OUT:
                every += places(path, path.read_text(encoding="utf-8"))
    random.Random(seed).shuffle(every)
    # At most one on a place.
    seen = set()
    chosen = []
    for mutant in every:
        if mutant[:2] not in seen:
            seen.add(mutant[:2])
            chosen.append(mutant)
    return chosen[:count] if count else chosen


ALL = ["--gtest_fail_fast"]


def suites_of(source):
    """The filter for the unit tests of a source."""
    files = (ROOT / "tests/unit" / source.parent.name).glob(f"{source.stem}*_test.cpp")
    named = re.compile(r"^TEST(?:_[FP])?\((\w+),", re.M)
    suites = {s for path in files for s in named.findall(path.read_text(encoding="utf-8"))}
    return ":".join(f"{suite}.*:*/{suite}.*" for suite in sorted(suites))


def runs(source, units, scenarios):
    """What may notice, quickest first: units is the program with the source's own tests."""
    own = suites_of(source)
    if own:
        yield units, ["--gtest_fail_fast", f"--gtest_filter={own}"]
    if list((ROOT / "tests/unit/icu").glob(f"{source.stem}*_test.cpp")):
        yield "orvik-icu-tests", ALL
    yield "orvik-scenario", ["--check", *scenarios]
    yield "orvik-depth", ["--steps", "4000"]
    yield "orvik-unit", ALL
    if units != "orvik-unit":
        yield units, ALL


def killer(tree, folder, source, units, scenarios):
    linked = set()
    for program, arguments in runs(source, units, scenarios):
        if program not in linked:
            tree.link(program, [folder / "mutant.o"], folder / program)
            linked.add(program)
        try:
            run = subprocess.run(
                [folder / program, *arguments], cwd=folder, capture_output=True, check=False,
                timeout=LONGEST_OF_ALL if arguments == ALL else LONGEST, env=tree.environment(program, folder))
        except subprocess.TimeoutExpired:
            return f"{program} (hangs)"
        if run.returncode != 0:
            return program
    return None


def main():
    options = argparse.ArgumentParser()
    options.add_argument("build")
    options.add_argument("--count", type=int, default=100)
    options.add_argument("--seed", type=int, default=1)
    options.add_argument("--only", type=int, nargs="*")
    options = options.parse_args()
    tree = Tree(options.build)
    scenarios = sorted(str(p) for p in (ROOT / "tests/scenarios").rglob("*.scn"))
    engine = subprocess.run(
        ["ar", "t", tree.folder / "src" / "liborvik_engine.a"], capture_output=True, text=True,
        check=True).stdout.split()
    killed = number = 0
    shared = "/dev/shm" if os.path.isdir("/dev/shm") else None
    with tempfile.TemporaryDirectory(dir=shared) as name:
        folder = pathlib.Path(name)
        for source, at, token, other in choose(0, options.seed):
            if number == options.count:
                break
            text = source.read_text(encoding="utf-8")
            line = text.count("\n", 0, at) + 1
            if options.only and number + 1 > max(options.only):
                break
            mutated = text[:at] + other + text[at + len(token):]
            skipped = options.only and number + 1 not in options.only
            # What does not compile is none.
            if not tree.object_of(source, mutated, folder / "mutant.o"):
                continue
            number += 1
            if skipped:
                continue
            units = "orvik-engine-tests" if f"{source.name}.o" in engine else "orvik-unit"
            by = killer(tree, folder, source, units, scenarios)
            killed += by is not None
            shown = text.splitlines()[line - 1].strip()
            print(f"{number:3} {source.relative_to(ROOT)}:{line} {token} -> {other}: "
                  f"{by or 'SURVIVES'}   {shown}", flush=True)
    done = len(options.only) if options.only else number
    print(f"{killed} of {done} mutants killed")
    sys.exit(0 if killed * 10 >= done * 9 else 1)


if __name__ == "__main__":
    main()
