#!/usr/bin/env python3
"""Sets Orvik beside other programs and beside itself as it was; report.sh calls this."""

import argparse
import collections
import json
import os
import shlex
import subprocess
import sys

# The measurements stand in the source tree, where nothing is to be left behind.
sys.dont_write_bytecode = True

from report_measure import Side, Track, Usage, Wrong, divide, spread

HERE = os.path.dirname(os.path.abspath(__file__))
SIZES = (100_000, 1_000_000)
# Fewer pairs, or some of the rows, are a try, and not written down.
FEWEST_PAIRS = 7
SCAN_TURNS = 15
BEGIN = "<!-- written by tests/bench/report.sh -->"
END = "<!-- up to here -->"

# Parts, processor time and peak of a row of the windows, at most so much of the old one's.
WINDOW_ROWS = {
    "open": ("open to listed", 1 / 2, 2 / 3),
    "copy": ("copy as Netscape 4", 1 / 4, 1 / 2),
    "find": ("find, no hit", 1 / 4, None),
    "save": ("save as LDIF", 0.6, None),
    "start": ("start to the first window", 1.0, None),
}
READ_FORMS = ("ldif", "htm", "nv", "txt", "pml", "csv", "abx", "nndbase.txt")
SAVED_FORMS = ("ldif", "htm", "nv", "txt", "pml")
READ_CSV = (
    "import collections, csv, sys; collections.deque("
    "csv.reader(open(sys.argv[1], encoding='utf-8', newline='')), maxlen=0)"
)

Row = collections.namedtuple("Row", "work old new measured target met")


def named(entries):
    return f"10^{len(str(entries)) - 1}"


def seconds(usages):
    middle = spread([usage.cpu for usage in usages]).middle
    return f"{middle:.2f} s" if middle >= 1 else f"{middle * 1000:.3g} ms"


def of(usages):
    return [usage.cpu for usage in usages]


def peaks(usages):
    return [usage.peak for usage in usages]


def shown(numbers, unit):
    if unit == " %":
        low, middle, high = (f"{100 * number:.0f}" for number in numbers)
    else:
        low, middle, high = (f"{number:.2f}" for number in numbers)
    return f"{middle}{unit} ({low} to {high})"


