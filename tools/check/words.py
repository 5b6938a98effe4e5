"""Words that have no place in what is kept: unfinished work, paths of one machine, and the papers
that the system was built from."""

import re
import sys

import common

# Written in pieces, so that this file passes its own check.
FORBIDDEN = [
    (re.compile(r"\bspecifica" r"tions?\b|\bspec" r"\.md\b|\bPart\s[1-4]\." r"\d|仕様" r"書",
                re.IGNORECASE), "state the rule itself, not where it is written"),
    (re.compile(r"(?<![\w.$}])/(?:wo" r"rk|ro" r"ot|fa" r"rm|home/[a-z]+)/"),
     "a path of one machine"),
    (re.compile(r"\bTO" r"DO\b|\bFIX" r"ME\b|\bX" r"XX\b"), "finish it, or say it in the report"),
    (re.compile(r"npm" r"js\.(?:org|com)"), "a registry's host"),
]


def check(root):
    findings = []
    for path in common.files(root):
        text = common.text_of(root / path)
        for number, line in enumerate((text or "").splitlines(), 1):
            for pattern, why in FORBIDDEN:
                match = pattern.search(line)
                if match:
                    findings.append((path, number, f"{match.group()}: {why}"))
        for pattern, why in FORBIDDEN:
            if pattern.search(str(path)):
                findings.append((path, 1, f"the file's name: {why}"))
    return findings


if __name__ == "__main__":
    sys.exit(common.report(check(common.root_from_arguments())))
