#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
"""Runs clang-tidy on the given sources, else on every source of a build that has not yet passed.

Usage: tools/tidy.py BUILD_FOLDER [SOURCE...]

What passed is kept in BUILD_FOLDER/passed, under a hash of all that the verdict rests on: the source,
every header of ours below it, its profile, the compile command, and the versions of clang-tidy and of
the packages with headers. So a changed header or profile has every source read again that it reaches.

Most of the work is the headers from outside, so sources with the same command and profile are read
several at a time, as one file that includes them. Where such a batch has a finding, or does not
compile because two of its sources use one name, each of its sources is read alone, and only what is
found then counts.
"""
import argparse
import collections
import concurrent.futures
import functools
import hashlib
import json
import os
import pathlib
import re
import shlex
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
BATCH = 12
INCLUDE = re.compile(rb'^\s*#\s*include\s+"([^"]+)"', re.MULTILINE)
PROFILE = ".clang-tidy"


@functools.lru_cache(None)
def content(path):
    return pathlib.Path(path).read_bytes()


@functools.lru_cache(None)
def included(path):
    """The headers of ours that a file names."""
    found = []
    for name in map(os.fsdecode, INCLUDE.findall(content(path))):
        for folder in (os.path.dirname(path), ROOT):
            header = os.path.normpath(os.path.join(folder, name))
            if os.path.isfile(header):
                found.append(header)
                break
    return found


def with_headers(source):
    found, waiting = {source}, [source]
    while waiting:
        for header in included(waiting.pop()):
            if header not in found:
                found.add(header)
                waiting.append(header)
    return sorted(found)


def profiles(source):
    """The .clang-tidy files that hold for a source, the nearest first."""
    folder = pathlib.Path(source).parent
    while folder.is_relative_to(ROOT):
        if (folder / PROFILE).is_file():
            yield folder / PROFILE
        folder = folder.parent


class Build:
    """A folder with a compilation database, and what has passed in it."""

    def __init__(self, folder):
        self.folder = pathlib.Path(folder).resolve()
        self.passed = self.folder / "passed"
        self.batches = self.folder / "batches"
        self.passed.mkdir(exist_ok=True)
        self.batches.mkdir(exist_ok=True)
        # The compiler's own version of clang-tidy: it is at least as new as what the code is built
        # with, and knows the compiler's options.
        cache = (self.folder / "CMakeCache.txt").read_text(encoding="utf-8")
        compiler = re.search(r"^QUILLBAR_CLANG:\w+=(.*)$", cache, re.MULTILINE)[1]
        self.program = "clang-tidy" + re.search(r"(-\d+)?$", compiler)[0]
        # The package list's exit status tells only that some package is not installed.
        self.tools = subprocess.run(["dpkg-query", "-W", self.program, "*-dev"],
                                    stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                                    check=False).stdout
        self.entries = {}
        for entry in json.loads((self.folder / "compile_commands.json").read_text(encoding="utf-8")):
            source = os.path.normpath(os.path.join(entry["directory"], entry["file"]))
            if not source.startswith(f"{self.folder}{os.sep}"):
                self.entries.setdefault(source, entry)

    def flags(self, source):
        """The compile command without what names the source and its object."""
        words = shlex.split(self.entries[source]["command"])
        kept = []
        skip = False
        for word in words:
            if skip or word in ("-o", "-c"):
                skip = word == "-o"
            elif word != self.entries[source]["file"]:
                kept.append(word)
        return kept

    def mark(self, source):
        digest = hashlib.sha256(self.tools + shlex.join(self.flags(source)).encode())
        for path in [*with_headers(source), *map(str, profiles(source))]:
            digest.update(os.path.relpath(path, ROOT).encode() + b"\0")
            digest.update(hashlib.sha256(content(path)).digest())
        return self.passed / digest.hexdigest()

    def read(self, name, sources):
        """Runs clang-tidy on sources as one; what it said, or nothing when all is well."""
        if len(sources) == 1:
            file = sources[0]
        else:
            # clang-tidy takes the profile from the folders above a file. The root's is above the
            # build folder too; a nearer one is put beside the batch.
            nearest = next(profiles(sources[0]))
            folder = self.batches / nearest.parent.relative_to(ROOT)
            folder.mkdir(parents=True, exist_ok=True)
            if nearest.parent != ROOT:
                (folder / PROFILE).write_bytes(content(nearest))
            file = str(folder / f"{name}.cpp")
            mark = "// NOLINT(bugprone-suspicious-include)"
            text = "".join(f'#include "{source}"  {mark}\n' for source in sources)
            pathlib.Path(file).write_text(text, encoding="utf-8")
        command = [self.program, "--quiet", file, "--", *self.flags(sources[0])[1:]]
        done = subprocess.run(command, cwd=self.entries[sources[0]]["directory"], text=True,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT, check=False)
        said = [line for line in done.stdout.splitlines()
                if not re.search(r"(^| )warnings?( and \d+ errors?)? (generated|treated as errors?)", line)]
        if done.returncode == 0 and not any(": error:" in line or ": warning:" in line
                                            for line in said):
            return ""
        return "\n".join(said) or f"{file}: {self.program} ended with {done.returncode}"


