# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
"""Every test runs in an environment of its own, and asks the machine for nothing beside it."""
import re

from Lint import lint

FOLDERS = ("tests", "fuzz")
MAIN = re.compile(r"\bint\s+main\s*\(")
ENTERS = re.compile(MAIN.pattern + r"[^)]*\)\s*\{\s*"
                    r"const\s+(?:quillbar::)?TestEnvironment\s+\w+\(argv\);")
ASKS = re.compile(r"\b(?:secure_getenv|q?getenv|environ|qEnvironmentVariable\w*)\b")
# They make the environment, change it for a while, or prove what it is.
MAY_ASK = ("tests/support/TestEnvironment.cpp", "tests/support/TemporaryEnvironment.h",
           "tests/environment/EnvironmentTest.cpp")
PYTHON_ASKS = re.compile(r'\bos\.(?:getenv|environ)\b(?!\["(?:PATH|QUILLBAR_ROOT)"\])')
BUS = re.compile(r'"--session"')
REGISTERS = re.compile(r"\b(?:add_test|gtest_discover_tests|gtest_add_tests)\s*\(")
FOREIGN_MAIN = re.compile(r"\bg(?:test|mock)_main\b")
REGISTRATION = "cmake/QuillbarTests.cmake"


def check_sources(tree):
    for source in tree.sources(*FOLDERS):
        if MAIN.search(source.code) and not ENTERS.search(source.code):
            yield source.at(MAIN.search(source.code).start(),
                            "begin main with `const TestEnvironment environment(argv);`, or the "
                            "tests see the machine")
        if source.path not in MAY_ASK:
            for match in ASKS.finditer(source.code):
                yield source.at(match.start(), f"{match[0]}: a test knows its variables. Set what "
                                "it needs with TemporaryEnvironment")
        for match in BUS.finditer(source.text):
            yield source.at(match.start(), "such a bus starts the machine's programs. Use "
                            "PrivateBus, or its configuration")


def check_scripts(tree):
    for path in tree.files(".py", folders=FOLDERS):
        if path.parent.name == "lint":
            continue  # Samples of what is flagged.
        text = path.read_text(encoding="utf-8")
        for match in PYTHON_ASKS.finditer(text):
            line = text.count("\n", 0, match.start()) + 1
            yield (f"{path.relative_to(tree.root).as_posix()}:{line}: {match[0]}: hand it in by "
                   "quillbar_add_python_test(... ENVIRONMENT ...)")


def check_registrations(tree):
    for path in tree.files(".txt", ".cmake", folders=(*FOLDERS, "cmake")):
        name = path.relative_to(tree.root).as_posix()
        text = re.sub(r"#[^\n]*", "", path.read_text(encoding="utf-8"))
        if name != REGISTRATION and REGISTERS.search(text):
            yield (f"{name}: registers a test by itself. Use quillbar_add_test_run or "
                   f"quillbar_add_python_test of {REGISTRATION}")
        if FOREIGN_MAIN.search(text):
            yield f"{name}: a main that is not ours enters no environment; leave it out"


def check(tree):
    yield from check_sources(tree)
    yield from check_scripts(tree)
    yield from check_registrations(tree)


GOOD_MAIN = "int main(int argc, char** argv) {\n    const quillbar::TestEnvironment here(argv);\n"

lint(check,
     bad=[{"tests/a/Main.cpp": "int main(int argc, char** argv) {\n    run(argv);\n}\n"},
          {"tests/a/Main.cpp": "int main(int argc, char** argv) {\n    run();\n"
                               "    const TestEnvironment environment(argv);\n}\n"},
          {"fuzz/Main.cpp": "int main() { return 0; }\n"},
          {"tests/a/ATest.cpp": 'std::getenv("HOME");\n'},
          {"tests/a/ATest.cpp": 'qEnvironmentVariableIsSet("HOME");\n'},
          {"tests/a/ATest.cpp": 'start("dbus-daemon", {"--session"});\n'},
          {"tests/a/a_test.py": 'import os\nhome = os.environ["HOME"]\n'},
          {"tests/a/a_test.py": "import os\nsubprocess.run(env=os.environ)\n"},
          {"tests/a/CMakeLists.txt": "add_test(NAME a COMMAND a)\n"},
          {"fuzz/CMakeLists.txt": "    add_test(NAME a COMMAND a)\n"},
          {"tests/a/CMakeLists.txt": "target_link_libraries(a GTest::gtest_main)\n"}],
     good=[{"tests/a/Main.cpp": GOOD_MAIN + "    return run(argc);\n}\n"},
           {"Quillbar/main.cpp": "int main() { return std::getenv(name) == nullptr; }\n"},
           {"tests/support/TemporaryEnvironment.h": "std::getenv(name);\n"},
           {"tests/a/ATest.cpp": '// getenv\nconst TemporaryEnvironment zone("TZ", "UTC");\n'},
           {"tests/a/a_test.py": 'import os\nroot = os.environ["QUILLBAR_ROOT"]\n'},
           {"tests/a/CMakeLists.txt": "quillbar_add_test_run(a a)\n# add_test(\n"},
           {"cmake/QuillbarTests.cmake": "    add_test(NAME ${name} COMMAND ${program})\n"}])
