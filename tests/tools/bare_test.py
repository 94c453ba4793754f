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
SYSTEM_PROGRAMS = ("bash", "dirname", "env", "mkdir", "mktemp", "readlink", "rm", "sleep", "tail")


class Bare(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.temporary = self.folder / "tmp"
        self.temporary.mkdir()
        (self.folder / "tools").mkdir()
        shutil.copy(ROOT / "tools/bare.sh", self.folder / "tools")
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
        for arguments in ((), ("11",), ("12", "--as", "nobody"), ("12", "--fast", "yes")):
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


if __name__ == "__main__":
    unittest.main()
