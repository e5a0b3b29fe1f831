#!/usr/bin/env python3
"""Looks for people who are in three books twice, and merges them: whether each pair is called what it is, nobody
is merged with somebody else, and no value is lost.

Argument: orvik-book. Who is who is known by how the people were made. Plans with mistakes in them, plans of a
program that lacks a rule, and books with something missing have to be noticed."""

import collections
import pathlib
import re
import subprocess
import sys
import tempfile

# Run from the build, where nothing is to be left in the sources.
sys.dont_write_bytecode = True

import make_people
import merged_book
import plain_match

LINE = re.compile(r"(merge|ask|keep) +(\S+:\d+(?: +\S+:\d+)+) +# (same|contained|agree|address|name): (.+)")
LEAST = {"same": 1.0, "contained": 1.0, "agree": 0.98, "address": 0.98, "name": 0.98, "ask": 1.0, "either": 1.0,
         "silent": 1.0}


def read_plan(text):
    """The lines of a plan: what to do, the word, and the places."""
    lines, sources = [], []
    for number, line in enumerate(text.splitlines(), 1):
        found = LINE.fullmatch(line)
        if found:
            lines.append((found[1], found[3], found[2].split()))
        elif re.fullmatch(r"# source \S+ [0-9a-f]{64}", line):
            sources.append(line.split()[2])
        elif line.strip() and not line.startswith("#"):
            raise ValueError(f"line {number} of the plan is none: {line}")
    return lines, sources


def joined(places, lines):
    """Whether lines join all places."""
    reached, before = {places[0]}, 0
    while before < len(reached):
        before = len(reached)
        for line in lines:
            if reached & set(line[2]):
                reached |= set(line[2])
    return reached >= set(places)


def problem_of(case, lines):
    """What is wrong with the lines of a case, or None."""
    kind, places = case.kind, [record.place() for record in case.records]
    named = [line for line in lines if line[1] in kind.words]
    merges = [line for line in lines if line[0] == "merge"]
    if kind.does == "silent":
        return "named" if lines else None
    if kind.does == "merge":
        return None if joined(places, [line for line in named if line[0] == "merge"]) else "not merged"
    if not joined(places, named):
        return "not found"
    if kind.does != "either" and merges:
        return "merged"
    last = [line for line in lines if places[-1] in line[2]]
    return "not asked about" if kind.does == "ask" and any(line[0] != "ask" for line in last) else None


def tier_of(kind):
    if kind.does in ("silent", "ask", "either"):
        return kind.does
    return next(word for word in ("same", "contained", "agree", "address", "name") if word in kind.words)


class Verdict:
    """What a plan is worth: wrong merges, cases that are wrong, and those found of each kind and tier."""

    def __init__(self, cases, lines):
        case_of = {record.place(): case for case in cases for record in case.records}
        lines_of = collections.defaultdict(list)
        self.wrong_merges, self.wrong, self.kinds = [], [], collections.Counter()
        tiers, found = collections.Counter(), collections.Counter()
        for line in lines:
            met = {case_of.get(place) for place in line[2]}
            for case in met:
                lines_of[case].append(line)
            if len(met) > 1 or None in met:
                self.wrong.append((line, "joins people who have nothing in common"))
            if line[0] == "merge" and (len(met) > 1 or None in met or
                                       any(case.kind.does not in ("merge", "either") for case in met)):
                self.wrong_merges.append(line)
        for case in cases:
            problem = problem_of(case, lines_of[case])
            tier = tier_of(case.kind)
            tiers[tier] += 1
            found[tier] += not problem
            self.kinds[case.kind.name] += not problem
            if problem:
                self.wrong.append(([record.place() for record in case.records], f"{case.kind.name}: {problem}",
                                   lines_of[case]))
        self.shares = {tier: found[tier] / tiers[tier] for tier in tiers}
        strays = any(problem.startswith("joins") for _, problem, *_ in self.wrong)
        self.good = (not self.wrong_merges and not strays and
                     all(share >= LEAST[tier] for tier, share in self.shares.items()))


def plant_in_plan(cases, lines):
    """Plans with one mistake each, by name: for each kind what was found is forgotten, done or called otherwise."""
    case_of = {record.place(): case for case in cases for record in case.records}
    for kind in {case.kind.name: case.kind for case in cases}.values():
        own = [i for i, line in enumerate(lines) if case_of[line[2][0]].kind is kind]

        def changed(change, which):
            return [change(line) if i in which else line for i, line in enumerate(lines)]
        if kind.does == "silent":
            quiet = [case for case in cases if case.kind is kind]
            one, other = quiet[0].records[-1].place(), (quiet[0].records + quiet[1].records)[1].place()
            for verb, word in (("merge", "same"), ("ask", "agree"), ("keep", "name")):
                yield f"{kind.name}: {verb}", lines + [(verb, word, [one, other])]
            continue
        yield f"{kind.name}: forgotten", [line for i, line in enumerate(lines) if i not in own]
        if kind.does != "either":
            turn = (lambda line: ("ask", *line[1:])) if kind.does == "merge" else lambda line: ("merge", *line[1:])
            yield f"{kind.name}: another answer", changed(turn, own[:1] if kind.does != "merge" else own)
        other = next(word for word in ("name", "address", "agree", "same") if word not in kind.words)
        yield f"{kind.name}: {other}", changed(lambda line: (line[0], other, line[2]), own)
        far = next(case for case in cases if case.kind.name != kind.name).records[0].place()
        yield f"{kind.name}: with a stranger", changed(lambda line: (*line[:2], line[2] + [far]), own[:1])


