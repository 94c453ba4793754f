# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
"""What ./package does around the building, for which a stand-in does."""
import os
import pathlib
import shutil
import subprocess
import tempfile
import unittest

ROOT = pathlib.Path(os.environ["QUILLBAR_ROOT"])
PATH = os.environ["PATH"]
BUILD = """
find . -type f | sort >{folder}/sources
stat --format %Y package >{folder}/time
for name in quillbar quillbar-label quillbar-dbgsym; do echo it >../${{name}}_1.0_all.deb; done
echo it >../quillbar_1.0_all.changes
"""


class Package(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.project = self.folder / "project"
        for name in ("package", "tools/build.sh"):
            (self.project / name).parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(ROOT / name, self.project / name)
        for name in ("build/old/file", ".git/config", "docs/page"):
            (self.project / name).parent.mkdir(parents=True, exist_ok=True)
            (self.project / name).write_text("")
        (self.folder / "tmp").mkdir()
        self.program("tools/setup.sh", f"echo $* >>{self.folder}/setup")
        self.program("../programs/dpkg-buildpackage", BUILD.format(folder=self.folder))
        self.program("../programs/dpkg-parsechangelog", "echo 1234567890")
        # As in an unpacked archive, where git knows of nothing.
        self.program("../programs/git", "exit 128")

    def program(self, name, script):
        path = self.project / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text("#!/bin/bash\n" + script)
        path.chmod(0o755)

    def package(self, *arguments):
        return subprocess.run([self.project / "package", *arguments], check=False, text=True,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                              env={"PATH": f"{self.folder}/programs:{PATH}",
                                   "TMPDIR": str(self.folder / "tmp")})

    def test_says_where_the_packages_are_and_how_to_install_them(self):
        shutil.rmtree(self.project / ".git")
        done = self.package()
        self.assertEqual(done.returncode, 0, done.stdout)
        self.assertIn("apt install ./build/packages/quillbar_1.0_all.deb\n", done.stdout)
        self.assertIn("apt install ./build/packages/quillbar-label_1.0_all.deb\n", done.stdout)
        made = {path.name for path in (self.project / "build/packages").iterdir()}
        self.assertEqual(made, {"build.log", "quillbar_1.0_all.deb", "quillbar_1.0_all.changes",
                                "quillbar-label_1.0_all.deb", "quillbar-dbgsym_1.0_all.deb"})
        self.assertEqual(list((self.folder / "tmp").iterdir()), [])

    def test_takes_the_sources_and_nothing_else_where_there_is_no_git(self):
        shutil.rmtree(self.project / ".git")
        self.package()
        self.assertEqual((self.folder / "sources").read_text().split(),
                         ["./docs/page", "./package", "./tools/build.sh", "./tools/setup.sh"])

    def test_the_day_of_the_changelog_is_that_of_every_source(self):
        shutil.rmtree(self.project / ".git")
        self.package()
        self.assertEqual((self.folder / "time").read_text(), "1234567890\n")

    def test_takes_the_commit_and_says_so_where_there_is_one(self):
        self.program("../programs/git", 'case $1 in status) echo " M run" ;; '
                                        f"archive) tar -c -C {self.project} package ;; esac\n")
        done = self.package()
        self.assertEqual(done.returncode, 0, done.stdout)
        self.assertIn("what is not committed is left out", done.stdout)
        self.assertEqual((self.folder / "sources").read_text().split(), ["./package"])

    def test_sets_up_unless_told_not_to(self):
        shutil.rmtree(self.project / ".git")
        self.package("--no-setup")
        self.assertFalse((self.folder / "setup").exists())
        self.package()
        self.assertEqual((self.folder / "setup").read_text(), "package\n")

    def test_a_building_that_fails_shows_its_end(self):
        shutil.rmtree(self.project / ".git")
        self.program("../programs/dpkg-buildpackage", "echo it broke here; exit 1")
        done = self.package()
        self.assertEqual(done.returncode, 1)
        self.assertIn("it broke here", done.stdout)
        self.assertEqual(list((self.folder / "tmp").iterdir()), [])

    def test_refuses_what_it_does_not_know(self):
        self.assertEqual(self.package("--fast").returncode, 2)


if __name__ == "__main__":
    unittest.main()
