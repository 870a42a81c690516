#!/usr/bin/env python3
"""The check of the house must itself find what it is there for."""

import contextlib
import io
import tempfile
import unittest
from pathlib import Path

from check_includes import faults_of_paths, faults_of_readme, faults_of_tree, main

SOUND_README = "# Tallybrook\n\n    scripts/run\n    scripts/test\n"


class Tree(unittest.TestCase):
    def test_passes_a_sound_tree(self):
        self.assertEqual(
            faults_of_tree(
                {
                    "runtime/Value.h": "#include <string>\n",
                    "store/Store.h": '#include "runtime/Value.h"\n',
                    "desktop/Window.h": '#include <QWidget>\n#include "store/Store.h"\n',
                    "viewer/View.h": '#include <QWidget>\n#include "runtime/Value.h"\n',
                }
            ),
            [],
        )

    def test_finds_an_arrow_the_wrong_way(self):
        faults = faults_of_tree({"runtime/Value.h": '#include "store/Store.h"\n', "store/Store.h": ""})
        self.assertEqual(faults, ["runtime/Value.h: includes store/Store.h, an arrow the wrong way"])

    def test_finds_an_arrow_between_neighbours(self):
        faults = faults_of_tree({"entry/frmGame.h": '#include "browse/frmEventList.h"\n', "browse/frmEventList.h": ""})
        self.assertEqual(len(faults), 1)

    def test_finds_a_circle_of_files(self):
        faults = faults_of_tree({"store/A.h": '#include "store/B.h"\n', "store/B.h": '#include "store/A.h"\n'})
        self.assertEqual(faults, ["a circle of files: store/A.h -> store/B.h -> store/A.h"])

    def test_finds_a_file_that_includes_itself(self):
        self.assertEqual(faults_of_tree({"store/A.h": '#include "store/A.h"\n'}), ["a circle of files: store/A.h -> store/A.h"])

    def test_finds_a_circle_of_folders_without_one_of_files(self):
        faults = faults_of_tree(
            {
                "runtime/A.h": '#include "store/B.h"\n',
                "store/B.h": "",
                "store/C.h": '#include "runtime/D.h"\n',
                "runtime/D.h": "",
            }
        )
        self.assertIn("a circle of folders: runtime -> store -> runtime", faults)

    def test_finds_qt_below_the_desktop(self):
        faults = faults_of_tree({"shell/Screen.h": "#include <QtGlobal>\n", "entry/frmGame.h": "#include <QString>\n"})
        self.assertEqual(len(faults), 2)

    def test_finds_an_unknown_room(self):
        self.assertEqual(len(faults_of_tree({"attic/Old.h": ""})), 1)


class Paths(unittest.TestCase):
    def test_passes_relative_and_system_paths(self):
        lines = "docs/home/page\n$HOME/work/x\n${root}/home/x\n/usr/bin/env\n../root/x\n"
        self.assertEqual(faults_of_paths({"a.txt": lines}), [])

    def test_finds_a_path_of_one_machine(self):
        for path in ("/home/me/x", '"/root/x"', " /media/me", "/Users/me", r"C:\Users\me"):
            with self.subTest(path=path):
                self.assertEqual(len(faults_of_paths({"a.txt": "first\n" + path + "\n"})), 1)

    def test_names_the_line(self):
        fault = faults_of_paths({"a.txt": "first\n/home/me/x\n"})[0]
        self.assertTrue(fault.startswith("a.txt:2:"), fault)


class Readme(unittest.TestCase):
    def test_passes_one_that_opens_with_both_commands(self):
        self.assertEqual(faults_of_readme(SOUND_README), [])

    def test_finds_a_missing_command(self):
        for readme in ("", "# T\n\n    scripts/run\n", "# T\n\n    make\n    scripts/run\n    scripts/test\n"):
            with self.subTest(readme=readme):
                self.assertEqual(len(faults_of_readme(readme)), 1)

    def test_finds_commands_that_do_not_come_first(self):
        self.assertEqual(len(faults_of_readme("# T\n\n## About\n\n    scripts/run\n    scripts/test\n")), 1)


class WholeCheck(unittest.TestCase):
    def check(self, files):
        """The exit status of the check on a tree of these files."""
        with tempfile.TemporaryDirectory() as folder:
            for name, text in files.items():
                path = Path(folder, name)
                path.parent.mkdir(parents=True, exist_ok=True)
                path.write_text(text, encoding="utf-8")
            with contextlib.redirect_stdout(io.StringIO()):
                return main(Path(folder))

    def test_passes_a_sound_house(self):
        self.assertEqual(self.check({"README.md": SOUND_README, "src/store/A.cpp": "", "tests/a.txt": "x"}), 0)

    def test_fails_on_each_kind_of_fault(self):
        sound = {"README.md": SOUND_README, "src/store/A.cpp": ""}
        for fault in (
            {"README.md": "# T\n"},
            {"src/runtime/B.h": '#include "store/A.h"\n'},
            {"src/store/B.h": "#include <QString>\n"},
            {"docs/notes.md": "see /home/me/notes\n"},
            {"scripts/go": "cd /root/x\n"},
        ):
            with self.subTest(fault=fault):
                self.assertEqual(self.check(sound | fault), 1)

    def test_fails_on_an_empty_house(self):
        self.assertEqual(self.check({"README.md": SOUND_README}), 1)


if __name__ == "__main__":
    unittest.main()
