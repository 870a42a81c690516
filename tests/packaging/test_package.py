"""Tests of the Debian packages, and of one as it comes and goes below a root of its own.

The environment tells what is tested: TALLYBROOK_PACKAGES is the folder of the packages; TALLYBROOK_ROOT and
TALLYBROOK_HANDS are those of test_installed.py."""

import os
import subprocess
import unittest
from pathlib import Path

from test_installed import DEBIAN_ONLY, LAYOUT, StartingTest, files_below, output

PACKAGES = Path(os.environ["TALLYBROOK_PACKAGES"])
PACKAGE, = PACKAGES.glob("*.deb")
CHANGES, = PACKAGES.glob("*.changes")


def field(name):
    return output("dpkg-deb", "--field", PACKAGE, name).strip()


class System:
    """An empty root with a package database of its own."""

    def __init__(self, root):
        self.root = Path(root)
        self.database = self.root / "var/lib/dpkg"
        (self.database / "info").mkdir(parents=True)
        (self.database / "updates").mkdir()
        (self.database / "status").touch()

    def dpkg(self, *arguments):
        """Other packages are not there, and what this machine leaves out of its packages is not left out."""
        as_root = [] if os.geteuid() == 0 else ["fakeroot"]
        subprocess.run([*as_root, "dpkg", f"--root={self.root}", f"--log={self.database}/log", "--force-depends",
                        "--force-not-root", "--path-include=*", *map(str, arguments)], check=True,
                       capture_output=True, env={**os.environ, "PATH": f"{os.environ['PATH']}:/usr/sbin:/sbin"})

    def files(self):
        """What lies there, but for the package database."""
        return {name for name in files_below(self.root) if not name.startswith("var/")}


class WhatThePackageHolds(unittest.TestCase):
    def test_nothing_runs_when_it_comes_or_goes(self):
        members = output("dpkg-deb", "--ctrl-tarfile", PACKAGE, encoding="latin-1")
        for script in ("preinst", "postinst", "prerm", "postrm"):
            self.assertNotIn(script, members)

    def test_libraries_are_asked_for(self):
        depends = field("Depends")
        for library in ("libqt6widgets6", "libqt6printsupport6", "libsqlite3-0", "libc6"):
            self.assertIn(library, depends)

    def test_lintian_finds_nothing(self):
        self.assertEqual(output("lintian", "--allow-root", "--pedantic", CHANGES), "")


class ComesAndGoes(StartingTest):
    def setUp(self):
        super().setUp()
        self.system = System(self.folder / "root")
        self.root = self.system.root
        self.system.dpkg("--install", PACKAGE)

    def test_nothing_is_left_of_it_but_what_the_user_has_recorded(self):
        self.assertEqual(self.system.files(), LAYOUT | DEBIAN_ONLY)
        self.start("tallybrook")
        recorded = {name: (self.home / name).read_bytes() for name in files_below(self.home)}
        self.assertIn("data/Tallybrook/Tallybrook_DB.mdb", recorded)
        self.system.dpkg("--purge", "tallybrook")
        self.assertEqual(self.system.files(), set())
        self.assertEqual({name: (self.home / name).read_bytes() for name in files_below(self.home)}, recorded)
