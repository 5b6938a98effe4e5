"""What all checks share: the files to look at, and how findings are told."""

import pathlib
import re
import subprocess
import sys


def root_from_arguments():
    """The checkout to look at: the first argument, else the one that holds these tools."""
    if len(sys.argv) > 1:
        return pathlib.Path(sys.argv[1]).resolve()
    return pathlib.Path(__file__).resolve().parents[2]


def files(root, *suffixes):
    """Paths, relative to root, of the files that are or would be under version control."""
    listed = subprocess.run(
        ["git", "ls-files", "-z", "--cached", "--others", "--exclude-standard"],
        cwd=root, check=True, capture_output=True).stdout.decode()
    paths = sorted(pathlib.PurePosixPath(name) for name in set(listed.split("\0")) if name)
    return [path for path in paths
            if (not suffixes or path.suffix in suffixes) and (root / path).is_file()]


def text_of(path):
    """The text of a file; None when it is not text."""
    data = path.read_bytes()
    if b"\0" in data:
        return None
    try:
        return data.decode("utf-8")
    except UnicodeDecodeError:
        return None


_COMMENT_OR_STRING = re.compile(
    r'//[^\n]*|/\*.*?\*/|"(?:\\.|[^"\\\n])*"|\'(?:\\.|[^\'\\\n])*\'', re.DOTALL)


def without_comments(source):
    """C++ source with its comments blanked, line numbers kept."""
    def blank(match):
        found = match.group()
        return re.sub(r"[^\n]", " ", found) if found.startswith("/") else found
    return _COMMENT_OR_STRING.sub(blank, source)


def report(findings):
    """Prints the findings, (path, line, what), one a line. Gives the exit status."""
    for path, line, what in sorted(findings, key=lambda finding: (str(finding[0]), finding[1])):
        print(f"{path}:{line}: {what}")
    return 1 if findings else 0
