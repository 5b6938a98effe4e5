"""clang-tidy over the sources of a configured build, two at a time.

A source without findings is not looked at again until it, a header or form of ours that it includes,
its flags, the settings or clang-tidy itself change; the marks of clean sources stand in the user's
cache, where other checkouts find them too.

Sources of one target are read as one, several at a time, as most of the work is in the headers that
they share. Where something is found, or they cannot be read together, each is read by itself.

Usage: tidy.py [ROOT [BUILD_FOLDER]]
"""

import concurrent.futures
import functools
import hashlib
import json
import os
import pathlib
import re
import shlex
import subprocess
import sys
import tempfile

import common

TIDY = "clang-tidy-14"
BATCH = 12  # sources read as one
USING = re.compile(r"^using (?:\w+::)+(\w+);", re.MULTILINE)
INCLUDE = re.compile(r'^\s*#\s*include\s*"([^"]+)"', re.MULTILINE)
NOISE = re.compile(r"^\d+ warnings?( and \d+ errors?)? (generated|treated as errors?)\b.*"
                   r"|^(Suppressed|Use -header-filter).*|^Error while processing .*")


def cache_folder():
    base = os.environ.get("XDG_CACHE_HOME") or os.path.expanduser("~/.cache")
    folder = pathlib.Path(base) / "corvane" / "tidy"
    folder.mkdir(parents=True, exist_ok=True)
    return folder


class Sources:
    """Finds what a source includes of our own files."""

    def __init__(self, root):
        self.root = root

    def locate(self, includer, name):
        candidates = [includer.parent / name, self.root / "src" / name, self.root / "tests" / name]
        if name.startswith("ui_"):
            candidates = [includer.parent / (name[3:-2] + ".ui")]
        return next((path for path in candidates if path.is_file()), None)

    @functools.cache
    def direct(self, path):
        if path.suffix == ".ui":
            return ()
        found = (self.locate(path, name) for name in INCLUDE.findall(common.text_of(path) or ""))
        return tuple(target for target in found if target)

    def closure(self, path):
        seen, pending = set(), [path]
        while pending:
            current = pending.pop()
            if current not in seen:
                seen.add(current)
                pending.extend(self.direct(current))
        return sorted(seen)

    @functools.cache
    def digest(self, path):
        return hashlib.sha256(path.read_bytes()).hexdigest()


def placeless(flags, root, build):
    """Flags in which this checkout, its build and the user's cache go by fixed names. The compiler and
    its launcher are no part of them: clang-tidy reads the source itself."""
    for folder, name in ((build, "BUILD"), (root, "ROOT"), (cache_folder().parent, "CACHE")):
        flags = flags.replace(str(folder), name)
    return flags


def key_of(sources, entry, build, versions):
    """What the verdict on a source depends on, as a file name."""
    hasher = hashlib.sha256(versions)
    settings = next(folder / ".clang-tidy" for folder in pathlib.Path(entry["file"]).parents
                    if (folder / ".clang-tidy").is_file())
    hasher.update(settings.read_bytes())
    hasher.update(placeless(" ".join(flags_of(entry)), sources.root, build).encode())
    for path in sources.closure(pathlib.Path(entry["file"])):
        hasher.update(f"{path.relative_to(sources.root)} {sources.digest(path)}\n".encode())
    return hasher.hexdigest()


def flags_of(entry):
    """What a source is compiled with, but for its own name and that of its object."""
    words = shlex.split(entry["command"])
    start = next(i for i, word in enumerate(words) if re.search(r"(c|clang|g)\+\+[-\d]*$", word))
    flags, words = [], iter(words[start + 1:])
    for word in words:
        if word in ("-o", "-c", "-MT", "-MF"):
            next(words)
        elif word != "-MD":
            flags.append(word)
    return tuple(flags)


def batches(entries, pending):
    """The pending sources, those with the same flags together, at most BATCH at a time."""
    by_flags = {}
    for path in pending:
        by_flags.setdefault(flags_of(entries[path]), []).append(path)
    return [(flags, paths[i:i + BATCH]) for flags, paths in by_flags.items()
            for i in range(0, len(paths), BATCH)]


def uses_what_it_names(path):
    """Whether each name of a using declaration occurs again: read as one, another source may use it."""
    text = common.text_of(path) or ""
    return all(len(re.findall(rf"\b{name}\b", text)) > 1 for name in USING.findall(text))


def are_clean(root, flags, paths):
    """Whether sources that are read as one have no finding."""
    if not all(uses_what_it_names(path) for path in paths):
        return False
    with tempfile.TemporaryDirectory() as folder:
        whole = pathlib.Path(folder) / "whole.cpp"
        # Backwards, as the build reads them forwards: an include that is missing may show in one.
        whole.write_text("".join(f'#include "{path}"\n' for path in reversed(paths)))
        done = subprocess.run([TIDY, "--quiet", f"--config-file={root}/.clang-tidy",
                               "--checks=-bugprone-suspicious-include", str(whole), "--",
                               *flags], cwd=root, capture_output=True, check=False)
    return done.returncode == 0


def tidy_batch(root, build, batch):
    """The findings on each source of a batch, empty where there are none."""
    flags, paths = batch
    if len(paths) > 1 and are_clean(root, flags, paths):
        return [(path, "") for path in paths]
    return [(path, tidy(root, build, path)) for path in paths]


def tidy(root, build, path):
    """The findings on one source as text, empty when there are none."""
    done = subprocess.run([TIDY, "-p", str(build), "--quiet", str(path)],
                          cwd=root, capture_output=True, text=True, check=False)
    lines = (done.stdout + done.stderr).splitlines()
    told = [line.replace(f"{root}/", "") for line in lines if not NOISE.match(line)]
    if done.returncode == 0:
        return ""
    return "\n".join(told) or f"{path}: {TIDY} ended with {done.returncode}"


def tool_versions():
    version = subprocess.run([TIDY, "--version"], capture_output=True, check=True).stdout
    version = re.sub(rb"Host CPU:.*", b"", version)
    qt = subprocess.run(["qmake6", "-query", "QT_VERSION"], capture_output=True, check=False).stdout
    return version + qt


def main():
    root = common.root_from_arguments()
    build = pathlib.Path(sys.argv[2]).resolve() if len(sys.argv) > 2 else root / "build" / "dev"
    commands = build / "compile_commands.json"
    if not commands.is_file():
        print(f"tidy: {commands} is missing: configure first (cmake --preset dev)")
        return 1
    ours = {root / path for path in common.files(root, ".cpp")}
    entries = {pathlib.Path(entry["file"]): entry for entry in json.loads(commands.read_text())}
    entries = {path: entry for path, entry in entries.items() if path in ours}

    sources, tools, cache = Sources(root), tool_versions(), cache_folder()
    keys = {path: key_of(sources, entry, build, tools) for path, entry in entries.items()}
    pending = [path for path in sorted(entries) if not (cache / keys[path]).exists()]
    print(f"tidy: {len(pending)} of {len(entries)} sources to look at", flush=True)

    failed, seen = 0, set()
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        done = pool.map(functools.partial(tidy_batch, root, build), batches(entries, pending))
        for path, finding in (found for batch in done for found in batch):
            if finding:
                failed += 1
                if finding not in seen:
                    print(finding, flush=True)
                seen.add(finding)
            else:
                (cache / keys[path]).touch()
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
