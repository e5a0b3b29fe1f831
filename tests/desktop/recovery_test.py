#!/usr/bin/env python3
"""Kills the window program at random moments of typing and of each kind of command.

What is kept must be the book of a moment at most three seconds before the kill. For this the test
knows each state that the book goes through: those of typing are what it typed, those of commands
were seen in a run without a kill. Arguments: the program, a folder, the kills of each kind."""

import collections
import os
import pathlib
import random
import resource
import shutil
import signal
import subprocess
import sys
import time

import kept_book
from real_program import Program, eventually, fail, windows, xdo

PROGRAM, WORK, KILLS = sys.argv[1], pathlib.Path(sys.argv[2]), int(sys.argv[3])
BOOK = WORK / "book.ldif"
PROMISE = 3.0
# So long a command may take here, boxes included, and a key until it is in the book.
COMMAND, KEY = 2.0, 1.0
# A person's kill comes within so many seconds; a short run does not wait so long.
WITHIN = 6.0 if KILLS > 1 else 1.5

random.seed(int(os.environ.get("ORVIK_SEED", time.time())))
table = collections.OrderedDict()


def fresh():
    shutil.rmtree(kept_book.root(), ignore_errors=True)
    names = ["Cy", "Al", "Di", "Bo"]
    BOOK.write_bytes(
        b"".join(
            f"dn: cn={n}\r\nxmozillanickname: {n}\r\nmail: {m}@example.org\r\n"
            "xnavusehtmlmail: TRUE\r\n\r\n".encode()
            for n, m in zip(names, ["d", "c", "b", "a"])
        )
    )
    (WORK / "other.ldif").write_bytes(BOOK.read_bytes().replace(b"Cy", b"Zoe"))
    (WORK / "letter.txt").write_text("to one@example.org and two@example.org, \r\n")
    (WORK / "saved.ldif").unlink(missing_ok=True)


def dialog(title, file):
    return [f"!{title}", f"'{WORK / file}", "Return"]


def answer(key):
    return ["!Save?", key]


# The kinds of commands: what is done before, and the command itself.
COMMANDS = {
    "sort by address": ([], ["alt+m"]),
    "sort by nickname": (["alt+m"], ["alt+n"]),
    "undo": (["alt+m", "alt+n"], ["ctrl+z"]),
    "redo": (["alt+m", "alt+n", "ctrl+z"], ["ctrl+shift+z"]),
    "edit mode on": (["alt+m"], ["F2"]),
    "edit mode off": (["alt+m", "F2", "'x"], ["F2"]),
    "clear in edit mode": (["alt+m", "F2"], ["alt+e", "l", *answer("alt+n")]),
    "paste": (["alt+m", "alt+e", "c"], ["alt+e", "a", *answer("alt+n")]),
    "unconvert": (["alt+m"], ["alt+v", "u"]),
    "parse nicknames": (["alt+m"], ["alt+v", "p"]),
    "open": (["alt+m"], ["ctrl+o", *answer("alt+n"), *dialog("Open file", "other.ldif")]),
    "merge": (["alt+m"], ["alt+f", "m", *dialog("Merge|merge|Open", "other.ldif")]),
    "extract": (["alt+m"], ["alt+f", "e", *answer("alt+n"), *dialog("Open file", "letter.txt")]),
    "save": (["alt+m"], ["ctrl+s", *dialog("Save As", "saved.ldif")]),
    "save, cancelled": (["alt+m"], ["ctrl+s", "!Save As", "Escape"]),
    "a question, open": (["alt+m"], ["ctrl+q", "!Save?"]),
}
CHANGE_NOTHING = {"save, cancelled", "a question, open"}


def settled():
    """The one copy that is kept, None without one, when it has stopped changing."""
    before, since = kept_book.texts(), time.time()
    while time.time() - since < 0.7:
        time.sleep(0.1)
        now = kept_book.texts()
        if now != before:
            before, since = now, time.time()
    return before


def kill_in_commands():
    for kind, (before, command) in COMMANDS.items():
        fresh()
        program = Program(BOOK)
        program.keys(*before)
        states = [settled()]
        program.keys(*command)
        states.append(settled())
        program.kill()
        if (states[0] == states[1]) != (kind in CHANGE_NOTHING):
            fail(f"{kind} makes {states[1]} of {states[0]}")
        row = table[kind] = collections.Counter()
        latest = 0.0
        for _ in range(KILLS):
            fresh()
            program = Program(BOOK)
            program.keys(*before)
            eventually(f"{kind}: the state before", lambda: kept_book.texts() == states[0])
            moment = random.uniform(0, WITHIN)
            killer = subprocess.Popen(["sh", "-c", f"sleep {moment}; kill -9 {program.process.pid}"])
            for key in alive(program, command):
                program.keys(key)
            program.process.wait(20)
            killer.wait()
            kept = kept_book.texts()
            if kept not in states:
                fail(f"{kind}: killed after {moment:.2f} s, kept is {kept} and none of {states}")
            if moment > COMMAND + PROMISE and kept != states[1]:
                fail(f"{kind}: killed after {moment:.2f} s, kept is the state before")
            row["kills"] += 1
            if kept == states[1]:
                row["kept is the state after it"] += 1
            else:
                row["kept is the state before it"] += 1
                latest = max(latest, moment)
        if latest:
            row["the latest of these, ms behind its first key"] = round(1000 * latest)


