# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
"""CMakeLists.txt has the version; the changelogs and the page in software centres follow it.

CHANGELOG.md, debian/changelog and the metainfo list the same versions in the same order, with the
same days. The first may be unfinished, and then all three say so.
"""
import email.utils
import re
import xml.etree.ElementTree

from Lint import lint

METAINFO = "packaging/io.github.quillbar.Quillbar.metainfo.xml"
NUMBER = re.compile(r"^project\(\w+ VERSION (\d+\.\d+\.\d+)\b", re.MULTILINE)
HEADING = re.compile(r"^## (.*)$", re.MULTILINE)
UNFINISHED = re.compile(r"Unreleased \((\d+\.\d+\.\d+)\)")
FINISHED = re.compile(r"(\d+\.\d+\.\d+) \((\d{4}-\d\d-\d\d)\)")
DEBIAN = re.compile(r"^quillbar \(([^)]*)\) (\S+);.*?^ -- [^\n]*>  ([^\n]*)$",
                    re.MULTILINE | re.DOTALL)


def read(tree, name):
    return (tree.root / name).read_text(encoding="utf-8")


def changelog(text):
    """(version, day or None where it is unfinished) of each heading."""
    for heading in HEADING.findall(text):
        if match := UNFINISHED.fullmatch(heading):
            yield match[1], None
        elif match := FINISHED.fullmatch(heading):
            yield match.groups()
        else:
            yield heading, "no version and day"


def debian(text):
    for version, distribution, written in DEBIAN.findall(text):
        day = email.utils.parsedate_to_datetime(written).date().isoformat()
        yield version, None if distribution == "UNRELEASED" else day


def metainfo(text):
    for release in xml.etree.ElementTree.fromstring(text.encode()).iter("release"):
        unfinished = release.get("type") == "development"
        yield release.get("version"), None if unfinished else release.get("date")


def told(releases):
    return ", ".join(f"{version} ({day or 'unfinished'})" for version, day in releases) or "nothing"


def check(tree):
    number = NUMBER.search(read(tree, "CMakeLists.txt"))[1]
    releases = list(changelog(read(tree, "CHANGELOG.md")))
    if not releases or releases[0][0] != number:
        yield f"CHANGELOG.md: begins with {told(releases[:1])}, but CMakeLists.txt has {number}"
    if any(day is None for _, day in releases[1:]):
        yield "CHANGELOG.md: only the first version can be unreleased"
    for name, parse in (("debian/changelog", debian), (METAINFO, metainfo)):
        found = list(parse(read(tree, name)))
        if found != releases:
            yield f"{name}: has {told(found)}; CHANGELOG.md has {told(releases)}"


def debian_entry(version, distribution="unstable", day="Sun, 22 Nov 2026"):
    return (f"quillbar ({version}) {distribution}; urgency=medium\n\n  * It.\n\n"
            f" -- The Quillbar developers <a@b>  {day} 12:00:00 +0000\n")


def project(**changes):
    files = {
        "CMakeLists.txt": "project(Quillbar VERSION 0.2.0 LANGUAGES CXX)\n",
        "CHANGELOG.md": "# Changelog\n\n## Unreleased (0.2.0)\n\n- B\n\n## 0.1.0 (2026-11-22)\n",
        "debian/changelog": debian_entry("0.2.0", "UNRELEASED") + "\n" + debian_entry("0.1.0"),
        METAINFO: "<component><releases>"
                  '<release version="0.2.0" date="2026-11-23" type="development"/>'
                  '<release version="0.1.0" date="2026-11-22"/></releases></component>',
    }
    names = {"number": "CMakeLists.txt", "changelog": "CHANGELOG.md", "debian": "debian/changelog",
             "metainfo": METAINFO}
    for name, (old, new) in changes.items():
        path = names[name]
        assert old in files[path]
        files[path] = files[path].replace(old, new)
    return files


lint(check,
     bad=[project(number=("0.2.0", "0.3.0")),
          project(changelog=("Unreleased (0.2.0)", "0.2.0")),
          project(changelog=("Unreleased (0.2.0)", "0.2.0 (2026-11-23)")),
          project(changelog=("0.1.0 (2026-11-22)", "0.1.0 (2026-11-21)")),
          project(changelog=("0.1.0 (2026-11-22)", "Unreleased (0.1.0)"),
                  debian=(") unstable", ") UNRELEASED"),
                  metainfo=('"2026-11-22"/>', '"2026-11-22" type="development"/>')),
          project(changelog=("\n## 0.1.0 (2026-11-22)\n", "")),
          project(debian=("quillbar (0.2.0)", "quillbar (0.2.1)")),
          project(debian=("UNRELEASED", "unstable")),
          project(metainfo=('version="0.1.0"', 'version="0.1.1"')),
          project(metainfo=("2026-11-22", "2026-11-20")),
          project(metainfo=(' type="development"', ""))],
     good=[project(),
           project(changelog=("Unreleased (0.2.0)", "0.2.0 (2026-11-22)"),
                   debian=("UNRELEASED", "unstable"),
                   metainfo=('"2026-11-23" type="development"', '"2026-11-22"'))])
