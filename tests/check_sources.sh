#!/bin/sh
# Rules about the sources that no compiler knows. Argument: the root of the project.
cd "$1" || exit 2
failed=0

# Only the window layer knows Qt.
if grep -rnE '#include *[<"]Q' src --include='*.h' --include='*.cpp' | grep -v '^src/desktop/'; then
    echo "Qt outside src/desktop"
    failed=1
fi

# A scenario ends with what is expected of it, and expects nothing before it acts.
for scenario in $(find tests/scenarios -name '*.scn'); do
    lines=$(grep -vE '^(#|[[:blank:]]*$)' "$scenario")
    case $lines in
        '>'*) echo "$scenario begins with an expectation"; failed=1 ;;
    esac
    case $(printf '%s\n' "$lines" | tail -n 1) in
        '>'*) ;;
        *) echo "$scenario ends without an expectation"; failed=1 ;;
    esac
done

# A file is small enough to be read as a whole.
for file in $(find src tests -name '*.h' -o -name '*.cpp'); do
    if [ "$(wc -l <"$file")" -gt 400 ]; then
        echo "$file has more than 400 lines"
        failed=1
    fi
done
exit $failed
