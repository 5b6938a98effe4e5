"""A file that grows past its limit holds two things. (Functions: .clang-tidy.)"""

import sys

import common

LIMIT = 400
TEST_LIMIT = 300
SUFFIXES = (".cpp", ".h", ".ui", ".py", ".sh", ".cmake", ".txt")


def check(root):
    findings = []
    for path in common.files(root, *SUFFIXES):
        test = path.parts[0] == "tests" and path.suffix in (".cpp", ".h", ".py")
        data = path.suffix == ".txt" and path.name != "CMakeLists.txt"
        limit = TEST_LIMIT if test else LIMIT
        lines = len((common.text_of(root / path) or "").splitlines())
        if lines > limit and not data:
            findings.append((path, limit + 1, f"{lines} lines where {limit} are the limit"))
    return findings


if __name__ == "__main__":
    sys.exit(common.report(check(common.root_from_arguments())))
