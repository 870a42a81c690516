"""Tests of what was installed, by a build or by a package.

The environment tells what is tested: TALLYBROOK_ROOT is the root below which it was installed, TALLYBROOK_HANDS a folder
of plugins with the one that answers boxes and closes windows."""

import configparser
import gzip
import os
import re
import shlex
import shutil
import struct
import subprocess
import tempfile
import unittest
from pathlib import Path
from xml.etree import ElementTree

ROOT = Path(os.environ["TALLYBROOK_ROOT"])
SOURCES = Path(__file__).parents[2]
SIZES = (16, 22, 24, 32, 48, 64, 128, 256, 512)
PROGRAMS = ("tallybrook", "tallybrook-viewer", "tallybrook-keeper")
APPLICATION = "example.tallybrook.tallybrook"
ENTRIES = {"tallybrook": APPLICATION, "tallybrook-viewer": "example.tallybrook.viewer",
           "tallybrook-keeper": "example.tallybrook.keeper"}
METAINFO = ROOT / f"usr/share/metainfo/{APPLICATION}.metainfo.xml"
COPYRIGHT = ROOT / "usr/share/doc/tallybrook/copyright"
LAYOUT = {
    *(f"usr/bin/{program}" for program in PROGRAMS),
    *(f"usr/share/applications/{entry}.desktop" for entry in ENTRIES.values()),
    *(f"usr/share/man/man1/{program}.1.gz" for program in PROGRAMS),
    *(f"usr/share/icons/hicolor/{size}x{size}/apps/tallybrook.png" for size in SIZES),
    "usr/share/icons/hicolor/scalable/apps/tallybrook.svg",
    "usr/share/doc/tallybrook/changelog.gz",
    str(COPYRIGHT.relative_to(ROOT)),
    str(METAINFO.relative_to(ROOT)),
}
DEBIAN_ONLY = {"usr/share/doc/tallybrook/changelog.Debian.gz", "usr/share/lintian/overrides/tallybrook"}


def output(*command, **options):
    """What a command writes; it must succeed and complain of nothing."""
    done = subprocess.run(command, capture_output=True, text=True, **options)
    if done.returncode != 0 or done.stderr:
        raise AssertionError(f"{shlex.join(map(str, command))}: status {done.returncode}\n{done.stdout}{done.stderr}")
    return done.stdout


def files_below(folder):
    return {str(path.relative_to(folder)) for path in folder.rglob("*") if not path.is_dir()}


def complaints(run):
    """What a program wrote to its standard error, but for what the toolkit cannot do without a display."""
    return [line for line in run.stderr.splitlines() if not line.startswith("This plugin does not support")]


class InstalledTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)


class WhereItLies(InstalledTest):
    def test_every_file_lies_where_it_belongs(self):
        self.assertEqual(files_below(ROOT) - DEBIAN_ONLY, LAYOUT)

    def test_icons_have_the_sizes_of_their_folders(self):
        for size in SIZES:
            png = (ROOT / f"usr/share/icons/hicolor/{size}x{size}/apps/tallybrook.png").read_bytes()
            self.assertEqual(struct.unpack(">II", png[16:24]), (size, size))


class WhatItTells(InstalledTest):
    def test_version_is_the_same_everywhere(self):
        version = re.search(r"project\(Tallybrook VERSION (\S+)", (SOURCES / "CMakeLists.txt").read_text())[1]
        self.assertIn(f'<release version="{version}"', METAINFO.read_text())
        self.assertTrue((SOURCES / "debian/changelog").read_text().startswith(f"tallybrook ({version}-"))
        for program in PROGRAMS:
            page = gzip.decompress((ROOT / f"usr/share/man/man1/{program}.1.gz").read_bytes()).decode()
            self.assertIn(f'"Tallybrook {version}"', page)

    def test_terms_are_those_of_the_license(self):
        head, _, *terms = (SOURCES / "LICENSE").read_text(encoding="utf-8").splitlines()
        name = head.removeprefix("SPDX-License-Identifier: ")
        copyright_file = COPYRIGHT.read_text(encoding="utf-8")
        paragraph = "".join(f" {line or '.'}\n" for line in terms)
        self.assertTrue(copyright_file.endswith(f"\nLicense: {name}\n\nLicense: {name}\n{paragraph}"), copyright_file)
        self.assertEqual(ElementTree.parse(METAINFO).findtext("project_license"), name)

    def test_desktop_knows_the_programs_by_their_entries(self):
        metainfo = ElementTree.parse(METAINFO)
        self.assertEqual(metainfo.findtext("id"), APPLICATION)
        self.assertEqual(metainfo.findtext("launchable"), f"{APPLICATION}.desktop")
        for program, entry in ENTRIES.items():
            self.assertIn(entry.encode() + b"\0", (ROOT / "usr/bin" / program).read_bytes())


