# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
"""No test is switched off."""
import re

from Lint import lint

SKIPPED = re.compile(r"\b(?:GTEST_SKIP|QSKIP|DISABLED_\w+)")


def check(tree):
    for source in tree.sources("tests", "fuzz"):
        for match in SKIPPED.finditer(source.code):
            yield source.at(match.start(), f"{match[0]}: a test that does not run proves nothing. "
                            "Mend it, or remove it")


lint(check,
     bad=[{"tests/a/ATest.cpp": "TEST(A, DISABLED_Works) {}\n"},
          {"tests/a/ATest.cpp": 'GTEST_SKIP() << "no network";\n'}],
     good=[{"tests/a/ATest.cpp": "TEST(A, Works) {} // not DISABLED_\n"}])
