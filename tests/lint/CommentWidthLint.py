# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
"""No line of a comment is longer than 100 characters. clang-format breaks only code."""
from Lint import FOLDERS, lint

LIMIT = 100


def check(tree):
    for source in tree.sources(*FOLDERS):
        for number, line in enumerate(source.text.split("\n"), 1):
            if line.lstrip().startswith("//") and len(line) > LIMIT:
                yield (f"{source.path}:{number}: {len(line)} characters: break the comment after "
                       f"{LIMIT} at most")


lint(check,
     bad=[{"Quillbar/list/RowList.h": "// " + "x" * (LIMIT - 2)},
          {"QuillbarCore/state/AppState.h": "int a;\n    /// " + "字" * LIMIT},
          {"tests/list/RowListTest.cpp": "// " + "x" * (LIMIT - 2) + "\nint a;"}],
     good=[{"Quillbar/list/RowList.h": "// " + "x" * (LIMIT - 3)},
           {"Quillbar/list/RowList.h": "/// " + "字" * (LIMIT - 4)},
           {"simulator/Bodies.cpp": 'const char* a = "' + "x" * LIMIT + '";'}])
