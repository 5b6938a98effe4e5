"""A screen reads its controls, calls its data room and shows the result: nothing else."""

import re
import sys

import common

FORBIDDEN = [
    (re.compile(r"\bQMessageBox\b"), "messages go through core::Messages"),
    (re.compile(r"\bRecordset\b|storage/(recordset|transaction)\.h"),
     "records are the data room's business"),
    (re.compile(r"\bcurrent(DateTime|Date|Time|MSecsSinceEpoch|SecsSinceEpoch)(Utc)?\s*\("),
     "the clock is handed in"),
    (re.compile(r'"\s*(select\s.*\bfrom|insert\s+into|delete\s+from|update\s+\S+\s+set)\b',
                re.IGNORECASE), "SQL is the data room's business"),
    (re.compile(r"\bQ(File|SaveFile|Dir|DirIterator|TemporaryFile|TextStream|Settings)\b"),
     "files are the data room's business"),
    (re.compile(r"\bQDesktopServices\b|\bQFileDialog\b|\bQProcess\b"),
     "the open verb and the file chooser are handed in"),
]


def is_screen(path):
    return (path.parts[0] == "src" and len(path.parts) > 3
            and (path.parts[2] == "screens" or path.parts[1:3] == ("customer", "shared")))


def check(root):
    findings = []
    for path in common.files(root, ".h", ".cpp"):
        if not is_screen(path):
            continue
        source = common.without_comments(common.text_of(root / path) or "")
        for number, line in enumerate(source.splitlines(), 1):
            for pattern, why in FORBIDDEN:
                match = pattern.search(line)
                if match:
                    findings.append((path, number, f"{match.group().strip()}: {why}"))
    return findings


if __name__ == "__main__":
    sys.exit(common.report(check(common.root_from_arguments())))
