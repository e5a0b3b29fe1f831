"""Runs programs in turn and says how much each of them used."""

import collections
import os
import shutil
import statistics
import subprocess

# Processor seconds (user and system), and the most memory in KiB.
Usage = collections.namedtuple("Usage", "cpu peak")
# The middle and the quartiles of some numbers.
Spread = collections.namedtuple("Spread", "low middle high")
# What a side of a comparison runs, in a folder of its own, and the files there that it makes. Its
# output, if reads is given, is what Usage is made of.
Side = collections.namedtuple("Side", "name command makes reads", defaults=((), None))

SAID = "messages"


class Wrong(Exception):
    """A program failed, or its results are others than before."""


def spread(numbers):
    if len(numbers) < 2:
        return Spread(*numbers * 3)
    return Spread(*statistics.quantiles(numbers, n=4, method="inclusive"))


def divide(above, below):
    return spread([a / b for a, b in zip(above, below)])


class Track:
    """Runs the sides of a comparison in turn. This process stays small: a child's peak begins with
    the memory of the process that it comes from."""

    def __init__(self, work, pairs):
        self.work = work
        self.pairs = pairs
        self.compared = 0
        home = os.path.join(work, "home")
        os.makedirs(home, exist_ok=True)
        # Nothing of the user's, and no display.
        self.environment = dict(
            os.environ, HOME=home, LC_ALL="C.UTF-8", QT_QPA_PLATFORM="offscreen"
        )
        for folder in ("CACHE", "CONFIG", "DATA", "STATE"):
            self.environment[f"XDG_{folder}_HOME"] = os.path.join(home, folder.lower())

    def run(self, side):
        folder = os.path.join(self.work, side.name)
        os.makedirs(folder, exist_ok=True)
        for name in (*side.makes, SAID):
            if os.path.lexists(os.path.join(folder, name)):
                os.remove(os.path.join(folder, name))
        with open(os.path.join(folder, SAID), "wb") as said:
            child = subprocess.Popen(
                side.command,
                cwd=folder,
                env=self.environment,
                stdin=subprocess.DEVNULL,
                stdout=said,
                stderr=subprocess.STDOUT,
            )
            _, status, used = os.wait4(child.pid, 0)
            child.returncode = os.waitstatus_to_exitcode(status)
        if child.returncode != 0:
            raise Wrong(f"status {child.returncode}: {' '.join(side.command)}\n{self.said(folder)}")
        if side.reads:
            return side.reads(self.said(folder))
        return Usage(used.ru_utime + used.ru_stime, used.ru_maxrss)

    @staticmethod
    def said(folder):
        with open(os.path.join(folder, SAID), encoding="utf-8", errors="replace") as said:
            return said.read(100_000)

    def same(self, one, other):
        """Holds what two sides made and said against each other, byte by byte."""
        for name in (*one.makes, *([] if one.reads else [SAID])):
            files = [os.path.join(self.work, side.name, name) for side in (one, other)]
            if subprocess.run(["cmp", "--silent", *files], check=False).returncode != 0:
                raise Wrong(f"not the same: {' and '.join(files)}")
            self.compared += 1

    def in_turn(self, sides, same=(), times=1):
        """A warm-up of all, and then pair after pair, so many times as many as usual. same: the
        sides that must make and say the same. Returns their usages, a list per side."""
        usages = [[] for _ in sides]
        for turn in range(times * self.pairs + 1):
            for usage, side in zip(usages, sides):
                used = self.run(side)
                if turn > 0:
                    usage.append(used)
            for one, other in same:
                self.same(one, other)
        for side in sides:
            shutil.rmtree(os.path.join(self.work, side.name))
        return usages
