# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
"""What debian/control builds with is what tools/setup.sh installs to build packages."""
import re

from Lint import lint

FIELD = re.compile(r"^Build-Depends:\n((?: .*\n)+)", re.MULTILINE)
PURPOSES = ("run", "package")


def listed(tree):
    """The releases of each package that ./package has installed."""
    found = {}
    for line in (tree.root / "tools/packages.txt").read_text(encoding="utf-8").splitlines():
        if line and not line.startswith("#"):
            purpose, release, name = line.split()[:3]
            if purpose in PURPOSES:
                found.setdefault(name, set()).update({"12", "13"} if release == "any"
                                                     else {release})
    return found


def check(tree):
    control = (tree.root / "debian/control").read_text(encoding="utf-8")
    found = listed(tree)
    for wanted in re.findall(r"^ (.*),$", FIELD.search(control)[1], re.MULTILINE):
        names = ["debhelper" if name.startswith("debhelper-compat") else name
                 for name in wanted.split(" | ")]
        for release in ("12", "13"):
            if not any(release in found.get(name, ()) for name in names):
                yield (f"debian/control: builds with {wanted}, which tools/packages.txt lists "
                       f"neither for run nor for package on Debian {release}")


def project(control, packages):
    return {"debian/control": f"Source: a\nBuild-Depends:\n{control}\nPackage: a\n",
            "tools/packages.txt": "# purpose release package\n" + packages}


lint(check,
     bad=[project(" cmake,\n", "run any ninja the build\n"),
          project(" cmake,\n", "test any cmake the build\n"),
          project(" cmake,\n", "run 12 cmake the build\n"),
          project(" clang-19 | clang-16,\n", "run 12 clang-16 it\n"),
          project(" debhelper-compat (= 13),\n", "run any cmake the build\n")],
     good=[project(" cmake,\n", "run any cmake the build\n"),
           project(" clang-19 | clang-16,\n", "run 12 clang-16 it\nrun 13 clang-19 it\n"),
           project(" debhelper-compat (= 13),\n scdoc,\n",
                   "package any debhelper it\npackage any scdoc it\n")])
