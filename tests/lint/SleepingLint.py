# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
"""A test never waits for time to pass."""
import re

from Lint import lint

SLEEP = re.compile(
    r"\b(?:(?:std\s*::\s*)?this_thread\s*::\s*sleep_\w+|sleep_(?:for|until)|qSleep|qWait"
    r"|usleep|(?:clock_)?nanosleep|QThread\s*::\s*[mu]?sleep|msleep)\s*\("
    r"|(?<![\w>])::\s*sleep\s*\(|\bsleep\s*\(\s*\d+\s*\)"
    r"|\bp?poll\s*\(\s*(?:nullptr|NULL)|\bselect\s*\(\s*0\s*,")


def check(tree):
    for source in tree.sources("tests", "fuzz"):
        for match in SLEEP.finditer(source.code):
            yield source.at(match.start(), f"{match[0]}…: a test that sleeps is slow, or wrong, or "
                            "both. Advance ManualTime, or run the loop until the event comes")


lint(check,
     bad=[{"tests/a/ATest.cpp": "std::this_thread::sleep_for(1s);\n"},
          {"tests/a/ATest.cpp": "using namespace std::this_thread; sleep_until(t);\n"},
          {"tests/a/ATest.cpp": "QTest::qWait(10);\n"},
          {"tests/a/ATest.cpp": "QTest::qSleep(10);\n"},
          {"tests/a/ATest.cpp": "QThread::msleep(10);\n"},
          {"tests/support/A.h": "::usleep(10);\n"},
          {"tests/a/ATest.cpp": "::sleep(1);\n"},
          {"tests/a/ATest.cpp": "sleep( 10 );\n"},
          {"tests/a/ATest.cpp": "::poll(nullptr, 0, 10);\n"}],
     good=[{"tests/a/ATest.cpp": "time.advance(1s); // never sleep(1)\n"},
           {"tests/a/ATest.cpp": "co_await sleeper(1s); QTest::qWaitFor(f);\n"},
           {"tests/a/ATest.cpp": 'EXPECT_EQ(text, "sleep(1)");\n'},
           {"tests/a/ATest.cpp": "::poll(&fd, 1, 1000); jumpAsASleep(30s);\n"},
           {"tests/a/ATest.cpp": "run(sleep(sleeper, 3)); Task<void> sleep(Seconds s);\n"}])
