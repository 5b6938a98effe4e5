"""Each room includes only what the order of the house lets it use.

text -> storage -> core/data -> records/data -> customer/data, repair/data -> exchange, reports -> ui
-> core/screens, records/screens -> customer/screens, repair/screens -> app
"""

import functools
import pathlib
import re
import subprocess
import sys

import common

CORE = ["text", "storage", "core/data"]
DATA = CORE + ["records/data"]
BOTH = DATA + ["customer/data", "repair/data"]
SCREENS = BOTH + ["reports", "ui"]

# Room -> the rooms that it may include, itself aside.
ALLOWED = {
    "text": [],
    "storage": ["text"],
    "core/data": ["text", "storage"],
    "records/data": CORE,
    "customer/data": DATA,
    "repair/data": DATA,
    "exchange/data": BOTH,
    "reports": BOTH,
    "ui": DATA + ["reports"],
    "core/screens": SCREENS,
    "records/screens": DATA + ["reports", "ui"],  # serves both kinds and knows neither
    "customer/screens": SCREENS + ["core/screens", "records/screens"],
    "repair/screens": [room for room in SCREENS if room != "customer/data"]
                      + ["core/screens", "records/screens"],
    "exchange/screens": SCREENS + ["core/screens", "customer/screens", "records/screens",
                                   "repair/screens", "exchange/data"],
    "programs": BOTH + ["exchange/data", "reports"],
}
ALLOWED["app"] = [room for room in ALLOWED if room not in ("app", "programs")]

# The floors of storage, each of which includes only those before it and itself; what lies in none of
# these folders stands on all of them.
FLOORS = ["storage/base", "storage/schema", "storage/sql", "storage/engine", "storage/data_files"]

# Rooms that know no window: of Qt they include QtCore alone.
CORE_ONLY = {"text", "storage", "core/data", "records/data", "customer/data", "repair/data",
             "exchange/data", "programs"}

# Headers of a library that is one room's own business.
OWNERS = [(re.compile(r"^sqlite3"), "src/storage/engine/sqlite/"),
          (re.compile(r"^unicode/"), "src/text/")]

INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]')


def room_of(path):
    """The room that a path under src/ belongs to, None when there is none."""
    for length in (2, 1):
        name = "/".join(path.split("/")[:length])
        if name in ALLOWED:
            return name
    return None


@functools.cache
def qt_core_headers():
    """The headers of QtCore by name."""
    for query in ("qmake6", "qmake"):
        try:
            asked = subprocess.run([query, "-query", "QT_INSTALL_HEADERS"],
                                   check=True, capture_output=True, text=True)
        except (OSError, subprocess.CalledProcessError):
            continue
        folder = pathlib.Path(asked.stdout.strip()) / "QtCore"
        return {header.name for header in folder.iterdir()}
    sys.exit("layers: qmake6 (Debian package qt6-base-dev-tools) is missing")


def outside_qt_core(header):
    """Whether a header is Qt's, but not QtCore's."""
    if "/" in header:
        return re.match(r"Qt(?!Core/)[A-Z]\w*/", header) is not None
    return re.match(r"(Q[A-Z]|q[a-z]+\.h$)", header) is not None and header not in qt_core_headers()


def floor_of(path):
    """The place of a path under src/ among the floors of storage, behind all where it has none."""
    folder = "/".join(path.split("/")[:2])
    return FLOORS.index(folder) if folder in FLOORS else len(FLOORS)


def check_include(path, room, quote, header):
    """What is wrong with one include of a file under src/, None when nothing is."""
    if header.endswith(".cpp"):
        return f'a source is compiled, not included: "{header}"'
    if quote == '"':
        target = room_of(header)
        if target and target != room and target not in ALLOWED[room]:
            return f'{room} may not include "{header}" of {target}'
        if room == target == "storage":
            own = "/".join(path.parts[1:])
            if floor_of(header) > floor_of(own):
                return f'"{header}" stands on a floor above'
        return None
    if room in CORE_ONLY and outside_qt_core(header):
        return f"{room} may use of Qt only QtCore, not <{header}>"
    for pattern, owner in OWNERS:
        if pattern.match(header) and not str(path).startswith(owner):
            return f"<{header}> belongs to {owner}"
    return None


def check(root):
    findings = []
    for path in common.files(root, ".h", ".cpp"):
        if path.parts[0] != "src":
            continue
        room = room_of("/".join(path.parts[1:-1]))
        if room is None:
            findings.append((path, 1, "stands in no room of the house"))
            continue
        source = common.without_comments(common.text_of(root / path) or "")
        for number, line in enumerate(source.splitlines(), 1):
            match = INCLUDE.match(line)
            wrong = match and check_include(path, room, *match.groups())
            if wrong:
                findings.append((path, number, wrong))
    return findings


if __name__ == "__main__":
    sys.exit(common.report(check(common.root_from_arguments())))
