"""Each way to break a rule about documents, comments and single files."""

from breach import Breach, created, inserted, removed, replaced, saying

DOCUMENT = "docs/architecture.md"
HANDLERS = [
    Breach(
        "handlers",
        f"{DOCUMENT}:1",
        "no table",
        [replaced(DOCUMENT, "| subsystem", "| command")],
    ),
    Breach(
        "handlers",
        "src/app/form1_tables.cpp:1",
        "names no handler",
        [
            removed("src/app/form1_tables.cpp"),
            created("src/app/form1_tables.cpp", "// The form's handlers.\n"),
        ],
    ),
    Breach(
        "handlers",
        "src/app/form1_tables.cpp:4",
        "mnuAlphAddr_Click is in no row",
        [replaced(DOCUMENT, " `mnuAlphAddr_Click`", "")],
    ),
    Breach(
        "handlers",
        f"{DOCUMENT}:10",
        "mnuOpen_Click is in line 9 already",
        [replaced(DOCUMENT, "`cmdEmail_Click`", "`cmdEmail_Click` `mnuOpen_Click`")],
    ),
    Breach(
        "handlers",
        f"{DOCUMENT}:9",
        "Form_Unload is no handler",
        [replaced(DOCUMENT, "`mnuOpen_Click`", "`mnuOpen_Click` `Form_Unload`")],
    ),
    Breach(
        "handlers",
        f"{DOCUMENT}:9",
        "mnuOpen_Click is not defined in src/files/open.cpp",
        [replaced("src/files/open.cpp", "void Form1::mnuOpen_Click() {", "void Open() {")],
    ),
    Breach(
        "handlers",
        "src/files/open.cpp:6",
        "mnuOpen_Click belongs into src/listops/sort.cpp",
        [replaced(DOCUMENT, "src/files/open.cpp", "src/listops/sort.cpp")],
        more=1,
    ),
    saying(
        "handlers",
        "src/files/open.h",
        "inline void Form1::cmdEmail_Click() {",
        "belongs into",
        2,
    ),
    saying(
        "handlers",
        "src/app/form1.h",
        "    void cmdEmail_Click() {",
        "defined in the header",
        5,
    ),
    saying(
        "handlers",
        "src/app/form1.h",
        "    void cmdEmail_Click() { Sort(); }",
        "in the header",
        5,
    ),
]

PACKAGES = "docs/dependencies.md"
DEPENDENCIES = [
    saying("dependencies", "setup.sh", "    cmake", f"cmake has no row in {PACKAGES}", 3),
    Breach(
        "dependencies",
        "setup.sh:5",
        "file has no row",
        [replaced(PACKAGES, " `file`", "")],
    ),
    Breach(
        "dependencies",
        "packaging/debian/package.cmake:3",
        "libpaint has no row",
        [replaced("packaging/debian/package.cmake", "6-sqlite", "6-sqlite, libpaint")],
    ),
    Breach(
        "dependencies",
        f"{PACKAGES}:8",
        "nothing asks for make",
        [replaced(PACKAGES, " `file`", " `file` `make`")],
    ),
    Breach(
        "dependencies",
        f"{PACKAGES}:8",
        "libc6 is in line 7 already",
        [replaced(PACKAGES, " `file`", " `file` `libc6`")],
    ),
    Breach(
        "dependencies",
        "setup.sh:3",
        "g++ has no row",
        [removed(PACKAGES)],
        more=2,
    ),
]

PATHS = [
    saying("paths", "README.md", "The code is in src/nothing.", "no src/nothing"),
    saying("paths", "README.md", "Read [this](docs/nothing.md).", "no docs/nothing.md"),
    saying("paths", "docs/levels/inside.md", "Read [this](architecture.md).", "no architecture.md"),
    saying("paths", "README.md", "Read `nothing.h`.", "no nothing.h"),
    saying("paths", "README.md", "Read `files/csv_reader.h`.", "no files/csv_reader.h"),
    saying("paths", "README.md", "Run `./nothing.sh`.", "no ./nothing.sh"),
    saying("paths", "README.md", "See `src/*/nothing.h`.", "no src/*/nothing.h"),
    saying("paths", "README.md", "See `src/NAME/nothing.h`.", "no src/NAME/nothing.h"),
    saying(
        "paths",
        "README.md",
        "See `tests/unit/<folder>/no_*.cpp`.",
        "no tests/unit/<folder>/no_*.cpp",
    ),
    saying("paths", "check.sh", 'cat "$root"/docs/nothing.md', "no docs/nothing.md", 4),
    saying("paths", "check.sh", 'cat "$root/samples/nothing"', "no samples/nothing", 4),
    saying("paths", "check.sh", "# Read by nothing.py.", "no nothing.py", 2),
    saying(
        "paths",
        "src/CMakeLists.txt",
        "set(x ${PROJECT_SOURCE_DIR}/help/no.css)",
        "no help/no.css",
    ),
    Breach("paths", "x.cmake:1", "no docs/none", [created("x.cmake", "file(READ docs/none)\n")]),
    Breach("paths", "x.py:2", "no docs/none", [created("x.py", '"""Reads\ndocs/none"""\n')]),
    saying("paths", "src/files/open.h", "/* See\n   src/files/none.h */", "no src/files/none.h", 2),
    saying("paths", "src/files/open.h", "int a = '\"';  // none.cpp, not \"x\"", "no none.cpp", 2),
    saying("paths", "src/files/open.h", "int a = 1'000;  // none.cpp isn't", "no none.cpp", 2),
    saying("paths", "README.md", "Read docs/README.md.", "no docs/README.md"),
    saying("paths", "src/files/open.cpp", "// As files/none.cpp says.", "no files/none.cpp", 1),
    saying("paths", "tests/unit/failure.h", "// See docs/none.md.", "no docs/none.md", 1),
    saying("paths", "help/help.css", "/* See docs/none.md */", "no docs/none.md", 2),
    saying("paths", "help/index.html", "<!-- See docs/none.md -->", "no docs/none.md", 2),
]

# What no file may say is put together here, so that this one does not either.
FILES = [
    *(
        saying("wording", path, first + second, f"'{first}{second}' names a paper")
        for path, first, second in (
            ("README.md", "Spec", "ification"),
            ("README.md", "spec", ".md"),
            ("README.md", "as spec", "ified"),
            ("check.sh", "the sp", "ec"),
            ("help/help.css", "decis", "ions.md"),
            ("src/files/open.h", "Decisi", "on 12"),
            ("tests/scenarios/open/list.scn", "sha", "red/"),
        )
    ),
    saying("wording", "src/files/open.h", "// As the\n// sp" + "ec says.", "names a paper"),
    saying("scenarios", "tests/scenarios/open/list.scn", '> List1 ""', "begins with", 2),
    saying("scenarios", "tests/scenarios/open/list.scn", "press cmdEmail", "ends without", 5),
    Breach(
        "scenarios",
        "tests/scenarios/none.scn:1",
        "no step",
        [created("tests/scenarios/none.scn", "# Nothing\n")],
    ),
    Breach(
        "length",
        "src/files/open.h:401",
        "401 lines",
        [inserted("src/files/open.h", 2, "\n" * 399)],
    ),
    Breach("length", "tests/run.py:401", "500 lines", [created("tests/run.py", "\n" * 500)]),
]

BREACHES = HANDLERS + DEPENDENCIES + PATHS + FILES
