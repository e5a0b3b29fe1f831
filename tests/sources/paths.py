"""Every path that a document or a comment names leads somewhere."""

import fnmatch
import posixpath
import re

# The broken trees of the self-test: what they name is not here.
INVENTED = "tests/sources/*_breaches.py"

DOCUMENTS = (".md", "CMakeLists.txt", ".cmake", ".sh", ".py")
# Of these only the comments.
SOURCES = (".h", ".cpp", ".css", ".html")

STRING = r'R"(\w*)\((?s:.*?)\)\1"|"(?:[^"\\\n]|\\.)*"|(?<!\d)\'(?:[^\'\\\n]|\\.)+\''
C_COMMENT = rf"{STRING}|(?P<comment>//[^\n]*|/\*(?s:.*?)\*/)"
COMMENTS = {
    ".h": C_COMMENT,
    ".cpp": C_COMMENT,
    ".css": r"(?P<comment>/\*(?s:.*?)\*/)",
    ".html": r"(?P<comment><!--(?s:.*?)-->)",
    # What a document names in passing, it marks.
    ".md": r"(?P<comment>`[^`]+`)",
    "": r"(?m:(?:^|(?<=\s))(?P<comment>#.*$))",
}

# A path from the root, alone or behind the usual names of the root.
ROOT = "|".join(
    rf"(?<={name})" for name in (r"\$root/", r'"\$root"/', r"\$PWD/", r"\$\{PROJECT_SOURCE_DIR\}/")
)
PIECE = r"[\w./*@+-]|<[\w -]+>|\$?\{[^{}\s]*\}|\$\w+"
ROOTED = re.compile(
    rf"(?:(?<!\]\()(?<![\w./~$}}>*@-])|{ROOT})"
    rf"(?:src|tests|docs|help|packaging|samples)/(?:{PIECE})*"
    r"|(?<![\w./~$}\"])\./[\w-]+\.sh\b"
)
# The name of a file without the way to it, or with the end of the way.
NAME = re.compile(
    r"(?<![\w./~$}<>*@-])(?:[\w*]|<[\w -]+>)(?:[\w./*-]|<[\w -]+>)*"
    r"\.(?:h|cpp|py|sh|cmake|md|qrc|qhp|scn)(?![\w/*-]|\.\w)"
)
LINK = re.compile(r"\]\(([^)\s#]+)")

# What stands for any name: <folder>, ${variable}, {variable}, NAME, and "name" itself.
PLACEHOLDER = re.compile(
    r"<[^>]*>|\$?\{[^}]*\}|\$\w+|\.\*|\b(?!README|CHANGELOG|LICENSE)[A-Z][A-Z_]+\b|\bname\b"
)


def exists(tree, path, anywhere=False):
    """Whether a path or a pattern leads to something, from the root or from anywhere."""
    everything = tree.files | tree.folders
    pattern = ("*/" if anywhere else "/") + PLACEHOLDER.sub("*", path)
    return path in everything or any(fnmatch.fnmatchcase(f"/{one}", pattern) for one in everything)


def comments(path, text):
    """The comments of a file, each with the place where it begins."""
    ending = next((one for one in COMMENTS if one and path.endswith(one)), "")
    for found in re.finditer(COMMENTS[ending], text):
        if found["comment"]:
            yield found.start("comment"), found["comment"]


def named(tree, path, text):
    """Each path that a file names: its place, the path, and whether it leads somewhere."""
    marked = list(comments(path, text))
    for begin, part in [(0, text)] if path.endswith(DOCUMENTS) else marked:
        for found in ROOTED.finditer(part):
            target = found[0].rstrip(".")
            yield begin + found.start(), target, exists(tree, posixpath.normpath(target))
    for begin, part in marked:
        for found in NAME.finditer(part):
            if not found[0].startswith("build/"):
                yield begin + found.start(), found[0], exists(tree, found[0], anywhere=True)
    for found in LINK.finditer(text) if path.endswith(".md") else ():
        if not re.match(r"\w+:", found[1]):
            target = posixpath.normpath(posixpath.join(posixpath.dirname(path), found[1]))
            yield found.start(), found[1], exists(tree, target)


def paths(tree):
    """Documents and comments name what is there."""
    for path in sorted(tree.files):
        text = tree.text(path) if path.endswith(DOCUMENTS + SOURCES) else None
        if text is None or fnmatch.fnmatchcase(path, INVENTED):
            continue
        for place, target, there in named(tree, path, text):
            if not there:
                yield path, text.count("\n", 0, place) + 1, f"there is no {target}"
