# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
"""Every *Test.cpp is compiled into a test program, and holds a test."""
import json
import re

from Lint import Source, lint

TEST = re.compile(r"\b(?:TYPED_)?TEST(?:_F|_P)?\s*\(")


def compiled(build):
    entries = json.loads((build / "compile_commands.json").read_text(encoding="utf-8"))
    return {(build / entry["directory"] / entry["file"]).resolve() for entry in entries}


def check(tree):
    built = compiled(tree.build)
    for path in tree.files(".cpp", folders=("tests",)):
        if not path.name.endswith("Test.cpp"):
            continue
        source = Source(tree.root, path)
        if path.resolve() not in built:
            yield (f"{source.path}: no target builds this. Add quillbar_tests(...) to the "
                   "CMakeLists.txt of its folder, and the folder to tests/CMakeLists.txt")
        if not TEST.search(source.code):
            yield f"{source.path}: holds no TEST; give it one, or remove it"


TEXT = "TEST(A, Works) {}\n"
BUILT = '[{"directory": ".", "file": "tests/a/ATest.cpp"}]'

lint(check,
     bad=[{"compile_commands.json": "[]", "tests/a/ATest.cpp": TEXT},
          {"compile_commands.json": BUILT, "tests/b/ATest.cpp": TEXT},
          {"compile_commands.json": BUILT, "tests/a/ATest.cpp": "// TEST(A, Works)\n"}],
     good=[{"compile_commands.json": BUILT, "tests/a/ATest.cpp": TEXT},
           {"compile_commands.json": "[]", "tests/a/Fixture.cpp": ""}])