class WhatOthersSayOfIt(InstalledTest):
    def test_desktop_files_are_valid(self):
        for entry in ENTRIES.values():
            found = ROOT / f"usr/share/applications/{entry}.desktop"
            self.assertEqual(output("desktop-file-validate", found), "")

    def test_metainfo_is_valid(self):
        told = output("appstreamcli", "validate", "--no-net", "--pedantic", "--no-color", METAINFO)
        issues = re.findall(r"^[A-Z]: \S+ (\S+)", told, re.MULTILINE)
        self.assertEqual(issues, ["cid-maybe-not-rdns"], told)  # our domain is one for examples

    def test_manual_pages_are_without_warnings(self):
        for program in PROGRAMS:
            page = ROOT / f"usr/share/man/man1/{program}.1.gz"
            output("man", "--warnings", "--local-file", "-Tutf8", "-Z", page, env={**os.environ, "MANWIDTH": "80"})
            self.assertIn(f"{program} - ", output("lexgrog", page))

    def test_desktop_takes_the_viewer_for_text_files(self):
        applications = shutil.copytree(ROOT / "usr/share/applications", self.folder / "applications")
        output("update-desktop-database", applications)
        cache = (applications / "mimeinfo.cache").read_text().splitlines()
        self.assertEqual(cache, ["[MIME Cache]", "text/plain=example.tallybrook.viewer.desktop;"])


class StartingTest(InstalledTest):
    root = ROOT

    def setUp(self):
        super().setUp()
        self.home = self.folder / "home"
        self.home.mkdir(mode=0o700)

    def entry(self, program, action=None):
        """The desktop entry of a program, or one of its actions."""
        entries = configparser.ConfigParser(interpolation=None)
        entries.optionxform = str
        entries.read(self.root / f"usr/share/applications/{ENTRIES[program]}.desktop")
        return entries[f"Desktop Action {action}" if action else "Desktop Entry"]

    def start(self, program, *files, action=None):
        """Starts a program as a desktop does from its entry, and gives what the hands have seen of it."""
        command = [str(file) for word in shlex.split(self.entry(program, action)["Exec"])
                   for file in (files if word == "%F" else [word])]
        where = self.root / "usr/bin"
        self.assertIn(command[0], PROGRAMS)
        return subprocess.run([where / command[0], *command[1:]], cwd=self.home, timeout=60, text=True,
                              capture_output=True, env={
                                  **os.environ, "HOME": str(self.home), "XDG_DATA_HOME": str(self.home / "data"),
                                  "XDG_CONFIG_HOME": str(self.home / "config"),
                                  "XDG_RUNTIME_DIR": str(self.home), "QT_QPA_PLATFORM": "offscreen",
                                  "QT_PLUGIN_PATH": os.environ["TALLYBROOK_HANDS"],
                                  "QT_QPA_GENERIC_PLUGINS": "hands"})


class Started(StartingTest):
    def test_program_runs_from_the_first_start_to_its_end(self):
        run = self.start("tallybrook")
        self.assertEqual((run.returncode, complaints(run)), (0, []))
        seen = run.stdout.splitlines()
        self.assertTrue(seen[0].startswith("box: No configuration file was found."), seen)
        self.assertTrue(seen[1].startswith("box: Check database consistency?"), seen)
        self.assertEqual(seen[-2:], ["window: Main Menu - Tallybrook", "box: Exit Tallybrook?"])
        self.assertEqual((self.home / "data/Tallybrook/Tallybrook_DB.mdb").read_bytes()[:15], b"SQLite format 3")

    def test_viewer_opens_the_report_it_is_given(self):
        report = self.home / "League  Night.txt"
        report.write_bytes(b"Game\tScore\r\n1\t170\r\n")
        run = self.start("tallybrook-viewer", report)
        self.assertEqual((run.returncode, complaints(run)), (0, []))
        self.assertEqual(run.stdout, "window: League  Night.txt - Tallybrook Report\n")

    def test_night_is_recorded_from_the_menu(self):
        run = self.start("tallybrook", action="record")
        self.assertEqual((run.returncode, complaints(run)), (0, []))
        windows = [line for line in run.stdout.splitlines() if line.startswith("window: ")]
        self.assertEqual(windows[0], "window: Event Information - Tallybrook")

    def test_folder_that_cannot_be_opened_is_told(self):
        folder = self.home / "data/Tallybrook"
        for why in ("It is not there yet. Tallybrook makes it when you start it for the first time.",
                    "No file manager was found that opens it."):
            run = self.start("tallybrook", action="folder")
            self.assertEqual((run.returncode, complaints(run)), (1, []))
            self.assertEqual(run.stdout, f"box: The folder of the logbook cannot be opened:||{folder}||{why}\n")
            folder.mkdir(parents=True, exist_ok=True)

    def test_last_report_is_opened_from_the_menu(self):
        report = self.home / "League Night.txt"
        report.write_bytes(b"Game\tScore\r\n1\t170\r\n")
        none_yet = self.start("tallybrook", action="report")
        self.assertEqual((none_yet.returncode, complaints(none_yet)), (1, []))
        self.assertTrue(none_yet.stdout.startswith("box: No report has been opened yet."), none_yet.stdout)
        self.start("tallybrook-viewer", report)
        run = self.start("tallybrook", action="report")
        self.assertEqual((run.returncode, complaints(run)), (0, []))
        self.assertEqual(run.stdout, "window: League Night.txt - Tallybrook Report\n")

    def test_keeper_shows_its_window(self):
        (self.home / "data/Tallybrook").mkdir(parents=True)
        run = self.start("tallybrook-keeper")
        self.assertEqual((run.returncode, complaints(run)), (0, []))
        self.assertEqual(run.stdout, "window: Tallybrook Keeper\n")
