"""The ways in which different people look like one."""

import people_names as names
from people_files import Record
from people_kinds import FOUND, SILENT, kind, spelled


# ---- They share an address ----
@kind("a couple", "address", FOUND, "LGCJ", 5)
def couple(m, p):
    return [p, m.relative(p)]


@kind("a couple with one phone", "address", FOUND, "LGCJ", 4)
def couple_phone(m, p):
    other = m.relative(p).copy(phones=p.phones)
    return [p.copy(emails=p.emails[:1]), other]


@kind("a family, and nothing but the address", "address", FOUND, "LGCJ")
def family(m, p):
    bare = Record(p.fn, p.given, p.family, p.emails[:1])
    second = m.relative(p).copy(phones=[], other=[], emails=p.emails[:1])
    third = m.relative(p, second.given).copy(phones=[], other=[], emails=p.emails[:1])
    return [bare, second, third]


@kind("people of a firm", "address", FOUND, "LGCJ", 4)
def firm(m, p):
    who = [p] + [m.person() for _ in range(m.number() % 3 + 1)]
    shared = "info" + p.emails[0]
    for one in who:
        one.emails, one.other = [shared] + one.emails, [("ORG", "Werft " + p.family)]
    return who


@kind("an office and a person", "address", FOUND, "L", 4)
def office(m, p):
    names_of_offices = ("Sales", "Reception", "Kontor", "Press")
    return [p, Record(names_of_offices[m.number("office") - 1], emails=p.emails[:1], phones=[("work", m.phone())])]


@kind("one name, one address, two birthdays", "address name", FOUND, "LGCJ")
def birthdays(m, p):
    p.cards_only = True
    return [p.copy(other=[("BDAY", "19510412")]), p.copy(other=[("BDAY", "19830927")], phones=[("cell", m.phone())])]


# ---- They share a name ----
@kind("homonyms", "name", FOUND, "LGCJ", 10)
def homonyms(m, p):
    return [p, m.homonym(p)]


@kind("three homonyms", "name", FOUND, "LGCJ")
def three(m, p):
    return [p, m.homonym(p), m.homonym(p)]


@kind("homonyms in another case", "name", FOUND)
def homonyms_case(m, p):
    return [p, spelled(m.homonym(p), str.upper)]


@kind("homonyms with an accent", "name", FOUND)
def homonyms_accent(m, p):
    wrong = names.accented(p.family, m.alphabet)
    return [p, m.homonym(p).copy(family=wrong, fn=p.fn.replace(p.family, wrong))]


@kind("homonyms, words in another order", "name", FOUND, "LGCJ")
def homonyms_order(m, p):
    return [p, m.homonym(p).copy(fn=" ".join(p.fn.split(" ")[::-1]))]


@kind("homonyms with one phone", "name", FOUND, "LGCJ", 4)
def homonyms_phone(m, p):
    return [p, m.homonym(p).copy(phones=p.phones)]


@kind("homonyms of one firm", "name", FOUND, "LGCJ")
def homonyms_firm(m, p):
    p.other = [("ORG", "Werft " + p.family)]
    return [p, m.homonym(p).copy(other=p.other)]


@kind("homonyms, one with a phone only", "name", FOUND, "LGCJ")
def homonyms_reach(m, p):
    return [p.copy(phones=[]), Record(p.fn, p.given, p.family, phones=p.phones)]


@kind("addresses less a letter, a dot or a tag", "name", FOUND, "LGCJ", 4)
def near_mail(m, p):
    local, where = p.emails[0].split("@")
    return [p, m.homonym(p).copy(emails=[m.pick(f"{local}x@{where}", f"{local[:3]}.{local[3:]}@{where}",
                                                f"{local}+list@{where}", f"{local}@{where}.example.org")])]


@kind("domains less an accent", "name", FOUND, "L", 4)
def near_domain(m, p):
    local = p.emails[0].split("@")[0]
    first, second = names.DOMAINS["L"], names.DOMAINS_WITHOUT_ACCENTS["L"]
    return [p.copy(emails=[f"{local}@{first}.example.com"]),
            m.homonym(p).copy(emails=[f"{local}@{second}.example.com"])]


# ---- They share nothing that counts ----
@kind("a phone of several people", "", SILENT, "LGCJ", 4)
def shared_phone(m, p):
    second, third = m.person(), m.person()
    second.phones = third.phones = p.phones
    return [p, second, third]


@kind("relatives with addresses of their own", "", SILENT, "LGCJ")
def relatives(m, p):
    return [p, m.relative(p).copy(emails=[m.mail()])]


@kind("a firm and a title in common", "", SILENT, "LGCJ")
def colleagues(m, p):
    second = m.person()
    p.other = second.other = [("ORG", "Werft " + p.family), ("TITLE", "Cox")]
    return [p, second]
