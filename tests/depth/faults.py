#!/usr/bin/env python3
"""Plants faults into copies of sources, one at a time, and says after how many steps orvik-depth
finds each.

    faults.py BUILD [STEPS [SEED...]]     BUILD is a build of the preset "mutants"

Fails if one is not found within STEPS (200000) with each of the seeds (1)."""

import os
import pathlib
import re
import subprocess
import sys
import tempfile

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "mutants"))
from tree import ROOT, Tree  # noqa: E402

# What is wrong, the source, the right text, which stands there once, and the wrong one.
FAULTS = (
    (
        "a position off by one: the line feed behind an address line is not looked at",
        "app/working_text.cpp",
        "    address_start_ = end + 1;\n",
        "    address_start_ = end + 2;\n",
    ),
    (
        "a lost nickname: of two entries with the same key only the first keeps it in a sort",
        "listops/sort_entries.cpp",
        "        sorted.Nicknames.append(nicknames[i]);\n",
        "        sorted.Nicknames.append(\n"
        "            i > 0 && keys[i] == keys[i - 1] ? std::string_view(kCrLf) : nicknames[i]);\n",
    ),
    (
        "an early close: the file of an extraction is closed behind its first chunk",
        "extract/extraction.cpp",
        "        module.WorkText = chunk;\n",
        "        module.WorkText = chunk;\n        module.File1.Close();\n",
    ),
)


def find(tree, folder, fault, steps, seed):
    """Returns the step and the invariant that broke, or nothing."""
    what, name, right, wrong = fault
    source = ROOT / "src" / name
    text = source.read_text(encoding="utf-8")
    if text.count(right) != 1:
        sys.exit(f"{name}: the place of the fault is not there once: {right!r}")
    if not tree.object_of(source, text.replace(right, wrong), folder / "fault.o"):
        sys.exit(f"{name}: the fault does not compile")
    tree.link("orvik-depth", [folder / "fault.o"], folder / "orvik-depth")
    run = subprocess.run(
        [folder / "orvik-depth", "--steps", str(steps), "--seed", str(seed)],
        env=os.environ | {"TMPDIR": str(folder)}, capture_output=True, text=True, check=False)
    step = re.search(r"in all (\d+)", run.stderr)
    broken = re.search(r"does not hold: (.*)", run.stderr)
    return (int(step[1]), broken[1] if broken else run.stderr.strip()) if step else None


def main():
    steps = int(sys.argv[2]) if len(sys.argv) > 2 else 200000
    seeds = [int(seed) for seed in sys.argv[3:]] or [1]
    tree = Tree(sys.argv[1])
    missed = 0
    shared = "/dev/shm" if os.path.isdir("/dev/shm") else None
    with tempfile.TemporaryDirectory(dir=shared) as folder:
        for fault in FAULTS:
            for seed in seeds:
                found = find(tree, pathlib.Path(folder), fault, steps, seed)
                missed += not found
                told = f"step {found[0]}: {found[1]}" if found else f"not within {steps} steps"
                print(f"{fault[0]}\n    seed {seed}, {told}", flush=True)
    sys.exit(1 if missed else 0)


if __name__ == "__main__":
    main()
