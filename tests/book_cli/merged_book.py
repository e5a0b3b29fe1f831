"""Reads a merged vCard, and says what it should hold and does not."""

import collections
import re

import people_files
import plain_match

# Made by the program where a record has none.
SILENT = ("UID", "VERSION", "REV", "PRODID", "KIND", "X-ADDRESSBOOKSERVER-KIND")
MEMBER = ("MEMBER", "X-ADDRESSBOOKSERVER-MEMBER")
CARRIED = "X-ORVIK-MERGED-"
ESCAPES = {"n": "\n", "N": "\n"}


def unescaped(text):
    return re.sub(r"\\(.)", lambda found: ESCAPES.get(found[1], found[1]), text)


class Card:
    """A card as its values, as they are written; those that were carried stand among the others."""

    def __init__(self):
        self.uid, self.members, self.values, self.empty = "", [], [], []

    def add(self, name, value):
        if name == "UID":
            self.uid = value
        elif name in MEMBER:
            self.members.append(value)
        elif name not in SILENT and not name.startswith("X-ORVIK-LDIF"):
            carried = name.startswith(CARRIED)
            name = name.removeprefix(CARRIED)
            # What is carried is a text, whose own escapes are escaped once more.
            value = unescaped(value) if carried and name in ("N", "ORG", "ADR") else value
            if name == "N":
                value = ";".join(unescaped(part).strip() for part in re.split(r"(?<!\\);", value)).rstrip(";")
            else:
                value = unescaped(value).strip()
            if value.strip(";, "):
                self.values.append((name, value))
            elif carried or name == "FN":
                self.empty.append((CARRIED if carried else "") + name)

    def said(self):
        """The values less an address that stands for a name, as a card has to have one."""
        mails = {value for name, value in self.values if name == "EMAIL"}
        return frozenset(one for one in self.values if one[0] != "FN" or one[1] not in mails)


def read(text):
    cards = []
    for line in re.sub(r"\r?\n[ \t]", "", text).splitlines():
        name, _, value = line.partition(":")
        name = name.split(";")[0].split(".")[-1].upper()
        if name == "BEGIN":
            cards.append(Card())
        elif name != "END":
            cards[-1].add(name, value)
    return cards


def values_of(record):
    """All that a record says, as a card would."""
    card = Card()
    for line in re.sub(r"\r\n ", "", people_files.card(record, 4)).splitlines()[2:-1]:
        name, _, value = line.partition(":")
        card.add(name.split(";")[0], value)
    return frozenset(card.values)


def expected(records, merges):
    """The values of each person after merging."""
    place_of = {record.place(): record for record in records}
    group_of = {place: {place} for place in place_of}
    for places in merges:
        group = set().union(*(group_of[place] for place in places))
        for place in group:
            group_of[place] = group
    groups = {id(group): group for group in group_of.values()}
    return [frozenset().union(*(values_of(place_of[place]) for place in group)) for group in groups.values()]


def problems(people, lists, cards):
    """What is lost, made up or mixed up."""
    written = collections.Counter(card.said() for card in cards if not card.members)
    wanted = collections.Counter(people)
    found = [f"nobody has just {sorted(one)}" for one in wanted - written]
    found += [f"nobody knows {sorted(one)}" for one in written - wanted]
    # An empty name before the real one is what other programs show.
    found += [f"of {sorted(card.values)} {name} is there, and is empty" for card in cards for name in card.empty
              if name != "FN" or "FN" in dict(card.values)]
    by_uid = {"urn:uuid:" + card.uid.removeprefix("urn:uuid:"): card for card in cards}
    wanted_lists = collections.Counter(
        (one.fn, frozenset(plain_match.Keys.mail(who.emails[0], lambda rule: True) for who in one.members))
        for one in lists)
    for card in (card for card in cards if card.members):
        mails = [[value for name, value in by_uid[member].values if name == "EMAIL"] if member in by_uid else
                 [member.removeprefix("mailto:")] for member in card.members]
        name = dict(card.values).get("FN", "")
        fits = [one for one in wanted_lists if one[0] == name and len(one[1]) == len(mails) and all(
            any(plain_match.Keys.mail(mail, lambda rule: True) in one[1] for mail in some) for some in mails)]
        if fits:
            wanted_lists[fits[0]] -= 1
        else:
            found.append(f"the list {name} has other members: {mails}")
    return found + [f"the list {name} is not there" for (name, _), count in wanted_lists.items() if count]


def plant(text):
    """The text with one mistake each, by name."""
    for name in ("EMAIL", "TEL", "ORG", "NOTE", "TITLE", "BDAY", "FN", "N", "X-ADDRESSBOOKSERVER-MEMBER",
                 CARRIED + "FN", CARRIED + "N", CARRIED + "EMAIL", CARRIED + "TEL", CARRIED + "ORG"):
        line = re.compile(rf"^{name}[;:].+\r?\n(?: .*\r?\n)*", re.MULTILINE)
        places = list(line.finditer(text))
        # One without a value is missed by nobody.
        # Nor are blanks around a value.
        places = [one for one in places if not re.fullmatch(r"[^:]+:[;\\\s]*", one[0]) and "  " not in one[0]]
        for number in (0, len(places) // 2, -1):
            one = places[number]
            yield f"{name} number {number} is lost", text[:one.start()] + text[one.end():]
        one = places[0]
        yield f"{name} is another", text[:one.end() - 2] + "x" + text[one.end() - 2:]
    cards = text.split("BEGIN:VCARD")[1:]
    for number in (0, len(cards) // 2, len(cards) - 1):
        yield f"card {number} is lost", text.replace("BEGIN:VCARD" + cards[number], "", 1)
        yield f"card {number} is there twice", text + "BEGIN:VCARD" + cards[number]
    for number in range(1, 200, 20):
        ends = [one.start() for one in re.finditer(r"END:VCARD\r?\nBEGIN:VCARD\r?\nVERSION:3.0\r?\n", text)]
        after = re.compile(r"END:VCARD\r?\nBEGIN:VCARD\r?\nVERSION:3.0\r?\n").match(text, ends[number]).end()
        yield f"cards {number} and the next are one", text[:ends[number]] + text[after:]
