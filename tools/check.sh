#!/usr/bin/env bash
# The house's own checks: format, layers, sizes, forms, screens, words, pages and common mistakes. Each
# finding is one line, file:line: what is wrong. With --fix the format is put right first.
# clang-tidy needs a build: cmake --preset dev && cmake --build --preset dev.
set -uo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
failed=()

sources() {
    git ls-files -z --cached --others --exclude-standard -- '*.cpp' '*.h' |
        while IFS= read -r -d '' file; do [ -f "$file" ] && printf '%s\0' "$file"; done
}

check() { # title command...
    echo "-- $1"
    "${@:2}" || failed+=("$1")
}

# One line for each place that is not as .clang-format has it.
formatted() {
    sources | xargs -0 -r clang-format-14 --dry-run -Werror 2>&1 |
        sed -nE 's/^([^:]+:[0-9]+):[0-9]+: error: .*/\1: not formatted (tools\/check.sh --fix)/p' |
        uniq | { ! grep .; }
}

[ "${1:-}" != --fix ] || sources | xargs -0 -r clang-format-14 -i
check format formatted
for name in layers sizes forms screens words docs tidy; do
    check "$name" python3 "tools/check/$name.py"
done

if [ ${#failed[@]} -gt 0 ]; then
    echo "check.sh: failed: ${failed[*]}"
    exit 1
fi
echo "check.sh: all clean"
