"""tools/check_sources.sh finds every breach planted in a small tree, and nothing in a clean one."""

import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

PROJECT = Path(sys.argv.pop(1))
SCRIPT = PROJECT / "tools" / "check_sources.sh"

CLEAN = {
    "src/base/Text.h": "#pragma once\n\n#include <QString>\n",
    "src/database/Record.h": '#pragma once\n\n#include "base/Text.h"\n',
    "src/host/CWindow.h": '#pragma once\n\n#include "database/Record.h"\n\n#include <QWidget>\n\nclass CWindow : public QWidget\n{\n    int m_a;\n};\n',
    "src/layermanager/CMakeLists.txt": 'set(core_sources\n  "layers/Rules.cpp"\n)\n',
    "src/layermanager/layers/Rules.cpp": '#include "sdk/Status.h"\n',
    "src/sdk/Status.h": "#pragma once\n",
}


class CheckSources(unittest.TestCase):
    def setUp(self):
        self.root = Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.root)
        shutil.copy(PROJECT / ".clang-format", self.root)
        for name, text in CLEAN.items():
            self.plant(name, text)

    def plant(self, name, text):
        path = self.root / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text)

    def check(self):
        return subprocess.run([SCRIPT, self.root], capture_output=True, text=True)

    def assertBreach(self, expected):
        result = self.check()
        self.assertEqual(result.returncode, 1, result.stdout)
        self.assertEqual(result.stdout.splitlines()[0], expected)
        self.assertIn("check_sources: 1 breaches", result.stdout)

    def test_a_clean_tree_passes(self):
        result = self.check()
        self.assertEqual((result.returncode, result.stdout), (0, "check_sources: 5 files, no breach\n"))

    def test_an_empty_tree_is_not_taken_for_a_clean_one(self):
        shutil.rmtree(self.root / "src")
        self.assertEqual(self.check().returncode, 2)

    def test_a_module_prefixed_include_is_found(self):
        self.plant("src/base/Bad.h", "#pragma once\n\n#include <QtWidgets/QWidget>\n")
        self.assertBreach("src/base/Bad.h:3: a module-prefixed include; write the class alone")

    def test_a_module_header_without_a_slash_is_none(self):
        self.plant("src/base/Good.h", "#pragma once\n\n#include <QtGlobal>\n")
        self.assertEqual(self.check().returncode, 0)

    def test_an_include_against_the_arrows_is_found(self):
        for folder, target in (
            ("src/base", "database"),
            ("src/database", "io"),
            ("src/database", "sdk"),
            ("src/io", "host"),
            ("src/sdk", "host"),
            ("src/sdk", "toolkit"),
            ("src/toolkit", "database"),
            ("src/host", "layermanager"),
            ("src/layermanager", "host"),
            ("src/layermanager", "io"),
            ("apps/kest", "layermanager"),
            ("apps/layerman", "host"),
        ):
            with self.subTest(folder=folder, target=target):
                self.plant(f"{folder}/Bad.cpp", f'#include "{target}/Record.h"\n')
                self.assertBreach(f"{folder}/Bad.cpp:1: {folder} may not include {target}")
                (self.root / folder / "Bad.cpp").unlink()

    def test_one_part_of_a_folder_can_be_open_to_another(self):
        self.plant("apps/layerman/List.cpp", '#include "host/text/Table.h"\n')
        self.assertEqual(self.check().returncode, 0)
        self.plant("apps/layerman/List.cpp", '#include "host/window/Table.h"\n')
        self.assertBreach("apps/layerman/List.cpp:1: apps/layerman may not include host")

    def test_a_widget_in_the_core_is_found(self):
        self.plant("src/layermanager/layers/Rules.cpp", "#include <QTreeView>\n")
        self.assertBreach("src/layermanager/layers/Rules.cpp:1:#include <QTreeView>  (the core knows no widgets)")

    def test_the_toolkit_in_the_core_is_found(self):
        self.plant("src/layermanager/layers/Rules.cpp", '#include "toolkit/Prompts.h"\n')
        self.assertBreach(
            'src/layermanager/layers/Rules.cpp:1:#include "toolkit/Prompts.h"  (the core knows no widgets)'
        )

    def test_a_file_over_its_ceiling_is_found(self):
        self.plant("src/base/Long.h", "#pragma once\n" + "// a\n" * 250)
        self.assertBreach("src/base/Long.h:251: longer than 250 lines")
        (self.root / "src/base/Long.h").unlink()
        self.plant("src/base/Long.cpp", "// a\n" * 501)
        self.assertBreach("src/base/Long.cpp:501: longer than 500 lines")

    def test_a_file_at_its_ceiling_is_not(self):
        self.plant("src/base/Long.h", "// a\n" * 250)
        self.plant("src/base/Long.cpp", "// a\n" * 500)
        self.assertEqual(self.check().returncode, 0)

    def test_a_folder_over_its_ceiling_is_found(self):
        for number in range(24):
            self.plant(f"src/base/Many{number}.cpp", "// a\n")
        self.assertEqual(self.check().returncode, 0)
        self.plant("src/base/OneTooMany.h", "#pragma once\n")
        self.assertBreach("src/base: 26 sources, more than 25")

    def test_a_function_over_its_ceiling_is_found(self):
        statements = "    f();\n" * 60
        self.plant("src/base/Long.cpp", "void f()\n{\n" + statements + "}\n\nclass C\n{\n" + statements + statements + "};\n")
        self.assertEqual(self.check().returncode, 0)
        self.plant("src/base/Long.cpp", "void f()\n{\n" + statements + "    f();\n}\n")
        self.assertBreach("src/base/Long.cpp:2: a function of 61 lines, longer than 60")

    def test_an_open_end_is_found(self):
        # Put together here, so that this file holds none itself.
        self.plant("src/base/Open.cpp", "// TO" + "DO: later\n")
        self.assertBreach("src/base/Open.cpp:1: an open end; finish it or leave it out")

    def test_a_widget_class_without_its_letter_is_found(self):
        for base in ("QWidget", "QDialog", "QMainWindow", "QDockWidget", "QTreeView"):
            with self.subTest(base=base):
                self.plant("src/host/Pane.h", f"#pragma once\n\nclass Pane final : public {base}\n{{\n    int m_a;\n}};\n")
                self.assertBreach("src/host/Pane.h:3: the widget class Pane does not start with C")

    def test_a_class_that_is_no_widget_needs_no_letter(self):
        self.plant("src/host/Model.h", "#pragma once\n\nclass RowModel : public QAbstractTableModel\n{\n    int m_a;\n};\n")
        self.assertEqual(self.check().returncode, 0)

    @unittest.skipUnless(shutil.which("clang-format-14"), "clang-format 14 is not installed")
    def test_a_file_laid_out_otherwise_is_found(self):
        self.plant("src/base/Odd.cpp", "int  a ;\nint   b;\n")
        self.assertBreach("src/base/Odd.cpp: not laid out by clang-format")


if __name__ == "__main__":
    unittest.main(verbosity=2)
