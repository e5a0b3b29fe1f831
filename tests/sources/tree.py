"""The files of the project, as the rules read them."""

import collections
import functools
import pathlib
import re
import subprocess

# What a source includes: the line, whether in quotes, and the name.
Include = collections.namedtuple("Include", "line quoted name")

INCLUDE = re.compile(r'\s*#\s*include\s*(?:"([^"]+)"|<([^>]+)>)')


def list_files(root):
    """What git keeps, or will when it is added; without git all but the build's."""
    command = ["git", "-C", root, "ls-files", "-z", "--cached", "--others", "--exclude-standard"]
    try:
        if not (root / ".git").exists():
            raise FileNotFoundError
        listed = subprocess.run(command, check=True, capture_output=True, text=True).stdout
        found = (root / name for name in listed.split("\0") if name)
    except (OSError, subprocess.CalledProcessError):
        found = root.rglob("*")
    names = {path.relative_to(root).as_posix() for path in found if path.is_file()}
    return {name for name in names if not re.match(r"build/|\.git/", name)}


class Tree:
    """Paths are strings that begin at the root."""

    def __init__(self, root):
        self.root = pathlib.Path(root)
        self.files = list_files(self.root)
        self.folders = {
            parent.as_posix() for name in self.files for parent in pathlib.PurePath(name).parents
        }

    @functools.cache
    def text(self, path):
        """The text of a file, None if its bytes are no text."""
        try:
            text = (self.root / path).read_text(encoding="utf-8")
        except UnicodeDecodeError:
            return None
        return None if "\0" in text else text

    def lines(self, path):
        """The numbered lines of a text."""
        return enumerate((self.text(path) or "").split("\n"), 1)

    def sources(self, *folders):
        """The C++ files below some folders."""
        begins = tuple(f"{folder}/" for folder in folders)
        return sorted(
            path for path in self.files if path.startswith(begins) and path.endswith((".h", ".cpp"))
        )

    @functools.cache
    def includes(self, path):
        found = ((line, INCLUDE.match(text)) for line, text in self.lines(path))
        return [Include(line, bool(at[1]), at[1] or at[2]) for line, at in found if at]

    def resolve(self, path, name):
        """The file that a quoted include of a source means, or None. Tests may include both."""
        for top in ("src", "tests") if path.startswith("tests/") else ("src",):
            if f"{top}/{name}" in self.files:
                return f"{top}/{name}"
        return None

    def own_includes(self, path):
        """The includes of a source that lead to a file of ours, however they are spelled: the line,
        and the file."""
        found = [(one.line, self.resolve(path, one.name)) for one in self.includes(path)]
        return [(line, target) for line, target in found if target]

    def folders_of_src(self):
        """The names of the folders that stand directly in src."""
        return sorted({path.split("/")[1] for path in self.files if re.match(r"src/.*/", path)})


def folder_of(path):
    """The folder of src that a file belongs to, empty for any other file; wings are part of it."""
    found = re.match(r"src/(\w+)/", path)
    return found[1] if found else ""


def wing_of(path):
    """The wing of the window layer that a file belongs to, empty for any other file."""
    found = re.match(r"src/(desktop/\w+)/", path)
    return found[1] if found else ""
