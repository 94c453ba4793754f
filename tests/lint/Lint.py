# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
"""What the lint tests share: reading the sources, and proving that a lint can fail.

A lint is a function that takes a Tree and yields findings, each a text that names the place and
says how to mend it. lint(...) makes it a program: with a folder it checks the project there, with
--self-test it checks that every bad sample is flagged and every good one is not.
"""
import pathlib
import re
import sys
import tempfile

FOLDERS = ("QuillbarCore", "Quillbar", "simulator", "tests", "benchmarks", "fuzz")
PRODUCT = ("QuillbarCore", "Quillbar", "simulator")

_TOKEN = re.compile(
    r'(?P<comment>//[^\n]*|/\*.*?\*/)'
    r'|(?P<raw>R"(?P<mark>[^()\s\\]{0,16})\(.*?\)(?P=mark)")'
    r'|(?P<text>"(?:\\.|[^"\\\n])*")'
    r"|(?P<char>(?<![0-9A-Za-z_])(?:u8|[uUL])?'(?:\\.|[^'\\\n])+')",
    re.DOTALL)


def _blank(text):
    return re.sub(r"[^\n]", " ", text)


def without_comments(text):
    """The source with every comment blanked; lines and columns stay where they are."""
    return _TOKEN.sub(lambda m: _blank(m[0]) if m["comment"] else m[0], text)


def code_only(text):
    """The source with comments and the insides of texts blanked; lines and columns stay."""
    def replace(match):
        if match["comment"]:
            return _blank(match[0])
        if match["char"]:
            return _blank(match[0][:-1]) + "0"
        return '"' + _blank(match[0][1:-1]) + '"'
    return _TOKEN.sub(replace, text)


class Source:
    """A file of the project: its path from the root, its text, and the same as code alone."""

    def __init__(self, root, path):
        self.path = path.relative_to(root).as_posix()
        self.name = path.name
        self.text = path.read_text(encoding="utf-8")
        self.code = code_only(self.text)

    def line_of(self, offset):
        return self.text.count("\n", 0, offset) + 1

    def at(self, offset, advice):
        """A finding: the place, and how to mend it."""
        return f"{self.path}:{self.line_of(offset)}: {advice}"


class Tree:
    """The project's sources under a root."""

    def __init__(self, root, build=None):
        self.root = pathlib.Path(root).resolve()
        self.build = build

    def files(self, *suffixes, folders=FOLDERS):
        for folder in folders:
            for path in sorted((self.root / folder).rglob("*")):
                if path.suffix in suffixes and path.is_file():
                    yield path

    def sources(self, *folders):
        for path in self.files(".h", ".cpp", folders=folders or FOLDERS):
            yield Source(self.root, path)


def _write(root, files):
    for name, text in files.items():
        path = pathlib.Path(root, name)
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text, encoding="utf-8")


def _findings_of(check, files):
    with tempfile.TemporaryDirectory() as root:
        _write(root, files)
        return list(check(Tree(root, build=pathlib.Path(root))))


def _self_test(check, bad, good):
    wrong = []
    for files in bad:
        if not _findings_of(check, files):
            wrong.append(f"not flagged: {files}")
    for files in good:
        for finding in _findings_of(check, files):
            wrong.append(f"wrongly flagged: {finding}\n    in {files}")
    if not bad:
        wrong.append("there is no bad sample, so nothing shows that this lint can fail")
    return wrong


def lint(check, *, bad, good):
    """Runs a lint as a program. A sample is a dictionary from path to text."""
    if sys.argv[1:] == ["--self-test"]:
        findings = _self_test(check, bad, good)
    elif len(sys.argv) in (2, 3):
        build = pathlib.Path(sys.argv[2]) if len(sys.argv) == 3 else None
        findings = list(check(Tree(sys.argv[1], build=build)))
    else:
        sys.exit(f"usage: {sys.argv[0]} ROOT [BUILD] | --self-test")
    for finding in findings:
        print(finding)
    if findings:
        sys.exit(f"{len(findings)} to mend")
