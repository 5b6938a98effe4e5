"""The pages that lead through the code are true: each path and each name of a type or function that stands
in backticks there exists, and the decisions are numbered without a gap."""

import re
import sys

import common

PAGES = ["README.md", "CONTRIBUTING.md", "THIRD-PARTY.md", "docs/map.md"]
CODE = re.compile(r"`([^`\n]+)`")
PATH = re.compile(r"(?:[\w.-]+/)+[\w.{},*-]*\Z")
NAME = re.compile(r"(?:\w+::)*[A-Za-z_]\w*(?:\(\))?\Z")
TOP = {"src", "tests", "docs", "tools", "bench", "fuzz", "cmake", "data"}
# Built, or made where the program runs.
OUTSIDE = re.compile(r"build/|share/corvane|Corvane/|Care/|\$|~|<")


def expand(path):
    """`a/b.{h,cpp}` as its two paths."""
    match = re.match(r"(.*)\{(.*)\}(.*)", path)
    return [match[1] + part + match[3] for part in match[2].split(",")] if match else [path]


def exists(root, path):
    """Whether a path is there, as it is or below src, with or without its suffix."""
    for base in (root, root / "src", root / "docs"):
        whole = base / path.rstrip("/")
        if whole.exists() or any(whole.parent.glob(whole.name + ".*")):
            return True
    return False


def check_page(root, page, words):
    findings = []
    for number, line in enumerate((root / page).read_text().splitlines(), 1):
        for token in CODE.findall(line):
            if OUTSIDE.search(token):
                continue
            if PATH.match(token):
                findings += [(page, number, f"`{path}` does not exist") for path in expand(token)
                             if not exists(root, path)]
            elif "::" in token and NAME.match(token):
                missing = [part for part in token.rstrip("()").split("::") if part not in words]
                if missing:
                    findings.append((page, number, f"`{token}`: there is no {missing[0]}"))
            elif re.match(r"[A-Z][a-z]+[A-Z]\w*\Z", token) and token not in words:
                findings.append((page, number, f"there is no `{token}`"))
    return findings


def check_numbers(root):
    pages = sorted(path.name for path in (root / "docs/decisions").glob("*.md"))
    return [(f"docs/decisions/{page}", 1, f"is not the next number, {wanted:04d}")
            for wanted, page in enumerate(pages, 1) if not page.startswith(f"{wanted:04d}-")][:1]


def check(root):
    words = set()
    for path in common.files(root, ".h", ".cpp", ".py", ".sh", ".cmake"):
        words.update(re.findall(r"[A-Za-z_]\w*", common.text_of(root / path) or ""))
    findings = check_numbers(root)
    for page in PAGES:
        if (root / page).is_file():
            findings += check_page(root, page, words)
    return findings


if __name__ == "__main__":
    sys.exit(common.report(check(common.root_from_arguments())))