class Report:
    def __init__(self, options):
        self.old, self.new = os.path.abspath(options.old), os.path.abspath(options.new)
        self.books = os.path.abspath(options.books)
        self.track = Track(os.path.abspath(options.runs), options.pairs)
        self.rows = []
        os.makedirs(self.books, exist_ok=True)

    def book(self, entries, form):
        """The path of a book of so many entries, made once."""
        name = f"{entries}.{form}"
        path = os.path.join(self.books, name)
        if os.path.exists(path):
            return path
        making = os.path.join(self.books, "making")
        os.makedirs(making, exist_ok=True)
        part = os.path.join(making, name)
        if form == "abook":
            command = self.abook(self.book(entries, "ldif"), "ldif", part, "abook")
        elif form in SAVED_FORMS and form != "ldif":
            ldif = self.book(entries, "ldif")
            command = self.batch("old", "--quiet", "--open", ldif, "--save", part)
        else:
            maker = os.path.join(HERE, "report_books.py")
            command = [sys.executable, maker, form, str(entries), part]
        if os.path.exists(part):
            os.remove(part)
        print(f"making {name}", flush=True)
        subprocess.run(command, check=True, capture_output=True)
        os.replace(part, path)
        return path

    def batch(self, side, *arguments):
        folder = {"old": self.old, "new": self.new}[side]
        return [os.path.join(folder, "orvik-batch"), "--answer", "yes", *arguments]

    @staticmethod
    def abook(source, source_form, target, target_form):
        files = ["--infile", source, "--informat", source_form]
        return ["abook", "--convert", *files, "--outfile", target, "--outformat", target_form]

    def both(self, arguments, makes=()):
        """A command of orvik-batch, old and new."""
        return [Side(side, self.batch(side, *arguments), makes) for side in ("old", "new")]

    def add(self, work, old, new, spreads, unit, at_least=None, at_most=None):
        """A row, met if its worse quartile is. spreads: of the old one, or None, and of the new."""
        before, now = spreads
        was = f", was {shown(before, unit)}" if before else ""
        target = at_least if at_most is None else at_most
        met = now.low >= at_least if at_most is None else now.high <= at_most
        words = "at least" if at_most is None else "at most"
        number = f"{100 * target:.0f}" if unit == " %" else f"{target:.4g}"
        row = Row(work, old, new, shown(now, unit) + was, f"{words} {number}{unit}", met)
        self.rows.append(row)
        print("  ".join(row[:5]), "met" if met else "NOT MET", flush=True)

    def beside(self, work, entries, peer, command, at_least, makes=()):
        """Old and new beside another program. Returns the usages of both."""
        old, new = self.both(command, makes)
        others, before, now = self.track.in_turn([peer, old, new], [(old, new)])
        work = f"{work}, {named(entries)}, beside {peer.name} ({seconds(others)})"
        ratios = divide(of(others), of(before)), divide(of(others), of(now))
        self.add(work, seconds(before), seconds(now), ratios, " x", at_least=at_least)
        return before, now

    def memory(self, work, entries, book, usages, at_most):
        size = os.path.getsize(book) / 1024
        spreads = [spread([peak / size for peak in peaks(side)]) for side in usages]
        texts = [f"{spread(peaks(side)).middle / 1024:.0f} MiB" for side in usages]
        work = f"peak memory, {work}, {named(entries)}, of the file's {size / 1024:.0f} MiB"
        self.add(work, *texts, spreads, " x", at_most=at_most)

    def ldif(self):
        for entries in SIZES:
            book, own = self.book(entries, "ldif"), self.book(entries, "abook")
            peer = Side("abook", self.abook(book, "ldif", "a.csv", "csv"), ("a.csv",))
            usages = self.beside("open LDIF", entries, peer, ["--open", book], 4)
            self.memory("open LDIF", entries, book, usages, 1.6)
            peer = Side("abook", self.abook(own, "abook", "a.ldif", "ldif"), ("a.ldif",))
            command = ["--open", book, "--save", "saved.ldif"]
            work = "open LDIF and save LDIF"
            usages = self.beside(work, entries, peer, command, 3, ("saved.ldif",))
            self.memory(work, entries, book, usages, 2.2)

    def csv(self):
        for entries in SIZES:
            book = self.book(entries, "csv")
            peer = Side("csv module", [sys.executable, "-I", "-S", "-c", READ_CSV, book])
            self.beside("open CSV", entries, peer, ["--open", book], 4)

    def scanner(self):
        shares = {}
        for side, folder in (("old", self.old), ("new", self.new)):
            program = os.path.join(folder, "orvik-bench")
            if not os.path.exists(program):
                print(f"{side}: without orvik-bench, so the scanner is not measured")
                continue
            command = [
                program,
                "--benchmark_filter=^ScanBesideMemchr/",
                f"--benchmark_repetitions={SCAN_TURNS}",
                "--benchmark_format=json",
            ]
            told = subprocess.run(command, check=True, capture_output=True, text=True).stdout
            for run in json.loads(told)["benchmarks"]:
                if run["run_type"] == "iteration":
                    text = run["name"].split("/")[1]
                    turns = shares.setdefault(text, {}).setdefault(side, ([], []))
                    turns[0].append(Usage(run["memchr_ms"] / 1000, 0))
                    turns[1].append(Usage(run["scan_ms"] / 1000, 0))
        for text, work, at_least in (
            ("100MiBWithoutMark", "100 MiB without a hit", 0.8),
            ("100MiBMailFolder", "100 MiB of mail with attachments", 0.4),
        ):
            sides = shares.get(text, {})
            if "new" not in sides:
                continue
            memchr, now = sides["new"]
            before = sides.get("old")
            spreads = before and divide(of(before[0]), of(before[1])), divide(of(memchr), of(now))
            work = f"scanner, {work}, beside memchr ({seconds(memchr)})"
            old = seconds(before[1]) if before else "-"
            self.add(work, old, seconds(now), spreads, " %", at_least=at_least)

    def window(self):
        programs = [os.path.join(folder, "orvik-window-bench") for folder in (self.old, self.new)]
        if not all(map(os.path.exists, programs)):
            print("orvik-window-bench is not there, so the windows are not measured")
            return

        def reads(line):
            cpu, _, peak = line.split()[-3:]
            return Usage(float(cpu), float(peak))

        entries = SIZES[-1]
        book = self.book(entries, "ldif")
        for row, (work, time_share, memory_share) in WINDOW_ROWS.items():
            sides = [
                Side(side, [program, row, *([] if row == "start" else [book])], (), reads)
                for side, program in zip(("old", "new"), programs)
            ]
            # A start takes no time, so it can be measured more often.
            before, now = self.track.in_turn(sides, times=5 if row == "start" else 1)
            work = f"window, {named(entries)}: {work}" if row != "start" else f"window: {work}"
            share = divide(of(now), of(before))
            texts = seconds(before), seconds(now)
            self.add(work, *texts, (None, share), " %", at_most=time_share)
            if memory_share:
                share = divide(peaks(now), peaks(before))
                texts = (f"{spread(peaks(side)).middle / 1024:.0f} MiB" for side in (before, now))
                self.add(f"{work}, peak memory", *texts, (None, share), " %", at_most=memory_share)

    def growth(self):
        work = [(f"open .{form}", ["--open", form], ()) for form in READ_FORMS]
        for form in SAVED_FORMS:
            saved = f"saved.{form}"
            command = ["--open", "ldif", "--save", saved]
            work.append((f"open .ldif and save .{form}", command, (saved,)))
        merged = ("merged.ldif",)
        command = ["--open", "ldif", "--merge", "csv", "--save", *merged]
        work.append(("merge .csv with .ldif", command, merged))
        work.append(("extract", ["--extract", "ldif", "--save", "found.txt"], ("found.txt",)))
        work.append(("pim", ["--pim", "ldif", "pim.csv"], ("pim.csv",)))
        for what, command, makes in work:
            sides = []
            for entries in SIZES:
                words = [self.book(entries, w) if w in READ_FORMS else w for w in command]
                for side in self.both(words, makes):
                    sides.append(side._replace(name=f"{side.name}-{entries}"))
            same = [(sides[0], sides[1]), (sides[2], sides[3])]
            old_few, new_few, old_many, new_many = self.track.in_turn(sides, same)
            ratios = divide(of(old_many), of(old_few)), divide(of(new_many), of(new_few))
            texts = seconds(old_many), seconds(new_many)
            self.add(f"growth from 10^5 to 10^6, {what}", *texts, ratios, " x", at_most=11)

    def table(self):
        yield "| work | old | new | measured | target | met |"
        yield "|---|---|---|---|---|---|"
        for row in self.rows:
            yield "| " + " | ".join((*row[:5], "yes" if row.met else "**no**")) + " |"


