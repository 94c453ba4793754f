# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
"""What tools/bare.sh does where it can prove nothing; the proof itself takes a real root."""
import os
import pathlib
import shutil
import subprocess
import tempfile
import unittest

ROOT = pathlib.Path(os.environ["QUILLBAR_ROOT"])
SYSTEM_PROGRAMS = ("bash", "cp", "dirname", "env", "grep", "mkdir", "mktemp", "readlink", "rm",
                   "sed", "sleep", "tail")


class Bare(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.temporary = self.folder / "tmp"
        self.temporary.mkdir()
        (self.folder / "tools").mkdir()
        for name in ("bare.sh", "build.sh"):
            shutil.copy(ROOT / "tools" / name, self.folder / "tools")
        self.programs = self.folder / "programs"
        self.programs.mkdir()
        for program in SYSTEM_PROGRAMS:
            (self.programs / program).symlink_to(shutil.which(program))
        self.program("apt-get", "exit 1")
        self.program("awk", "exit 1")
        self.program("id", "echo 0")

    def program(self, name, script):
        path = self.programs / name
        # Never through the link to the machine's own program.
        path.unlink(missing_ok=True)
        path.write_text(f"#!{self.programs}/bash\n{script}\n")
        path.chmod(0o755)

    def prove(self, *arguments):
        return subprocess.run([self.folder / "tools/bare.sh", *arguments], check=False, text=True,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                              env={"PATH": str(self.programs), "TMPDIR": str(self.temporary)})

    def test_refuses_what_it_does_not_understand(self):
        self.program("mmdebstrap", "exit 1")
        for arguments in ((), ("11",), ("12", "--as", "nobody"), ("12", "--fast", "yes"),
                          ("12", "--only", "test", "--only", "tests")):
            with self.subTest(arguments):
                self.assertEqual(self.prove(*arguments).returncode, 2)

    def test_says_that_only_root_can_do_it(self):
        self.program("id", "echo 1000")
        done = self.prove("13")
        self.assertEqual((done.returncode, done.stdout), (2, "bare: only root can make a root\n"))

    def test_says_what_it_lacks(self):
        done = self.prove("13")
        self.assertEqual((done.returncode, done.stdout), (2, "bare: install mmdebstrap first\n"))

    def test_tells_a_package_source_that_does_not_answer_apart_after_three_tries(self):
        self.program("sleep", "")
        self.program("mmdebstrap", f"echo tried >>{self.folder}/tries; echo no answer; exit 1")
        done = self.prove("13")
        self.assertEqual(done.returncode, 75)
        self.assertEqual((self.folder / "tries").read_text().count("tried"), 3)
        self.assertIn("no answer", done.stdout)
        self.assertEqual(list(self.temporary.iterdir()), [])

    def root_in_which(self, *failures):
        """Makes roots that are folders, in which these commands fail with these codes."""
        self.program("git", "")
        self.program("mmdebstrap", f'echo made >>{self.folder}/tries; mkdir -p "${{@: -2:1}}/etc"')
        ends = "".join(f'*"{command}"*) exit {code} ;; ' for command, code in failures)
        # What comes before the words is for the namespace.
        self.program("unshare", f'shift 11; echo "$*" >>{self.folder}/calls\n'
                                f'case "$*" in {ends} *) exit 0 ;; esac')

    def calls(self):
        return (self.folder / "calls").read_text().splitlines()

    def test_proves_several_things_in_one_root(self):
        self.root_in_which()
        done = self.prove("13", "--only", "test", "--only", "package")
        self.assertEqual(done.returncode, 0, done.stdout)
        self.assertEqual((self.folder / "tries").read_text(), "made\n")
        test, package, check, used = self.calls()
        self.assertEqual((test, package), ("./test", "./package"))
        for word in ("tools/check-package.sh", "data", "lintian", "hardening", "paths"):
            self.assertIn(word, check)
        self.assertIn("tools/try-package.sh", used)

    def test_tells_which_part_failed_and_goes_on_with_those_that_can_still_prove_something(self):
        self.root_in_which(("./test", 8), ("check-package", 1))
        done = self.prove("13", "--only", "test", "--only", "package")
        self.assertEqual(done.returncode, 1, done.stdout)
        self.assertEqual(len(self.calls()), 4)
        self.assertIn("./test: exit 8", done.stdout)
        self.assertRegex(done.stdout, "check-package.*: exit 1")
        self.assertRegex(done.stdout, "try-package.*: exit 0")

    def test_without_packages_there_is_nothing_to_check_or_to_try(self):
        self.root_in_which(("./package", 1))
        done = self.prove("13", "--only", "package")
        self.assertEqual(done.returncode, 1, done.stdout)
        self.assertEqual(self.calls(), ["./package"])

    def test_a_source_that_does_not_answer_in_the_root_proves_nothing(self):
        self.root_in_which(("./test", 75))
        self.assertEqual(self.prove("13").returncode, 75)
        self.assertEqual(len(self.calls()), 2)
        self.assertEqual(list(self.temporary.iterdir()), [])

    def test_a_source_that_does_not_answer_hides_no_failure_before_it(self):
        self.root_in_which(("./run", 1), ("./test", 75))
        self.assertEqual(self.prove("13").returncode, 1)

    def test_leaves_no_root_behind_where_a_signal_comes_while_it_is_removed(self):
        self.root_in_which()
        remove = shutil.which("rm")
        # To what removes the root and to itself, as whoever stops a whole group does.
        self.program("rm", f"""case "$*" in *'/*') ;; *) kill -TERM $PPID $$ ;; esac
            exec {remove} "$@" """)
        self.prove("13", "--only", "test")
        self.assertEqual(list(self.temporary.iterdir()), [])


if __name__ == "__main__":
    unittest.main()
