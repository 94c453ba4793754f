# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
"""What the documents name exists: packages, scripts, links, presets, targets of the build."""
import json
import re

from Lint import lint

DOCUMENTS = ("README.md", "README.zh-CN.md", "ARCHITECTURE.md", "CONTRIBUTING.md", "CHANGELOG.md",
             "docs/desktops.md", "docs/status-bars.md", "docs/testing.md")
READMES = ("README.md", "README.zh-CN.md")
# What tools/bare.sh runs on a bare Debian, because the READMEs promise it.
COMMANDS = ("./run", "./test")
LINK = re.compile(r"\]\((?!https?:)([^)#\s]+)\)")
SCRIPT = re.compile(r"(?<![\w/.])(?:\./(?:run|test|package)\b|\.ci/run\b|(?:tools|tests)/[\w/]+\.(?:sh|py|txt))")
PRESET = re.compile(r"--preset[ =](\w+)")
TARGET = re.compile(r"--target[ =]([\w-]+)")
VARIABLE = re.compile(r"\bQUILLBAR_[A-Z]+(?:_[A-Z]+)*\b")


def packages(tree):
    for line in (tree.root / "tools/packages.txt").read_text(encoding="utf-8").splitlines():
        if line and not line.startswith("#"):
            yield line.split()[2]


def defined_targets(tree):
    texts = [path.read_text(encoding="utf-8") for path in tree.files(".txt", ".cmake")]
    return set(re.findall(r"\badd_(?:custom_target|executable|library)\(\s*([\w-]+)",
                          "\n".join(texts)))


def known_variables(tree):
    return {name.strip('"') for source in tree.sources("Quillbar")
            for name in re.findall(f'"{VARIABLE.pattern}"', source.text)}


def broken_words(tree, name, text):
    presets = json.loads((tree.root / "CMakePresets.json").read_text(encoding="utf-8"))
    known_presets = {preset["name"] for preset in presets["configurePresets"]}
    for link in LINK.findall(text):
        if not (tree.root / name).parent.joinpath(link).exists():
            yield f"{name}: links to {link}, which does not exist"
    for script in SCRIPT.findall(text):
        if not (tree.root / script).is_file():
            yield f"{name}: names {script}, which does not exist"
    for preset in set(PRESET.findall(text)) - known_presets:
        yield f"{name}: names the preset {preset}, which CMakePresets.json does not have"
    for target in set(TARGET.findall(text)) - defined_targets(tree):
        yield f"{name}: names the target {target}, which no CMakeLists.txt defines"


def check(tree):
    for name in DOCUMENTS:
        path = tree.root / name
        if not path.is_file():
            yield f"{name}: is missing; write it"
            continue
        text = path.read_text(encoding="utf-8")
        yield from broken_words(tree, name, text)
        if name in READMES:
            for command in COMMANDS:
                if not re.search(rf"^{re.escape(command)}\b", text, re.MULTILINE):
                    yield f"{name}: show {command} on a line of its own, with what it does"
            for package in packages(tree):
                if f"`{package}`" not in text:
                    yield f"{name}: give the package `{package}` a row, and its reason"
            for variable in known_variables(tree) ^ set(VARIABLE.findall(text)):
                yield f"{name}: {variable} stands either here or in Quillbar/, but not in both"


def project(**changes):
    files = {name: "" for name in DOCUMENTS}
    files.update({
        "CMakePresets.json": '{"configurePresets": [{"name": "dev"}]}',
        "tools/packages.txt": "# purpose release package\nrun any cmake the build\n",
        "run": "", "test": "", "LICENSE": "",
        "Quillbar/CMakeLists.txt": "add_custom_target(report)",
        "Quillbar/A.cpp": '"QUILLBAR_CA_FILE"',
        "README.md": "./run\n./test\n`cmake` QUILLBAR_CA_FILE",
        "README.zh-CN.md": "./run\n./test\n`cmake` QUILLBAR_CA_FILE",
        "ARCHITECTURE.md": "[LICENSE](LICENSE) cmake --preset dev --target report",
    })
    files.update({name.replace("__", "."): text for name, text in changes.items()})
    return {name: text for name, text in files.items() if text is not None}


lint(check,
     bad=[project(CHANGELOG__md=None),
          project(CHANGELOG__md="[x](nothing.md)"),
          project(CHANGELOG__md="call ./package"),
          project(CHANGELOG__md="cmake --preset prod"),
          project(CHANGELOG__md="cmake --build b --target bench"),
          project(README__md="./run\n./test\nQUILLBAR_CA_FILE"),
          project(README__md="./run\n`cmake` and ./test QUILLBAR_CA_FILE"),
          project(README__md="./run\n./test\n`cmake` QUILLBAR_CA_FILE QUILLBAR_MADE_UP"),
          project(README__md="./run\n./test\n`cmake`")],
     good=[project(), project(CHANGELOG__md="See [the site](https://example.org/x).")])
