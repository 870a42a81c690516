#!/usr/bin/env python3
"""The build itself must refuse what src/rooms.txt does not allow: lines with a planted include go through the
preprocessor as this build compiles a source of the room. TALLYBROOK_BUILD names the build folder."""

import json
import os
import random
import shlex
import subprocess
import tempfile
import unittest
from pathlib import Path

from rooms import read_rooms, within_reach

SOURCES = Path(__file__).resolve().parents[2] / "src"
ROOMS = read_rooms((SOURCES / "rooms.txt").read_text(encoding="utf-8"))
COMMANDS = json.loads(Path(os.environ["TALLYBROOK_BUILD"], "compile_commands.json").read_text(encoding="utf-8"))


def command_of(room):
    """How the build compiles a source of a room, or all of them as one."""
    return next(entry for entry in COMMANDS if f" -o src/CMakeFiles/{room}.dir/" in entry["command"])


def a_header(room):
    """A header of the room, as an include names it."""
    return str(min((SOURCES / room).glob("*.h")).relative_to(SOURCES))


def errors_of(room, planted):
    """The errors of the preprocessor on these lines, if they were a source of the room."""
    entry = command_of(room)
    with tempfile.TemporaryDirectory() as folder:
        source = Path(folder, Path(entry["file"]).name)
        source.write_text(planted, encoding="utf-8")
        arguments = [
            str(source) if argument == entry["file"] else argument for argument in shlex.split(entry["command"])
        ]
        arguments[arguments.index("-o") + 1] = os.devnull
        done = subprocess.run(
            [*arguments, "-E"], cwd=entry["directory"], env=os.environ | {"LC_ALL": "C"}, capture_output=True, text=True
        )
    errors = [line for line in done.stderr.splitlines() if "error: " in line]
    return errors or [f"it ended with {done.returncode}"] if done.returncode else []


def looks_for(header):
    """Lines of a source that are in error if it does not find the header."""
    return f'#if !__has_include("{header}")\n#error {header} is not found\n#endif\n'


class Walls(unittest.TestCase):
    def test_every_room_may_use_what_the_list_allows(self):
        for room in ROOMS:
            planted = [looks_for(a_header(other)) for other in sorted(within_reach(ROOMS, room))]
            with self.subTest(room=room):
                self.assertEqual(errors_of(room, "".join(planted)), [])

    def test_no_room_may_use_another(self):
        draw = random.Random(20261114)
        for room in ROOMS:
            header = a_header(draw.choice(sorted(set(ROOMS) - within_reach(ROOMS, room) - {room})))
            with self.subTest(room=room, header=header):
                errors = errors_of(room, f'#include "{header}"\n')
                self.assertEqual(len(errors), 1, errors)
                self.assertRegex(errors[0], rf"fatal error: '?{header}\b")


if __name__ == "__main__":
    unittest.main()
