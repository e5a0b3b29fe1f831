"""Each way to break a rule about folders, lists and includes."""

from breach import Breach, created, including, inserted, removed, replaced, saying

FOLDERS = [
    including("level", "src/app/form1.cpp", '"files/open.h"', "app includes files"),
    including("level", "src/platform/platform.h", '"app/text.h"', "platform includes app"),
    including("level", "src/listops/sort.h", '"program/program.h"', "listops includes program"),
    including(
        "level",
        "src/program/program.h",
        '"store/settings_store.h"',
        "program includes store",
    ),
    including(
        "level",
        "src/batch/main.cpp",
        '"desktop/views/list_view.h"',
        "batch includes desktop",
    ),
    including("level", "src/book_cli/main.cpp", '"batch/arguments.h"', "book_cli includes batch"),
    including("level", "src/files/open.h", '"book/book.h"', "files does not know book"),
    including("level", "src/program/program.h", '"book/book.h"', "program does not know book"),
    Breach("level", "src/loose.h:1", "no folder", [created("src/loose.h")]),
    Breach(
        "level",
        "src/extra/extra.h:1",
        "no folder that has a level",
        [created("src/extra/extra.h"), created("src/extra/CMakeLists.txt", "add_library(extra)\n")],
    ),
    Breach(
        "mutual",
        "src/formats/csv_commands.cpp:2",
        "formats and files include each other (see src/files/open.cpp:4)",
        [inserted("src/formats/csv_commands.cpp", 2, '#include "files/open.h"')],
        more=1,
    ),
    Breach(
        "mutual",
        "src/files/open.cpp:5",
        "files and listops include each other",
        [
            inserted("src/listops/sort.h", 2, '#include "files/open.h"'),
            inserted("src/listops/sort.cpp", 2, '#include "files/open.h"'),
        ],
    ),
    Breach(
        "mutual",
        "src/listops/sort.h:2",
        "listops and formats include each other (see src/formats/csv_commands.cpp:2)",
        [
            inserted("src/listops/sort.h", 2, '#include "formats/csv_reader.h"'),
            inserted("src/formats/csv_commands.cpp", 2, '#include "files/open.h"'),
        ],
        more=3,
    ),
    Breach(
        "mutual",
        "src/desktop/views/list_view.h:6",
        "desktop/views and desktop/windows include each other",
        [
            inserted(
                "src/desktop/views/list_view.h", 6, '#include "desktop/windows/form1_window.h"'
            )
        ],
        more=1,
    ),
    including(
        "engine",
        "src/formats/csv_reader.cpp",
        '"app/form1.h"',
        "src/app/form1.h is no part",
    ),
    including("engine", "src/app/text.h", '"platform/platform.h"', "no part of the engine"),
    including("engine", "src/store/settings_store.cpp", '"files/open.h"', "no part of the engine"),
    including("engine", "src/store/settings_store.h", '"book/book.h"', "no part of the engine"),
    including("engine", "src/book/book.cpp", '"app/form1.h"', "no part of the engine"),
    including("engine", "src/book/book.h", '"store/settings_store.h"', "no part of the engine"),
    including("engine", "src/book/book.h", '"batch/arguments.h"', "no part of the engine"),
    Breach(
        "engine",
        "src/formats/csv_reader.cpp:2",
        "src/formats/csv_reader.h is no part",
        [
            replaced("src/formats/CMakeLists.txt", " csv_reader.h", ""),
            replaced("src/formats/CMakeLists.txt", "forms ", "forms csv_reader.h "),
            replaced("src/formats/CMakeLists.txt", "tests(engine", "tests(forms"),
        ],
    ),
    # Only the classic folders make up the engine.
    Breach(
        "engine",
        "src/book/book.h:2",
        "src/store/settings_store.h is no part",
        [
            inserted("src/store/CMakeLists.txt", 1, "orvik_sources(engine settings_store.h)"),
            inserted("src/book/book.h", 2, '#include "store/settings_store.h"'),
        ],
    ),
    including("engine-tests", "tests/unit/app/text_test.cpp", '"app/form1.h"', "is nothing for"),
    including(
        "engine-tests",
        "tests/unit/app/text_test.cpp",
        '"testkit/calls.h"',
        "is nothing for",
    ),
    including(
        "engine-tests",
        "tests/unit/app/text_test.cpp",
        '"unit/mock_platform.h"',
        "brings src/platform/platform.h",
    ),
    Breach(
        "engine-tests",
        "tests/unit/app/text_test.cpp:3",
        "tests/unit/failure.h brings src/platform/platform.h",
        [inserted("tests/unit/message.h", 2, '#include "unit/mock_platform.h"')],
    ),
]

