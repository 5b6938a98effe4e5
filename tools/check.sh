#!/usr/bin/env bash
# The house's own checks: format, layers, sizes, forms, screens, words, pages, common mistakes, and what
# desktops read. Each finding is one line, file:line: what is wrong. With --fix the format is put right
# first. clang-tidy and the desktop's files need a configured build: cmake --preset dev &&
# cmake --build --preset dev --target generated.
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

# The desktop entry, AppStream data and manual pages, as configured.
desktop() {
    local made=build/dev/share page faults=0
    desktop-file-validate packaging/*.desktop || faults=1
    appstreamcli validate --no-net --no-color $made/*.metainfo.xml >"$made/validate.log" || {
        cat "$made/validate.log"
        faults=1
    }
    for page in $made/man/corvane.1 $made/man/ja/corvane.1; do
        LC_ALL=C.UTF-8 MANWIDTH=80 man --warnings=w --encoding=UTF-8 --local-file "$page" 2>&1 >/dev/null |
            { ! grep .; } || faults=1
    done
    return $faults
}

[ "${1:-}" != --fix ] || sources | xargs -0 -r clang-format-14 -i
check format formatted
for name in layers sizes forms screens words docs tidy; do
    check "$name" python3 "tools/check/$name.py"
done
check desktop desktop

if [ ${#failed[@]} -gt 0 ]; then
    echo "check.sh: failed: ${failed[*]}"
    exit 1
fi
echo "check.sh: all clean"
