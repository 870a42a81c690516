"""Tests of the Debian package, as it stands and installed below a root of its own.

The environment tells what is tested: TALLYBROOK_BUILD is the folder of the build that the package was made from and
lies in, TALLYBROOK_NOT_SHIPPED what lintian may find since it is no build that is shipped, TALLYBROOK_HANDS a folder of
plugins with the one that answers boxes and closes windows."""

import configparser
import gzip
import os
import re
import shlex
import struct
import subprocess
import tempfile
import unittest
from pathlib import Path
from xml.etree import ElementTree

BUILD = Path(os.environ["TALLYBROOK_BUILD"])
NOT_SHIPPED = os.environ["TALLYBROOK_NOT_SHIPPED"]
LICENSE = Path(__file__).parents[2] / "LICENSE"
SIZES = (16, 22, 24, 32, 48, 64, 128, 256, 512)
PROGRAMS = ("tallybrook", "tallybrook-viewer", "tallybrook-keeper")
APPLICATION = "example.tallybrook.tallybrook"
ENTRIES = {"tallybrook": APPLICATION, "tallybrook-viewer": "example.tallybrook.viewer",
           "tallybrook-keeper": "example.tallybrook.keeper"}
METAINFO = f"usr/share/metainfo/{APPLICATION}.metainfo.xml"
COPYRIGHT = "usr/share/doc/tallybrook/copyright"
DEBIAN_CHANGELOG = "usr/share/doc/tallybrook/changelog.Debian.gz"
DEBIAN_ONLY = {DEBIAN_CHANGELOG, "usr/share/lintian/overrides/tallybrook"}
LAYOUT = {
    *(f"usr/bin/{program}" for program in PROGRAMS),
    *(f"usr/share/applications/{entry}.desktop" for entry in ENTRIES.values()),
    *(f"usr/share/man/man1/{program}.1.gz" for program in PROGRAMS),
    *(f"usr/share/icons/hicolor/{size}x{size}/apps/tallybrook.png" for size in SIZES),
    "usr/share/icons/hicolor/scalable/apps/tallybrook.svg",
    "usr/share/doc/tallybrook/changelog.gz",
    COPYRIGHT,
    METAINFO,
    *DEBIAN_ONLY,
}


def package():
    """The package that was made last."""
    return max(BUILD.glob("*.deb"), key=lambda found: found.stat().st_mtime)


def output(*command, **options):
    """What a command writes; it must succeed and complain of nothing."""
    done = subprocess.run(command, capture_output=True, text=True, **options)
    if done.returncode != 0 or done.stderr:
        raise AssertionError(f"{shlex.join(map(str, command))}: status {done.returncode}\n{done.stdout}{done.stderr}")
    return done.stdout


def files_below(folder):
    return {str(path.relative_to(folder)) for path in folder.rglob("*") if not path.is_dir()}


def field(name):
    return output("dpkg-deb", "--field", package(), name).strip()


def complaints(run):
    """What a program wrote to its standard error, but for what the toolkit cannot do without a display."""
    return [line for line in run.stderr.splitlines() if not line.startswith("This plugin does not support")]


class Root:
    """An empty root with a package database of its own."""

    def __init__(self, folder):
        self.folder = Path(folder)
        self.database = self.folder / "var/lib/dpkg"
        (self.database / "info").mkdir(parents=True)
        (self.database / "updates").mkdir()
        (self.database / "status").touch()

    def dpkg(self, *arguments):
        """Other packages are not there, and what this machine leaves out of its packages is not left out."""
        as_root = [] if os.geteuid() == 0 else ["fakeroot"]
        subprocess.run([*as_root, "dpkg", f"--root={self.folder}", f"--log={self.database}/log", "--force-depends",
                        "--force-not-root", "--path-include=*", *map(str, arguments)], check=True,
                       capture_output=True, env={**os.environ, "PATH": f"{os.environ['PATH']}:/usr/sbin:/sbin"})

    def files(self):
        """What lies there, but for the package database."""
        return {name for name in files_below(self.folder) if not name.startswith("var/")}


class PackageTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)


