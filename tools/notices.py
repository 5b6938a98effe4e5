"""Prints the notices in a C source: notices.py SOURCE.

A notice is a comment, or comments on end, that names a holder of copyright or gives a licence; each is
printed once, with the lines that say which part of the source it is about.
"""

import re
import sys

COMMENT = re.compile(r"/\*.*?\*/|(?:^[ \t]*//[^\n]*\n)+", re.DOTALL | re.MULTILINE)
NOTICE = re.compile(r"copyright:?\s+(?:\(c\)|\d{4})|permission is hereby granted|license:|"
                    r"redistributions of source|public domain|creative commons|unlicense", re.IGNORECASE)
DISCLAIMED = "The author disclaims copyright to this source code."


def notices(source):
    """The texts of the notices, in the order of the source."""
    found = {}
    for comment in COMMENT.findall(source):
        if NOTICE.search(comment) and DISCLAIMED not in comment:
            found.setdefault(re.sub(r"\W+", " ", comment), comment.strip())
    return list(found.values())


def main():
    with open(sys.argv[1], encoding="utf-8", errors="replace") as source:
        print("\n\n".join(notices(source.read())))


if __name__ == "__main__":
    main()