LISTS = [
    Breach(
        "listed",
        "src/desktop/CMakeLists.txt:1",
        "missing",
        [removed("src/desktop/CMakeLists.txt")],
    ),
    Breach("listed", "src/files/merge.cpp:1", "in no list", [created("src/files/merge.cpp")]),
    Breach("listed", "src/files/more/merge.h:1", "in no list", [created("src/files/more/merge.h")]),
    saying(
        "listed",
        "src/files/CMakeLists.txt",
        "orvik_sources(forms\n    merge.h)",
        "there is no",
        2,
    ),
    saying("listed", "src/files/CMakeLists.txt", "orvik_sources(forms open.h)", "already", 2),
    saying(
        "listed",
        "src/app/CMakeLists.txt",
        "orvik_sources(forms text.h)",
        "CMakeLists.txt:4)",
        9,
    ),
    Breach(
        "listed",
        "src/listops/CMakeLists.txt:1",
        "form is neither engine nor forms",
        [replaced("src/listops/CMakeLists.txt", "forms", "form")],
    ),
    Breach(
        "listed",
        "src/listops/sort.cpp:1",
        "in no list",
        [replaced("src/listops/CMakeLists.txt", "sort.cpp", "# sort.cpp\n")],
    ),
    Breach(
        "tests-listed",
        "tests/unit/app/form1_test.cpp:1",
        "never run",
        [created("tests/unit/app/form1_test.cpp")],
    ),
    Breach(
        "tests-listed",
        "tests/unit/loose_test.cpp:1",
        "never run",
        [created("tests/unit/loose_test.cpp")],
    ),
    Breach(
        "tests-listed",
        "tests/unit/store/settings_store_test.cpp:1",
        "never run",
        [replaced("src/store/CMakeLists.txt", "orvik_tests(store settings_store_test.cpp)", "")],
    ),
    # The list of tests/unit cannot take a test out of the engine's.
    Breach(
        "tests-listed",
        "tests/unit/app/text_test.cpp:1",
        "never run",
        [
            replaced("src/app/CMakeLists.txt", "text_test.cpp", ""),
            replaced("tests/unit/CMakeLists.txt", "batch/", "app/text_test.cpp batch/"),
        ],
    ),
    saying(
        "tests-listed",
        "src/app/CMakeLists.txt",
        "orvik_tests(forms text_test.cpp)",
        "already",
        11,
    ),
    saying(
        "tests-listed",
        "src/app/CMakeLists.txt",
        "orvik_tests(forms none_test.cpp)",
        "there is no",
        2,
    ),
    saying("tests-listed", "tests/unit/CMakeLists.txt", "batch/arguments_test.cpp", "already", 2),
    saying("tests-listed", "tests/unit/CMakeLists.txt", "batch/none_test.cpp", "there is no", 2),
    Breach(
        "tests-listed",
        "src/app/CMakeLists.txt:10",
        "units is neither engine nor forms",
        [replaced("src/app/CMakeLists.txt", "orvik_tests(engine", "orvik_tests(units")],
    ),
]

