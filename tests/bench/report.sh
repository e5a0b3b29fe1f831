#!/usr/bin/env bash
# Measures Orvik beside other programs and beside itself as it was, and writes the table of
# docs/performance.md. Takes 20 minutes of a machine that has nothing else to do.
#   tests/bench/report.sh [--old COMMIT] [--pairs N] [--runs FOLDER] [ROWS...]
# COMMIT is what "old" is built from. FOLDER is where the programs save, build/report/runs unless
# given. ROWS: ldif csv scanner window growth. With ROWS, or with fewer than 7 pairs, it is a try: the
# table is shown and not written.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../.."

commit=26d8e5a
runs=build/report/runs
arguments=()
while [ $# -gt 0 ]; do
    case "$1" in
        --old) commit=${2:?"--old needs a commit"}; shift 2 ;;
        --pairs) arguments+=(--pairs "${2:?"--pairs needs a number"}"); shift 2 ;;
        --runs) runs=${2:?"--runs needs a folder"}; shift 2 ;;
        -*) sed -n '2,7s/^# \{0,1\}//p' "${BASH_SOURCE[0]}" >&2; exit 2 ;;
        *) arguments+=("$1"); shift ;;
    esac
done

# Debian's own, whatever else the user has installed.
PATH=/usr/bin:/bin:$PATH
missing=()
for tool in abook:abook python3:python3 cmp:diffutils git:git cmake:cmake ninja:ninja-build; do
    command -v "${tool%:*}" >/dev/null || missing+=("${tool#*:}")
done
if [ ${#missing[@]} -gt 0 ]; then
    echo "report: needs the Debian packages ${missing[*]}" >&2
    exit 1
fi

commit=$(git rev-parse --short "$commit^{commit}")
work=build/report
old=$work/old

# The old sources with the measurements of today.
if [ "$(cat "$work/commit" 2>/dev/null)" != "$commit" ]; then
    rm -rf "$old" "$work/commit"
    mkdir -p "$old"
    git archive "$commit" | tar --extract --directory "$old"
    echo "$commit" >"$work/commit"
fi
rm -rf "$old/tests/bench"
cp --archive tests/bench "$old/tests/"

# build TREE PROGRAM
build() {
    local log=$work/build.log
    cmake --build "$1/build/bench" --target "$2" >"$log" 2>&1 && return
    tail -n 30 "$log" >&2
    return 1
}
for tree in "$old" .; do
    echo "building $tree"
    (cd "$tree" && cmake --preset bench >/dev/null)
    build "$tree" orvik-batch
    # The measurements of today need not fit the old sources.
    for program in orvik-bench orvik-window-bench; do
        rm -f "$tree/build/bench/bin/$program"
        if grep "add_executable($program" tests/bench/CMakeLists.txt >/dev/null; then
            build "$tree" $program || echo "report: $program cannot be built in $tree" >&2
        fi
    done
done

exec python3 tests/bench/report.py --old "$old/build/bench/bin" --new build/bench/bin \
    --books "$work/books" --runs "$runs" --page docs/performance.md --commit "$commit" \
    "${arguments[@]}"
