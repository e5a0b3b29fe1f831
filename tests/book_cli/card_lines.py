"""What a vCard file says, by regular expressions alone: nothing of the program is used here, so that
whatever it loses is seen."""

import collections
import quopri
import re

# Names that 3.0 has for what 4.0 brought, and what a line without a name is kept under.
OTHER_NAMES = {
    "ANNIVERSARY": "X-ANNIVERSARY",
    "KIND": "X-ADDRESSBOOKSERVER-KIND",
    "MEMBER": "X-ADDRESSBOOKSERVER-MEMBER",
    "NO-FIELD": "NOFIELD",
}
DATES = ("BDAY", "REV", "ANNIVERSARY", "X-ANNIVERSARY")
LISTS = ("NICKNAME", "CATEGORIES")
OF_THE_CARD = re.compile(rb"(?i)\s*(BEGIN|END)\s*:\s*VCARD\s*$|VERSION:")
QUOTED = re.compile(rb"(?i)[^:]*QUOTED-PRINTABLE[^:]*:")
# Where a soft line end was. Blanks behind all of those of a value are indentation.
SOFT = b"\0soft\0"
BASE64 = re.compile(rb"(?i)[^:]*;(ENCODING=)?(BASE64|B)\b[^:]*:")


def goes_on(line, following, version):
    """The line with the next one, if that goes on with it, or None."""
    if QUOTED.match(line) and line.endswith(b"=") and not re.match(rb"(?i)END:VCARD", following):
        return line[:-1] + SOFT + following
    base64 = BASE64.match(line)
    if re.match(rb"[ \t]", following):
        return line + (following if version == b"2.1" and not base64 else following[1:])
    if base64 and re.fullmatch(rb"[A-Za-z0-9+/=]+", following):
        return line + following
    return None


def hardened(line):
    """The line without the signs of its soft ends."""
    begin, *others = line.split(SOFT)
    if all(other[:1] in (b"", b" ", b"\t") for other in others):
        others = [other.lstrip(b" \t") for other in others]
    return begin + b"".join(others)


def unfolded(data):
    """The lines that are not empty, each put together, and the version of its card."""
    text = re.sub(rb"\r\r\n|\r\n|\r|\n", b"\n", data.removeprefix(b"\xef\xbb\xbf"))
    lines = collections.deque(text.split(b"\n"))
    version = b"3.0"
    first = re.search(rb"(?im)^VERSION:\s*([\d.]+)", text)
    version = first[1] if first else version
    while lines:
        line = lines.popleft()
        if re.match(rb"(?i)BEGIN:VCARD", line):
            rest = b"\n" + b"\n".join(lines[i] for i in range(min(len(lines), 30)))
            own = re.search(rb"(?i)\nVERSION:\s*([\d.]+)", rest)
            version = own[1] if own else version
        while lines and (joined := goes_on(line, lines[0], version)) is not None:
            line = joined
            lines.popleft()
        if line.strip():
            yield version, hardened(line)


def decoded(data):
    """UTF-8, also with one letter that was cut; else windows-1252."""
    text = data.decode("utf-8", "replace")
    bad = text.count("\ufffd")
    letters = sum(one > "\x7f" for one in text)
    return text if bad == 0 or (bad == 1 and letters > 1) else data.decode("cp1252", "replace")


def text_of(name, params, value):
    """A value as text, so that it is equal in each version and each encoding."""
    if re.search(rb"(?i)QUOTED-PRINTABLE", params):
        value = quopri.decodestring(value.rstrip(b"="))
    charset = re.search(rb'(?i)CHARSET="?([^;:"]+)', params)
    named = charset[1].decode() if charset else "utf-8"
    text = decoded(value) if named.lower() == "utf-8" else value.decode(named, "replace")
    picture = re.match(r"data:[^;]*;base64\\?,(.*)", text)
    text = picture[1] if picture else text
    if picture or re.search(rb"(?i)(ENCODING=B|BASE64)", params):
        text = re.sub(r"\s", "", text)
    text = re.sub(r"\\[nN]", "\n", text.replace("\r\n", "\n"))
    text = re.sub(r"\\([,;:\\])", r"\1", text)
    if name in DATES:
        text = re.sub("[-:]", "", text)
    if name in ("N", "ORG", "ADR"):
        text = text.rstrip(";")
    # What stands before a UUID, and whether a lone backslash is one, differs between versions.
    return re.sub(r"^urn:uuid:", "", text, flags=re.I).rstrip("\n").replace("\\", "")


def fields(data):
    """Each field of a file: its name and its text."""
    found = []
    for _, line in unfolded(data):
        if OF_THE_CARD.match(line):
            continue
        parts = re.match(rb'((?:[^":]|"[^"]*")*):(.*)$', line, re.S)
        if not parts:
            found.append(("NOFIELD", decoded(line).replace("\\", "")))
            continue
        head, value = parts.groups()
        name = head.split(b";")[0].decode("latin-1").strip().split(".", 1)[-1].upper()
        name = re.sub("^X-ORVIK-VCARD-", "", name)
        name = OTHER_NAMES.get(name, name)
        # Each of several values counts: whether they share a line does not matter.
        values = re.split(rb"(?<!\\),", value) if name in LISTS else [value]
        found += [(name, text_of(name, head, one)) for one in values]
    return found


def missing(source, written):
    """The fields of one file that another one does not have, each as often as it lacks."""
    return list((collections.Counter(fields(source)) - collections.Counter(fields(written))).elements())


def texts(data, name):
    """The texts of all fields of a name that are not empty."""
    return [text for one, text in fields(data) if one == name and text.strip()]
