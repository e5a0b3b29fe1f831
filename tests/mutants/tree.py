"""A build tree in which one source at a time is replaced by a faulty copy."""

import json
import os
import pathlib
import shlex
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]


class Tree:
    def __init__(self, folder):
        """folder: a build of the preset "mutants"."""
        self.folder = pathlib.Path(folder).resolve()
        commands = json.loads((self.folder / "compile_commands.json").read_text())
        # The first of a source: tests/work compiles those of the program once more.
        self.compile = {
            pathlib.Path(c["file"]): shlex.split(c["command"]) for c in reversed(commands)}
        self.links = {}

    def object_of(self, source, text, target, options=()):
        """Compiles text in the place of a source. Returns whether it compiles."""
        copy = target.with_suffix(source.suffix)
        copy.write_text(text, encoding="utf-8")
        command = list(self.compile[source])
        command[command.index("-o") + 1] = str(target)
        command[command.index("-c") + 1] = str(copy)
        # A mutant may leave something unused.
        command += ["-w", *options]
        return subprocess.run(
            command, cwd=self.folder, capture_output=True, check=False).returncode == 0

    def link(self, program, first, target):
        """Links a program with objects before its libraries, so that theirs are not taken."""
        if program not in self.links:
            lines = subprocess.run(
                ["ninja", "-t", "commands", f"bin/{program}"], cwd=self.folder,
                capture_output=True, text=True, check=True).stdout.splitlines()
            line = lines[-1].removeprefix(": && ").removesuffix(" && :")
            self.links[program] = shlex.split(line)
        command = list(self.links[program])
        output = command.index("-o")
        command[output + 1] = str(target)
        command[output:output] = [str(one) for one in first]
        done = subprocess.run(
            command, cwd=self.folder, capture_output=True, text=True, check=False)
        if done.returncode != 0:
            sys.exit(f"{program} does not link:\n{done.stderr}")

    @staticmethod
    def environment(program, folder):
        """Where a program keeps its files. The unit tests give up rights in some of theirs, and the
        folder lets nobody else in."""
        own = {"TMPDIR": str(folder)} if program == "orvik-depth" else {}
        return os.environ | own