class WhatThePackageHolds(PackageTest):
    def setUp(self):
        super().setUp()
        output("dpkg-deb", "--extract", package(), self.folder)

    def test_every_file_lies_where_it_belongs(self):
        self.assertEqual(files_below(self.folder), LAYOUT)

    def test_installing_without_a_package_lacks_only_what_debian_asks_for(self):
        installed = self.folder / "installed"
        output("cmake", "--install", BUILD, "--prefix", "/usr", env={**os.environ, "DESTDIR": str(installed)})
        self.assertEqual(files_below(installed), LAYOUT - DEBIAN_ONLY)

    def test_nothing_runs_when_it_comes_or_goes(self):
        members = output("dpkg-deb", "--ctrl-tarfile", package(), encoding="latin-1")
        for script in ("preinst", "postinst", "prerm", "postrm"):
            self.assertNotIn(script, members)

    def test_version_is_the_same_everywhere(self):
        version = field("Version").rsplit("-", 1)[0]
        self.assertIn(f'<release version="{version}"', (self.folder / METAINFO).read_text())
        changelog = gzip.decompress((self.folder / DEBIAN_CHANGELOG).read_bytes()).decode()
        self.assertTrue(changelog.startswith(f"tallybrook ({field('Version')}) "), changelog)
        for program in PROGRAMS:
            page = gzip.decompress((self.folder / f"usr/share/man/man1/{program}.1.gz").read_bytes()).decode()
            self.assertIn(f'"Tallybrook {version}"', page)

    def test_icons_have_the_sizes_of_their_folders(self):
        for size in SIZES:
            png = (self.folder / f"usr/share/icons/hicolor/{size}x{size}/apps/tallybrook.png").read_bytes()
            self.assertEqual(struct.unpack(">II", png[16:24]), (size, size))

    def test_terms_are_those_of_the_license(self):
        head, _, *terms = LICENSE.read_text(encoding="utf-8").splitlines()
        name = head.removeprefix("SPDX-License-Identifier: ")
        copyright_file = (self.folder / COPYRIGHT).read_text(encoding="utf-8")
        paragraph = "".join(f" {line or '.'}\n" for line in terms)
        self.assertTrue(copyright_file.endswith(f"\nLicense: {name}\n\nLicense: {name}\n{paragraph}"), copyright_file)
        self.assertEqual(ElementTree.parse(self.folder / METAINFO).findtext("project_license"), name)

    def test_desktop_knows_the_programs_by_their_entries(self):
        metainfo = ElementTree.parse(self.folder / METAINFO)
        self.assertEqual(metainfo.findtext("id"), APPLICATION)
        self.assertEqual(metainfo.findtext("launchable"), f"{APPLICATION}.desktop")
        for program, entry in ENTRIES.items():
            self.assertIn(entry.encode() + b"\0", (self.folder / "usr/bin" / program).read_bytes())

    def test_libraries_are_asked_for(self):
        depends = field("Depends")
        for library in ("libqt6widgets6", "libqt6printsupport6", "libsqlite3-0", "libc6"):
            self.assertIn(library, depends)


class WhatOthersSayOfIt(PackageTest):
    def setUp(self):
        super().setUp()
        output("dpkg-deb", "--extract", package(), self.folder)

    def test_lintian_finds_nothing(self):
        ignored = ["--suppress-tags", NOT_SHIPPED] if NOT_SHIPPED else []
        self.assertEqual(output("lintian", "--allow-root", "--fail-on", "error,warning", *ignored, package()), "")

    def test_desktop_files_are_valid(self):
        for entry in ENTRIES.values():
            found = self.folder / f"usr/share/applications/{entry}.desktop"
            self.assertEqual(output("desktop-file-validate", found), "")

    def test_metainfo_is_valid(self):
        told = output("appstreamcli", "validate", "--no-net", "--pedantic", "--no-color", self.folder / METAINFO)
        issues = re.findall(r"^[A-Z]: \S+ (\S+)", told, re.MULTILINE)
        self.assertEqual(issues, ["cid-maybe-not-rdns"], told)  # our domain is one for examples

    def test_manual_pages_are_without_warnings(self):
        for program in PROGRAMS:
            page = self.folder / f"usr/share/man/man1/{program}.1.gz"
            output("man", "--warnings", "--local-file", "-Tutf8", "-Z", page, env={**os.environ, "MANWIDTH": "80"})
            self.assertIn(f"{program} - ", output("lexgrog", page))

    def test_desktop_takes_the_viewer_for_text_files(self):
        applications = self.folder / "usr/share/applications"
        output("update-desktop-database", applications)
        cache = (applications / "mimeinfo.cache").read_text().splitlines()
        self.assertEqual(cache, ["[MIME Cache]", "text/plain=example.tallybrook.viewer.desktop;"])


class Installed(PackageTest):
    def setUp(self):
        super().setUp()
        self.home = self.folder / "home"
        self.home.mkdir(mode=0o700)
        self.root = Root(self.folder / "root")
        self.root.dpkg("--install", package())

    def entry(self, program, action=None):
        """The desktop entry of a program, or one of its actions."""
        entries = configparser.ConfigParser(interpolation=None)
        entries.optionxform = str
        entries.read(self.root.folder / f"usr/share/applications/{ENTRIES[program]}.desktop")
        return entries[f"Desktop Action {action}" if action else "Desktop Entry"]

    def start(self, program, *files, action=None):
        """Starts a program as a desktop does from its entry, and gives what the hands have seen of it."""
        command = [str(file) for word in shlex.split(self.entry(program, action)["Exec"])
                   for file in (files if word == "%F" else [word])]
        where = self.root.folder / "usr/bin"
        self.assertIn(command[0], PROGRAMS)
        return subprocess.run([where / command[0], *command[1:]], cwd=self.home, timeout=60, text=True,
                              capture_output=True, env={
                                  **os.environ, "HOME": str(self.home), "XDG_DATA_HOME": str(self.home / "data"),
                                  "XDG_CONFIG_HOME": str(self.home / "config"),
                                  "XDG_RUNTIME_DIR": str(self.home), "QT_QPA_PLATFORM": "offscreen",
                                  "QT_PLUGIN_PATH": os.environ["TALLYBROOK_HANDS"],
                                  "QT_QPA_GENERIC_PLUGINS": "hands"})

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

    def test_nothing_is_left_of_it_but_what_the_user_has_recorded(self):
        self.assertEqual(self.root.files(), LAYOUT)
        self.start("tallybrook")
        recorded = {name: (self.home / name).read_bytes() for name in files_below(self.home)}
        self.assertIn("data/Tallybrook/Tallybrook_DB.mdb", recorded)
        self.root.dpkg("--purge", "tallybrook")
        self.assertEqual(self.root.files(), set())
        self.assertEqual({name: (self.home / name).read_bytes() for name in files_below(self.home)}, recorded)
