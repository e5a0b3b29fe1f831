#!/usr/bin/env python3
"""Writes books of each kind in each old format and reads them again.

Arguments: orvik-book, orvik-batch, the folder of the samples. What is in a source is what the report says
that was lost of it, and the words of its records, which have to stand in the file: they are looked for by a
few lines here, so that nothing of the program judges itself. What the classic commands make of a file that
was written is compared with the people of the book. A word that is planted has to be missed.
"""

import json
import os
import pathlib
import quopri
import re
import subprocess
import sys
import tempfile

BOOK, BATCH = (str(pathlib.Path(name).resolve()) for name in sys.argv[1:3])
SAMPLES = pathlib.Path(sys.argv[3]).resolve()
OLD = pathlib.Path(__file__).resolve().parent / "old"
SCENARIOS = pathlib.Path(__file__).resolve().parent.parent / "scenarios" / "book_writer"
SOURCES = [[OLD / "LIST4C76.PML", OLD / "LIST5029.PML", OLD / "PMAIL1.TXT", OLD / "PMAIL2.TXT"]]
SOURCES += [[path] for path in sorted(OLD.iterdir())
            if path.suffix != ".records" and not path.name.startswith(("LIST", "PMAIL"))]
SOURCES += [[OLD / "PMAIL1.TXT"]] + [[path] for path in sorted(SAMPLES.iterdir())]
# The arguments of a target, whether it is UTF-8, and the detected form.
TARGETS = {
    "book.htm": ([], "cp1252", "Netscape 3 HTML"),
    "book.nv": ([], "cp1252", "Juno address book"),
    "book.pml": ([], "cp1252", "Pegasus Mail distribution list"),
    "book.txt": ([], "utf-8", "plain list"),
    "tagged.txt": (["--to", "pegasus"], "cp1252", "Pegasus Mail addresses as text"),
    "aliases": (["--to", "mutt"], "utf-8", "mutt aliases"),
    "addressbook": (["--to", "pine"], "ascii", "pine address book"),
    "abook": (["--to", "abook"], "utf-8", "abook address book"),
}
# Books that are in the format of a target, which holds all of them.
OWN = {
    "book.htm": ["address.htm", "netscape3.htm"],
    "book.nv": ["addrbook.nv", "juno.nv"],
    "book.pml": ["pegasus.pml"],
    "book.txt": ["list-of-forms.txt", "list.txt"],
    "tagged.txt": ["PMAIL1.TXT"],
    "aliases": ["muttrc"],
    "addressbook": ["dot-addressbook"],
    "abook": ["abook.addressbook"],
}
# What is no value of anybody: housekeeping, and what makes a list one.
SILENT = re.compile(r"UID|REV|PRODID|VERSION|KIND|MEMBER|X-ORVIK-LDIF-(dn|objectclass)|X-ADDRESSBOOKSERVER|"
                    r"X-EVOLUTION-LIST|X-MOZILLA-HTML|CLASS", re.I)
failed = 0


def fail(what):
    global failed
    failed += 1
    print(what[:600])


def run(program, *arguments, cwd):
    environment = dict(os.environ, XDG_CONFIG_HOME=str(cwd / "config"))
    done = subprocess.run([program, *map(str, arguments)], capture_output=True, cwd=cwd, env=environment)
    if done.returncode not in (0, 1):
        fail(f"{arguments}: status {done.returncode}: {done.stderr.decode()}")
    return done.stdout.decode()


def records(folder, *files):
    return [json.loads(line) for line in run(BOOK, "show", "--json", *files, cwd=folder).splitlines()]


def line_of(one):
    members = [member["name"] or member["address"] for member in one["members"]]
    return "|".join([one["kind"], one["name"], *one["nicknames"], *one["emails"], *one["phones"]]) + " : " + ", ".join(members)


def text_of(path, charset):
    """What is in a file, without the escapes of its format."""
    text = path.read_bytes().decode(charset)
    if charset == "ascii":
        text = re.sub(r"\?=\s+=\?UTF-8\?Q\?", "", text)
        text = re.sub(r"=\?UTF-8\?Q\?(.*?)\?=",
                      lambda word: quopri.decodestring(word[1].replace("_", " ")).decode(), text, flags=re.S)
    for entity, letter in (("&lt;", "<"), ("&gt;", ">"), ("&quot;", '"'), ("&amp;", "&")):
        text = text.replace(entity, letter)
    return re.sub(r"&#(\d+);", lambda number: chr(int(number[1])), text).replace("\\", "")


def words_of(value):
    return set(re.findall(r"[^\W_]+", re.sub(r"\\[nN]", " ", value)))


def missing_words(folder, source, text, report):
    """Words of the records that are not told as lost, and those of them that stand nowhere in a file."""
    told = set()
    gone = set()
    lost = set()
    for line in report.splitlines():
        entry = json.loads(line)
        if entry["what"] in ("lost", "skipped"):
            told |= words_of(entry.get("value") or "")
            lost.add((entry["field"], entry.get("value")))
            if entry["field"] == "FN":
                gone.add((entry["file"], entry["line"]))
    there = words_of(text)
    needed = set()
    for one in records(folder, *source):
        if (one["origin"]["file"], one["origin"]["line"]) in gone:
            continue
        for field in one["properties"]:
            if not SILENT.match(field["name"]):
                needed |= words_of(str(field["value"])) - told
    # Dates are without signs, short names without capitals.
    lower = text.lower().replace("-", "")
    return needed, {word for word in needed - there if word.lower() not in lower}


