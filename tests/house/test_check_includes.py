#!/usr/bin/env python3
"""The check of the includes must itself find what it is there for."""

import unittest

from check_includes import faults_of_tree


class CheckIncludes(unittest.TestCase):
    def test_passes_a_sound_tree(self):
        self.assertEqual(
            faults_of_tree(
                {
                    "runtime/Value.h": "#include <string>\n",
                    "store/Store.h": '#include "runtime/Value.h"\n',
                    "desktop/Window.h": '#include <QWidget>\n#include "store/Store.h"\n',
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

    def test_finds_a_circle(self):
        faults = faults_of_tree({"store/A.h": '#include "store/B.h"\n', "store/B.h": '#include "store/A.h"\n'})
        self.assertEqual(faults, ["a circle of includes: store/A.h -> store/B.h -> store/A.h"])

    def test_finds_qt_below_the_desktop(self):
        faults = faults_of_tree({"shell/Screen.h": "#include <QtGlobal>\n", "entry/frmGame.h": "#include <QString>\n"})
        self.assertEqual(len(faults), 2)

    def test_finds_an_unknown_room(self):
        self.assertEqual(len(faults_of_tree({"attic/Old.h": ""})), 1)


if __name__ == "__main__":
    unittest.main()
