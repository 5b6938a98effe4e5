"""Each check finds what it is there to find, and is silent about what is right."""

import json
import os
import re
import shutil
import subprocess
import sys
import unittest

from check_case import CheckCase, ROOT


class Checks(CheckCase):
    def test_layers(self):
        for path, include, finding in [
            ("src/text/a.cpp", '"storage/base/value.h"', "1: text may not include"),
            ("src/storage/sql/a.cpp", '"core/data/clock.h"', "1: storage may not include"),
            ("src/storage/sql/a.cpp", '"storage/engine/engine.h"', '1: "storage/engine/engine.h" s'),
            ("src/storage/base/a.h", '"storage/connection.h"', '1: "storage/connection.h" stands'),
            ("src/storage/engine/a.cpp", '"storage/base/value.h"', None),
            ("src/storage/a.cpp", '"storage/engine/engine.h"', None),
            ("src/customer/data/a.h", '"repair/data/jobs.h"', "1: customer/data may not"),
            ("src/core/data/a.cpp", '"ui/message_boxes.h"', "1: core/data may not include"),
            ("src/ui/a.cpp", '"core/screens/top.h"', "1: ui may not include"),
            ("src/repair/screens/a.cpp", '"customer/data/cases.h"', "1: repair/screens may not"),
            ("src/repair/screens/a.cpp", '"records/screens/upyotei.h"', None),
            ("src/records/screens/a.h", '"customer/data/logs.h"', "1: records/screens may not"),
            ("src/customer/screens/a.cpp", '"repair/screens/a.h"', "1: customer/screens may not"),
            ("src/app/main.cpp", '"customer/screens/kokyaku.h"', None),
            ("src/core/data/a.cpp", "<QWidget>", "1: core/data may use of Qt only QtCore"),
            ("src/text/a.cpp", "<QtGui/QColor>", "1: text may use of Qt only QtCore"),
            ("src/storage/a.cpp", "<QString>", None),
            ("src/storage/a.cpp", "<QtCore/QFile>", None),
            ("src/ui/a.cpp", "<QWidget>", None),
            ("src/storage/a.cpp", "<sqlite3.h>", "1: <sqlite3.h> belongs to"),
            ("src/storage/engine/sqlite/a.cpp", "<sqlite3.h>", None),
            ("src/ui/a.cpp", '"ui/b.cpp"', "1: a source is compiled, not included"),
            ("src/storage/a.cpp", "<unicode/coll.h>", "1: <unicode/coll.h> belongs to"),
            ("src/elsewhere/a.cpp", "<QString>", "1: stands in no room"),
        ]:
            self.expect("layers", path, f"#include {include}\n", finding)
        self.expect("layers", "src/text/a.cpp", '// #include "storage/base/value.h"\n', None)

    def test_sizes(self):
        for path, lines, finding in [
            ("src/text/a.cpp", 400, None),
            ("src/text/a.cpp", 401, "401: 401 lines where 400"),
            ("src/core/screens/top.ui", 401, "401: 401 lines"),
            ("tests/text/a_test.cpp", 300, None),
            ("tests/text/a_test.cpp", 301, "301: 301 lines where 300"),
            ("tests/storage/statements.txt", 5000, None),
        ]:
            self.expect("sizes", path, "\n" * lines, finding)

    def test_screens(self):
        place = "src/customer/screens/kokyaku.cpp"
        for line, finding in [
            ("QMessageBox::warning(this, t, t);", "1: QMessageBox"),
            ("storage::Recordset rows;", "1: Recordset"),
            ('#include "storage/recordset.h"', "1: storage/recordset.h"),
            ("const QDate today = QDate::currentDate();", "1: currentDate"),
            ('m_list.show(u"Select * From t"_s);', '1: "Select'),
            ("QFile file(path);", "1: QFile"),
            ("QFileDialog::getOpenFileName(this);", "1: QFileDialog"),
            ("// QMessageBox is not for here", None),
            ('setTitle(u"更新"_s);', None),
        ]:
            self.expect("screens", place, line + "\n", finding)
        self.expect("screens", "src/records/screens/upyotei.cpp", "QDir d;\n", "1: QDir")
        self.expect("screens", "src/ui/message_boxes.cpp", "QMessageBox box;\n", None)
        self.expect("screens", "src/customer/data/cases.cpp", "Recordset rows;\n", None)

    def test_words(self):
        for line, finding in [
            ("// see the specifica" "tion\n", "1: specifica" "tion"),
            ("// as Part 2." "1 says\n", "1: Part 2." "1"),
            ("// 仕様" "書\n", "1: 仕様" "書"),
            ("\nopen('/wo" "rk/main/x')\n", "2: /wo" "rk/"),
            ("// TO" "DO later\n", "1: TO" "DO"),
            ("mktemp fetch.XX" "XXXX, src/wo" "rk/x, a part of it\n", None),
        ]:
            self.expect("words", "src/text/a.cpp", line, finding)
        self.write("src/text/a.cpp", "\n")
        self.expect("words", "docs/仕様" "書.md", "\n", "1: the file's name")

    def test_docs(self):
        self.write("src/core/data/registry.h", "struct RecordKey;\nnamespace core { int addOne(); }\n")
        self.write("docs/decisions/0001-one.md", "\n")
        for line, finding in [
            ("`src/core/data`, `core/data/registry`, `core/data/{registry}.h`", None),
            ("`src/core/data/gone.h`", "1: `src/core/data/gone.h` does not exist"),
            ("`RecordKey`, `core::addOne`, `core::addOne()`", None),
            ("`RecordLock`", "1: there is no `RecordLock`"),
            ("`core::addTwo`", "1: `core::addTwo`: there is no addTwo"),
            ("`build/dev/bin/gone`, `main.mdb`, `--quick`", None),
        ]:
            self.expect("docs", "README.md", line + "\n", finding)
        self.write("README.md", "\n")
        self.expect("docs", "docs/decisions/0003-three.md", "\n", "1: is not the next number, 0002")

    def test_notices_of_a_source(self):
        self.write("a.c", "/*\n** License: MIT\n*/\nint a; /* says nothing */\n"
                          "/*\n * License:   MIT\n */\n// Copyright 2016 A\n// All of it\nint b;\n"
                          "/* The author disclaims copyright to this source code.  License: none */\n")
        told = subprocess.run([sys.executable, str(ROOT / "tools/notices.py"), str(self.root / "a.c")],
                              capture_output=True, text=True, check=True).stdout
        self.assertEqual("/*\n** License: MIT\n*/\n\n// Copyright 2016 A\n// All of it\n", told)

    def test_tidy_reads_several_sources_as_one(self):
        if shutil.which("clang-tidy-14") is None:
            self.skipTest("clang-tidy-14 is missing")
        faults = {"a": "int one() { return 1; }\n",
                  "b": "#include <vector>\nbool none(const std::vector<int>& of)\n"
                       "{\n    return of.size() == 0;\n}\n",
                  "c": "#include <vector>\nusing std::vector;\nint text();\n"}
        environment = os.environ | {"XDG_CACHE_HOME": str(self.root / "cache")}
        told = []
        # The last time in another checkout, with a compiler cache: the marks are found there too.
        for folder, compiler in [("one", "c++"), ("one", "c++"), ("other/checkout", "env A=1 ccache c++")]:
            root, entries = self.root / folder, []
            for name, text in faults.items():
                self.write(f"{folder}/src/text/{name}.cpp", text)
                entries.append({"directory": str(root), "file": f"{root}/src/text/{name}.cpp",
                                "command": f"{compiler} -std=c++20 -I{root}/src -o {name}.o "
                                           f"-c {root}/src/text/{name}.cpp"})
            self.write(f"{folder}/build/dev/compile_commands.json", json.dumps(entries))
            shutil.copy(ROOT / ".clang-tidy", root)
            subprocess.run(["git", "init", "-q", str(root)], check=True)
            done = subprocess.run([sys.executable, str(ROOT / "tools/check/tidy.py"), str(root)],
                                  capture_output=True, text=True, check=False, env=environment)
            told.append(done.stdout)
            self.assertEqual(1, done.returncode, done.stdout)
            self.assertIn("src/text/b.cpp:4", done.stdout)
            self.assertIn("src/text/c.cpp:2", done.stdout)
            self.assertNotIn("src/text/a.cpp:", done.stdout)
        self.assertEqual(["3 of 3", "2 of 3", "2 of 3"],
                         [re.search(r"(\d of \d) sources", text)[1] for text in told])

    def test_tidy_cuts_long_functions(self):
        if shutil.which("clang-tidy-14") is None:
            self.skipTest("clang-tidy-14 is missing")
        shutil.copy(ROOT / ".clang-tidy", self.root)
        for lines, found in [(58, False), (61, True)]:
            body = "    ++number;\n" * lines
            self.write("src/text/a.cpp", f"int f(int number)\n{{\n{body}    return number;\n}}\n")
            done = subprocess.run(["clang-tidy-14", "--quiet", "src/text/a.cpp", "--"],
                                  cwd=self.root, capture_output=True, text=True, check=False)
            self.assertEqual(found, "readability-function-size" in done.stdout, done.stdout)
            self.assertEqual(found, done.returncode != 0)


if __name__ == "__main__":
    unittest.main()
