"""The kinds of noise between two records of one person, and the ways in which two people look like one.

Each row of KINDS says what the kind is, which words a plan may use for it, what it may do with it, the
alphabets it is made in and how many of each, the rule that it rests on, and how its records are made."""

import collections

import people_names as names
from people_files import Record

Kind = collections.namedtuple("Kind", "name words does alphabets count make")
KINDS = []
# What a plan does: merge by itself, find and leave it to a person, ask, be silent, or either of the first two.
MERGE, FOUND, ASK, SILENT, EITHER = "merge", "found", "ask", "silent", "either"


def kind(name, words, does, alphabets="LGC", count=3):
    def keep(make):
        KINDS.append(Kind(name, frozenset(words.split()), does, alphabets, count, make))
        return make
    return keep


def spelled(record, change):
    """The record with its whole name, and the parts of it, spelled in another way."""
    return record.copy(fn=change(record.fn), given=change(record.given), family=change(record.family))


def other_mail(person, mails):
    return person.copy(emails=mails)


# ---- The same ----
@kind("nothing but the format", "same", MERGE, "LGCJ", 4)
def copied(m, p):
    return [p, p.copy()]


@kind("three copies", "same", MERGE, "LGCJ")
def thrice(m, p):
    return [p, p.copy(), spelled(p, str.upper)]


@kind("case of the name", "same", MERGE)
def name_case(m, p):
    return [p, spelled(p, m.pick(str.upper, str.lower))]


@kind("case of the address", "same", MERGE, "LGCJ")
def mail_case(m, p):
    return [p, p.copy(emails=[m.pick(str.upper, str.title)(mail) for mail in p.emails])]


@kind("case of firm and title", "same", MERGE)
def firm_case(m, p):
    p.other = [("ORG", p.family + " Bau"), ("TITLE", p.given + " Bau")]
    return [p, p.copy(other=[(field, value.upper()) for field, value in p.other])]


@kind("accents", "same", MERGE, "LGC", 5)
def accents(m, p):
    return [p, p.copy(fn=p.fn.replace(p.family, names.accented(p.family, m.alphabet)),
                      family=names.accented(p.family, m.alphabet))]


@kind("marks apart from their letters", "same", MERGE, "LGCK")
def marks(m, p):
    if m.alphabet != "K":
        p = p.copy(fn=p.fn.replace(p.family, names.accented(p.family, m.alphabet)),
                   family=names.accented(p.family, m.alphabet))
    return [p, spelled(p, names.decomposed)]


@kind("width of letters", "same", MERGE, "LK", 5)
def width(m, p):
    return [p, spelled(p, lambda name: " ".join(map(names.other_width, name.split(" "))))]


@kind("order of words with a comma", "same", MERGE)
def comma(m, p):
    return [p, p.copy(fn=f"{p.family}, {p.given}")]


@kind("order of words", "same", MERGE, "LGCJ")
def word_order(m, p):
    return [p, p.copy(fn=" ".join(p.fn.split(" ")[::-1]))]


@kind("punctuation of phones", "same", MERGE, "LGCJ", 4)
def phones(m, p):
    way = m.pick(lambda t: t.replace(" ", ""), lambda t: t.replace(" ", "-"), lambda t: t.replace(" ", "."),
                 lambda t: "{} ({}) {}".format(*t.split(" ", 2)), lambda t: t.replace(" ", "/"))
    return [p, p.copy(phones=[(sort, way(number)) for sort, number in p.phones])]


@kind("domain in its ASCII form", "same", MERGE, "LGCJ", 4)
def domain(m, p):
    where = f"{names.DOMAINS[m.alphabet]}.example.{m.pick('org', 'net', 'com')}"
    local = p.emails[0].split("@")[0]
    ascii_form = where.encode("idna").decode()
    return [p.copy(emails=[f"{local}@{where}"]), p.copy(emails=[f"{local}@{m.pick(ascii_form, ascii_form.upper())}"])]


@kind("fields without content", "same", MERGE, "LGCJ", 4)
def blank(m, p):
    return [p, p.copy(blank=["NOTE", "ORG", "TITLE", "ADR"])]


@kind("order of values", "same", MERGE, "LGCJ", 4)
def value_order(m, p):
    p.emails = p.emails[:1] + [m.mail()]
    p.phones = [("work", m.phone()), ("home", m.phone())]
    return [p, p.copy(emails=p.emails[::-1], phones=p.phones[::-1], reach_first=True)]


@kind("blanks around values", "same", MERGE, "LGCJ")
def blanks(m, p):
    return [p, p.copy(pad="  ")]


@kind("one value twice", "same contained", MERGE)
def twice(m, p):
    return [p.copy(emails=p.emails[:1]), p.copy(emails=[p.emails[0], p.emails[0].upper()])]


@kind("name and phone without an address", "same", MERGE, "LGCJ")
def no_mail(m, p):
    return [p.copy(emails=[]), spelled(p.copy(emails=[]), str.upper)]


@kind("nothing but an address", "same", MERGE, "L", 4)
def only_mail(m, p):
    return [Record(emails=p.emails[:1]), Record(emails=[p.emails[0].upper()])]


@kind("all of it at once", "same", MERGE)
def all_at_once(m, p):
    new = p.copy(fn=f"{p.family}, {p.given}".upper(), emails=[mail.upper() for mail in p.emails], pad=" ",
                 phones=[(sort, number.replace(" ", "-")) for sort, number in p.phones], blank=["NOTE"])
    return [p, new]


# ---- Contained ----
@kind("fields on one side", "contained", MERGE, "LGCJ", 5)
def more_fields(m, p):
    return [p.copy(other=p.other + [("TITLE", "Cox"), ("NOTE", f"Rows, and steers; boat {m.number()}")]), p]


