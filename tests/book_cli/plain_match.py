"""Finds duplicates the plain way, by rules that can be left out: a program that lacks one of them would write the
plan that comes of it, and whoever judges plans has to notice."""

import itertools
import unicodedata

# Each may be left out.
RULES = ("case of names", "case of addresses", "case of other fields", "accents", "compatibility forms",
         "order of words", "punctuation of phones", "domains in ASCII", "fields without content", "order of values",
         "blanks around values", "contained", "an address or a phone in common", "bare names are asked about",
         "parts of two are asked about", "a phone is not enough", "names are compatible", "single values",
         "typing errors", "initials", "lone given names", "agreeing is not enough", "an address is not enough",
         "a name is not enough", "a nameless record is a part", "accents count in domains",
         "tags and dots count in addresses", "all digits count", "shared addresses", "shared names")


def without_marks(text):
    text = unicodedata.normalize("NFD", text)
    return unicodedata.normalize("NFC", "".join(one for one in text if not "\u0300" <= one <= "\u036f"))


class Keys:
    """What of a record counts."""

    def __init__(self, record, less):
        def has(rule):
            return rule != less
        name = record.pad + record.fn + record.pad
        mails = [record.pad + mail + record.pad for mail in record.emails]
        phones = [record.pad + number + record.pad for _, number in record.phones]
        if has("blanks around values"):
            name, mails, phones = name.strip(), [t.strip() for t in mails], [t.strip() for t in phones]
        if has("compatibility forms"):
            name = unicodedata.normalize("NFKC", name)
        if has("case of names"):
            name = name.casefold()
        if has("accents"):
            name = without_marks(name)
        words = name.replace(",", "").split(" ") if has("order of words") else [name]
        self.name = tuple(sorted(words)) if name else ()
        self.mails = [self.mail(mail, has) for mail in mails]
        if has("punctuation of phones"):
            phones = ["".join(one for one in number if one.isdigit()) for number in phones]
        if not has("all digits count"):
            phones = [number[-7:] for number in phones]
        self.phones = phones
        other = list(record.other)
        if not has("fields without content"):
            other += [(field, "") for field in record.blank]
        fold = str.casefold if has("case of other fields") else str
        self.other = {(field, fold(value)) for field, value in other}
        self.single = dict(record.other).get("BDAY") if has("single values") else None
        if not has("single values"):
            self.other = {one for one in self.other if one[0] != "BDAY"}
        ordered = (lambda values: values) if has("order of values") else tuple
        self.whole = (self.name, *(frozenset(one) if has("order of values") else tuple(one)
                                   for one in (self.mails, self.phones)), frozenset(ordered(self.other)))

    @staticmethod
    def mail(mail, has):
        local, _, where = mail.rpartition("@")
        if has("domains in ASCII"):
            where = where.encode("idna").decode() if not where.isascii() else where
        if not has("accents count in domains") and "xn--" in where:
            where = without_marks(where.encode().decode("idna"))
        if not has("tags and dots count in addresses"):
            local = local.split("+")[0].replace(".", "")
        mail = f"{local}@{where}"
        return mail.casefold() if has("case of addresses") else mail


def one_error(first, second):
    """Whether a letter is added, left out or changed."""
    if len(first) > len(second):
        first, second = second, first
    start = next((i for i, (a, b) in enumerate(zip(first, second)) if a != b), len(first))
    rest = first[start + (len(first) == len(second)):]
    return len(second) - len(first) < 2 and rest == second[start + 1:]


def compatible(one, other, less):
    if one.name == other.name or less == "names are compatible":
        return True
    if not one.name or not other.name:
        return False
    short, long = sorted((one.name, other.name), key=len)
    if len(short) < len(long):
        return less != "lone given names" and set(short) <= set(long)
    rest = [word for word in short if word not in long], [word for word in long if word not in short]
    if len(rest[0]) != 1 or len(rest[1]) != 1:
        return False
    (a,), (b,) = rest
    initial = a == b[:1] + "." or b == a[:1] + "."
    return initial and less != "initials" or one_error(a, b) and less != "typing errors"


def contains(whole, part, less):
    if part.name != whole.name and (part.name or less == "a nameless record is a part"):
        return False
    if not (set(part.mails) <= set(whole.mails) and set(part.phones) <= set(whole.phones) and
            part.other <= whole.other):
        return False
    return bool(part.mails or part.phones) or less == ("an address or a phone in common" if part.other else
                                                       "bare names are asked about")


def judged(one, other, less):
    """The word for two records, or none."""
    if one.whole == other.whole:
        return "same"
    if less != "contained" and (contains(one, other, less) or contains(other, one, less)):
        return "contained"
    if set(one.mails) & set(other.mails):
        conflict = one.single and other.single and one.single != other.single
        if compatible(one, other, less) and not conflict:
            return "agree"
        return "address" if less != "shared addresses" else None
    if one.name and one.name == other.name and less != "shared names":
        return "name"
    if less == "a phone is not enough" and set(one.phones) & set(other.phones):
        return "contained"
    return None


MERGED = {"agreeing is not enough": "agree", "an address is not enough": "address", "a name is not enough": "name"}


def plan(records, less=None):
    """The lines of a plan: what to do, the word, and the places."""
    keys = [Keys(record, less) for record in records]
    buckets = {}
    for i, key in enumerate(keys):
        for one in {("name", key.name)} | {("mail", m) for m in key.mails} | {("tel", t) for t in key.phones}:
            buckets.setdefault(one, []).append(i)
    words = {}
    for bucket in buckets.values():
        for i, j in itertools.combinations(bucket, 2):
            word = judged(keys[i], keys[j], less)
            if word:
                words[i, j] = word
    wholes = {}
    for (i, j), word in words.items():
        if word == "contained" and less != "parts of two are asked about":
            part, whole = (j, i) if contains(keys[i], keys[j], less) else (i, j)
            wholes.setdefault(part, set()).add(keys[whole].whole)
    for (i, j), word in words.items():
        bare = any(not (one.mails or one.phones or one.other) for one in (keys[i], keys[j]))
        bare = bare and less != "bare names are asked about"
        asked = bare or any(len(wholes.get(one, ())) > 1 for one in (i, j))
        merge = word in ("same", "contained") and not asked or MERGED.get(less) == word
        yield ("merge" if merge else "ask" if word in ("same", "contained", "agree") or asked else "keep",
               word, [records[i].place(), records[j].place()])