@functools.lru_cache(None)
def own_names(source):
    """What a source declares for itself alone, as far as the form of its lines tells: at the
    beginning of a line within a namespace without a name, or outside of every class and function."""
    text = content(source).decode("utf-8")
    names = set(re.findall(r"^(?:template <[^\n]*>\n)?(?:struct|class|enum class|using) (\w+)\b(?!::)",
                           text, re.MULTILINE))
    names |= set(re.findall(r"^\w[^\n(={;]*[ &*](\w+)(?=[ ]*[(={;\[])", text, re.MULTILINE))
    return names - {"quillbar", "namespace"}


def batches_of(build, sources):
    alike = collections.defaultdict(list)
    for source in sources:
        alike[shlex.join(build.flags(source)), next(profiles(source))].append(source)
    for same in alike.values():
        batches = []
        for source in same:
            for batch, taken in batches:
                if len(batch) < BATCH and not taken & own_names(source):
                    break
            else:
                batch, taken = [], set()
                batches.append((batch, taken))
            batch.append(source)
            taken |= own_names(source)
        yield from (batch for batch, _ in batches)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("build", help="a folder made with: cmake --preset tidy")
    parser.add_argument("sources", nargs="*")
    arguments = parser.parse_args()
    build = Build(arguments.build)
    for name in arguments.sources:
        if os.path.abspath(name) not in build.entries:
            sys.exit(f"tidy: {arguments.build} does not compile {name}")
    chosen = [os.path.abspath(name) for name in arguments.sources] or [
        source for source in sorted(build.entries) if not build.mark(source).exists()]
    batches = list(batches_of(build, chosen))
    print(f"tidy: {len(chosen)} of {len(build.entries)} sources to read, in {len(batches)} batches",
          flush=True)
    findings = 0

    def check(numbered):
        number, sources = numbered
        wrong = []
        if len(sources) > 1 and build.read(number, sources):
            wrong = [(source, build.read(number, [source])) for source in sources]
        elif len(sources) == 1:
            wrong = [(sources[0], build.read(number, sources))]
        bad = {source: said for source, said in wrong if said}
        for source in sources:
            if source not in bad:
                build.mark(source).touch()
        return len(wrong) if len(sources) > 1 else 0, bad

    alone = 0
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for again, bad in pool.map(check, enumerate(batches)):
            alone += again
            for said in bad.values():
                findings += 1
                print(said, flush=True)
    print(f"tidy: {len(chosen) - findings} passed, {findings} with findings; {alone} were read alone")
    sys.exit(1 if findings else 0)


main()
