#!/usr/bin/env python3
"""Checks the help pages, which the help compiler takes as they come.

Argument: the root of the project. Every link, anchor, picture, contents entry and keyword has a
target, every topic that the program calls is there, and every message that the program can show is
on the page about messages.
"""

import collections
import html.parser
import pathlib
import re
import sys
import xml.etree.ElementTree

VOID = {"meta", "link", "img", "br", "hr"}
problems = []


def problem(text):
    problems.append(text)


class Page(html.parser.HTMLParser):
    """The links, anchors, pictures and text of a page."""

    def __init__(self, path):
        super().__init__()
        self.name = path.name
        self.links, self.pictures, self.anchors, self.text = [], [], set(), []
        self.open = []
        self.title = ""
        self.feed(path.read_text(encoding="utf-8"))
        if self.open:
            problem(f"{self.name}: {self.open} not closed")
        if not self.title:
            problem(f"{self.name}: no title")

    def handle_starttag(self, tag, attrs):
        attrs = dict(attrs)
        if tag not in VOID:
            self.open.append(tag)
        if "id" in attrs:
            if attrs["id"] in self.anchors:
                problem(f"{self.name}: two places {attrs['id']}")
            self.anchors.add(attrs["id"])
        if tag == "a":
            self.links.append(attrs["href"])
        if tag == "link":
            self.pictures.append(attrs["href"])
            if attrs.get("type") != "text/css":
                problem(f"{self.name}: Qt takes no style sheet without its type")
        if tag == "img":
            self.pictures.append(attrs["src"])
            if not attrs.get("alt"):
                problem(f"{self.name}: {attrs['src']} without a description")
            if "width" in attrs:
                problem(f"{self.name}: {attrs['src']} would not fit a narrow window")

    def handle_endtag(self, tag):
        if not self.open or self.open.pop() != tag:
            problem(f"{self.name}: </{tag}> closes something else")

    def handle_data(self, data):
        self.text.append(data)
        if self.open and self.open[-1] == "title":
            self.title += data


def target_exists(pages, page, link):
    name, _, anchor = link.partition("#")
    target = pages.get(name or page)
    return target is not None and (not anchor or anchor in target.anchors)


def check_pages(root, pages):
    files = {path.name for path in (root / "help").iterdir()}
    files |= {
        path.name
        for path in (root / "docs/screenshots").glob("*.png")
        if "-dark" not in path.name and "@2x" not in path.name
    }
    for page in pages.values():
        for link in page.links:
            if not re.match(r"(https?|mailto):", link) and not target_exists(pages, page.name, link):
                problem(f"{page.name}: no target for {link}")
        for picture in page.pictures:
            if picture not in files:
                problem(f"{page.name}: no file {picture}")
            stem, _, ending = picture.rpartition(".")
            # The viewer chooses the one for the palette and the screen.
            for variant in ("-dark", "@2x", "-dark@2x") if ending == "png" else ():
                if not (root / "docs/screenshots" / f"{stem}{variant}.png").exists():
                    problem(f"{page.name}: no file {stem}{variant}.png")


def check_project(root, pages):
    project = xml.etree.ElementTree.parse(root / "help/orvik.qhp").getroot()
    in_contents = set()
    for section in project.iter("section"):
        ref = section.get("ref")
        in_contents.add(ref)
        if not target_exists(pages, "", ref):
            problem(f"contents: no target for {ref}")
    for name in pages.keys() - {ref.partition("#")[0] for ref in in_contents}:
        problem(f"{name} is not in the contents")
    keywords = list(project.iter("keyword"))
    for keyword in keywords:
        if not target_exists(pages, "", keyword.get("ref")):
            problem(f"index: no target for {keyword.get('ref')}")
    for name in pages.keys() - {word.get("ref").partition("#")[0] for word in keywords}:
        problem(f"{name} has no word in the index")
    # A word leads to one page; the window would have to ask which.
    counts = collections.Counter(word.get("name").lower() for word in keywords)
    for name, count in counts.items():
        if count > 1:
            problem(f"index: {name} stands there {count} times")


LITERAL = r'"(?:[^"\\]|\\.)*"'
# What a message is made of besides fixed text: numbers, names, and texts found elsewhere in it.
VARIABLE = {"Number", "Text", "Title", "answered", "box", "cli", "const", "copy", "count", "data", "Detail", "dialog",
            "failure", "file_", "keeper", "key", "kind", "list", "no_text", "problem", "std", "string", "text", "to_string", "what"}


def unquote(literal):
    escapes = {"n": "\n", "r": "\r"}
    return re.sub(r"\\(.)", lambda m: escapes.get(m[1], m[1]), literal[1:-1])


