"""Writes people as vCard 3, vCard 4 and LDIF, and tells the line on which each begins."""

import base64

FILES = ("old.vcf", "new.vcf", "work.ldif")
LDIF_PHONES = {"work": "telephoneNumber", "home": "homePhone", "cell": "mobile"}
LDIF_FIELDS = {"ORG": "o", "TITLE": "title", "NOTE": "description", "NICKNAME": "mozillaNickname"}


class Record:
    """What one book says of somebody: the name and its parts, addresses, phones and other fields.

    `blank` are fields without content, `reach_first` has the phones before the name, `given` is None where
    the book has no parts of the name. `members` are the records of a list."""

    def __init__(self, fn="", given=None, family=None, emails=(), phones=(), other=()):
        self.fn, self.given, self.family = fn, given, family
        self.emails, self.phones, self.other = list(emails), list(phones), list(other)
        self.blank, self.members, self.pad, self.reach_first = [], None, "", False
        self.cards_only = False
        self.file = self.line = None

    def copy(self, **changes):
        new = Record(self.fn, self.given, self.family, self.emails, self.phones, self.other)
        new.cards_only = self.cards_only
        for name, value in changes.items():
            setattr(new, name, value)
        return new

    def place(self):
        return f"{self.file}:{self.line}"

    def dn(self):
        parts = [f"cn={self.fn}"] if self.fn else []
        # A comma parts what a name is made of.
        return ",".join(parts + [f"mail={mail}" for mail in self.emails[:1]]).replace(", ", " ")


def escaped(text):
    return text.replace("\\", "\\\\").replace(",", "\\,").replace(";", "\\;").replace("\n", "\\n")


def folded(line):
    pieces, piece = [], ""
    for letter in line:
        if len((piece + letter).encode()) > 74:
            pieces.append(piece)
            piece = ""
        piece += letter
    return "\r\n ".join(pieces + [piece]) + "\r\n"


def card(record, version):
    pad = record.pad
    name = [f"FN:{pad}{escaped(record.fn)}{pad}" if record.fn else "FN:"]
    if record.given is not None:
        name.append(f"N:{pad}{escaped(record.family)}{pad};{pad}{escaped(record.given)}{pad};;;")
    elif version == 3:
        name.append("N:;;;;")
    reach = [f"EMAIL:{pad}{mail}{pad}" for mail in record.emails]
    reach += [f"TEL;TYPE={kind}:{pad}{number}{pad}" for kind, number in record.phones]
    other = [f"{field}:{escaped(value)}" for field, value in record.other]
    other += [{"ADR": "ADR:;;;;;;", "ORG": "ORG:;"}.get(field, f"{field}:  ") for field in record.blank]
    if record.members is not None:
        kind, member = ("KIND", "MEMBER") if version == 4 else ("X-ADDRESSBOOKSERVER-KIND",
                                                                "X-ADDRESSBOOKSERVER-MEMBER")
        other += [f"{kind}:group"] + [f"{member}:mailto:{one.emails[0]}" for one in record.members]
    lines = other + reach[::-1] + name if record.reach_first else name + reach + other
    return "".join(map(folded, ["BEGIN:VCARD", f"VERSION:{version}.0"] + lines + ["END:VCARD"]))


def ldif_line(name, value):
    plain = value.isascii() and value == value.strip() and value[:1] not in ("<", ":") and value
    text = f"{name}: {value}" if plain else f"{name}:: {base64.b64encode(value.encode()).decode()}"
    return text[:76] + "".join("\n " + text[i:i + 75] for i in range(76, len(text), 75)) + "\n"


def entry(record):
    pad = record.pad
    lines = [("dn", record.dn())]
    name = [("cn", pad + record.fn + pad)] if record.fn else []
    if record.given is not None:
        name += [("sn", pad + record.family + pad)] if record.family else []
        name += [("givenName", pad + record.given + pad)] if record.given else []
    reach = list(zip(("mail", "mozillaSecondEmail"), (pad + mail + pad for mail in record.emails), strict=False))
    reach += [(LDIF_PHONES[kind], pad + number + pad) for kind, number in record.phones]
    other = [(LDIF_FIELDS[field], value) for field, value in record.other]
    other += [("street" if field == "ADR" else LDIF_FIELDS[field], "  ") for field in record.blank]
    lines += [("objectclass", "person" if record.members is None else "groupOfNames")]
    lines += other + reach[::-1] + name if record.reach_first else name + reach + other
    lines += [("member", one.dn()) for one in record.members or ()]
    return "".join(ldif_line(*line) for line in lines) + "\n"


def write(records, folder):
    """Writes the files, and puts into each record where it stands."""
    for number, name in enumerate(FILES):
        texts = ["version: 1\n\n" if number == 2 else ""]
        line = 1 + texts[0].count("\n")
        for record in (one for one in records if one.file == name):
            record.line = line
            texts.append(entry(record) if number == 2 else card(record, 3 + number))
            line += texts[-1].count("\n")
        (folder / name).write_text("".join(texts), encoding="utf-8", newline="")
    return [folder / name for name in FILES]
