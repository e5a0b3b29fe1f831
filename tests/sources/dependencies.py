"""What the project depends on is explained, and nothing else is."""

import re

DOCUMENT = "docs/dependencies.md"
# Where packages are asked for: a file, and what stands around their names there.
LISTS = (
    ("setup.sh", r"packages=\(([^()]*)\)"),
    ("packaging/debian/package.cmake", r'CPACK_DEBIAN_PACKAGE_DEPENDS\s+"([^"]*)"'),
)
# Libraries that are linked are found by the tools that make the package.
LINKED = re.compile(r"lib[\w.+-]*\d")


def asked_for(tree):
    """The packages, each with the place where it is asked for."""
    found = {}
    for path, pattern in LISTS:
        text = re.sub(r"#[^\n]*", "", tree.text(path)) if path in tree.files else ""
        for one in re.finditer(pattern, text):
            for name in re.finditer(r"[^\s,]+", one[1]):
                line = text.count("\n", 0, one.start(1) + name.start()) + 1
                found.setdefault(name[0], (path, line))
    return found


def explained(tree):
    """The packages that begin a row of the tables below a head "package", with their lines."""
    inside = False
    for number, line in tree.lines(DOCUMENT) if DOCUMENT in tree.files else ():
        first = line.split("|")[1].strip() if line.startswith("|") else None
        inside = first is not None and (inside or first == "package")
        for name in re.findall(r"`([^`]+)`", first) if inside else ():
            yield name, number


def dependencies(tree):
    wanted = asked_for(tree)
    rows = list(explained(tree))
    seen = {}
    for name, line in rows:
        if name in seen:
            yield DOCUMENT, line, f"{name} is in line {seen[name]} already"
        elif name not in wanted and not LINKED.fullmatch(name):
            yield DOCUMENT, line, f"nothing asks for {name}"
        seen.setdefault(name, line)
    for name, (path, line) in wanted.items():
        if name not in seen:
            yield path, line, f"{name} has no row in {DOCUMENT}"
