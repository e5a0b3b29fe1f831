#!/usr/bin/env python3
"""Puts the counts of now into the tables of docs/reliability.md.

Arguments: the document, and the programs that fill tables. A count that falls means that something is
no longer tried: find out why before the new table is committed.
"""

import pathlib
import re
import subprocess
import sys


def main():
    document = pathlib.Path(sys.argv[1])
    text = document.read_text()
    for program in sys.argv[2:]:
        printed = subprocess.run([program, "--table", "--gtest_brief=1"], stdout=subprocess.PIPE,
                                 text=True, check=False).stdout
        for heading, table in re.findall(r"^## (.*)\n\n((?:\|.*\n)+)\n\d+ runs", printed, re.M):
            # Behind the heading: prose, and the table of before.
            place = re.compile(rf"^#+ {re.escape(heading)}\n\n?((?:[^|#\n].*\n)*)\n*(?:\|.*\n)*\n*", re.M)
            text, found = place.subn(
                lambda one, heading=heading, table=table:
                    f"### {heading}\n\n{one[1]}{one[1] and chr(10)}{table}\n", text)
            if found != 1:
                sys.exit(f"{document} has no heading {heading}")
    document.write_text(text.rstrip() + "\n")


if __name__ == "__main__":
    main()
