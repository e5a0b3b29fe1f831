#!/usr/bin/env python3
"""Makes more than a thousand people of nobody's book, as records in three files, with what is known of each.

    python3 make_people.py FOLDER [SEED]

writes the files and labels.tsv, which has a line for each case: what it is, what a plan may call it, what it may
do, and where the records stand. The seed gives the same bytes again."""

import pathlib
import random
import sys

sys.dont_write_bytecode = True

import people_alike  # noqa: F401, its rows are added to the table
import people_files
import people_kinds
import people_names
from people_files import FILES, Record

SEED = 1904
PEOPLE = 1400
ALONE = people_kinds.Kind("nothing in common with anybody", frozenset(), people_kinds.SILENT, "", 0, None)
# Where the first, second and third record of a case stand; records of LDIF are never merged with one another.
PLACES = ((0, 1, 2), (1, 2, 0), (0, 2, 1), (2, 0, 1), (1, 0, 2), (0, 0, 1), (2, 1, 0), (1, 1, 2))
COUNTRIES = ("+49 30 23125 {:03}", "+44 20 7946 0{:03}")


class Case:
    def __init__(self, kind, alphabet, records, people):
        self.kind, self.alphabet, self.records, self.people = kind, alphabet, records, people


class Maker:
    """Gives people that nobody else has anything in common with."""

    def __init__(self, seed):
        self._rng = random.Random(seed)
        self._names = people_names.Names(self._rng)
        self._counts = {}
        self.alphabet, self.people = "L", 0

    def pick(self, *choices):
        return self._rng.choice(choices)

    def shuffle(self, things):
        self._rng.shuffle(things)

    def number(self, of="number"):
        self._counts[of] = self._counts.get(of, 0) + 1
        return self._counts[of]

    def mail(self):
        """An address of its own; one domain is for many people, so a domain is nothing in common."""
        number = self.number("mail")
        local = "".join(self.pick(*"bdfgklmnprst") + self.pick(*"aeiou") for _ in range(3)) + str(number)
        return f"{local}@{self.pick('', 'mail.', 'boats.')}example.{self.pick('org', 'net', 'com')}"

    def phone(self):
        number = self.number("phone")
        return COUNTRIES[number % 2].format(number // 2)

    def named(self, given, family):
        order = (family, given) if self.alphabet in "JK" else (given, family)
        return Record(" ".join(order), given, family)

    def person(self):
        self.people += 1
        one = self.named(*self._names.person(self.alphabet))
        one.emails, one.phones = [self.mail()], [(self.pick("work", "home", "cell"), self.phone())]
        if self.number("fuller") % 3 == 0:
            one.other = [("ORG", "Ruderklub " + one.family)]
        return one

    def relative(self, person, other=""):
        """Somebody of the same family and address."""
        self.people += 1
        initials = {person.given[0], other[:1]}
        given = self._names.given(self.alphabet, [name for name in people_names.GIVEN[self.alphabet]
                                                  if name[0] in initials])
        one = self.named(given, person.family)
        one.emails, one.phones = list(person.emails), [("cell", self.phone())]
        return one

    def homonym(self, person):
        self.people += 1
        return person.copy(emails=[self.mail()], phones=[("home", self.phone())], other=[])


def place(case, turn):
    """Spreads the records of a case over the files; a case is in two files at least if it can be."""
    order = PLACES[turn % len(PLACES)]
    for i, record in enumerate(case.records):
        number = order[i % 3]
        if number == 2 and record.cards_only:
            number = 0
        if number == 2 and len(case.records) > 3 and i > 2:
            number = 1
        record.file = FILES[number]


def make_lists(maker, cases):
    """Lists of people who are merged or not; two have one name, and one has the name of a person."""
    people = [case.records[-1] for case in cases if case.kind.name in (
        "case of the name", "order of values", "homonyms") and case.records[-1].file == FILES[2]]
    single = [one.records[0] for one in cases if one.kind is ALONE][:8]
    lists = []
    for name, members, file in (("Crew", people[:5], 2), ("Club", people[5:9], 2),
                                ("Crew", single[2:6], 1), (single[0].fn, single[6:8], 0)):
        one = Record(name)
        one.members, one.file = list(members), FILES[file]
        lists.append(one)
    return lists


def make(folder, seed=SEED):
    """Writes the files; their paths, the cases, and the lists."""
    maker, cases = Maker(seed), []
    for kind in people_kinds.KINDS:
        for alphabet in kind.alphabets:
            for _ in range(kind.count):
                maker.alphabet, before = alphabet, maker.people
                records = kind.make(maker, maker.person())
                # A record that is given twice is two records.
                records = [record.copy(blank=record.blank, pad=record.pad, reach_first=record.reach_first)
                           for record in records]
                if kind.does == "merge" and maker.pick(0, 1):
                    records.reverse()
                cases.append(Case(kind, alphabet, records, maker.people - before))
    while maker.people < PEOPLE:
        maker.alphabet = people_names.ALPHABETS[maker.people % 4]
        cases.append(Case(ALONE, maker.alphabet, [maker.person()], 1))
    for turn, case in enumerate(cases):
        place(case, turn)
    lists = make_lists(maker, cases)
    records = [record for case in cases for record in case.records] + lists
    maker.shuffle(records)
    return people_files.write(records, folder), cases, lists


def main():
    folder = pathlib.Path(sys.argv[1])
    paths, cases, lists = make(folder, int(sys.argv[2]) if len(sys.argv) > 2 else SEED)
    lines = [f"{case.kind.name}\t{case.alphabet}\t{' '.join(sorted(case.kind.words))}\t{case.kind.does}\t"
             + " ".join(record.place() for record in case.records) for case in cases]
    (folder / "labels.tsv").write_text("\n".join(lines) + "\n", encoding="utf-8")
    pairs = sum(len(case.records) - 1 for case in cases)
    print(f"{sum(case.people for case in cases)} people, {sum(len(case.records) for case in cases)} records, "
          f"{len(lists)} lists, {pairs} pairs in {len(people_kinds.KINDS)} kinds: {' '.join(map(str, paths))}")


if __name__ == "__main__":
    main()
