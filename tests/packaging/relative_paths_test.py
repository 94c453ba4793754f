# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
"""What debian/relative-paths makes of the words for the compiler."""
import os
import pathlib
import shutil
import subprocess
import tempfile
import unittest

ROOT = pathlib.Path(os.environ["QUILLBAR_ROOT"])


class RelativePaths(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.sources = f"{folder.name}/quillbar"
        self.build = pathlib.Path(self.sources, "build/package")
        self.build.mkdir(parents=True)
        script = pathlib.Path(self.sources, "debian/relative-paths")
        script.parent.mkdir()
        shutil.copy(ROOT / "debian/relative-paths", script)
        self.script = script

    def run_with(self, *arguments):
        done = subprocess.run([self.script, *arguments], cwd=self.build, check=False, text=True,
                              stdout=subprocess.PIPE, env={"PATH": os.environ["PATH"]})
        return done.returncode, done.stdout

    def told(self, *arguments):
        status, output = self.run_with("printf", "%s\\n", *arguments)
        self.assertEqual(status, 0)
        return output.splitlines()

    def test_the_sources_are_told_from_the_folder_of_the_build(self):
        self.assertEqual(self.told("-c", f"{self.sources}/Quillbar/main.cpp", f"-I{self.sources}",
                                   f"-I{self.sources}/build/package/generated"),
                         ["-c", "../../Quillbar/main.cpp", "-I../..",
                          "-I../../build/package/generated"])

    def test_what_is_written_for_the_sources_still_names_them(self):
        mapped = f"-ffile-prefix-map={self.sources}=."
        self.assertEqual(self.told(mapped), [mapped])

    def test_other_words_stay(self):
        words = ["-DVERSION=\"0 1\"", "", "-isystem", "/usr/include/qt6", "*",
                 f"-I{self.sources}-of-another"]
        self.assertEqual(self.told(*words), words)

    def test_ends_as_the_compiler_ends(self):
        self.assertEqual(self.run_with("bash", "-c", "exit 3")[0], 3)


if __name__ == "__main__":
    unittest.main()
