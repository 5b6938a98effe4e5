#!/usr/bin/env bash
# Installs what is missing, builds コルヴァン３ and starts it. Arguments go to the program.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")"
. tools/packages.sh

install_missing "$build_packages" "$run_packages" "$(packages_to_fetch)" || {
    echo "run.sh: the packages above could not be installed." >&2
    exit 1
}
cmake --preset release --log-level=WARNING >/dev/null
cmake --build --preset release

if [ -z "${DISPLAY:-}${WAYLAND_DISPLAY:-}${QT_QPA_PLATFORM:-}" ]; then
    echo "run.sh: built, but there is no display to show the program on." >&2
    exit 1
fi
exec build/release/bin/corvane "$@"
