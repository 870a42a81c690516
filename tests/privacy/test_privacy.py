#!/usr/bin/env python3
"""Nobody is let in: the programs know no network, what they write is for its user alone, and a
limit on it ends none of them."""

import os
import re
import resource
import stat
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

SCRIPTS = Path(__file__).resolve().parents[1] / "scripts"
BUILT = Path(os.environ["TALLYBROOK_PROGRAMS"])
PROGRAMS = {name: BUILT / name for name in ("tallybrook", "tallybrook-viewer", "tallybrook-play", "tallybrook-sample",
                                            "tallybrook-keeper")}
HANDS = {"QT_PLUGIN_PATH": os.environ["TALLYBROOK_HANDS"], "QT_QPA_GENERIC_PLUGINS": "hands"}  # they close windows

# What a program may be linked to by name; what these bring along is theirs.
LIBRARIES = re.compile(
    r"ld-linux|lib(asan|ubsan|stdc\+\+|m|gcc_s|c|fmt|utf8proc|qpdf|sqlite3|nettle|xlsxwriter|minizip|mdb|OpenGL|GLX"
    r"|Qt6(Core|Gui|Widgets|Svg|SvgWidgets|PrintSupport|Test))\.so\.\d+"
)

# A display, a message bus and a print service are spoken to on the machine itself.
LOCAL_SOCKETS = ("AF_UNIX", "AF_LOCAL")


def linked(program):
    listed = subprocess.run(["readelf", "-d", program], check=True, capture_output=True, text=True).stdout
    return re.findall(r"\(NEEDED\).*\[(.+)\]", listed)


def environment(folder, **more):
    """No display, a home in the folder, and no look for leaks, which strace does not allow."""
    own = {name: str(folder) for name in ("HOME", "XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_RUNTIME_DIR")}
    sanitizer = os.environ.get("ASAN_OPTIONS", "") + ":detect_leaks=0"
    return {**os.environ, **own, "QT_QPA_PLATFORM": "offscreen", "ASAN_OPTIONS": sanitizer, **more}


def remote_calls(command, folder, **more):
    """The calls of a run, and of all that it starts, that reach beyond the machine."""
    log = folder / "calls"
    subprocess.run(
        ["strace", "-f", "-e", "trace=network", "-e", "signal=none", "-o", log, *command],
        cwd=folder, env=environment(folder, **more), check=True, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
    )
    calls = log.read_text().splitlines()
    opened = [call for call in calls if re.search(r"\b(socket|socketpair)\(", call)]
    return [call for call in opened if not any(f"({kind}" in call for kind in LOCAL_SOCKETS)]


class Network(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)

    def test_links_no_library_that_knows_one(self):
        for program in PROGRAMS.values():
            for library in linked(program):
                self.assertRegex(library, LIBRARIES, program)

    def test_sees_a_socket_where_there_is_one(self):
        reach_out = "import socket; socket.socket(socket.AF_INET, socket.SOCK_DGRAM)"
        self.assertEqual(len(remote_calls([sys.executable, "-c", reach_out], self.folder)), 1)

    def test_is_not_used_by_the_windows(self):
        script = SCRIPTS / "odd-names.txt"
        self.assertEqual(remote_calls([PROGRAMS["tallybrook-play"], "--display", "desktop", script], self.folder), [])

    def test_is_not_used_by_the_keeper(self):
        (self.folder / "Tallybrook").mkdir()
        for arguments in (["--window"], ["backups"]):
            self.assertEqual(remote_calls([PROGRAMS["tallybrook-keeper"], *arguments], self.folder, **HANDS), [])

    def test_is_not_used_by_the_program(self):
        self.assertEqual(remote_calls([PROGRAMS["tallybrook"]], self.folder, **HANDS), [])

    def test_is_not_used_by_the_viewer(self):
        (self.folder / "report.txt").write_text("<img src='http://tallybrook.example/x.png'>\n")
        self.assertEqual(remote_calls([PROGRAMS["tallybrook-viewer"], "report.txt"], self.folder, **HANDS), [])


class Files(unittest.TestCase):
    def test_are_their_users_alone(self):
        with tempfile.TemporaryDirectory() as folder:
            # The tour makes a logbook with its backups, a configuration, reports, logs, an archive and a check report.
            subprocess.run(
                [PROGRAMS["tallybrook-play"], "--data", "data", SCRIPTS / "tour.txt"],
                cwd=folder, check=True, umask=0, stdout=subprocess.DEVNULL,
            )
            made = sorted(Path(folder).rglob("*"))
            names = {file.name for file in made}
            self.assertLessEqual(
                {"Tallybrook_DB.mdb", "tbrkcfg.conf", "full-report.txt", "DB_Report.txt", "PDASyncLog-Master.log"}, names
            )
            open_to_others = [file for file in made if stat.S_IMODE(file.stat().st_mode) & 0o077]
            self.assertEqual(open_to_others, [])

    def test_that_may_grow_no_further_end_no_program(self):
        commands = [["tallybrook-sample", "--events", "500", "--data", "sample"], ["tallybrook"],
                    ["tallybrook-play", "--data", "data", SCRIPTS / "tour.txt"], ["tallybrook-viewer", "report.txt"]]
        for name, *arguments in commands:
            with self.subTest(name), tempfile.TemporaryDirectory() as folder:
                (Path(folder) / "report.txt").write_text("A report.\n")
                ended = subprocess.run(
                    [PROGRAMS[name], *arguments], cwd=folder, env=environment(folder, **HANDS), capture_output=True,
                    preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_FSIZE, (4096, 4096)),
                )
                self.assertGreaterEqual(ended.returncode, 0, ended.stderr)


if __name__ == "__main__":
    unittest.main()
