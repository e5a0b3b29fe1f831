#!/usr/bin/env bash
# Runs the commands that README.md gives for installing, in the checkout that this script stands in,
# and starts what they installed. For a clean clone; leaves the build tree and the package there.
set -euo pipefail
cd "$(dirname "$0")/../.."
root=$PWD
installed=$root/build/installed

# Each indented line is a command; DIR is a folder of the user's choice. Nothing is done to the
# system: of the package that apt would install we only see that it is there.
commands=$(awk '/^## / { wanted = /^## Installing$/ } wanted && sub(/^    /, "")' README.md |
    sed "s|^sudo apt install|ls|; s|\<DIR\>|$installed|g" | grep -v '^sudo') ||
    { echo "README.md has no commands in a section Installing"; exit 1; }
while read -r command; do
    echo "\$ $command"
    bash -c "$command" </dev/null
done <<<"$commands"

tests/desktop/real_window_test.sh "$installed/bin/orvik"
tests/desktop/real_help_test.sh "$installed/bin/orvik"
tests/batch/batch_test.sh "$installed/bin/orvik-batch" "$installed/share/doc/orvik/examples"
tests/book_cli/book_test.sh "$installed/bin/orvik-book" "$installed/share/doc/orvik/examples"