def machine():
    def field(path, name):
        with open(path, encoding="utf-8") as lines:
            found = (line.split(":", 1)[1] for line in lines if line.startswith(name))
            return next(found, "?").strip()

    memory = int(field("/proc/meminfo", "MemTotal").split()[0]) / 2**20
    return (
        f"{field('/proc/cpuinfo', 'model name')}, {os.cpu_count()} cores, {memory:.0f} GiB, "
        f"Linux {os.uname().release.split('-')[0]}"
    )


def file_system(folder):
    command = ["df", "--output=fstype", folder]
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout.split()[-1]


def load():
    return "load " + " ".join(f"{number:.2f}" for number in os.getloadavg())


def flags(tree):
    """How the compiler is called, less what is not the same in any two folders."""
    with open(os.path.join(tree, "compile_commands.json"), encoding="utf-8") as commands:
        command = next(c for c in json.load(commands) if c["file"].endswith("/ldif_writer.cpp"))
    kinds = ("-O", "-D", "-U", "-f", "-m", "-s", "-g")
    words = shlex.split(command["command"])
    return " ".join(word for word in words if word[:2] in kinds and "=/" not in word)


def write(page, lines):
    with open(page, encoding="utf-8") as old:
        text = old.read()
    before, rest = text.split(BEGIN + "\n", 1)
    _, after = rest.split(END + "\n", 1)
    with open(page, "w", encoding="utf-8") as new:
        new.write(before + "\n".join([BEGIN, *lines, END]) + "\n" + after)


def main():
    parts = ("ldif", "csv", "scanner", "window", "growth")
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--old", required=True, help="folder with the old programs")
    parser.add_argument("--new", required=True, help="folder with the new programs")
    parser.add_argument("--books", required=True, help="folder for the books that are read")
    parser.add_argument("--runs", required=True, help="folder where programs run and save")
    parser.add_argument("--page", required=True, help="page with the table")
    parser.add_argument("--commit", required=True, help="what the old programs are built from")
    parser.add_argument("--pairs", type=int, default=FEWEST_PAIRS)
    parser.add_argument("rows", nargs="*", help=f"only these: {' '.join(parts)}")
    options = parser.parse_args()
    unknown = set(options.rows) - set(parts)
    if unknown or options.pairs < 1:
        parser.error(f"rows are {' '.join(parts)}; at least one pair")

    before = [flags(os.path.dirname(folder)) for folder in (options.old, options.new)]
    if before[0] != before[1]:
        sys.exit(f"report: not the same flags:\n{before[0]}\n{before[1]}")
    report = Report(options)
    about = f"{machine()}, saved on {file_system(options.runs)}; {load()} before"
    print(f"flags: {before[1]}\n{about}", flush=True)
    try:
        for part in options.rows or parts:
            getattr(report, part)()
    except (Wrong, subprocess.CalledProcessError) as problem:
        sys.exit(f"report: {problem}")
    about += f", {load()} after"
    met = sum(row.met for row in report.rows)
    summary = (
        f"{met} of {len(report.rows)} rows met; old and new made and said the same in "
        f"{report.track.compared} comparisons of files."
    )
    about = f"Old: commit {options.commit}. Machine: {about}. {summary}"
    lines = ["", *report.table(), "", about, ""]
    print("\n".join(lines))
    if options.rows or options.pairs < FEWEST_PAIRS:
        print("Some rows or few pairs: a try, not written down.")
    else:
        write(options.page, lines)


if __name__ == "__main__":
    main()
