"""A scratch checkout on which single checks are run."""

import pathlib
import subprocess
import sys
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]


class CheckCase(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name)
        subprocess.run(["git", "init", "-q", str(self.root)], check=True)

    def write(self, path, text):
        target = self.root / path
        target.parent.mkdir(parents=True, exist_ok=True)
        target.write_text(text, encoding="utf-8")

    def run_check(self, name):
        done = subprocess.run([sys.executable, str(ROOT / "tools/check" / f"{name}.py"),
                               str(self.root)], capture_output=True, text=True, check=False)
        self.assertEqual("", done.stderr)
        self.assertEqual(done.returncode, 1 if done.stdout else 0)
        return done.stdout

    def expect(self, name, path, text, finding):
        """The check says `finding` of a file with this text; nothing at all when it is None."""
        with self.subTest(path=path, text=text[:60]):
            self.write(path, text)
            told = self.run_check(name)
            (self.root / path).unlink()
            if finding is None:
                self.assertEqual("", told)
            else:
                self.assertTrue(told.startswith(f"{path}:{finding}"), told or "nothing was found")
