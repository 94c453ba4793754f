# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
"""What tools/tidy.py makes of what clang-tidy says. A stand-in for clang-tidy says it: a line with
FINDING is one; a line with CLASH does not compile beside another such line."""
import json
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

ROOT = pathlib.Path(os.environ["QUILLBAR_ROOT"])
STAND_IN = r'''#!%s
import re, sys
findings, clashes = [], []

def read(path):
    for number, line in enumerate(open(path), 1):
        included = re.match(r'#include "(.*?)"', line)
        if included:
            name = included[1]
            read(name if name.startswith("/") else "%s/" + name)
        if "FINDING" in line:
            findings.append(f"{path}:{number}:1: warning: a finding [readability]")
        if "UNKNOWN" in line:
            findings.append((path, number))
        if "CLASH" in line:
            clashes.append(f"{path}:{number}:1: error: defined twice [clang-diagnostic-error]")

read(sys.argv[2])
broken = len(clashes) > 1
for finding in findings:
    if isinstance(finding, str):
        print(finding)
    elif broken:
        print(f"{finding[0]}:{finding[1]}:1: warning: a type that is not known [readability]")
if broken:
    print(clashes[-1])
sys.exit(1 if broken or any(isinstance(finding, str) for finding in findings) else 0)
'''


class Tidy(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name).resolve()
        for name in ("tools", "programs", "sources", "build"):
            (self.folder / name).mkdir()
        shutil.copy(ROOT / "tools/tidy.py", self.folder / "tools")
        (self.folder / ".clang-tidy").write_text("Checks: '*'\n")
        (self.folder / "build/CMakeCache.txt").write_text("QUILLBAR_CLANG:FILEPATH=/clang++-99\n")
        self.program("clang-tidy-99", STAND_IN % (sys.executable, self.folder))
        self.program("dpkg-query", "#!/bin/sh\n")
        for name in ("one", "two", "three"):
            self.write(f"{name}.cpp", '#include "sources/shared.h"\n')
        self.write("shared.h", "")
        self.compile("one", "two", "three")

    def program(self, name, text):
        path = self.folder / "programs" / name
        path.write_text(text)
        path.chmod(0o755)

    def write(self, name, text):
        (self.folder / "sources" / name).write_text(text)

    def compile(self, *names):
        entries = [{"directory": str(self.folder),
                    "file": f"{self.folder}/sources/{name}.cpp",
                    "command": f"clang++ -o {name}.o -c {self.folder}/sources/{name}.cpp"}
                   for name in names]
        (self.folder / "build/compile_commands.json").write_text(json.dumps(entries))

    def read(self):
        done = subprocess.run([sys.executable, self.folder / "tools/tidy.py", "build"], check=False,
                              cwd=self.folder, text=True, stdout=subprocess.PIPE,
                              stderr=subprocess.STDOUT,
                              env={"PATH": f"{self.folder}/programs:/usr/bin:/bin"})
        return done.returncode, done.stdout

    def test_reads_nothing_that_has_passed_again(self):
        status, said = self.read()
        self.assertEqual(status, 0, said)
        self.assertIn("3 of 3 sources to read", said)
        self.assertIn("0 of 3 sources to read", self.read()[1])

    def test_reads_again_what_a_changed_header_reaches(self):
        self.write("two.cpp", "\n")
        self.read()
        self.write("shared.h", "int changed;\n")
        self.assertIn("2 of 3 sources to read", self.read()[1])

    def test_a_finding_keeps_its_source_alone_from_passing(self):
        self.write("two.cpp", "int a;  // FINDING\n")
        status, said = self.read()
        self.assertEqual(status, 1)
        self.assertIn("sources/two.cpp:1:1: warning: a finding", said)
        self.assertIn("2 passed, 1 with findings", said)
        self.assertEqual(self.read()[0], 1)

    def test_a_finding_in_a_header_keeps_all_from_passing(self):
        self.write("shared.h", "int a;  // FINDING\n")
        status, said = self.read()
        self.assertEqual(status, 1)
        self.assertIn("sources/shared.h:1:1: warning: a finding", said)
        self.assertIn("0 passed, 1 with findings", said)

    def test_sources_that_do_not_compile_together_are_read_apart(self):
        for name in ("one", "three"):
            self.write(f"{name}.cpp", "int a;  // CLASH\n")
        status, said = self.read()
        self.assertEqual(status, 0, said)
        self.assertIn("3 passed, 0 with findings", said)

    def test_what_is_found_in_a_header_of_a_batch_that_does_not_compile_does_not_count(self):
        self.write("shared.h", "Type a;  // UNKNOWN\n")
        for name in ("one", "three"):
            self.write(f"{name}.cpp", '#include "sources/shared.h"\nint a;  // CLASH\n')
        status, said = self.read()
        self.assertEqual(status, 0, said)
        self.assertIn("3 passed, 0 with findings", said)

    def test_a_source_that_clang_tidy_cannot_read_does_not_pass(self):
        self.program("clang-tidy-99", "#!/bin/sh\nexit 1\n")
        status, said = self.read()
        self.assertEqual(status, 1)
        self.assertIn("0 passed, 3 with findings", said)
        self.assertIn("clang-tidy-99 ended with 1", said)


unittest.main()