INCLUDES = [
    including("spelling", "src/app/form1.cpp", '"../app/text.h"', "not spelled from src"),
    including("spelling", "src/files/open.cpp", "<app/text.h>", "is ours and stands in quotes"),
    including("spelling", "tests/unit/files/open_test.cpp", "<app/text.h>", "stands in quotes"),
    Breach(
        "spelling",
        "src/files/open.cpp:2",
        "is no header",
        [created("src/app/up.inc"), inserted("src/files/open.cpp", 2, '#include "app/up.inc"')],
    ),
    including("spelling", "src/app/form1.cpp", '"text.h"', "not spelled from src"),
    including("spelling", "src/app/form1.cpp", '"./app/text.h"', "not spelled from src"),
    including("spelling", "src/app/form1.cpp", '"app/nothing.h"', "not spelled from src"),
    including("spelling", "src/app/form1.cpp", '"unit/failure.h"', "not spelled from src"),
    including("spelling", "tests/unit/files/open_test.cpp", '"failure.h"', "from src or tests"),
    Breach(
        "names",
        "src/desktop/views/text.h:1",
        "src/app/text.h",
        [created("src/desktop/views/text.h")],
    ),
    Breach(
        "names",
        "tests/testkit/open.cpp:1",
        "src/files/open.cpp",
        [created("tests/testkit/open.cpp")],
    ),
    including("qt", "src/batch/main.cpp", "<QString>", "QString outside desktop"),
    including("qt", "src/app/form1.cpp", "<QtHelp/QHelpEngine>", "outside desktop"),
    including("qt", "tests/unit/app/text_test.cpp", "<QString>", "outside desktop"),
    including("qt", "tests/readers/evolution_cards.cpp", "<QFile>", "outside desktop"),
    including("system", "src/app/text.cpp", "<unistd.h>", "<unistd.h> is not of the C++ library"),
    including("system", "src/files/open.h", "<csignal>", "<csignal> is not"),
    including("system", "src/book/book.cpp", "<sys/stat.h>", "<sys/stat.h> is not"),
    including("system", "src/book/book.cpp", "<unicode/ucnv.h>", "<unicode/ucnv.h> is not"),
    including("system", "src/book/book.cpp", "<uchardet/uchardet.h>", "<uchardet/uchardet.h> is not"),
    including("system", "src/app/text.cpp", "<glib.h>", "<glib.h> is not"),
    including("system", "src/book_cli/main.cpp", "<linux/fs.h>", "<linux/fs.h> is not"),
    including("system", "src/batch/main.cpp", "<unistd.h>", "<unistd.h> is not"),
    including("system", "src/store/settings_store.cpp", "<sys/file.h>", "<sys/file.h> is not"),
    including("system", "src/batch/arguments.h", "<unistd.h>", "<unistd.h> is not"),
    including("system", "src/platform/platform.h", "<dirent.h>", "<dirent.h> is not"),
    including("system", "src/files/open.h", "<CLI/CLI.hpp>", "<CLI/CLI.hpp> is not"),
]

DISK = [
    including("disk", "src/app/text.cpp", "<filesystem>", "<filesystem> goes past"),
    including("disk", "src/files/open.cpp", "<fstream>", "<fstream> goes past"),
    including("disk", "src/book/book.cpp", "<cstdio>", "<cstdio> goes past"),
    including("disk", "src/platform/file_system.h", "<fstream>", "<fstream> goes past"),
    *(
        saying("disk", path, code, f"{asks} goes past")
        for path, code, asks in (
            ("src/files/open.cpp", "bool a = std::filesystem::exists(b);", "filesystem::exists"),
            ("src/files/open.cpp", "auto a = fs::file_size(b);", "fs::file_size"),
            ("src/app/text.cpp", "if (exists(path)) {", "exists"),
            ("src/book_cli/main.cpp", "for (auto a : directory_iterator(b)) {", "directory_iterator"),
            ("src/platform/file_system.h", "inline bool a = remove (b);", "remove"),
            ("src/batch/main.cpp", "int a = ::open(b, 0);", "::open"),
            ("src/store/settings_store.cpp", "g_file_set_contents(a, b);", "g_file_set_contents"),
            ("src/store/settings_store.cpp", "g_mkdir_with_parents(a, 1);", "g_mkdir_with_parents"),
            ("src/store/settings_store.h", "int a = g_unlink(b);", "g_unlink"),
            (
                "src/store/settings_store.h",
                "g_key_file_save_to_file(a, b);",
                "g_key_file_save_to_file",
            ),
        )
    ),
]

BREACHES = FOLDERS + LISTS + INCLUDES + DISK
