"""What a library finds in a card, compared with what should be there. What is known to differ has a
name and a condition here; anything else is a fault.

A contact is a dictionary with the keys of PARTS and LISTS; what a library found has the same ones.
"""

import collections
import re

NAME = ("family", "given", "additional", "prefix", "suffix")
FIELDS = {"emails": b"EMAIL", "phones": b"TEL"}

KCONTACTS = "KContacts"
EVOLUTION = "Evolution"
GROUPED = "a line of a group is not read"
ESCAPES = "backslashes before ; or before a backslash are undone otherwise"
CUT = "a phone ends at its first ; without a backslash"
BLANKS = "blanks around a value are dropped"
EMPTY = "a line without a value is a value"
ORDER = "the preferred address comes first"
LAST_N = "of several lines N the last one is read"
FIRST_N = "of several lines N the first one is read, whatever its language"
EMPTY_FN = "an empty line FN is taken for the name"
NO_FN = "a card copied without a line FN has no name, or one of N"
CR = "a line end of CR CR LF, copied, leaves a CR"
NO_END = "a card copied without its end is dropped"
# What may differ, and by whom.
KNOWN = {
    KCONTACTS: (GROUPED, ESCAPES, ORDER, LAST_N, EMPTY_FN, NO_FN, CR, NO_END),
    EVOLUTION: (CUT, BLANKS, EMPTY, FIRST_N, EMPTY_FN, NO_FN),
}

Line = collections.namedtuple("Line", "group params value")


class Card:
    """A card as it is written, by regular expressions alone."""

    def __init__(self, data, source):
        self.data = data
        self.copied = data in source
        self.unfolded = re.sub(rb"\r*\n[ \t]", b"", data)

    def ended(self):
        return re.search(rb"(?im)^END:VCARD", self.unfolded)

    def lines(self, name):
        pattern = rb"(?im)^(?:([\w-]+)\.)?%s((?:;[^:\r\n]*)?):([^\r\n]*)" % name
        return [Line(*one) for one in re.findall(pattern, self.unfolded)]


def cards(data, source):
    """The cards of a file, which is cut where a line begins one."""
    pieces = re.split(rb"(?im)^(?=BEGIN:VCARD)", data)
    return [Card(one, source) for one in pieces if re.match(rb"(?i)BEGIN:", one)]


def plain(value):
    """A value without its escapes."""
    text = value.decode("utf-8", "replace")
    return re.sub(r"\\(.)", lambda one: "\n" if one[1] in "nN" else one[1], text)


def five(parts):
    return (parts + [""] * 5)[:5]


def components(value):
    """The parts of a line N as texts. Values of one part stay joined by commas."""
    return five([plain(one) for one in re.findall(rb"(?:^|(?<=;))((?:\\.|[^\\;])*)(?:;|$)", value)])


def plain_in_order(value):
    """A value without its escapes as KContacts undoes them: one kind after the other."""
    text = value.decode("utf-8", "replace")
    for escape, sign in ((r"\n", "\n"), (r"\N", "\n"), (r"\r", "\r"), (r"\,", ","), ("\\\\", "\\")):
        text = text.replace(escape, sign)
    return text


def components_in_order(value):
    parts = re.split(r"(?<!\\);", plain_in_order(value))
    return five([one.replace(r"\;", ";") for one in parts])


def text_reason(card, wanted, found):
    """Why two texts differ: "" if they do not, None if nobody knows."""
    if found == wanted:
        return ""
    if found == wanted + "\r" and card.copied and b"\r\r\n" in card.data:
        return CR
    return BLANKS if found == wanted.strip() else None


def name_reasons(card, wanted, found):
    """Why each part of a name differs. KContacts or Evolution may have taken another line, or undone
    its escapes otherwise."""
    lines = [one.value for one in card.lines(b"N")]
    parts = [found[part] for part in NAME]
    otherwise = None
    if [wanted[part] for part in NAME] not in map(components, lines):
        pass
    elif len(lines) > 1 and parts == components_in_order(lines[-1]):
        otherwise = LAST_N
    elif len(lines) > 1 and parts == components(lines[0]):
        otherwise = FIRST_N
    elif len(lines) == 1 and parts == components_in_order(lines[0]):
        otherwise = ESCAPES
    for part in NAME:
        reason = text_reason(card, wanted[part], found[part])
        yield part, otherwise if reason is None else reason


