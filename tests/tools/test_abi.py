# SPDX-License-Identifier: BSD-3-Clause
"""Runs tools/abi with kept files that differ from the library. Arguments: the program, the library, and the library that
abidw can read."""

import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

DESCRIBED = sys.argv.pop(3)
LIBRARY = sys.argv.pop(2)
PROGRAM = sys.argv.pop(1)
KEPT = pathlib.Path(__file__).resolve().parent.parent / "contract/baseline/1.0"


class Abi(unittest.TestCase):
    def setUp(self):
        directory = tempfile.TemporaryDirectory()
        self.addCleanup(directory.cleanup)
        self.kept = pathlib.Path(directory.name, "kept")
        shutil.copytree(KEPT, self.kept)

    def start(self, *arguments, library=LIBRARY):
        return subprocess.run([PROGRAM, "--kept", self.kept, *arguments, library], capture_output=True,
                              encoding="utf-8", check=False)

    def failure(self, code, *arguments, **options):
        process = self.start(*arguments, **options)
        self.assertNotIn("Traceback", process.stderr)
        self.assertEqual(process.returncode, code, process.stderr)
        return process.stderr

    def change(self, pattern, old, new):
        for path in self.kept.glob(pattern):
            text = path.read_text(encoding="utf-8")
            self.assertIn(old, text)
            path.write_text(text.replace(old, new), encoding="utf-8")

    def test_a_symbol_is_missing(self):
        self.change("*.symbols", "_ZN8Brimvale10ActionBase6setUidE7QString\n",
                    "_ZN8Brimvale10ActionBase6setUidE7QString\n_ZN8Brimvale10ActionBase6setUidEi\n")
        self.assertIn("1 symbols of ", message := self.failure(1, "symbols"))
        self.assertIn("Brimvale::ActionBase::setUid(int) (_ZN8Brimvale10ActionBase6setUidEi)", message)

    def test_a_symbol_is_new(self):
        self.change("*.symbols", "_ZN8Brimvale10ActionBase6setUidE7QString\n", "")
        self.assertIn("Brimvale::ActionBase::setUid(QString) (_ZN8Brimvale10ActionBase6setUidE7QString)",
                      self.failure(1, "symbols"))

    def test_the_kept_symbols_are_renewed(self):
        self.change("*.symbols", "_ZN8Brimvale10ActionBase6setUidE7QString\n", "")
        process = self.start("--update", "symbols")
        self.assertEqual(process.returncode, 0)
        self.assertIn("Brimvale::ActionBase::setUid(QString) (_ZN8Brimvale10ActionBase6setUidE7QString)", process.stdout)
        self.assertEqual(self.start("symbols").returncode, 0)

    def test_the_kept_types_are_renewed(self):
        self.change("*.abi", "'>\n<var-decl name='m_workerMethod'", "0'>\n<var-decl name='m_workerMethod'")
        process = self.start("--update", "types", library=DESCRIBED)
        self.assertEqual(process.returncode, 0, process.stderr)
        self.assertIn("'QMetaMethod m_workerMethod' offset changed", process.stdout)
        self.assertEqual(self.start("types", library=DESCRIBED).returncode, 0)

    def test_what_has_not_changed_is_not_renewed(self):
        before = {path: path.read_bytes() for path in self.kept.iterdir()}
        for what, library in (("symbols", LIBRARY), ("types", DESCRIBED)):
            self.assertEqual(self.start("--update", what, library=library).returncode, 0)
        self.assertEqual({path: path.read_bytes() for path in self.kept.iterdir()}, before)

    def test_a_damaged_description_is_renewed(self):
        for path in self.kept.glob("*.abi"):
            path.write_text("<abi-corpus", encoding="utf-8")
        self.assertEqual(self.start("--update", "types", library=DESCRIBED).returncode, 0)
        self.assertEqual(self.start("types", library=DESCRIBED).returncode, 0)

    def test_data_that_is_not_explained(self):
        self.change("static-data.txt", "data QMetaTypeId<", "data Other<")
        message = self.failure(1, "data")
        self.assertIn("QMetaTypeId<QList<QObject*> >::qt_metatype_id()::metatype_id can be written", message)

    def test_a_start_function_that_is_not_explained(self):
        self.change("static-data.txt", "init frame_dummy", "init other")
        self.assertIn("frame_dummy runs when the library is loaded", self.failure(1, "data"))

    def test_a_line_that_is_not_understood(self):
        self.change("static-data.txt", "init frame_dummy", "start frame_dummy")
        self.assertIn("static-data.txt:6: this is neither", self.failure(2, "data"))

    def test_another_name_and_other_needs(self):
        message = self.failure(1, "needs", library="/bin/sh")
        self.assertIn("named nothing and not libSharedLibs.so.1", message)
        self.assertIn("no longer needs libQt5Core.so.5", message)

    def test_a_member_has_moved(self):
        self.change("*.abi", "'>\n<var-decl name='m_workerMethod'", "0'>\n<var-decl name='m_workerMethod'")
        message = self.failure(1, "types", library=DESCRIBED)
        self.assertIn("the library differs", message)
        self.assertIn("'QMetaMethod m_workerMethod' offset changed", message)

    def test_an_enumerator_has_another_value(self):
        self.change("*.abi", "<enumerator name='Any' value='-1'/>", "<enumerator name='Any' value='-2'/>")
        self.assertIn("ApplicationType::Any' from value '-2' to '-1'", self.failure(1, "types", library=DESCRIBED))

    def test_a_baseline_that_is_damaged(self):
        self.change("*.abi", "<abi-corpus", "<abi-copse")
        self.assertIn("abidiff failed", self.failure(2, "types", library=DESCRIBED))

    def test_a_library_without_debug_information(self):
        self.assertIn("abidw finds no class PluginBase", self.failure(2, "types", library="/bin/sh"))

    def test_what_is_no_library(self):
        self.assertIn("this is no ELF file", self.failure(2, "symbols", library=__file__))
        self.assertIn("/there/is/none: No such file", self.failure(2, "symbols", library="/there/is/none"))

    def test_nothing_is_kept(self):
        shutil.rmtree(self.kept)
        self.assertIn("No such file or directory", self.failure(2, "symbols"))


if __name__ == "__main__":
    unittest.main()
