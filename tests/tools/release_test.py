# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
"""What tools/release.sh does, with stand-ins for git, the building and the checks."""
import hashlib
import os
import pathlib
import shutil
import subprocess
import tempfile
import unittest

ROOT = pathlib.Path(os.environ["QUILLBAR_ROOT"])
PATH = os.environ["PATH"]
METAINFO = "packaging/io.github.quillbar.Quillbar.metainfo.xml"
DAY = "Sun, 22 Nov 2026 12:00:00 +0000"
GIT = """
case $1 in
status) cat {folder}/dirty ;;
rev-parse) [ -e {folder}/tagged ] ;;
archive) tar -c -C {folder} CHANGELOG.md ;;
tag) echo "$*" >>{folder}/tagged ;;
esac
"""
BUILD = """
mkdir -p build/packages
for name in quillbar quillbar-label quillbar-dbgsym; do
    echo it >build/packages/${name}_0.2.0_amd64.deb
done
"""


class Release(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        for name in ("tools/release.sh", "tests/lint/VersionsLint.py", "tests/lint/Lint.py"):
            (self.folder / name).parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(ROOT / name, self.folder / name)
        self.write("CMakeLists.txt", "project(Quillbar VERSION 0.2.0 LANGUAGES CXX)\n")
        self.write("CHANGELOG.md", "# Changelog\n\n## 0.2.0 (2026-11-22)\n")
        self.write("debian/changelog", "quillbar (0.2.0) unstable; urgency=medium\n\n  * It.\n\n"
                                       f" -- The Quillbar developers <a@b>  {DAY}\n")
        self.write(METAINFO, '<c><release version="0.2.0" date="2026-11-22"/></c>')
        self.write("dirty", "")
        self.program("programs/git", GIT.format(folder=self.folder))
        self.program("programs/xz", "cat\n")
        self.program("package", BUILD)
        self.program("tools/setup.sh", "echo $* >set-up")
        self.program("tools/check-package.sh", "[ -e set-up ] && echo $* >checked")

    def write(self, name, text):
        (self.folder / name).parent.mkdir(parents=True, exist_ok=True)
        (self.folder / name).write_text(text)

    def program(self, name, script):
        self.write(name, "#!/bin/bash\n" + script)
        (self.folder / name).chmod(0o755)

    def release(self):
        return subprocess.run([self.folder / "tools/release.sh"], check=False, text=True,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                              env={"PATH": f"{self.folder}/programs:{PATH}"})

    def assert_nothing_released(self):
        self.assertFalse((self.folder / "tagged").exists())
        self.assertFalse((self.folder / "build/release-0.2.0").exists())

    def assert_refused(self, reason):
        done = self.release()
        self.assertEqual(done.returncode, 1)
        self.assertIn(reason, done.stdout)
        self.assert_nothing_released()

    def test_leaves_sources_packages_and_checksums_and_tags(self):
        done = self.release()
        self.assertEqual(done.returncode, 0, done.stdout)
        made = self.folder / "build/release-0.2.0"
        names = ["quillbar-0.2.0.tar.xz", "quillbar-label_0.2.0_amd64.deb",
                 "quillbar_0.2.0_amd64.deb"]
        self.assertEqual(sorted(path.name for path in made.iterdir()), ["SHA256SUMS", *names])
        sums = dict(reversed(line.split())
                    for line in (made / "SHA256SUMS").read_text().splitlines())
        for name in names:
            self.assertEqual(sums[name], hashlib.sha256((made / name).read_bytes()).hexdigest())
        self.assertEqual((self.folder / "tagged").read_text(), "tag -a v0.2.0 -m Quillbar 0.2.0\n")
        self.assertEqual((self.folder / "checked").read_text(),
                         "data lintian hardening paths reproducible purge\n")

    def test_refuses_what_is_not_committed(self):
        self.write("dirty", " M run\n")
        self.assert_refused("commit or put away")

    def test_refuses_a_version_that_differs(self):
        self.write("CMakeLists.txt", "project(Quillbar VERSION 0.2.1 LANGUAGES CXX)\n")
        self.assert_refused("the versions differ")

    def test_refuses_a_version_that_is_unfinished(self):
        self.write("CHANGELOG.md", "## Unreleased (0.2.0)\n")
        changelog = (self.folder / "debian/changelog").read_text()
        self.write("debian/changelog", changelog.replace("unstable", "UNRELEASED"))
        self.write(METAINFO, '<c><release version="0.2.0" type="development"/></c>')
        self.assert_refused("calls 0.2.0 unreleased")

    def test_refuses_a_version_that_is_released(self):
        self.write("tagged", "before\n")
        done = self.release()
        self.assertEqual(done.returncode, 1)
        self.assertIn("there is a v0.2.0 already", done.stdout)
        self.assertEqual((self.folder / "tagged").read_text(), "before\n")

    def test_has_what_the_checks_need(self):
        self.release()
        self.assertEqual((self.folder / "set-up").read_text(), "check\n")

    def test_a_check_that_fails_releases_nothing(self):
        self.program("tools/check-package.sh", "exit 1")
        self.assertEqual(self.release().returncode, 1)
        self.assert_nothing_released()


if __name__ == "__main__":
    unittest.main()