def alive(program, keys):
    """The keys, as long as the program lives."""
    for key in keys:
        if program.process.poll() is not None:
            return
        if key.startswith("!"):
            while program.process.poll() is None and not program.own(key[1:]):
                time.sleep(0.02)
            if program.process.poll() is not None:
                return
        yield key


def type_until_killed(interval, within):
    fresh()
    program = Program(BOOK, interval=interval)
    program.keys("F2")
    end = time.time() + random.uniform(0, within)
    typed = []
    while time.time() < end:
        xdo("key", random.choice("abcdefgh"))
        typed.append(time.time())
        time.sleep(random.uniform(0, 0.1))
    killed = time.time()
    program.kill()
    return typed, killed


def kill_while_typing():
    for interval, runs in ((50, 4 * KILLS), (2000, KILLS)):
        row = table[f"typing, kept every {interval} ms"] = collections.Counter()
        oldest = 0.0
        for _ in range(runs):
            typed, killed = type_until_killed(interval, 6.0 if interval > 50 else WITHIN)
            kept = kept_book.texts()
            # Each key puts one letter in front of the rest.
            count = len(kept[0].split(b'"')[0]) if kept else 0
            if count > len(typed) + 1:
                fail(f"{count} letters are kept of {len(typed)}")
            lost = typed[count:]
            age = killed - lost[0] if lost else 0.0
            if age > PROMISE + KEY:
                fail(f"a letter typed {age:.2f} s before the kill is not kept")
            oldest = max(oldest, age)
            row["kills"] += 1
        row["oldest letter that was lost, ms"] = round(1000 * oldest)


def typed_book(**options):
    fresh()
    program = Program(BOOK, **options)
    program.keys("F2", "'xyz")
    return program


def holds(beginning, count=1):
    kept = kept_book.texts()
    return len(kept) == count and all(text.startswith(beginning) for text in kept)


def signals():
    for number in (signal.SIGTERM, signal.SIGHUP, signal.SIGINT):
        program = typed_book(interval=2000)
        program.kill(number)
        if not holds(b'xyz"'):
            fail(f"signal {number} lost the book: {kept_book.texts()}")
    # Also while a question waits.
    program = typed_book(interval=2000)
    program.keys("ctrl+q", "!Save?")
    program.kill(signal.SIGTERM)
    if not holds(b'xyz"'):
        fail("TERM while a question waits lost the book")
    # One right behind the other, as a terminal that is closed sends them.
    program = typed_book(interval=2000)
    program.process.send_signal(signal.SIGTERM)
    program.kill(signal.SIGHUP, {-signal.SIGTERM, -signal.SIGHUP})
    if not holds(b'xyz"'):
        fail("TERM and HUP lost the book")
    table["TERM, HUP, INT"] = collections.Counter(kills=5)


def second_signal():
    """The command waits for the folder's lock, so the first signal must wait as well."""
    program = typed_book()
    eventually("xyz to be kept", lambda: holds(b'xyz"'))
    with subprocess.Popen(["flock", "-o", WORK, "sleep", "30"]) as lock:
        program.keys("ctrl+s", *dialog("Save As", "saved.ldif"))
        time.sleep(1)
        program.process.send_signal(signal.SIGTERM)
        time.sleep(0.5)
        if program.process.poll() is not None:
            fail("the first TERM did not wait for the command")
        program.kill(signal.SIGTERM)
        lock.terminate()
    if not holds(b'xyz"'):
        fail("the second TERM lost the book")
    table["second TERM"] = collections.Counter(kills=1)


def unsaved():
    """A book that gave way to another after a save that was cancelled."""
    for number in (signal.SIGKILL, signal.SIGTERM):
        fresh()
        program = Program(BOOK)
        program.keys("alt+m")
        eventually("the change to be kept", lambda: len(kept_book.texts()) == 1)
        before = kept_book.texts()
        program.keys("ctrl+o", *answer("alt+y"), "!Save As", "Escape", *dialog("Open file", "other.ldif"))
        eventually("the other book", lambda: windows(f"^Orvik - {WORK / 'other.ldif'}$"))
        time.sleep(0.5)
        program.kill(number)
        if kept_book.texts() != before:
            fail(f"a book that gave way to another is lost: {kept_book.texts()}")
        program = Program()
        eventually("a box behind it", program.box_is_shown)
        program.kill()
    table["a book that gave way to another, unsaved"] = collections.Counter(kills=4)