def check_target(folder, source, target, arguments, charset, form):
    written = folder / target
    what = f"{source[0].name} to {target}"
    run(BOOK, "convert", *source, *arguments, "-o", written, "--force", "--allow-loss", "--report", folder / "report",
        cwd=folder)
    report = (folder / "report").read_text(encoding="utf-8")
    text = text_of(written, charset)
    needed, missing = missing_words(folder, source, text, report)
    if missing:
        fail(f"{what}: {sorted(missing)} is not there, and not told")
    if needed:
        longest = max(sorted(needed), key=len)
        planted = re.sub(re.escape(longest), "planted", text, flags=re.I)
        if longest not in missing_words(folder, source, planted, report)[1]:
            fail(f"{what}: {longest}, which was changed, was not missed")
    shown = run(BOOK, "show", written, cwd=folder)
    if f": {form}" not in shown:
        fail(f"{what}: is read as {shown}")
    check_people(folder, source, written, text, report, what)
    # Members who are no record are people, and a list has its file's name, when it is read once.
    second, third = (folder / f"{name}{written.suffix}" for name in ("second", "third"))
    run(BOOK, "convert", written, *arguments, "-o", second, "--force", "--allow-loss", cwd=folder)
    run(BOOK, "convert", second, *arguments, "-o", third, "--force", "--allow-loss", cwd=folder)
    if second.read_bytes() != third.read_bytes():
        fail(f"{what}: written again it is another file")
    if source[0].name in OWN[target] and len(source) == 1:
        found, expected = ([line_of(one) for one in records(folder, *files)] for files in ([written], source))
        if sorted(found) != sorted(expected):
            fail(f"{what}:\n" + "\n".join(sorted(set(found) ^ set(expected))))


def check_people(folder, source, written, text, report, what):
    """Everybody is there with each address, but for those who are told."""
    lost = {(entry["file"], entry["line"]) for entry in map(json.loads, report.splitlines())
            if entry["what"] == "lost" and entry["field"] in ("FN", "EMAIL")}
    addresses = {address for one in records(folder, written) for address in one["emails"]}
    for one in records(folder, *source):
        if one["kind"] == "person" and (one["origin"]["file"], one["origin"]["line"]) not in lost:
            for address in one["emails"]:
                # A page has further ones in the notes.
                if address not in addresses and not (written.suffix == ".htm" and address in text):
                    fail(f"{what}: {address} is missing")


def check_classic(folder, source):
    """What the classic commands list of a file are the people of the book."""
    book = records(folder, *source)
    people = [one for one in book if one["kind"] == "person" and one["emails"]]
    for target in ("book.nv", "book.pml", "book.txt", "book.htm"):
        run(BOOK, "convert", *source, "-o", folder / target, "--force", "--allow-loss", cwd=folder)
        listed = folder / "listed.txt"
        listed.unlink(missing_ok=True)
        run(BATCH, "--open", folder / target, "--save", listed, cwd=folder)
        pairs = re.findall(r'"(.*)" <(.*)>', listed.read_bytes().decode("utf-8" if target == "book.txt" else "cp1252"))
        pairs = [(name.strip(), address) for name, address in pairs]
        if target == "book.htm":
            # They list an address as a nickname, and the other way round.
            pairs = [(name, address) for address, name in pairs]
        for one in people:
            name = "" if one["name"] in one["emails"] else one["name"]
            if '"' in name and target == "book.nv":
                # They cut a name of Juno at its quotes.
                continue
            if target != "book.htm":
                name = name.replace('"', "'")
            if target == "book.htm":
                name = name.replace("&", "&amp;").replace("<", "&lt;").replace(">", "&gt;").replace('"', "&quot;")
            pair = (name, one["emails"][0])
            if target == "book.htm" and one is people[-1] and pairs[-1][1] == pair[1] and name[:-2] == pairs[-1][0]:
                # They have always cut the end of the last name of a page.
                continue
            if pair not in pairs and (name or one["emails"][0] not in listed.read_bytes().decode("cp1252")):
                fail(f"{source[0].name}, {target}: {pair} is not listed: {pairs}")
    return len(people)


def check_scenarios(folder):
    """The scenarios open what is written today."""
    for scenario in sorted(SCENARIOS.glob("*.scn")):
        name, text = re.search(r'^file (\S+) "(.*)"$', scenario.read_text(encoding="utf-8"), re.M).groups()
        run(BOOK, "convert", OLD / "people.vcf", "-o", folder / name, "--force", "--allow-loss", cwd=folder)
        opened = text.encode().decode("unicode_escape").encode("latin-1")
        if opened != (folder / name).read_bytes():
            fail(f"{scenario.name} opens another file: {(folder / name).read_bytes()}")


def main():
    people = 0
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        for source in SOURCES:
            for target, (arguments, charset, form) in TARGETS.items():
                check_target(folder, source, target, arguments, charset, form)
            people += check_classic(folder, source)
        check_scenarios(folder)
    print(f"{len(SOURCES)} books, {len(TARGETS)} formats, {people} people opened, {failed} failures")
    return failed > 0


if __name__ == "__main__":
    sys.exit(main())
