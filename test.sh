#!/usr/bin/env bash
# Sets up, builds and runs all tests, and prints the time of each stage.
#   ./test.sh          what must hold for every commit
#   ./test.sh --full   also each header alone, workers under the thread sanitizer, new inputs by
#                      libFuzzer, README's commands in a clean clone, the package, here and in a fresh
#                      Debian, whether each build makes the same one, benchmarks up to a million
#                      entries, saves that fail and are killed inside of each system call, ten million
#                      steps at depth, planted faults, the lines that the tests run, kills while a
#                      person works, what other programs read of the cards, and the longest tests
#   ./test.sh --quick  only the unit tests and the scenarios on the forms, without sanitizers
set -euo pipefail
cd "$(dirname "$0")"

mode=every
case "${1:-}" in
    --full) mode=full ;;
    --quick) mode=quick ;;
    "") ;;
    *) echo "usage: $0 [--full | --quick]" >&2; exit 2 ;;
esac

fuzz_seconds=20
times=()

# stage NAME COMMAND...: runs a command and keeps how long it took.
stage() {
    local name=$1 start=$SECONDS
    shift
    echo "== $name"
    "$@"
    times+=("$(printf '%5d s  %s' $((SECONDS - start)) "$name")")
}

configure() {
    local log=build/configure-$1.log
    cmake --preset "$1" >"$log" 2>&1 || { cat "$log"; return 1; }
}

# run_tests PRESET TREE ARGUMENT...: runs the tests of a preset, counts the unit tests and the scenarios,
# and says whether public cards were there.
run_tests() {
    ctest --preset "$1" "${@:3}"
    awk '/^[0-9]+\/[0-9]+ Testing: / { test = $3 }
        test ~ /^(book|engine|icu|store|unit)$/ && /^\[  PASSED  \]/ { units += $4 }
        test == "scenarios" && /^[0-9]+ passed, / { scenarios += $1 }
        /^public cards: / { print }
        END { print units + 0 " unit tests, " scenarios + 0 " scenarios"
              exit !(units && scenarios) }' "$2/Testing/Temporary/LastTest.log"
}

build_quick() {
    configure debug
    cmake --build --preset quick
}

build_tests() {
    configure sanitize
    cmake --build --preset sanitize
}

# Each header alone.
headers() { cmake --build --preset sanitize --target all_verify_interface_header_sets; }

# What works on a thread of its own.
workers() {
    configure thread
    cmake --build --preset thread
    ctest --preset thread
}

format() {
    git ls-files '*.h' '*.cpp' | xargs clang-format --dry-run --Werror
}

# The sanitized build joins the sources of a target into a few, so that each header is read once.
tidy() {
    local left_out=-bugprone-suspicious-include
    # Takes two fifths of the time of all checks.
    [ $mode = full ] || left_out+=,-performance-unnecessary-value-param
    run-clang-tidy -quiet -p build/sanitize -j "$(nproc)" -checks=$left_out \
        "$PWD/build/sanitize/src/.*/Unity/" "$PWD/src/.*/main.cpp" \
        >build/tidy.log 2>/dev/null || { cat build/tidy.log; return 1; }
}

fuzz() {
    configure fuzz
    cmake --build --preset fuzz
    local targets target
    mapfile -t targets < <(find build/fuzz/bin -name 'fuzz_*' -type f | sort)
    for target in "${targets[@]}"; do
        local name=${target##*/}
        # New inputs go to the build tree; the corpus under tests/ is only read.
        mkdir -p "build/fuzz/corpus/$name"
        "$target" -max_total_time=$((fuzz_seconds / ${#targets[@]} + 1)) -timeout=10 -verbosity=0 \
            -print_final_stats=0 -artifact_prefix=build/fuzz/ \
            "build/fuzz/corpus/$name" "tests/fuzz/corpus/$name"
    done
}

# What users get: the last commit, built as README.md says. Always in the same place, so that ccache
# knows the sources again.
clone=build/clone
release=$clone/build/release

readme() {
    rm -rf "$clone"
    git clone --quiet . "$clone"
    [ -z "$(git status --porcelain)" ] || echo "Changes that are not committed are left out here."
    "$clone/tests/packaging/readme.sh"
}

package() { "$clone/tests/packaging/check.sh" "$release"; }

install_package() { tests/packaging/install.sh "$release"/orvik_*.deb; }

reproducible() { tests/packaging/reproducible.sh "$release"/orvik_*.deb; }

real_calls() { tests/reliability/real_calls.py "$release/bin/orvik-batch"; }

# Ten million steps, in as many processes as there are cores, each with a seed of its own.
depth() {
    local cores seed pids=() failed=0
    cores=$(nproc)
    for seed in $(seq "$cores"); do
        TMPDIR=/dev/shm ASAN_OPTIONS=malloc_context_size=1:quarantine_size_mb=8 \
            build/sanitize/bin/orvik-depth --steps $((10000000 / cores + 1)) --seed "$seed" \
            >"build/depth-$seed.log" 2>&1 &
        pids+=($!)
    done
    for seed in $(seq "$cores"); do
        wait "${pids[seed - 1]}" || failed=1
        tail -n 3 "build/depth-$seed.log"
    done
    return $failed
}

build_mutants() {
    configure mutants
    cmake --build --preset mutants
}

faults() { tests/depth/faults.py build/mutants; }

coverage() { tests/mutants/coverage.py build/mutants; }
kills() { tests/desktop/recovery_test.sh "$release/bin/orvik" 10; }

# With a build of their own: these programs need Qt 5.
readers() {
    ./setup.sh --readers
    local log=build/configure-readers.log
    cmake -S tests/readers -B build/readers -G Ninja >"$log" 2>&1 || { cat "$log"; return 1; }
    cmake --build build/readers
    local built=build/sanitize/bin
    tests/readers/compare.py $built/orvik-book $built/orvik-book-touch build/readers/bin .
}

bench() {
    configure bench
    cmake --build --preset bench
    build/bench/bin/orvik-bench
    build/bench/bin/orvik-book-bench
    build/bench/bin/orvik-mail-bench
    build/bench/bin/orvik-book-window-bench 100000
    build/bench/bin/orvik-book-window-bench 1000000
}

mkdir -p build
stage "set up" ./setup.sh --tests
if [ $mode = quick ]; then
    stage "build without sanitizers" build_quick
    stage "tests" run_tests quick build/debug
else
    stage "build under the sanitizers" build_tests
    [ $mode = every ] || stage "headers" headers
    [ $mode = every ] || stage "workers under the thread sanitizer" workers
    stage "clang-format" format
    stage "clang-tidy" tidy
    [ $mode = every ] || stage "fuzzing" fuzz
    [ $mode = every ] || stage "README in a clean clone" readme
    [ $mode = every ] || stage "package" package
    [ $mode = every ] || stage "package in a fresh Debian" install_package
    [ $mode = every ] || stage "the same package from every build" reproducible
    [ $mode = every ] || stage "failing and killed saves" real_calls
    [ $mode = every ] || stage "kills" kills
    [ $mode = every ] || stage "what other programs read of the cards" readers
    [ $mode = every ] || stage "benchmarks" bench
    [ $mode = every ] || stage "ten million steps at depth" depth
    [ $mode = every ] || stage "build for faulty sources" build_mutants
    [ $mode = every ] || stage "planted faults" faults
    [ $mode = every ] || stage "lines that the tests run" coverage
    longest=()
    [ $mode = full ] || longest=(--label-exclude long)
    stage "tests" run_tests sanitize build/sanitize "${longest[@]}"
fi

echo "== times"
printf '%s\n' "${times[@]}"