def literals(code):
    """The literals of some code, neighbours joined."""
    return [
        "".join(unquote(part) for part in re.findall(LITERAL, run))
        for run in re.findall(rf"{LITERAL}(?:\s*{LITERAL})*", code)
    ]


def arguments(code, start):
    """The first argument of a call whose arguments begin at start, and where it ends."""
    depth, i = 0, start
    while True:
        found = re.compile(rf"{LITERAL}|[(){{}}\[\],]").search(code, i)
        sign = found[0]
        if sign in "({[":
            depth += 1
        elif sign in ")}]":
            depth -= 1
        if depth < 0 or (sign == "," and depth == 0):
            return code[start : found.start()]
        i = found.end()


def body(code, name):
    """The code of a function, empty if it is not defined here."""
    found = re.search(rf"^\S[^\n;]*\b{name}\([^;]*?\) *(?:const )?\{{\n(.*?)^\}}", code, re.M | re.S)
    return found[1] if found else ""


def messages(root):
    """The fixed parts of all messages, with the file that shows them."""
    sources = {
        path: re.sub(r"//[^\n]*", "", path.read_text(encoding="utf-8"))
        for path in sorted((root / "src").rglob("*.*"))
        if path.suffix in (".cpp", ".h") and not re.match(r"help_|main\.cpp", path.name)
    }
    everything = "\n".join(sources.values())
    found = []
    for path, code in sources.items():
        folder = path.relative_to(root / "src").parts[0]
        if folder == "book":
            continue  # It shows nothing: what it says of a record is a line of a report.
        if folder == "desktop":
            for call in re.finditer(r"\btr\(", code):
                for text in literals(arguments(code, call.end())):
                    if re.search(r"[.?!]$", text) and not text.endswith("..."):
                        found.append((path, text))
            continue
        if path.name == "run_time_error.cpp":
            found += [(path, text) for text in literals(code) if not text.startswith("app/")]
        for call in re.finditer(r"\bRunTimeError\([\w:]+(?:\(\w+\))?,", code):
            found += [(path, text) for text in literals(arguments(code, call.end()))]
        for call in re.finditer(r"\b(?:Tell|TellFailed|Ask(?!\(\{)|OfferSave|Fail|Refuse|Note|Waits|Report)\(|\{\.Text = ", code):
            argument = arguments(code, call.end())
            if re.match(r"\s*(?:const )?(?:std::string(?:_view)?[ &]|RunTimeError|MessageBox)", argument) or not argument:
                continue  # a declaration
            found += [(path, text) for text in literals(argument)]
            if folder == "book_cli":
                continue  # What else it says is of the book.
            for name in re.findall(r"[A-Za-z_]\w*", re.sub(LITERAL, "", argument)):
                constant = re.search(rf"\b{name} *=\s*((?:\s*{LITERAL})+);", everything)
                if constant:
                    found += [(path, text) for text in literals(constant[1])]
                elif body(everything, name):
                    found += [(path, text) for text in literals(body(everything, name))]
                elif name == "question":
                    function = code[: call.start()].rfind("\n}")
                    found += [(path, text) for text in literals(code[function : call.start()])]
                elif name not in VARIABLE:
                    problem(f"{path.name}: what does {name} say in a message?")
    return found


def check_messages(root, page):
    shown = " ".join("".join(page.text).split())
    found = messages(root)
    for path, message in found:
        for part in re.split(r"%\d", message):
            part = " ".join(part.split())
            if len(part) > 1 and part not in shown:
                problem(f"{page.name} does not say: {part} ({path.name})")
    return len(found)


def check_topics(root, pages):
    called = set()
    for path in (root / "src").rglob("*.cpp"):
        called |= set(re.findall(r'"(\w+\.html(?:#\w+)?)"', path.read_text(encoding="utf-8")))
    for topic in called:
        if not target_exists(pages, "", topic):
            problem(f"no topic {topic}, which the program calls")
    return len(called)


def main():
    root = pathlib.Path(sys.argv[1])
    pages = {path.name: Page(path) for path in sorted((root / "help").glob("*.html"))}
    check_pages(root, pages)
    check_project(root, pages)
    topics = check_topics(root, pages)
    texts = check_messages(root, pages["troubleshooting.html"])
    # Fewer than there are would mean that the search above has gone blind.
    if topics < 5 or texts < 45:
        problem(f"only {topics} topics and {texts} parts of messages found in the sources")
    print("\n".join(problems) or f"{len(pages)} pages, {topics} topics, {texts} parts of messages")
    return 1 if problems else 0


sys.exit(main())
