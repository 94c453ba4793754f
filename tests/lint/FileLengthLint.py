# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
"""A source file of the product has fewer than 400 lines, so that a reader sees what it is about."""
from Lint import PRODUCT, lint

LIMIT = 400


def check(tree):
    for source in tree.sources(*PRODUCT, "benchmarks", "fuzz"):
        count = len(source.text.splitlines())
        if count >= LIMIT:
            yield (f"{source.path}:{LIMIT}: {count} lines, and fewer than {LIMIT} are allowed: move "
                   "what does a thing of its own to a file of its own")


lint(check,
     bad=[{"Quillbar/list/RowList.cpp": "\n" * LIMIT},
          {"QuillbarCore/state/AppState.h": "int a;\n" * (LIMIT + 100)},
          {"simulator/Control.cpp": "\n" * LIMIT},
          {"fuzz/fuzz-settings.cpp": "\n" * LIMIT}],
     good=[{"Quillbar/list/RowList.cpp": "\n" * (LIMIT - 1)},
           {"QuillbarCore/state/AppState.h": ""},
           {"tests/list/RowListTest.cpp": "\n" * LIMIT}])
