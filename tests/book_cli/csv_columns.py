"""The columns that programs write, and what each of them has to hold for a person: a table of its own,
so that nothing of the program judges itself."""

import re

THUNDERBIRD = """First Name|Last Name|Display Name|Nickname|Primary Email|Secondary Email|Screen Name|Work Phone|
Home Phone|Fax Number|Pager Number|Mobile Number|Home Address|Home Address 2|Home City|Home State|Home ZipCode|
Home Country|Work Address|Work Address 2|Work City|Work State|Work ZipCode|Work Country|Job Title|Department|
Organization|Web Page 1|Web Page 2|Birth Year|Birth Month|Birth Day|Custom 1|Custom 2|Custom 3|Custom 4|
Notes""".replace("\n", "").split("|")
GOOGLE = """First Name|Middle Name|Last Name|Phonetic First Name|Phonetic Middle Name|Phonetic Last Name|
Name Prefix|Name Suffix|Nickname|File As|Organization Name|Organization Title|Organization Department|Birthday|
Notes|Photo|Labels""".replace("\n", "").split("|")
GOOGLE_GROUPS = (("E-mail", ("Label", "Value")), ("Phone", ("Label", "Value")),
                 ("Address", ("Label", "Formatted", "Street", "City", "PO Box", "Region", "Postal Code",
                              "Country", "Extended Address")),
                 ("Relation", ("Label", "Value")), ("Website", ("Label", "Value")))
OUTLOOK = """Title|First Name|Middle Name|Last Name|Suffix|Company|Department|Job Title|Business Street|
Business Street 2|Business Street 3|Business City|Business State|Business Postal Code|Business Country/Region|
Home Street|Home Street 2|Home Street 3|Home City|Home State|Home Postal Code|Home Country/Region|Other Street|
Other Street 2|Other Street 3|Other City|Other State|Other Postal Code|Other Country/Region|Assistant's Phone|
Business Fax|Business Phone|Business Phone 2|Callback|Car Phone|Company Main Phone|Home Fax|Home Phone|
Home Phone 2|ISDN|Mobile Phone|Other Fax|Other Phone|Pager|Primary Phone|Radio Phone|TTY/TDD Phone|Telex|
Account|Anniversary|Assistant's Name|Billing Information|Birthday|Business Address PO Box|Categories|Children|
Directory Server|E-mail Address|E-mail Type|E-mail Display Name|E-mail 2 Address|E-mail 2 Type|
E-mail 2 Display Name|E-mail 3 Address|E-mail 3 Type|E-mail 3 Display Name|Gender|Government ID Number|Hobby|
Home Address PO Box|Initials|Internet Free Busy|Keywords|Language|Location|Manager's Name|Mileage|Notes|
Office Location|Organizational ID Number|Other Address PO Box|Priority|Private|Profession|Referred By|
Sensitivity|Spouse|User 1|User 2|User 3|User 4|Web Page""".replace("\n", "").split("|")

OUTLOOK_PHONES = {
    "x-assistant": ["Assistant's Phone"], "fax work": ["Business Fax"],
    "work": ["Business Phone", "Business Phone 2"], "x-callback": ["Callback"], "car": ["Car Phone"],
    "work x-company": ["Company Main Phone"], "fax home": ["Home Fax"],
    "home": ["Home Phone", "Home Phone 2"], "isdn": ["ISDN"], "cell": ["Mobile Phone"],
    "fax other": ["Other Fax"], "other": ["Other Phone"], "pager": ["Pager"], "main": ["Primary Phone"],
    "x-radio": ["Radio Phone"], "x-tty": ["TTY/TDD Phone"], "x-telex": ["Telex"],
}
THUNDERBIRD_PHONES = {"work": ["Work Phone"], "home": ["Home Phone"], "fax": ["Fax Number"],
                      "pager": ["Pager Number"], "cell": ["Mobile Number"]}
SIMPLE = {
    "thunderbird": {"TITLE": "Job Title", "X-AIM": "Screen Name", "X-CUSTOM1": "Custom 1",
                    "X-CUSTOM2": "Custom 2", "X-CUSTOM3": "Custom 3", "X-CUSTOM4": "Custom 4",
                    "FN": "Display Name"},
    "google": {"TITLE": "Organization Title", "X-PHONETIC-FIRST-NAME": "Phonetic First Name",
               "X-PHONETIC-LAST-NAME": "Phonetic Last Name"},
    "outlook": {"TITLE": "Job Title", "ROLE": "Profession", "X-CUSTOM1": "User 1", "X-CUSTOM2": "User 2",
                "X-CUSTOM3": "User 3", "X-CUSTOM4": "User 4", "X-SPOUSE": "Spouse"},
}
NAMES = {
    "thunderbird": ["Last Name", "First Name", None, None, None],
    "google": ["Last Name", "First Name", "Middle Name", "Name Prefix", "Name Suffix"],
    "outlook": ["Last Name", "First Name", "Middle Name", "Title", "Suffix"],
}
FIRMS = {"thunderbird": ["Organization", "Department"], "outlook": ["Company", "Department"],
         "google": ["Organization Name", "Organization Department"]}
