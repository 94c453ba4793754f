# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
"""Every source begins with the two lines that say whose it is and under which licence."""
from Lint import lint

HEAD = ("SPDX-FileCopyrightText: 2026 The Quillbar developers", "SPDX-License-Identifier: MIT")
SCRIPTS = ("run", "test", "package", ".ci/run", "tools/setup.sh", "CMakeLists.txt",
           "debian/relative-paths", "debian/rules", "debian/tests/desktop", "debian/tests/label",
           "debian/tests/session.py")


def files(tree):
    yield from tree.files(".h", ".cpp", ".py", ".sh", ".cmake")
    yield from tree.files(".cmake", ".sh", ".py", folders=("cmake", "tools", "docs", "packaging"))
    yield from (path for path in tree.files(".txt") if path.name == "CMakeLists.txt")
    yield from (tree.root / name for name in SCRIPTS if (tree.root / name).is_file())


def check(tree):
    for path in files(tree):
        lines = path.read_text(encoding="utf-8").splitlines()
        if lines and lines[0].startswith("#!"):
            lines = lines[1:]
        mark = "//" if path.suffix in (".h", ".cpp") else "#"
        wanted = [f"{mark} {line}" for line in HEAD]
        if lines[:2] != wanted:
            name = path.relative_to(tree.root).as_posix()
            yield f"{name}:1: begin with the lines\n    " + "\n    ".join(wanted)


SLASHES = "".join(f"// {line}\n" for line in HEAD)
HASHES = "".join(f"# {line}\n" for line in HEAD)

lint(check,
     bad=[{"QuillbarCore/model/A.h": "#pragma once\n"},
          {"tests/model/ATest.cpp": SLASHES.replace("MIT", "GPL-3.0")},
          {"run": "#!/usr/bin/env bash\n"},
          {"tests/model/CMakeLists.txt": ""},
          {"cmake/A.cmake": "set(a b)\n"}],
     good=[{"QuillbarCore/model/A.h": SLASHES + "#pragma once\n"},
           {"run": "#!/usr/bin/env bash\n" + HASHES},
           {"tests/model/CMakeLists.txt": HASHES},
           {"fuzz/corpus/a/sample.txt": "anything"}])
