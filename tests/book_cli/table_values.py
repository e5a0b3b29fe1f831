"""What stands in the made-up tables, and where each value belongs in a card. Nothing of the program is
used here: a value tells by itself which field it is of."""

# Values that are more than their name: the field, and what is written for it.
OWN = {
    "prefix": "Dr.",
    "given": "Ada",
    "middle": "Berta",
    "family": "Abbott",
    "suffix": "MA",
    "fn": "Ada Abbott",
    "nickname": "ada, aa",
    "email1": "ada@example.org",
    "email2": "ada2@example.org",
    "email3": "ada3@example.org",
    "email4": "ada4@example.org",
    "email1.type": "SMTP",
    "email2.type": "SMTP",
    "email3.type": "SMTP",
    "email1.name": "Ada Abbott (ada@example.org)",
    "email2.name": "Ada Abbott (ada2@example.org)",
    "email3.name": "Ada Abbott (ada3@example.org)",
    "birthday.year": "1980",
    "birthday.month": "4",
    "birthday.day": "12",
    "note": 'Rows,\nand "sings"; \\ often',
    "label": "Rowers;Friends",
    "gender": "Unspecified",
    "priority": "Normal",
    "private": "False",
    "sensitivity": "Normal",
    "wantshtml": "TRUE",
    "emailN": "ada@example.org ::: ada2@example.org",
    "emailN.label": "* Home ::: Work",
    "phoneN": "+1 555 0100 ::: +1 555 0101 ::: +1 555 0102",
    "phoneN.label": "Mobile ::: Home Fax ::: Boat",
    "adrN.label": "Work",
    "adrN.formatted": "Label of adrN",
    "urlN": "https://example.org/urlN",
    "urlN.label": "Home",
    "url": "https://example.org/url",
    "url.home": "https://example.org/url.home",
    "url.work": "https://example.org/url.work",
    "photo": "https://example.org/photo",
    "anniversary": "2005-06-30",
}
# What says nothing, and what only says what is there already.
SILENT = {"email1.type", "email2.type", "email3.type", "email1.name", "email2.name", "email3.name",
          "gender", "priority", "private", "sensitivity"}
GOOGLE_LABELS = "* myContacts ::: Rowers"

SIMPLE = {
    "fn": "FN", "email1": "EMAIL", "email2": "EMAIL", "email3": "EMAIL", "email4": "EMAIL",
    "title": "TITLE", "orgN.title": "TITLE", "role": "ROLE", "note": "NOTE", "nickname": "NICKNAME",
    "url": "URL", "photo": "PHOTO", "im.aim": "X-AIM", "uid": "UID", "mailer": "MAILER",
    "wantshtml": "X-MOZILLA-HTML", "given.phonetic": "X-PHONETIC-FIRST-NAME",
    "family.phonetic": "X-PHONETIC-LAST-NAME", "custom1": "X-CUSTOM1", "custom2": "X-CUSTOM2",
    "custom3": "X-CUSTOM3", "custom4": "X-CUSTOM4",
}
NAME_PARTS = {"family": 0, "given": 1, "middle": 2, "prefix": 3, "suffix": 4}
POST_PARTS = {"pobox": 0, "street": 2, "city": 3, "region": 4, "zip": 5, "country": 6}
PHONES = {
    "": "", "home": "home", "home2": "home", "work": "work", "work2": "work", "mobile": "cell",
    "pager": "pager", "car": "car", "main": "main", "other": "other", "isdn": "isdn",
    "company": "work x-company", "assistant": "x-assistant", "callback": "x-callback",
    "radio": "x-radio", "telex": "x-telex", "tty": "x-tty", "fax": "fax", "fax.home": "home fax",
    "fax.work": "work fax", "fax.other": "other fax",
}


def is_phone(field):
    return field == "phone" or field.startswith("phone.") and field[6:] in PHONES


def phone_number(field):
    return f"+1 555 {200 + sorted(PHONES).index(field[6:]):04}"


def value_of(field, program, language):
    """What a cell of a field holds in the table of a program in a language."""
    if field == "label" and program.startswith("Google"):
        return GOOGLE_LABELS
    if field == "birthday":
        google = program.startswith("Google")
        return ("1980-04-12" if google else "4/12/1980" if language == "en" else
                "1980/4/12" if language == "ja" else "12.04.1980")
    if is_phone(field):
        return phone_number(field)
    return OWN.get(field, f"Value of {field}")


def post_of(field):
    """The address and the component that a field is of, or None."""
    group, _, rest = field.partition(".")
    if group == "adrN":
        group, rest = rest, "adrN"
    place = rest.rstrip("23") if rest != "adrN" else rest
    if place not in ("home", "work", "other", "adrN"):
        return None
    line = rest[len(place):] or ("2" if group == "street2" else "")
    group = group.rstrip("2")
    if group not in POST_PARTS:
        return None
    return "work" if place == "adrN" else place, 1 if line else POST_PARTS[group]


def expected(field, program, language):
    """What a card has to have for a field: name, types, component or None, value; several for a cell of
    several values. None for a field that vCard has not."""
    value = value_of(field, program, language)
    if field in NAME_PARTS:
        return [("N", "", NAME_PARTS[field], value)]
    if field in ("org", "orgN", "dept", "orgN.dept"):
        return [("ORG", "", 0 if field.startswith("org") and field != "orgN.dept" else 1, value)]
    if field in SIMPLE:
        return [(SIMPLE[field], "", None, value)]
    if field in ("url.home", "url.work"):
        return [("URL", field[4:], None, value)]
    if is_phone(field):
        return [("TEL", PHONES[field[6:]], None, value)]
    if post := post_of(field):
        return [("ADR", post[0], post[1], value)]
    if field in ("adr.home", "adr.work", "adr.other", "adr.home.formatted", "adr.work.formatted",
                 "adrN.formatted"):
        kind = "work" if field.startswith("adrN") else field.split(".")[1]
        return [("ADR", kind, 2, value)]
    if field == "label":
        parts = value.split(" ::: " if program.startswith("Google") else ";")
        return [("CATEGORIES", "", None, part) for part in parts]
    if field == "birthday":
        return [("BDAY", "", None, "19800412")]
    if field == "anniversary":
        return [("ANNIVERSARY", "", None, "20050630")]
    if field.startswith("birthday."):
        return [("BDAY", "", None, "19800412")]
    if field == "emailN":
        one, two = value.split(" ::: ")
        return [("EMAIL", "home pref", None, one), ("EMAIL", "work", None, two)]
    if field == "phoneN":
        one, two, three = value.split(" ::: ")
        return [("TEL", "cell", None, one), ("TEL", "home fax", None, two), ("TEL", "", None, three),
                ("X-ABLABEL", "", None, "Boat")]
    if field == "urlN":
        return [("URL", "home", None, value)]
    if field.endswith("N.label") or field in SILENT:
        return []
    return None
