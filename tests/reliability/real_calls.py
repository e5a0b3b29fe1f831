#!/usr/bin/env python3
"""Lets real saves fail and die, and looks at what they leave.

Arguments: orvik-batch, and the endings to try; without any, all. strace gives each system call of a
save each of several errors, and ends the save inside of each; other saves are killed at some moment.
After each the book must be whole: the old one or the new one, or, where a book with two names was being
written in place, a copy of the old one beside it. What a killed save left must be gone after the next
one. Prints what was tried and what was survived; the exit status is 1 if anything was not.
"""

import collections
import os
import pathlib
import random
import re
import shutil
import subprocess
import sys
import tempfile
import time

ERRORS = ("ENOSPC", "EIO", "EINTR", "EDQUOT")
SIGNALS = ("KILL", "TERM")
# What a failing disk is called; EINTR must not be noticed at all.
WORDS = {"ENOSPC": "Disk full", "EDQUOT": "Disk full", "EIO": "Device I/O error"}
SAVED = {
    "ldif": "old: book\r\n",
    "htm": "<DL><p>\r\n    <DT><A HREF=\"mailto:z@books.example\" ALIASID=\"0\">Z</A>\r\n<DD>\r\n"
           "</DL><p>\r\n",
    "txt": "\"Z\" <z@books.example>\r\n",
    "nv": "\r\n\r\nType:Entry\r\nName:Z\r\nEmail:z@books.example\r\nAlias:Z\r\n",
    "pml": "Z <z@books.example>\r\n",
    "csv": "an older export\r\n",
}
STATES = ("new", "existing", "hard-linked")
KILLS = 100
ENTRIES = 4000
# A save that takes longer than this hangs.
LONGEST = 60


class Bench:
    """A folder with a source and the book that saves go to."""

    def __init__(self, program, root):
        self.program = program
        self.root = root
        self.books = root / "books"
        self.state = root / "state"
        self.source = root / "source.ldif"
        self.source.write_bytes(
            b"".join(
                b"dn: cn=N%d,mail=a%d@books.example\r\ncn: N%d\r\nxmozillanickname: N%d\r\n"
                b"mail: a%d@books.example\r\n\r\n" % ((i,) * 5)
                for i in range(ENTRIES)
            )
        )
        self.environment = {
            **os.environ, "XDG_STATE_HOME": str(self.state), "XDG_CONFIG_HOME": str(root / "config"),
            "LC_ALL": "C.UTF-8",
        }

    def reset(self, ending, state):
        for folder in (self.books, self.state):
            shutil.rmtree(folder, ignore_errors=True)
            folder.mkdir()
        self.book = self.books / f"book.{ending}"
        self.old = None
        if state != "new":
            self.old = SAVED[ending].encode()
            self.book.write_bytes(self.old)
        if state == "hard-linked":
            os.link(self.book, self.books / "other")

    def command(self, source=None):
        source = str(source or self.source)
        if self.book.suffix == ".csv":
            return [self.program, "--pim", source, str(self.book)]
        return [self.program, "--open", source, "--save", str(self.book)]

    def run(self, before=(), source=None):
        return subprocess.run(
            [*before, *self.command(source)], env=self.environment, stdin=subprocess.DEVNULL,
            capture_output=True, text=True, timeout=LONGEST, check=False,
        )

    def contents(self):
        return self.book.read_bytes() if self.book.exists() else None

    def others(self):
        """The files that are neither the book nor its other name, below both folders."""
        found = [path for folder in (self.books, self.state) for path in folder.rglob("*")]
        return [p for p in found if p.is_file() and p not in (self.book, self.books / "other")]

    def problem(self, new, state):
        """What is wrong with the book, empty if it is whole."""
        now = self.contents()
        if now in (self.old, new):
            return ""
        copies = [p for p in self.others() if p.read_bytes() == self.old]
        if state == "hard-linked" and copies:
            return ""
        return f"the book is neither old nor new ({'none' if now is None else len(now)} bytes)"

    def litter_after_next(self):
        """What passing names are left once another save has been into the folder. A copy stays: it is
        offered to the user."""
        small = self.root / "small.ldif"
        small.write_bytes(b"dn: cn=Q,mail=q@books.example\r\nxmozillanickname: Q\r\n"
                          b"mail: q@books.example\r\n\r\n")
        done = self.run(source=small)
        if done.returncode != 0:
            return f"the next save fails: {done.stderr.strip()}"
        left = [p.name for p in self.others() if p.name.startswith(".orvik-")]
        return f"litter: {' '.join(left)}" if left else ""


