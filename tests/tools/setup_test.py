# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
"""What tools/setup.sh does, on machines made of a folder of stand-in programs that record."""
import os
import pathlib
import shutil
import subprocess
import tempfile
import unittest

SETUP = pathlib.Path(os.environ["QUILLBAR_ROOT"], "tools", "setup.sh")
PACKAGES = [line.split()[:3]
            for line in SETUP.with_name("packages.txt").read_text(encoding="utf-8").splitlines()
            if line and not line.startswith("#")]
SYSTEM_PROGRAMS = ("awk", "bash", "cat", "dirname", "env", "grep", "readlink", "sleep")


def names(*purposes, release="12"):
    return list(dict.fromkeys(name for purpose, needed_on, name in PACKAGES
                              if purpose in purposes and needed_on in ("any", release)))


class Machine:
    """A Debian, or something else, where only the given packages are installed."""

    def __init__(self, folder, installed, *, user=0, system="debian 12", sudo=True, update=0,
                 failing_fetches=0):
        self.folder = pathlib.Path(folder)
        self.log = self.folder / "log"
        self.log.touch()
        identifier, version = system.split()
        (self.folder / "os-release").write_text(f'ID={identifier}\nVERSION_ID="{version}"\n')
        (self.folder / "installed").write_text("".join(f"installed {p}\n" for p in installed))
        for program in SYSTEM_PROGRAMS:
            (self.folder / program).symlink_to(shutil.which(program))
        self.program("dpkg-query", f"cat {self.folder}/installed; exit 1")
        self.program("id", f"echo {user}")
        self.program("apt-get", f'echo "apt-get $*" >>{self.log}; case "$*" in '
                                f'*" update") exit {update};; '
                                f'*--download-only*) [ "$(grep -c download-only {self.log})" -gt '
                                f'{failing_fetches} ] || exit 100;; esac')
        if sudo:
            self.program("sudo", f'echo sudo >>{self.log}; exec "$@"')

    def program(self, name, script):
        path = self.folder / name
        path.write_text(f"#!{self.folder}/bash\n{script}\n")
        path.chmod(0o755)

    def set_up(self, purpose):
        return subprocess.run([SETUP, purpose], capture_output=True, text=True, check=False,
                              env={"PATH": str(self.folder),
                                   "QUILLBAR_SETUP_PAUSE": "0",
                                   "QUILLBAR_OS_RELEASE": str(self.folder / "os-release")})

    def calls(self):
        return self.log.read_text().splitlines()


class SetUp(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = folder.name

    def test_installs_nothing_when_nothing_is_missing(self):
        machine = Machine(self.folder, names("run", "test"), user=1000)
        done = machine.set_up("test")
        self.assertEqual((done.returncode, done.stdout, done.stderr), (0, "", ""))
        self.assertEqual(machine.calls(), [])

    def test_installs_what_is_missing_alone_and_says_so(self):
        machine = Machine(self.folder, names("run")[2:])
        done = machine.set_up("run")
        missing = " ".join(names("run")[:2])
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertEqual(done.stdout, "")
        self.assertIn(f"installing 2 missing packages with apt-get: {missing}", done.stderr)
        update, fetch, install = machine.calls()
        self.assertTrue(update.endswith(" update"), update)
        self.assertTrue(fetch.endswith(f" install -y --download-only --no-install-recommends {missing}"), fetch)
        self.assertTrue(install.endswith(f" install -y --no-install-recommends {missing}"), install)

    def test_a_purpose_takes_in_those_before_it(self):
        for purpose, purposes in (("run", ["run"]), ("test", ["run", "test"]),
                                  ("pictures", ["run", "test", "pictures"]),
                                  ("package", ["run", "package"]),
                                  ("check", ["run", "package", "check"]),
                                  ("ci", ["run", "test", "package", "check", "ci"])):
            with self.subTest(purpose), tempfile.TemporaryDirectory() as folder:
                machine = Machine(folder, [])
                machine.set_up(purpose)
                installed = machine.calls()[2].partition("--no-install-recommends ")[2]
                self.assertEqual(installed.split(), names(*purposes))

    def test_takes_root_only_to_install(self):
        machine = Machine(self.folder, names("run")[1:], user=1000)
        self.assertEqual(machine.set_up("run").returncode, 0)
        self.assertEqual([call.split()[0] for call in machine.calls()],
                         ["sudo", "apt-get"] * 3)

    def test_without_root_or_sudo_tells_what_to_type(self):
        machine = Machine(self.folder, names("run")[1:], user=1000, sudo=False)
        done = machine.set_up("run")
        self.assertEqual(done.returncode, 1)
        self.assertIn(f"apt-get install --no-install-recommends {names('run')[0]}\n", done.stderr)
        self.assertEqual(machine.calls(), [])

    def test_goes_on_when_a_package_source_does_not_answer(self):
        machine = Machine(self.folder, names("run")[1:], update=100)
        done = machine.set_up("run")
        self.assertEqual(done.returncode, 0)
        self.assertIn("not every package source answered", done.stderr)
        self.assertEqual(len(machine.calls()), 3)

    def test_tries_again_when_packages_cannot_be_fetched(self):
        machine = Machine(self.folder, names("run")[1:], failing_fetches=2)
        done = machine.set_up("run")
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertEqual(len(machine.calls()), 7)

    def test_tells_a_package_source_that_does_not_answer_apart(self):
        machine = Machine(self.folder, names("run")[1:], failing_fetches=3)
        done = machine.set_up("run")
        self.assertEqual(done.returncode, 75)
        self.assertIn("could not be fetched", done.stderr)
        self.assertEqual(len(machine.calls()), 6)

    def test_takes_the_names_that_packages_have_on_its_release(self):
        for release, compiler in (("12", "clang-16"), ("13", "clang-19")):
            with self.subTest(release), tempfile.TemporaryDirectory() as folder:
                machine = Machine(folder, [], system=f"debian {release}")
                self.assertEqual(machine.set_up("ci").returncode, 0)
                installed = machine.calls()[2].partition("--no-install-recommends ")[2].split()
                self.assertIn(compiler, installed)
                self.assertEqual(installed, names("run", "test", "package", "check", "ci",
                                                  release=release))

    def test_prints_the_packages_and_the_way_on_on_another_system(self):
        for system in ("ubuntu 24.04", "debian 11", "fedora 40"):
            with self.subTest(system), tempfile.TemporaryDirectory() as folder:
                machine = Machine(folder, [], system=system)
                done = machine.set_up("test")
                self.assertEqual(done.returncode, 1)
                self.assertIn("this is neither Debian 12 nor 13", done.stderr)
                self.assertIn("./test --no-setup", done.stderr)
                listed = [line.strip() for line in done.stderr.splitlines()
                          if line.startswith("  ") and "--no-setup" not in line]
                self.assertEqual(listed, names("run", "test", release="13"))
                self.assertEqual(machine.calls(), [])


if __name__ == "__main__":
    unittest.main()
