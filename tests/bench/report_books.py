#!/usr/bin/env python3
"""Books to measure with, as other programs write them: the same ones each time.

Arguments: the form (an ending of FORMS), the number of entries, and the file to make.
"""

import random
import sys

FIRST = ("mary", "john", "anne-marie", "li", "fatima", "oluwaseun", "jo", "alexander")
LAST = ("miller", "o.brien", "ng", "garcia", "papadopoulos", "lee", "van.der.berg", "smith")
HOSTS = ("mail.example", "example.org", "students.university.example", "x.example")
STREETS = ("12 Church Lane", "4 Mill Road", "221 Upper High Street", "7 The Green")
CITIES = ("Ashford", "Little Marlow", "Kingston upon Hull", "Wells")
FIRMS = ("Marlow Choir", "Ng & Lee Printing", "Garcia Brothers", "University of Wells")

CSV_COLUMNS = (
    "Name,E-mail Address,Home Street,Home City,Home Postal Code,Home State,Home Country/Region,"
    "Home Phone,Home Fax,Mobile Phone,Personal Web Page,Business Street,Business City,"
    "Business Postal Code,Business Phone,Company,Job Title,Department,Notes"
)
ABX_COLUMNS = "Class,Name,Organization,Title,Phone,E-mail,Notes"


def people(entries):
    """Nickname and address of each; one in eight has no nickname."""
    chance = random.Random(42)
    for _ in range(entries):
        first, last = chance.choice(FIRST), chance.choice(LAST)
        address = f"{first}.{last}{chance.randrange(1000)}@{chance.choice(HOSTS)}"
        yield "" if chance.randrange(8) == 0 else f"{first} {last}", address


def ldif(entries):
    for nick, address in people(entries):
        yield (
            f"dn: cn={nick},mail={address}\r\ncn: {nick}\r\ngivenname: {nick}\r\n"
            f"xmozillanickname: {nick}\r\nobjectclass: top\r\nobjectclass: person\r\n"
            f"mail: {address}\r\nxnavusehtmlmail: TRUE\r\n\r\n"
        )


def csv(entries):
    """Nearly all have a place and a telephone at home, one in three has them at work, too."""
    chance = random.Random(7)

    def phone():
        return f"+44 1{chance.randrange(100, 1000)} {chance.randrange(100000, 1000000)}"

    yield CSV_COLUMNS + "\r\n"
    for nick, address in people(entries):
        home = [""] * 9
        if chance.randrange(8) > 0:
            home[:3] = chance.choice(STREETS), chance.choice(CITIES), "AB1 2CD"
            home[4] = "United Kingdom"
            home[5] = phone()
            home[7] = phone() if chance.randrange(2) == 0 else ""
        work = [""] * 7
        if chance.randrange(3) == 0:
            work[:4] = chance.choice(STREETS), chance.choice(CITIES), "EF3 4GH", phone()
            work[4:] = chance.choice(FIRMS), "Clerk", ""
        note = "sings in the choir" if chance.randrange(4) == 0 else ""
        yield ",".join([nick, address, *home, *work, note]) + "\r\n"


def abx(entries):
    yield ABX_COLUMNS + "\r\n"
    for nick, address in people(entries):
        yield f'Person,"{nick}",,,,"{address}",\r\n'


def aliases(entries):
    for nick, address in people(entries):
        yield f'alias "{nick}" {address}\r\n'


FORMS = {"ldif": ldif, "csv": csv, "abx": abx, "nndbase.txt": aliases}


def main():
    form, entries, name = sys.argv[1], int(sys.argv[2]), sys.argv[3]
    with open(name, "w", encoding="ascii", newline="") as book:
        book.writelines(FORMS[form](entries))


if __name__ == "__main__":
    main()
