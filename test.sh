#!/usr/bin/env bash
# Installs what is missing, builds, and runs all checks and tests: under the address and
# undefined-behaviour sanitizers, several sources compiled as one; with --quick as built for daily
# work.
set -uo pipefail
cd "$(dirname "$(readlink -f "$0")")"
. tools/packages.sh

passed=0 failed=0
started=$SECONDS

finish() {
    echo "$passed passed, $failed failed"
    [ "$failed" -eq 0 ]
    exit
}

# Runs one step that passes or fails as a whole.
step() { # title command...
    printf '\n== %s (%d s)\n' "$1" $((SECONDS - started))
    if "${@:2}"; then
        passed=$((passed + 1))
    else
        failed=$((failed + 1))
        echo "FAILED: $1"
        return 1
    fi
}

# Runs the tests of a preset and counts them one by one.
tests() { # preset
    printf '\n== Tests, %s (%d s)\n' "$1" $((SECONDS - started))
    local log ran lost
    log=$(mktemp)
    ctest --preset "$1" --no-tests=error --progress >"$log" 2>&1 || grep -v '^\[' "$log" | tail -n 300
    read -r lost ran < <(sed -nE \
        's/^[0-9]+% tests passed, ([0-9]+) tests? failed out of ([0-9]+)$/\1 \2/p' "$log")
    tail -n 4 "$log"
    rm -f "$log"
    if [ -z "${ran:-}" ]; then
        failed=$((failed + 1))
        echo "FAILED: no test ran"
    else
        passed=$((passed + ran - lost))
        failed=$((failed + lost))
    fi
}

# The flaws that our own code leaves, not what Qt and the font library keep until the end.
export LSAN_OPTIONS="suppressions=$PWD/tests/support/lsan.supp:print_suppressions=0"
export UBSAN_OPTIONS=print_stacktrace=1

step "Packages" install_missing "$build_packages" "$run_packages" "$test_packages" \
    "$(packages_to_fetch)" || finish
# clang-tidy reads each source with the flags of the daily build, whether or not that is built.
step "Configure" cmake --preset dev --log-level=WARNING || finish
step "Generate" cmake --build --preset dev --target generated || finish
step "The checks check" python3 -m unittest discover --start-directory tests/tools
step "Checks" tools/check.sh
preset=asan
[ "${1:-}" != --quick ] || preset=dev
step "Configure, $preset" cmake --preset $preset --log-level=WARNING || finish
step "Build, $preset" cmake --build --preset $preset || finish
tests $preset
printf '\n== Done (%d s)\n' $((SECONDS - started))
finish