class Test:
    def __init__(self, program, folder):
        self.program, self.folder, self.failed, self.planted = program, folder, 0, 0
        self.paths, self.cases, self.lists = make_people.make(folder)
        self.records = [record for case in self.cases for record in case.records]

    def fail(self, what):
        self.failed += 1
        print(f"FAILED: {what}"[:600])

    def run(self, *arguments):
        done = subprocess.run([self.program, *arguments], cwd=self.folder, capture_output=True, timeout=120)
        if done.returncode:
            self.fail(f"{' '.join(arguments)}: status {done.returncode}: {done.stderr.decode()[:300]}")
        return done.stdout.decode() + done.stderr.decode()

    def notice(self, name, noticed):
        self.planted += 1
        if not noticed:
            self.fail(f"nobody noticed: {name}")

    def check_rules(self):
        """The labels are what plain rules find, and no rule can be left out."""
        verdict = Verdict(self.cases, list(plain_match.plan(self.records)))
        if not verdict.good:
            self.fail(f"plain rules find something else: {verdict.wrong[:5]}")
        for rule in plain_match.RULES:
            self.notice(f"without: {rule}", not Verdict(self.cases, list(plain_match.plan(self.records, rule))).good)

    def check_plan(self):
        self.run("dupes", *make_people.FILES, "--plan", "plan.txt")
        lines, sources = read_plan((self.folder / "plan.txt").read_text(encoding="utf-8"))
        if sorted(sources) != sorted(make_people.FILES):
            self.fail(f"the plan names {sources}")
        verdict = Verdict(self.cases, lines)
        for kind in {case.kind.name: case.kind for case in self.cases}.values():
            own = [case for case in self.cases if case.kind is kind]
            pairs = sum(len(case.records) - 1 for case in own)
            print(f"{kind.name:45} {pairs:4} pairs, {'/'.join(sorted(kind.words)) or '-':28} {kind.does:6} "
                  f"{verdict.kinds[kind.name]:3} of {len(own):3}")
        for wrong in verdict.wrong:
            print("differs:", *wrong)
        print(f"wrong merges: {len(verdict.wrong_merges)}; "
              + ", ".join(f"{tier} {share:.1%}" for tier, share in verdict.shares.items()))
        if not verdict.good:
            self.fail(f"wrong merges: {verdict.wrong_merges}; {verdict.shares}")
        else:
            for name, planted in plant_in_plan(self.cases, lines):
                self.notice(name, not Verdict(self.cases, planted).good)
        return lines

    def check_clean(self, lines, agree):
        """What is written is each of the merged people, with all that any book said, and nobody else."""
        options = ["--merge", "agree"] if agree else []
        for name in ("out.vcf", "again.vcf"):
            told = self.run("clean", *make_people.FILES, "-o", name, *options)
        merges = [line[2] for line in lines if line[0] == "merge" or agree and line[1] == "agree"]
        expected = merged_book.expected(self.records, merges)
        text = (self.folder / "out.vcf").read_text(encoding="utf-8")
        if text != (self.folder / "again.vcf").read_text(encoding="utf-8"):
            self.fail("the second time it is another book")
        problems = merged_book.problems(expected, self.lists, merged_book.read(text))
        for problem in problems[:10]:
            self.fail(f"out.vcf: {problem}")
        read, written = len(self.records) + len(self.lists), len(expected) + len(self.lists)
        counts = f"{read} read   {read - written} merged away   {written} written   0 values lost"
        if counts not in re.sub(r"(?<=\d)[ \u00a0](?=\d{3})", "", told):
            self.fail(f"it tells {told!r}, not {counts!r}")
        for name, planted in merged_book.plant(text):
            found = merged_book.problems(expected, self.lists, merged_book.read(planted))
            self.notice(name, set(found) - set(problems))


def main():
    with tempfile.TemporaryDirectory() as folder:
        test = Test(pathlib.Path(sys.argv[1]).resolve(), pathlib.Path(folder))
        test.check_rules()
        lines = test.check_plan()
        test.check_clean(lines, False)
        for name in ("out.vcf", "again.vcf"):
            (test.folder / name).unlink()
        test.check_clean(lines, True)
    people = sum(case.people for case in test.cases)
    print(f"{people} people, {len(test.records)} records, {test.planted} planted mistakes, {test.failed} failed")
    return 1 if test.failed or people < 1000 else 0


if __name__ == "__main__":
    sys.exit(main())