def lost_display():
    fresh()
    reading, writing = os.pipe()
    server = subprocess.Popen(
        ["Xvfb", "-noreset", "-displayfd", str(writing), "-screen", "0", "800x600x24"],
        pass_fds=[writing],
        stderr=subprocess.DEVNULL,
    )
    with os.fdopen(reading) as told:
        display = ":" + told.readline().strip()
    ours = os.environ["DISPLAY"]
    os.environ["DISPLAY"] = display
    program = typed_book(stderr=subprocess.DEVNULL)
    eventually("xyz to be kept", lambda: holds(b'xyz"'))
    server.kill()
    server.wait()
    program.process.wait(20)
    os.environ["DISPLAY"] = ours
    if not holds(b'xyz"'):
        fail("the lost display lost the book")
    table["display taken away"] = collections.Counter(kills=1)


def bad_state_folder():
    """Typing goes on, and there is no box."""
    full = lambda: resource.setrlimit(resource.RLIMIT_FSIZE, (0, resource.RLIM_INFINITY))
    program = typed_book(preexec_fn=full)
    time.sleep(0.5)
    if program.box_is_shown() or kept_book.texts():
        fail("a full state folder brings a box")
    program.kill(signal.SIGTERM)
    fresh()
    kept_book.root().parent.mkdir(exist_ok=True)
    kept_book.root().write_text("no folder")
    program = Program(BOOK)
    program.keys("F2", "'xyz")
    time.sleep(0.5)
    if program.box_is_shown():
        fail("a state folder that cannot be written brings a box")
    program.kill(signal.SIGTERM)
    kept_book.root().unlink()
    table["state folder full, or none"] = collections.Counter(kills=2)


def two_programs():
    one = typed_book()
    eventually("xyz to be kept", lambda: holds(b'xyz"'))
    other = Program(BOOK)
    other.keys("F2", "'xyz")
    eventually("both to be kept", lambda: holds(b'xyz"', 2))
    if other.box_is_shown():
        fail("a running program's book is offered")
    one.kill()
    other.kill()
    third = Program()
    # Restored, and killed while the next box is there, and right behind it.
    eventually("the first box", third.box_is_shown)
    third.front("^Orvik$")
    third.keys("Return")
    if not holds(b'xyz"', 2):
        fail("a restored book is not on the disk")
    third.kill()
    for _ in range(KILLS):
        last = Program()
        eventually("a box", last.box_is_shown)
        last.front("^Orvik$")
        last.keys("Return")
        time.sleep(0.3)
        xdo("key", "alt+n")
        time.sleep(random.uniform(0, 0.5))
        last.kill()
        if not holds(b'xyz"', 2):
            fail(f"Restore and a kill lost a book: {kept_book.texts()}")
    table["two programs, Restore and a kill"] = collections.Counter(kills=3 + KILLS)


def automation():
    """Books are offered behind it, and not if it ends the program."""
    settings = pathlib.Path(os.environ["XDG_CONFIG_HOME"]) / "orvik/orvik.conf"
    before = settings.read_text()
    program = typed_book()
    eventually("xyz to be kept", lambda: holds(b'xyz"'))
    program.kill()
    steps = f"aOpenName={WORK / 'other.ldif'}\n[Settings\\\\AutoSteps]\n1=5\n2=0\n"
    settings.write_text(before.replace("Auto=False", "Auto=True\naClose=1") + steps)
    if subprocess.run([PROGRAM], timeout=20, check=False).returncode != 0 or not holds(b'xyz"'):
        fail("the automation that ends the program lost the book")
    settings.write_text(before.replace("Auto=False", "Auto=True") + steps)
    program = Program()
    eventually("a box behind the automation", program.box_is_shown)
    program.kill()
    settings.write_text(before)
    if not holds(b'xyz"'):
        fail("a book that was offered is gone")
    table["start behind an automation, and none where it ends the program"] = collections.Counter(kills=2)


def main():
    signals()
    second_signal()
    unsaved()
    lost_display()
    bad_state_folder()
    two_programs()
    automation()
    kill_while_typing()
    kill_in_commands()
    print("| what was killed | what was seen |\n|---|---|")
    for kind, row in table.items():
        print(f"| {kind} | {', '.join(f'{what}: {count}' for what, count in row.items())} |")


main()
