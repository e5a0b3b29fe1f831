#!/usr/bin/env python3
"""Says how many lines of the engine and of the forms the quick tests and orvik-depth run, folder by
folder, and which lines they do not.

    coverage.py BUILD [STEPS]     BUILD is a build of the preset "mutants"

The sources are compiled anew, counting; the tests are those of the build. Fails below 95 %."""

import collections
import concurrent.futures
import json
import os
import pathlib
import subprocess
import sys
import tempfile

from tree import ROOT, Tree

LEAST = 95
LIBRARIES = ("orvik_engine", "orvik_forms")


def compile_counting(tree, folder, source):
    text = source.read_text(encoding="utf-8")
    target = folder / f"{source.parent.name}-{source.stem}.o"
    # The line keeps gcov to the name of the source itself.
    if not tree.object_of(source, f'#line 1 "{source}"\n{text}', target, ["--coverage"]):
        sys.exit(f"{source} does not compile")
    return target


def count_lines(folder, objects):
    """The runs of each line, by file."""
    lines = collections.defaultdict(collections.Counter)
    for one in objects:
        told = subprocess.run(
            ["gcov", "--json-format", "--stdout", str(one)], cwd=folder, capture_output=True,
            text=True, check=True).stdout
        for report in filter(None, told.splitlines()):
            for file in json.loads(report)["files"]:
                for line in file["lines"]:
                    lines[file["file"]][line["line_number"]] += line["count"]
    src = str(ROOT / "src") + os.sep
    return {name.removeprefix(src): runs for name, runs in lines.items() if name.startswith(src)}


def show(lines):
    folders = collections.defaultdict(lambda: [0, 0])
    for name, runs in sorted(lines.items()):
        missed = sorted(line for line, count in runs.items() if count == 0)
        folders[name.split("/")[0]][0] += len(runs) - len(missed)
        folders[name.split("/")[0]][1] += len(runs)
        if missed:
            print(f"src/{name}: {', '.join(map(str, missed))}")
    for folder, (run, known) in sorted(folders.items()):
        print(f"{folder:10} {run:5} of {known:5}  {100 * run / known:6.2f} %")
    run = sum(one[0] for one in folders.values())
    known = sum(one[1] for one in folders.values())
    print(f"{'all':10} {run:5} of {known:5}  {100 * run / known:6.2f} %")
    return 100 * run >= LEAST * known


def main():
    tree = Tree(sys.argv[1])
    steps = sys.argv[2] if len(sys.argv) > 2 else "40000"
    sources = [
        source for source, command in tree.compile.items()
        if any(f"/{library}.dir/" in " ".join(command) for library in LIBRARIES)]
    scenarios = sorted(str(p) for p in (ROOT / "tests/scenarios").rglob("*.scn"))
    shared = "/dev/shm" if os.path.isdir("/dev/shm") else None
    with tempfile.TemporaryDirectory(dir=shared) as name:
        folder = pathlib.Path(name)
        with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
            objects = list(pool.map(lambda s: compile_counting(tree, folder, s), sources))
        for program, arguments in (
                ("orvik-engine-tests", []), ("orvik-unit", []),
                ("orvik-scenario", ["--check", *scenarios]), ("orvik-depth", ["--steps", steps])):
            tree.link(program, [*objects, "--coverage"], folder / program)
            run = subprocess.run(
                [folder / program, *arguments], cwd=folder, capture_output=True, text=True,
                check=False, env=tree.environment(program, folder))
            if run.returncode != 0:
                sys.exit(f"{program} fails:\n{run.stdout[-3000:]}{run.stderr[-3000:]}")
        sys.exit(0 if show(count_lines(folder, objects)) else 1)


if __name__ == "__main__":
    main()
