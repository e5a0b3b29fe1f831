"""The window program on a display, and what a person does to it. Its first argument is the program's."""

import os
import signal
import subprocess
import sys
import time

PROGRAM = sys.argv[1]


def fail(text):
    sys.exit(f"recovery: {text}")


def xdo(*arguments):
    return subprocess.run(["xdotool", *arguments], capture_output=True, text=True, check=False).stdout.split()


def eventually(what, condition, seconds=20):
    end = time.time() + seconds
    while time.time() < end:
        found = condition()
        if found:
            return found
        time.sleep(0.05)
    return fail(f"in vain: {what}")


def windows(name):
    return xdo("search", "--onlyvisible", "--name", name)


def focus(window):
    """Keys that come before a busy display has changed the focus go astray."""
    xdo("windowfocus", window)
    end = time.time() + 2
    while xdo("getwindowfocus", "-f") != [window] and time.time() < end:
        time.sleep(0.02)


def press_keys(title, *keys):
    """In the front window of this title."""
    focus(eventually(f"a window {title}", lambda: windows(title))[-1])
    xdo("key", "--delay", "50", *keys)


class Program:
    """A running program; keys go to its front window."""

    def __init__(self, *arguments, interval=50, **options):
        environment = dict(os.environ, ORVIK_KEEP_WITHIN=str(interval))
        self.process = subprocess.Popen([PROGRAM, *map(str, arguments)], env=environment, **options)
        title = f"^Orvik - {arguments[0]}$" if arguments else "^Orvik$"
        self.window = eventually(f"a window {title}", lambda: self.own(title))[0]
        focus(self.window)

    def own(self, title):
        return [w for w in windows(title) if xdo("getwindowpid", w) == [str(self.process.pid)]]

    def keys(self, *keys):
        for key in keys:
            if key.startswith("!"):  # a box or a dialog of this title
                self.front(key[1:])
            elif key.startswith("'"):
                xdo("type", "--delay", "0", key[1:])
            elif key == "main":
                focus(self.window)
            else:
                xdo("key", "--delay", "0", key)
            time.sleep(0.15)

    def front(self, title):
        focus(eventually(f"a window {title}", lambda: self.own(title))[-1])

    def box_is_shown(self):
        return len(self.own("^Orvik$")) > (0 if self.own("^Orvik - ") else 1)

    def kill(self, number=signal.SIGKILL, statuses=()):
        self.process.send_signal(number)
        status = self.process.wait(20)
        if status not in (statuses or {-number}):
            fail(f"signal {number} ended it with {status}")
