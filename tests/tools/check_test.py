# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
"""How tools/check-package.sh tells what it found, with stand-ins for what judges the packages."""
import os
import pathlib
import shutil
import subprocess
import tempfile
import unittest

ROOT = pathlib.Path(os.environ["QUILLBAR_ROOT"])
PATH = os.environ["PATH"]
COMPILED = "[1/1] clang++ -O2 -ffile-prefix-map=/tmp/built.X=. -g -c /tmp/built.X/main.cpp\n"


class Check(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.packages = self.folder / "project/build/packages"
        self.packages.mkdir(parents=True)
        (self.folder / "tmp").mkdir()
        (self.folder / "project/tools").mkdir()
        for name in ("check-package.sh", "build.sh"):
            shutil.copy(ROOT / "tools" / name, self.folder / "project/tools")
        self.program("lintian", "")
        # A package here is the one file that it would install.
        self.program("dpkg-deb", 'mkdir -p "$3/usr/bin" "$3/usr/lib/debug" && '
                                 'case $2 in *-dbgsym_*) cp "$2" "$3/usr/lib/debug/it.debug" ;; '
                                 '*) cp "$2" "$3/usr/bin" ;; esac')
        self.program("objcopy", 'cp "$2" "$3"')
        self.program("strings", 'cat "$1"')

    def program(self, name, script):
        path = self.folder / "programs" / name
        path.parent.mkdir(exist_ok=True)
        path.write_text("#!/bin/bash\n" + script)
        path.chmod(0o755)

    def make_packages(self, program="a program", symbols="its symbols", log=COMPILED):
        (self.packages / "quillbar_1_all.deb").write_text(program)
        (self.packages / "quillbar-label_1_all.deb").write_text("another")
        (self.packages / "quillbar-dbgsym_1_all.deb").write_text(symbols)
        (self.packages / "quillbar_1_all.changes").write_text("")
        (self.packages / "build.log").write_text("something first\n" + log)

    def check(self, *arguments):
        done = subprocess.run([self.folder / "project/tools/check-package.sh", *arguments],
                              check=False, text=True, stdout=subprocess.PIPE,
                              stderr=subprocess.STDOUT,
                              env={"PATH": f"{self.folder}/programs:{PATH}",
                                   "TMPDIR": str(self.folder / "tmp")})
        self.assertEqual(list((self.folder / "tmp").iterdir()), [])
        return done

    def test_refuses_what_it_does_not_know(self):
        for arguments in ((), ("all",), ("lintian", "colour")):
            with self.subTest(arguments):
                self.assertEqual(self.check(*arguments).returncode, 2)

    def test_judges_no_packages_that_are_not_there(self):
        done = self.check("lintian")
        self.assertEqual(done.returncode, 1)
        self.assertIn("make them with ./package", done.stdout)

    def test_one_check_that_fails_hides_no_other(self):
        self.make_packages()
        self.program("lintian", "exit 2")
        done = self.check("lintian", "paths")
        self.assertEqual(done.returncode, 1)
        self.assertEqual(done.stdout,
                         "check-package: lintian: FAILED\ncheck-package: paths: ok\n")

    def test_packages_that_do_not_name_their_folder_pass(self):
        self.make_packages(program="main.cpp of /tmp/built")
        self.assertEqual(self.check("paths").returncode, 0)

    def test_a_program_that_names_the_folder_of_its_building_fails(self):
        self.make_packages(program="~(lambda at /tmp/built.X/main.cpp:3:4)")
        done = self.check("paths")
        self.assertEqual(done.returncode, 1)
        self.assertIn("usr/bin/quillbar_1_all.deb names the folder", done.stdout)
        self.assertIn("main.cpp:3:4", done.stdout)

    def test_symbols_that_name_the_folder_of_their_building_fail(self):
        self.make_packages(symbols="/tmp/built.X")
        self.assertEqual(self.check("paths").returncode, 1)

    def test_a_building_that_does_not_tell_its_folder_proves_nothing(self):
        self.make_packages(log="[1/1] clang++ -c main.cpp\n")
        done = self.check("paths")
        self.assertEqual(done.returncode, 1)
        self.assertIn("does not tell where", done.stdout)


if __name__ == "__main__":
    unittest.main()
