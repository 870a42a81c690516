#!/usr/bin/env python3
"""The check of the house must itself find what it is there for."""

import contextlib
import io
import tempfile
import unittest
from pathlib import Path

from check_includes import faults_of_paths, faults_of_readme, faults_of_tree, main
from rooms import read_rooms

SOUND_README = "# Tallybrook\n\n    scripts/run\n    scripts/test\n"
SOUND_HOUSE = {"README.md": SOUND_README, "src/rooms.txt": "cellar\n", "src/cellar/A.cpp": "", "tests/a.txt": "x"}
ROOMS = """# A small house.

cellar  fmt::fmt            # all that is old
kitchen cellar SQLiteCpp
hall    cellar
stairs  kitchen             # up
window  stairs Qt6::Widgets
roof    window
"""
SOUND_TREE = {
    "cellar/Wine.h": "#include <string>\n",
    "kitchen/Stove.h": '#include "cellar/Wine.h"\n',
    "kitchen/shelf/Cup.h": '#include "kitchen/Stove.h"\n',
    "hall/Coat.h": '#include "cellar/Wine.h"\n',
    "stairs/Step.h": '#include "cellar/Wine.h"\n#include "kitchen/Stove.h"\n',
    "window/Pane.h": '#include <QWidget>\n#include "stairs/Step.h"\n',
    "roof/Tile.h": '#include <QString>\n#include "kitchen/shelf/Cup.h"\n#include "window/Pane.h"\n',
}


def faults_with(files, rooms=ROOMS):
    """The faults of the sound tree with these files besides, or instead of its own."""
    return faults_of_tree(read_rooms(rooms), SOUND_TREE | files)


class Tree(unittest.TestCase):
    def test_passes_a_sound_tree(self):
        self.assertEqual(faults_with({}), [])

    def test_finds_an_include_from_above(self):
        faults = faults_with({"cellar/Old.h": '#include "hall/Coat.h"\n'})
        self.assertIn("cellar/Old.h: includes hall/Coat.h, but cellar may not use hall", faults)

    def test_finds_an_include_from_beside(self):
        faults = faults_with({"kitchen/Old.h": '#include "hall/Coat.h"\n'})
        self.assertEqual(faults, ["kitchen/Old.h: includes hall/Coat.h, but kitchen may not use hall"])

    def test_finds_an_include_from_below_that_the_list_does_not_allow(self):
        faults = faults_with({"roof/Old.h": '#include "hall/Coat.h"\n'})
        self.assertEqual(faults, ["roof/Old.h: includes hall/Coat.h, but roof may not use hall"])

    def test_finds_an_include_of_no_room(self):
        faults = faults_with({"hall/Old.h": '#include "attic/Box.h"\n'})
        self.assertEqual(faults, ["hall/Old.h: includes attic/Box.h, which is in no room"])

    def test_finds_a_circle_of_files(self):
        faults = faults_with({"hall/A.h": '#include "hall/B.h"\n', "hall/B.h": '#include "hall/A.h"\n'})
        self.assertEqual(faults, ["a circle of files: hall/A.h -> hall/B.h -> hall/A.h"])

    def test_finds_a_file_that_includes_itself(self):
        faults = faults_with({"hall/A.h": '#include "hall/A.h"\n'})
        self.assertEqual(faults, ["a circle of files: hall/A.h -> hall/A.h"])

    def test_finds_a_circle_of_folders_without_one_of_files(self):
        faults = faults_with({"kitchen/Table.h": '#include "kitchen/shelf/Cup.h"\n'})
        self.assertEqual(faults, ["a circle of folders: kitchen -> kitchen/shelf -> kitchen"])

    def test_finds_two_types_of_one_name_in_rooms_that_meet(self):
        cup = "namespace house {\nstruct Cup : Dish {\n};\nstruct Saucer;\n}\n"
        other = cup + "\nstruct Saucer {};\n"
        faults = faults_with({"kitchen/Cup.h": cup, "hall/Cup.h": other})
        self.assertEqual(faults, [])
        faults = faults_with({"kitchen/Cup.h": cup, "roof/Cup.h": other})
        self.assertEqual(faults, ["house::Cup is a type of its own in each of kitchen, roof"])
        faults = faults_with({"kitchen/Cup.h": cup, "roof/Cup.h": other.replace("house", "garden")})
        self.assertEqual(faults, [])

    def test_finds_qt_where_no_library_of_qt_may_be_used(self):
        faults = faults_with({"hall/A.h": "#include <QtGlobal>\n", "stairs/B.h": "#include <QString>\n"})
        self.assertIn("hall/A.h: includes Qt's QtGlobal", faults)
        self.assertIn("stairs/B.h: includes Qt's QString", faults)


class List(unittest.TestCase):
    def faults(self, old, new):
        """The faults of the sound tree with a list in which one text stands for another."""
        self.assertIn(old, ROOMS)
        return faults_with({}, ROOMS.replace(old, new))

    def test_finds_a_circle_of_rooms(self):
        faults = self.faults("cellar  fmt::fmt", "cellar  fmt::fmt stairs")
        self.assertIn("rooms.txt: a circle of rooms: cellar -> stairs -> kitchen -> cellar", faults)

    def test_finds_a_room_that_is_used_and_not_known(self):
        self.assertEqual(
            self.faults("roof    window", "roof    window attic"), ["rooms.txt: roof may use attic, which is no room"]
        )

    def test_finds_a_folder_without_a_line(self):
        self.assertEqual(faults_with({"attic/Box.h": ""}), ["rooms.txt: has no line for the folder attic"])

    def test_finds_a_line_without_a_folder(self):
        self.assertEqual(faults_with({}, ROOMS + "attic\n"), ["rooms.txt: there is no folder attic"])

    def test_finds_a_room_that_need_not_be_named(self):
        self.assertEqual(
            self.faults("stairs  kitchen", "stairs  kitchen cellar"),
            ["rooms.txt: stairs need not name cellar, which it may use through kitchen"],
        )

    def test_finds_what_is_allowed_and_not_used(self):
        self.assertEqual(
            self.faults("stairs  kitchen", "stairs  kitchen hall"), ["rooms.txt: stairs may use hall, and does not"]
        )

    def test_finds_a_room_that_is_used_only_through_another(self):
        faults = faults_with({"stairs/Step.h": '#include "cellar/Wine.h"\n'})
        self.assertEqual(faults, ["rooms.txt: stairs may use kitchen, and does not"])


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
        self.assertEqual(self.check(SOUND_HOUSE), 0)

    def test_fails_on_each_kind_of_fault(self):
        for fault in (
            {"README.md": "# T\n"},
            {"src/rooms.txt": "cellar\nhall cellar\n"},
            {"src/cellar/B.h": '#include "hall/A.h"\n'},
            {"src/cellar/B.h": "#include <QString>\n"},
            {"docs/notes.md": "see /home/me/notes\n"},
            {"scripts/go": "cd /root/x\n"},
        ):
            with self.subTest(fault=fault):
                self.assertEqual(self.check(SOUND_HOUSE | fault), 1)

    def test_fails_on_an_empty_house(self):
        self.assertEqual(self.check({"README.md": SOUND_README, "src/rooms.txt": ""}), 1)


if __name__ == "__main__":
    unittest.main()