@kind("second address on one side", "contained", MERGE, "LGCJ", 4)
def more_mail(m, p):
    p.emails = p.emails[:1]
    return [p.copy(emails=p.emails + [m.mail()]), p]


@kind("second phone on one side", "contained", MERGE, "LGCJ", 4)
def more_phones(m, p):
    return [p.copy(phones=p.phones + [("home", m.phone())]), p]


@kind("nameless address", "contained", MERGE, "LGCJ", 4)
def nameless(m, p):
    return [p, Record(emails=p.emails[:1])]


@kind("name and phone of a fuller record", "contained", MERGE, "LGCJ", 4)
def by_phone(m, p):
    way = m.pick(" ", "-", "")
    return [p, Record(p.fn, p.given, p.family, phones=[(sort, number.replace(" ", way)) for sort, number in p.phones])]


@kind("name and address of a fuller record", "contained", MERGE, "LGCJ", 4)
def by_mail(m, p):
    return [p, Record(p.fn, p.given, p.family, [p.emails[0].upper()])]


@kind("fewer fields, all spelled otherwise", "contained", MERGE, "LGC", 4)
def noisy_part(m, p):
    less = Record(f"{p.family}, {p.given}".upper(), p.given.lower(), p.family.lower(), [p.emails[0].title()],
                  [(sort, number.replace(" ", "")) for sort, number in p.phones])
    less.blank = ["TITLE"]
    return [p.copy(other=p.other + [("NOTE", f"Oar {m.number()}")]), less]


# ---- Only asked about ----
@kind("only a name, twice", "same contained agree name", EITHER, "LGCJ")
def bare_twice(m, p):
    return [Record(p.fn, p.given, p.family), spelled(Record(p.fn, p.given, p.family), str.upper)]


@kind("only a name, of a fuller record", "contained agree name", ASK, "LGCJ")
def bare_name(m, p):
    return [p, Record(p.fn, p.given, p.family)]


@kind("name and firm, no reach in common", "contained agree name", FOUND)
def firm_only(m, p):
    p.other = [("ORG", "Bau " + p.family)]
    return [p, Record(p.fn, p.given, p.family, other=p.other)]


@kind("part of two different ones, by phone", "same contained agree name", ASK, "LGCJ")
def two_by_phone(m, p):
    return [p.copy(emails=[m.mail()]), p.copy(emails=[m.mail()]), p.copy(emails=[], other=[])]


@kind("part of two different ones, by address", "same contained agree address", ASK, "LGCJ")
def two_by_mail(m, p):
    return [p, m.relative(p), Record(emails=p.emails[:1])]


# ---- They agree ----
@kind("each has more than the other", "agree", FOUND, "LGCJ", 4)
def each_more(m, p):
    p.emails = p.emails[:1]
    return [p, p.copy(emails=p.emails + [m.mail()], phones=[])]


@kind("each has a second address", "agree", FOUND, "LGCJ", 4)
def each_second(m, p):
    p.emails = p.emails[:1]
    return [p.copy(emails=p.emails + [m.mail()]), p.copy(emails=[m.mail()] + p.emails)]


@kind("each has more, spelled otherwise", "agree", FOUND, "LGC", 4)
def each_noisy(m, p):
    new = spelled(p, str.upper).copy(emails=[p.emails[0].upper(), m.mail()], phones=[])
    return [p.copy(emails=p.emails[:1]), new.copy(fn=f"{p.family}, {p.given}")]


def one_typing_error(m, p, way):
    if m.alphabet == "K":
        return p.copy(given=names.mistyped(p.given, "K", way), fn=p.fn.replace(
            p.given, names.mistyped(p.given, "K", way)))
    wrong = names.mistyped(p.family, m.alphabet, way)
    return p.copy(family=wrong, fn=p.fn.replace(p.family, wrong))


@kind("a letter changed", "agree", FOUND, "LGCK", 4)
def letter_changed(m, p):
    return [p, one_typing_error(m, p, "changed")]


@kind("a letter left out", "agree", FOUND, "LGCK", 4)
def letter_out(m, p):
    return [p, one_typing_error(m, p, "out").copy(phones=[("home", m.phone())])]


@kind("a letter added", "agree", FOUND, "LGCK", 4)
def letter_added(m, p):
    return [p, one_typing_error(m, p, "added").copy(emails=[p.emails[0], m.mail()])]


@kind("an initial for the given name", "agree", FOUND, "LGC", 4)
def initial(m, p):
    return [p, p.copy(given=p.given[0] + ".", fn=f"{p.given[0]}. {p.family}", phones=[("home", m.phone())])]


@kind("no family name", "contained agree", EITHER, "LGCJ")
def no_family(m, p):
    p = m.named(names.GIVEN[m.alphabet][m.number("lone " + m.alphabet)], p.family).copy(
        emails=p.emails, phones=p.phones)
    return [p, p.copy(fn=p.given, family="", phones=[("home", m.phone())])]


@kind("phone of another country", "agree", FOUND, "LGCJ")
def other_country(m, p):
    other = [(sort, number.replace("+49", "+43").replace("+44", "+353").replace("+1 ", "+52 "))
             for sort, number in p.phones]
    return [p, p.copy(phones=other)]


@kind("prefix of a country left out", "same contained agree", EITHER, "LGCJ")
def prefix(m, p):
    _, area, rest = p.phones[0][1].split(" ", 2)
    return [p, p.copy(phones=[(p.phones[0][0], f"0{area} {rest}")])]


@kind("0049 and +49", "same contained agree", EITHER, "LGCJ")
def zeros(m, p):
    return [p, p.copy(phones=[(p.phones[0][0], p.phones[0][1].replace("+", "00"))])]
