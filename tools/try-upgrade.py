#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
"""Uses the installed application on a desktop, runs a command that installs another version of it
meanwhile, and sees that the user notices nothing but the newer version after the next start.

Usage: tools/try-upgrade.py COMMAND...

Needs the addresses of an exchange in the variables of Quillbar. tools/try-package.sh starts it.
"""
import pathlib
import subprocess
import sys
import tempfile
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "debian/tests"))
from session import PROGRAM, WATCHER, Desktop, eventually  # noqa: E402

COMMAND = sys.argv[1:]
WATCHLIST = ('{"schemaVersion":1,"coins":[{"symbol":"ETHUSDT","baseAsset":"ETH"},'
             '{"symbol":"BTCUSDT","baseAsset":"BTC"}],"pinnedSymbol":"ETHUSDT"}')


class Upgrade(unittest.TestCase):
    def setUp(self):
        home = tempfile.TemporaryDirectory(ignore_cleanup_errors=True)
        self.addCleanup(home.cleanup)
        self.data = pathlib.Path(home.name, ".local/share/Quillbar")
        self.data.mkdir(parents=True)
        (self.data / "watchlist.json").write_text(WATCHLIST)
        self.desktop = Desktop(home.name)
        self.addCleanup(self.desktop.end)
        self.assertTrue(eventually(lambda: self.desktop.bus.name_has_owner(WATCHER)))

    def what_the_user_has(self):
        return [path.read_text() for path in (self.data / "watchlist.json",
                                              self.data / "settings.json",
                                              self.desktop.login_entry())]

    def assert_shows_the_pinned_coin(self):
        label = self.desktop.run("quillbar-label", "--once")
        self.assertEqual(label.returncode, 0)
        self.assertRegex(label.stdout, r"^ETH [\d,.]+ ")

    def test_an_upgrade_is_noticed_after_the_next_start(self):
        desktop = self.desktop
        desktop.activate()
        self.assertTrue(eventually(lambda: len(desktop.items()) == 1))
        self.assertTrue(eventually(desktop.panel_is_open))
        self.assert_shows_the_pinned_coin()
        desktop.choose("浅色")
        desktop.choose("开机自启")
        self.assertTrue(eventually(desktop.login_entry().is_file))
        self.assertTrue(eventually((self.data / "settings.json").is_file))
        kept = self.what_the_user_has()
        process = desktop.process()

        subprocess.run(COMMAND, check=True)
        with self.subTest("the version that runs goes on, and the installed one talks with it"):
            self.assertEqual(desktop.process(), process)
            self.assertEqual(desktop.program(), f"{PROGRAM} (deleted)")
            self.assertEqual(desktop.run("quillbar", "--toggle").returncode, 0)
            self.assertTrue(eventually(lambda: not desktop.panel_is_open()))
            self.assert_shows_the_pinned_coin()
        self.assertEqual(desktop.run("quillbar", "--quit").returncode, 0)
        self.assertTrue(eventually(lambda: desktop.process() is None))
        self.assertTrue(eventually(lambda: desktop.items() == []))
        with self.subTest("the next login starts the installed version, with what the user has"):
            desktop.start(*desktop.command_at_login())
            self.assertTrue(eventually(lambda: len(desktop.items()) == 1))
            self.assertEqual(desktop.program(), PROGRAM)
            self.assert_shows_the_pinned_coin()
            self.assertTrue(desktop.is_marked("浅色"))
            self.assertTrue(desktop.is_marked("开机自启"))
            self.assertEqual(self.what_the_user_has(), kept)
            self.assertEqual(desktop.run("quillbar", "--quit").returncode, 0)
            self.assertTrue(eventually(lambda: desktop.process() is None))


if __name__ == "__main__":
    if not COMMAND:
        sys.exit(__doc__)
    unittest.main(argv=sys.argv[:1], verbosity=2)