def shown_reason(card, wanted, found):
    """Why the formatted name differs."""
    lines = [one.value for one in card.lines(b"FN")]
    made_up = f"{found['given']} {found['family']}".strip()
    if wanted["name"] and not lines and card.copied and found["name"] in ("", made_up):
        return NO_FN
    if wanted["name"] and not all(lines) and found["name"] == "":
        return EMPTY_FN
    reason = text_reason(card, wanted["name"], found["name"])
    said = [one for one in lines if plain(one) == wanted["name"]]
    escaped = any(plain_in_order(one) == found["name"] for one in said)
    return ESCAPES if reason is None and escaped else reason


def missing_reason(library, card, key, value, extra):
    """Why a value is not found, and what is there instead."""
    lines = [one for one in card.lines(FIELDS[key]) if plain(one.value) == value]
    if GROUPED in KNOWN[library] and any(one.group for one in lines):
        return GROUPED, None
    if value.strip() != value and extra[value.strip()] > 0:
        return BLANKS, value.strip()
    for one in lines:
        if extra[plain_in_order(one.value)] > 0:
            return ESCAPES, plain_in_order(one.value)
        cut = re.match(rb"(?:\\.|[^\\;])*(?=;)", one.value)
        if cut and extra[plain(cut[0])] > 0:
            return CUT, plain(cut[0])
    return None, None


def list_reasons(library, card, key, wanted, found):
    """Why each value of a list differs, and then its order."""
    lines = card.lines(FIELDS[key])
    extra = collections.Counter(found) - collections.Counter(wanted)
    missing = collections.Counter(wanted) - collections.Counter(found)
    rest = list(wanted)
    for value in missing.elements():
        reason, instead = missing_reason(library, card, key, value, extra)
        if instead is None:
            rest.remove(value)
        else:
            rest[rest.index(value)] = instead
            extra[instead] -= 1
        yield reason
    empty = sum(not one.value for one in lines)
    for value in extra.elements():
        known = value == "" and empty > 0
        empty -= known
        yield EMPTY if known else None
    shown = [one for one in found if one != ""]
    if shown and shown != rest and sorted(shown) == sorted(rest):
        preferred = any(
            plain(one.value) == shown[0] and re.search(rb"(?i)pref", one.params) for one in lines
        )
        rest.remove(shown[0])
        yield ORDER if key == "emails" and shown[1:] == rest and preferred else None


def reasons(library, card, wanted, found):
    """Each way in which a contact differs: what, and its name or None."""
    told = [("name", shown_reason(card, wanted, found)), *name_reasons(card, wanted, found)]
    for key in FIELDS:
        values = list_reasons(library, card, key, wanted[key], found[key])
        told += [(key, reason) for reason in values]
    for what, reason in told:
        if reason != "":
            yield what, reason if reason in KNOWN[library] else None


def differences(library, data, source, wanted, found):
    """Each way in which the contacts of cards differ from what a library found: in words, and its name
    or None. The cards may be copied from the source."""
    written = cards(data, source)
    if len(written) != len(wanted):
        return [(f"{len(written)} cards of {len(wanted)} contacts", None)]
    told = []
    last = written[-1] if written else None
    if len(found) == len(wanted) - 1 and last.copied and not last.ended():
        told.append(("the last card", NO_END if NO_END in KNOWN[library] else None))
    elif len(found) != len(wanted):
        return [(f"{len(found)} contacts of {len(wanted)}", None)]
    for card, one, other in zip(written, wanted, found):
        for what, reason in reasons(library, card, one, other):
            told.append((f"{what}: {one[what]!r}, found {other[what]!r}", reason))
    return told