class Results:
    def __init__(self):
        self.tried = collections.Counter()
        self.failed = collections.Counter()
        self.shown = 0

    def add(self, row, column, problem, where):
        self.tried[row, column] += 1
        if problem:
            self.failed[row, column] += 1
            self.shown += 1
            if self.shown <= 40:
                print(f"{' '.join(row)}: {where}: {problem}")

    def print(self):
        columns = sorted({column for _, column in self.tried})
        print(f"{'survived of tried':24}" + "".join(f"{column:>16}" for column in columns))
        for row in sorted({row for row, _ in self.tried}):
            cells = []
            for column in columns:
                tried = self.tried[row, column]
                cells.append(f"{tried - self.failed[row, column]} of {tried}")
            print(f"{' '.join(row):24}" + "".join(f"{cell:>16}" for cell in cells))
        print(f"{sum(self.tried.values())} runs, {sum(self.failed.values())} not survived")


def can_trace():
    try:
        traced = subprocess.run(["strace", "-o", os.devnull, "-e", "inject=write:error=EIO:when=999",
                                 "true"], capture_output=True, check=False)
    except FileNotFoundError:
        return False
    return traced.returncode == 0


def calls_of(bench):
    """The system calls on files, from the first look at the source on: names and their numbers."""
    log = bench.root / "calls"
    done = bench.run(["strace", "-f", "-qq", "-e", "trace=%file,%desc", "-e", "signal=none",
                      "-o", str(log)])
    assert done.returncode == 0, done.stderr
    seen = collections.Counter()
    calls = []
    begun = False
    for line in log.read_text(errors="replace").splitlines():
        call = re.match(r"\d+ +(\w+)\((.*)", line)
        if not call:
            continue
        name, arguments = call.groups()
        seen[name] += 1
        begun = begun or (name != "execve" and str(bench.source) in arguments)
        # What is told of a failure is not what the save is about.
        if begun and "map" not in name and not re.match(r"[12], ", arguments):
            calls.append((name, seen[name]))
    return calls


def inject(bench, results, row, ending, state):
    bench.reset(ending, state)
    calls = calls_of(bench)
    new = bench.contents()
    for name, number in calls:
        for error in ERRORS:
            bench.reset(ending, state)
            done = bench.run(["strace", "-f", "-qq", "-o", os.devnull, "-e",
                              f"inject={name}:error={error}:when={number}"])
            problem = bench.problem(new, state)
            if not problem and done.returncode == 0 and bench.contents() != new:
                problem = "not saved, and nothing said"
            if not problem and done.returncode != 0:
                wanted = WORDS.get(error)
                if wanted is None:
                    problem = f"does not go on: {done.stderr.strip()}"
                elif wanted not in done.stderr and "Bad Filename" not in done.stderr:
                    problem = f"says: {done.stderr.strip()}"
            # A file whose removal was what failed stays.
            if not problem and bench.others() and not name.startswith("unlink"):
                problem = f"leaves {[p.name for p in bench.others()]}"
            results.add(row, "errors", problem, f"{name} {number}, {error}")
        for signal in SIGNALS:
            bench.reset(ending, state)
            bench.run(["strace", "-f", "-qq", "-o", os.devnull, "-e",
                       f"inject={name}:signal={signal}:when={number}"])
            problem = bench.problem(new, state) or bench.litter_after_next()
            results.add(row, f"{signal} in a call", problem, f"{name} {number}")


def kill(bench, results, row, ending, state):
    bench.reset(ending, state)
    begin = time.monotonic()
    done = bench.run()
    longest = time.monotonic() - begin
    assert done.returncode == 0, done.stderr
    new = bench.contents()
    for i in range(KILLS):
        for signal in SIGNALS if i % 4 == 0 else SIGNALS[:1]:
            bench.reset(ending, state)
            with subprocess.Popen(bench.command(), env=bench.environment, stdin=subprocess.DEVNULL,
                                  stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL) as save:
                # Most of the time is reading: the second half is what counts.
                time.sleep(longest * random.uniform(0.3, 1.1))
                if signal == "KILL":
                    save.kill()
                else:
                    save.terminate()
                save.wait(LONGEST)
            problem = bench.problem(new, state) or bench.litter_after_next()
            results.add(row, f"{signal} at random", problem, f"number {i}")


def main():
    program = str(pathlib.Path(sys.argv[1]).resolve())
    endings = sys.argv[2:] or SAVED
    traces = can_trace()
    if not traces:
        print("strace may not trace here: no call was made to fail, only kills at random moments.")
    results = Results()
    with tempfile.TemporaryDirectory() as root:
        bench = Bench(program, pathlib.Path(root))
        for ending in endings:
            for state in STATES:
                row = (f".{ending}" if ending != "csv" else "--pim", state)
                if traces:
                    inject(bench, results, row, ending, state)
                if state != "new":
                    kill(bench, results, row, ending, state)
    results.print()
    return 1 if results.failed else 0


if __name__ == "__main__":
    sys.exit(main())
