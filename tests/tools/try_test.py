# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
"""What tools/try-package.sh does around the packages; nothing is installed here."""
import os
import pathlib
import shutil
import subprocess
import tempfile
import unittest

ROOT = pathlib.Path(os.environ["QUILLBAR_ROOT"])
PATH = os.environ["PATH"]
CMAKE = """
echo "cmake $*" >>{folder}/calls
[ "$1" = --build ] || exit 0
mkdir -p "$2/bin"
printf '#!/bin/bash\\necho rest http://of.%s\\necho ready\\n' "${{2##*/}}" >"$2/bin/quillbar-simulator"
chmod +x "$2/bin/quillbar-simulator"
"""


class Try(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.project = self.folder / "project"
        for name in ("tools/try-package.sh", "tools/build.sh", "debian/tests/control"):
            (self.project / name).parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(ROOT / name, self.project / name)
        (self.project / "CMakePresets.json").write_text("{}")
        for name in ("tmp", "home"):
            (self.folder / name).mkdir()
        for name in ("label", "desktop"):
            self.program(f"debian/tests/{name}",
                         f"echo {name} $QUILLBAR_REST_ENDPOINTS >>{self.folder}/calls")
        self.program("tools/try-upgrade.py",
                     f'echo upgrade $QUILLBAR_REST_ENDPOINTS >>{self.folder}/calls; "$@"')
        self.program("../programs/apt-get", f'echo "apt-get $*" >>{self.folder}/calls')
        self.program("../programs/cmake", CMAKE.format(folder=self.folder))
        self.program("../programs/dpkg", "echo all")
        self.program("../programs/dpkg-deb", "")
        self.program("../programs/dpkg-parsechangelog", "echo 1.0")
        self.program("../programs/dpkg-query", "echo 1.0")
        self.program("../programs/find", f"cat {self.folder}/left || true")
        self.program("../programs/id", "echo 0")
        self.program("../programs/sed", '[ "$1" = -i ] || exec /usr/bin/sed "$@"')

    def program(self, name, script):
        path = self.project / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text("#!/bin/bash\n" + script)
        path.chmod(0o755)

    def use(self, *arguments):
        return subprocess.run([self.project / "tools/try-package.sh", *arguments], check=False,
                              text=True, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                              env={"PATH": f"{self.folder}/programs:{PATH}",
                                   "HOME": str(self.folder / "home"),
                                   "TMPDIR": str(self.folder / "tmp")})

    def calls(self):
        return (self.folder / "calls").read_text().splitlines()

    def test_changes_no_machine_unless_it_is_told_to(self):
        self.assertEqual(self.use().returncode, 2)
        self.assertFalse((self.folder / "calls").exists())

    def test_uses_the_installed_programs_with_a_simulated_exchange(self):
        done = self.use("--on-this-machine")
        self.assertEqual(done.returncode, 0, done.stdout)
        self.assertIn("cmake --build build/release --target=quillbar-simulator", self.calls())
        self.assertIn("label http://of.release", self.calls())
        self.assertIn("desktop http://of.release", self.calls())
        self.assertEqual(list((self.folder / "tmp").iterdir()), [])

    def test_upgrades_while_the_version_before_is_used(self):
        done = self.use("--on-this-machine")
        self.assertEqual(done.returncode, 0, done.stdout)
        calls = self.calls()
        used = calls.index("upgrade http://of.release")
        self.assertIn(f"{self.folder}/tmp/", calls[used - 1])
        self.assertTrue(calls[used + 1].endswith(" install ./build/packages/quillbar_1.0_all.deb "
                                                 "./build/packages/quillbar-label_1.0_all.deb"))

    def test_fails_where_an_upgrade_loses_something(self):
        self.program("tools/try-upgrade.py", "exit 1")
        self.assertEqual(self.use("--on-this-machine").returncode, 1)
        self.assertEqual(list((self.folder / "tmp").iterdir()), [])

    def test_takes_the_simulator_of_the_tests_where_those_were_built(self):
        built = self.project / "build/dev/build.ninja"
        built.parent.mkdir(parents=True)
        built.touch()
        done = self.use("--on-this-machine")
        self.assertEqual(done.returncode, 0, done.stdout)
        self.assertEqual([call for call in self.calls() if call.startswith("cmake")],
                         ["cmake --build build/dev --target=quillbar-simulator"])
        self.assertIn("desktop http://of.dev", self.calls())

    def test_fails_where_a_package_leaves_something_behind(self):
        self.program("../programs/dpkg", f"""case $1 in
            --purge) echo /etc/quillbar >{self.folder}/left ;; *) echo all ;; esac""")
        done = self.use("--on-this-machine")
        self.assertEqual(done.returncode, 1, done.stdout)
        self.assertIn("/etc/quillbar", done.stdout)

    def test_fails_where_what_is_the_users_goes_too(self):
        self.program("../programs/dpkg", f"""case $1 in
            --purge) rm -r {self.folder}/home/.local ;; *) echo all ;; esac""")
        self.assertEqual(self.use("--on-this-machine").returncode, 1)

    def test_fails_where_the_application_does_not_work(self):
        self.program("debian/tests/desktop", "exit 1")
        self.assertEqual(self.use("--on-this-machine").returncode, 1)
        self.assertEqual(list((self.folder / "tmp").iterdir()), [])

    def test_asks_what_there_is_only_where_what_it_knows_is_too_old(self):
        self.use("--on-this-machine")
        self.assertFalse([call for call in self.calls() if call.endswith(" update")])
        (self.folder / "calls").unlink()
        self.program("../programs/apt-get", f"""
            echo "apt-get $*" >>{self.folder}/calls
            case "$*" in *" update") touch {self.folder}/known ;; esac
            [ -e {self.folder}/known ]""")
        self.assertEqual(self.use("--on-this-machine").returncode, 0)
        self.assertTrue([call for call in self.calls() if call.endswith(" update")])

    def test_a_package_source_that_does_not_answer_proves_nothing(self):
        self.program("../programs/apt-get", "echo no answer; exit 100")
        done = self.use("--on-this-machine")
        self.assertEqual(done.returncode, 75, done.stdout)
        self.assertIn("no answer", done.stdout)


if __name__ == "__main__":
    unittest.main()
