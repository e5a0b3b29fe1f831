#!/usr/bin/env python3
"""Runs orvik-book at a terminal: its question, its colours, and Ctrl+C.

Argument: the program.
"""

import os
import pathlib
import pty
import signal
import subprocess
import sys
import tempfile
import time

PROGRAM = sys.argv[1]
CARD = "BEGIN:VCARD\r\nVERSION:3.0\r\nUID:1\r\nN:Bo;;;;\r\nFN:Bo\r\nEND:VCARD\r\n"
QUESTION = "there.vcf is there already. Replace it? [y/N]"


def check(what, holds, shown=""):
    if not holds:
        sys.exit(f"terminal: {what}: {shown}")


def environment(**more):
    kept = {name: value for name, value in os.environ.items() if name != "NO_COLOR"}
    return {**kept, "TERM": "xterm", **more}


def at_terminal(arguments, answer="", **variables):
    """Runs the program with all of its streams at a terminal. Returns what is shown, and the exit
    status."""
    ours, theirs = pty.openpty()
    process = subprocess.Popen(
        [PROGRAM, *arguments], stdin=theirs, stdout=theirs, stderr=theirs, env=environment(**variables)
    )
    os.close(theirs)
    os.write(ours, answer.encode())
    shown = b""
    while True:
        try:
            part = os.read(ours, 4096)
        except OSError:
            break
        if not part:
            break
        shown += part
    os.close(ours)
    return shown.decode(), process.wait()


def test_question():
    there = pathlib.Path("there.vcf")
    for answer, replaced in (("y", True), ("YES", True), ("n", False), ("", False), ("maybe", False)):
        there.write_text("old")
        shown, status = at_terminal(["convert", "bo.vcf", "-o", "there.vcf"], answer + "\n")
        check(f"asks before {answer}", QUESTION in shown, shown)
        check(f"status after {answer}", status == (0 if replaced else 73), status)
        content = there.read_bytes().decode()
        check(f"the file after {answer}", content == (CARD if replaced else "old"), content)
    shown, status = at_terminal(["convert", "bo.vcf", "-o", "there.vcf", "--force"])
    check("asks nothing with --force", QUESTION not in shown and status == 0, shown)
    # Of several files all are asked for at once.
    for number in ("1", "2"):
        pathlib.Path(f"part-{number}.vcf").write_text("old")
    split = ["convert", "bo.vcf", "bo.vcf", "-o", "part.vcf", "--split", "1"]
    question = "part-1.vcf and others, 2 in all, are there already. Replace them? [y/N]"
    for answer, status_then, content in (("n", 73, "old"), ("y", 0, CARD)):
        shown, status = at_terminal(split, answer + "\n")
        check(f"asks once before {answer}", shown.count("[y/N]") == 1 and question in shown, shown)
        check(f"status of several after {answer}", status == status_then, status)
        check(f"the last file after {answer}", pathlib.Path("part-2.vcf").read_bytes().decode() == content)
    # Where nobody sees the question nobody is asked.
    there.write_text("old")
    ours, theirs = pty.openpty()
    os.write(ours, b"y\n")
    told = subprocess.run(
        [PROGRAM, "convert", "bo.vcf", "-o", "there.vcf"], stdin=theirs, capture_output=True, text=True
    )
    check("asks a file", told.returncode == 73 and "Replace" not in told.stderr, told.stderr)
    os.close(ours)
    os.close(theirs)


def test_colours():
    coloured = "\x1b[1mbo.vcf\x1b[0m: vCard 3.0"
    shown, _ = at_terminal(["show", "bo.vcf"])
    check("colours at a terminal", coloured in shown, shown)
    shown, _ = at_terminal(["show", "bo.vcf"], NO_COLOR="")
    check("an empty NO_COLOR", coloured in shown, shown)
    for variable in ({"NO_COLOR": "1"}, {"TERM": "dumb"}):
        shown, _ = at_terminal(["show", "bo.vcf"], **variable)
        check(f"no colours with {variable}", "\x1b" not in shown and "bo.vcf: vCard" in shown, shown)
    pathlib.Path("flagged.vcf").write_text(CARD.replace("FN:", "EMAIL:a@@b\r\nEMAIL:a@b\r\nFN:"))
    shown, _ = at_terminal(["check", "flagged.vcf"])
    check("bad addresses stand out", "\x1b[1;31mbad: two @\x1b[0m   " in shown, shown)
    check("odd ones do not", "a@b                     odd: a domain" in shown, shown)
    told = subprocess.run([PROGRAM, "show", "bo.vcf"], capture_output=True, text=True, env=environment())
    check("no colours in a file", "\x1b" not in told.stdout + told.stderr, told.stdout)


def test_interrupt():
    """A shell shows the signal as status 130."""
    for name in (signal.SIGINT, signal.SIGTERM):
        process = subprocess.Popen(
            [PROGRAM, "convert", "-", "-o", "never.vcf"],
            stdin=subprocess.PIPE,
            stderr=subprocess.DEVNULL,
            restore_signals=True,
            preexec_fn=lambda: signal.signal(signal.SIGINT, signal.SIG_DFL),
        )
        process.stdin.write(CARD.encode())
        process.stdin.flush()
        # It waits for more.
        while pathlib.Path(f"/proc/{process.pid}/stat").read_text().split()[2] != "S":
            time.sleep(0.01)
        process.send_signal(name)
        status = process.wait()
        check(f"ends by {name.name}", status == -name, status)
        check(f"nothing is written after {name.name}", os.listdir() == ["bo.vcf"], os.listdir())


def test_interrupted_search():
    """A search that is stopped writes nothing."""
    mail = pathlib.Path("mail")
    mail.write_bytes(b"From \nFrom: Ada <ada@example.org>\n\nSee bo@example.org\n\n" * 1_000_000)
    process = subprocess.Popen(
        [PROGRAM, "find", "mail", "-o", "never.vcf"],
        stdout=subprocess.DEVNULL,
        preexec_fn=lambda: signal.signal(signal.SIGINT, signal.SIG_DFL),
    )
    opened = pathlib.Path(f"/proc/{process.pid}/fd")
    while not any(str(link).endswith("/mail") for link in map(followed, opened.iterdir())):
        time.sleep(0.001)
    process.send_signal(signal.SIGINT)
    status = process.wait()
    check("a search ends by SIGINT", status == -signal.SIGINT, status)
    mail.unlink()
    check("a search that ended wrote nothing", os.listdir() == ["bo.vcf"], os.listdir())


def followed(link):
    try:
        return os.readlink(link)
    except OSError:
        return ""


def main():
    with tempfile.TemporaryDirectory() as folder:
        os.chdir(folder)
        pathlib.Path("bo.vcf").write_bytes(CARD.encode())
        test_interrupt()
        test_interrupted_search()
        test_question()
        test_colours()
        os.chdir("/")


main()