GOOGLE_KINDS = {"home": "Home", "work": "Work", "other": "Other", "cell": "Mobile", "main": "Main",
                "pager": "Pager", "fax home": "Home Fax", "fax work": "Work Fax", "fax other": "Other Fax",
                "fax": "Fax", "": "", "x-assistant": "Assistant's phone", "x-callback": "Callback phone",
                "car": "Car phone", "work x-company": "Company phone", "isdn": "ISDN",
                "x-radio": "Radio phone", "x-tty": "Text phone", "x-telex": "Telex"}
MOST_NUMBERED = 30
# Types that say nothing of a place or a thing.
SILENT_TYPES = {"pref", "voice", "internet"}


def header_is_right(header, program):
    """Whether the columns are those of a program, in their order."""
    if program == "thunderbird":
        return header == THUNDERBIRD
    if program.startswith("outlook"):
        return header == OUTLOOK
    rest = header[len(GOOGLE):]
    for name, parts in GOOGLE_GROUPS:
        number = 1
        while rest[:len(parts)] == [f"{name} {number} - {part}" for part in parts]:
            rest = rest[len(parts):]
            number += 1
    return header[:len(GOOGLE)] == GOOGLE and not rest


def unescaped(text):
    return re.sub(r"\\([nN,;:\\])", lambda one: "\n" if one[1] in "nN" else one[1], text)


def without_marks(label):
    """A label without what one program wraps its own ones in."""
    return re.sub(r"^_\$!<(.*)>!\$_$", r"\1", label)


def split(text, separator):
    return [part for part in re.findall(rf"((?:\\.|[^\\{separator}])*)(?:{separator}|$)", text, re.S)]


def parts_of(value):
    """The components of a value, each a list of texts."""
    parts = [[unescaped(one).strip() for one in split(part, ",")][:-1] or [""] for part in split(value, ";")]
    return [[one for one in part if one] for part in parts]


def types_of(one):
    return {text.lower() for text in one["params"].get("TYPE", [])}


def kind_of(one):
    return " ".join(sorted(types_of(one) - SILENT_TYPES, key=lambda kind: (kind != "fax", kind)))


def is_preferred(one):
    return "pref" in types_of(one) or one["params"].get("PREF") == ["1"]


def post_columns(program, number, kind):
    """The columns of a postal address by its components; two of a component are two lines."""
    if program == "google":
        names = ("PO Box", "Extended Address", "Street", "City", "Region", "Postal Code", "Country")
        return [[f"Address {number} - {name}"] for name in names]
    if program == "thunderbird":
        place = kind.capitalize()
        return [[], [f"{place} Address 2"], [f"{place} Address"], [f"{place} City"], [f"{place} State"],
                [f"{place} ZipCode"], [f"{place} Country"]]
    place = {"home": "Home", "work": "Business", "other": "Other"}[kind]
    return [[f"{place} Address PO Box"], [f"{place} Street 2", f"{place} Street 3"], [f"{place} Street"],
            [f"{place} City"], [f"{place} State"], [f"{place} Postal Code"], [f"{place} Country/Region"]]


def date_cells(one, program):
    """What the columns of a date hold; nothing where the program has none for it."""
    found = re.fullmatch(r"(\d{4}|-)-?(\d\d)-?(\d\d)(T.*)?", one["value"])
    if not found or one["params"].get("VALUE") == ["text"]:
        return {}
    year, month, day = found[1].strip("-"), found[2], found[3]
    column = {"BDAY": "Birthday", "ANNIVERSARY": "Anniversary"}[one["name"]]
    if program == "thunderbird" and column == "Birthday":
        return {"Birth Year": year, "Birth Month": month.lstrip("0"), "Birth Day": day.lstrip("0")}
    if program == "google" and column == "Birthday":
        return {column: f"{year or '-'}-{month}-{day}"}
    if program == "outlook" and year:
        return {column: f"{int(month)}/{int(day)}/{year}"}
    return {}
