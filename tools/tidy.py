#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
"""Runs clang-tidy on the given sources, else on every source of a build that has not yet passed.

Usage: tools/tidy.py BUILD_FOLDER [SOURCE...]

What passed is kept in BUILD_FOLDER/passed, under a hash of all that the verdict rests on: the source,
every header of ours below it, its profile, the compile command, and the versions of clang-tidy and of
the packages with headers. So a changed header or profile has every source read again that it reaches.

Most of the work is the headers from outside, so many sources are read at a time, as one file that
includes a copy of each. Names that two of them declare for themselves are told apart in the copies;
not by macros, in whose names clang-tidy finds nothing. Sources that stop such a batch from compiling,
or in which something is found, are read once more alone, and only what is found then counts; the rest
of the batch is read again without them. What is found in a header is told at once, if the batch
compiles, and the sources of that batch stay unread until it is mended.
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
BATCH = 32
INCLUDE = re.compile(rb'^\s*#\s*include\s+"([^"]+)"', re.MULTILINE)
PROFILE = ".clang-tidy"
FINDING = re.compile(r"(.*?):\d+:\d+: (?:error|warning|fatal error): ")


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
        self.originals = {}
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

    def common_flags(self, sources):
        """One command for all of them: what any of them is compiled with."""
        # Qt defines a target's folders for its own test macros, which nothing here uses. Two values
        # of one macro would stop every batch that has tests of two targets.
        words = dict.fromkeys(word for source in sources for word in words_of(self.flags(source)[1:])
                              if not word[0].startswith("-DQT_TESTCASE_"))
        return [part for word in words for part in word]

    def write_batch(self, file, sources):
        """A source that includes a copy of each; its path. The copies stand below folders of our
        names, where the profile looks for findings."""
        lines = []
        for number, (source, text) in enumerate(zip(sources, told_apart(sources))):
            copy = file.with_suffix("") / str(number) / os.path.relpath(source, ROOT)
            copy.parent.mkdir(parents=True, exist_ok=True)
            copy.write_text(text, encoding="utf-8")
            self.originals[str(copy)] = source
            lines.append(f'#include "{copy}"  // NOLINT(bugprone-suspicious-include)\n')
        file.write_text("".join(lines), encoding="utf-8")
        return str(file)

    def read(self, name, sources):
        """Runs clang-tidy on sources as one; what it said, or nothing when all is well."""
        file = sources[0]
        if len(sources) > 1:
            # clang-tidy takes the profile from the folders above a file. The root's is above the
            # build folder too; a nearer one is put beside the batch.
            nearest = next(profiles(sources[0]))
            folder = self.batches / nearest.parent.relative_to(ROOT)
            folder.mkdir(parents=True, exist_ok=True)
            if nearest.parent != ROOT:
                (folder / PROFILE).write_bytes(content(nearest))
            file = self.write_batch(folder / f"{name}.cpp", sources)
        command = [self.program, "--quiet", file, "--", *self.common_flags(sources)]
        done = subprocess.run(command, cwd=self.entries[sources[0]]["directory"], text=True,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT, check=False)
        said = [line for line in done.stdout.splitlines()
                if not re.search(r"(^| )warnings?( and \d+ errors?)? (generated|treated as errors?)", line)]
        if done.returncode == 0 and not any(FINDING.match(line) for line in said):
            return ""
        return "\n".join(said) or f"{file}: {self.program} ended with {done.returncode}"


def words_of(command):
    """The words of a command, those together that have a meaning only together."""
    words = iter(command)
    return [(word, next(words)) if word in ("-isystem", "-include", "-Xclang") else (word,)
            for word in words]


def told_apart(sources):
    """The text of each, where a name that several declare for themselves has a number."""
    owners = collections.Counter(name for source in sources for name in own_names(source))
    for number, source in enumerate(sources):
        text = content(source).decode("utf-8")
        shared = [name for name in own_names(source) - used_as_members(source) if owners[name] > 1]
        if shared:
            # The paths of headers are left as they are.
            text = re.sub(rf"^#include.*|\b({'|'.join(shared)})\b",
                          lambda found: f"{found[0]}Of{number}" if found[1] else found[0],
                          text, flags=re.MULTILINE)
        yield text


@functools.lru_cache(None)
def own_names(source):
    """What a source declares for itself alone, as far as the form of its lines tells: at the
    beginning of a line within a namespace without a name, or outside of every class and function."""
    text = content(source).decode("utf-8")
    names = set(re.findall(r"^(?:template <[^\n]*>\n)?(?:struct|class|enum class|using) (\w+)\b(?!::)",
                           text, re.MULTILINE))
    # A type's arguments may hold what otherwise ends a name.
    arguments = re.compile(r"<[^<>;{}\n]*>")
    while arguments.search(text):
        text = arguments.sub("", text)
    names |= set(re.findall(
        r"^(?!struct|class|enum|using|namespace)\w[^\n(={;]*[ &*](?!operator)(\w+)(?=[ ]*[(={;\[])",
        text, re.MULTILINE))
    return frozenset(names - {"namespace"})


@functools.lru_cache(None)
def used_as_members(source):
    """Those of its own names that a source also calls something else by, which cannot be renamed."""
    text = content(source).decode("utf-8")
    return frozenset(name for name in own_names(source)
                     if re.search(rf"(?:[.>]|::|##){name}\b", text))


def headers_of(findings):
    """The headers of ours in which something is found: a batch reads them as they are."""
    for finding in findings:
        path = pathlib.Path(finding[1])
        if path.suffix == ".h" and path.is_file() and path.is_relative_to(ROOT):
            yield finding[1]


def batches_of(sources):
    """Sources of one profile together, of each name at most one owner that cannot be renamed."""
    alike = collections.defaultdict(list)
    for source in sources:
        alike[next(profiles(source))].append(source)
    for same in alike.values():
        batches = []
        for source in same:
            fixed = used_as_members(source)
            for batch, taken in batches:
                if len(batch) < BATCH and not taken & fixed:
                    break
            else:
                batch, taken = [], set()
                batches.append((batch, taken))
            batch.append(source)
            taken |= fixed
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
    batches = list(batches_of(chosen))
    print(f"tidy: {len(chosen)} of {len(build.entries)} sources to read, in {len(batches)} batches",
          flush=True)
    alone = []
    bad = {}

    def check(name, sources):
        said = build.read(name, sources)
        found = list(filter(None, map(FINDING.match, said.splitlines())))
        named = {build.originals.get(finding[1]) for finding in found}
        suspects = [source for source in sources if source in named]
        headers = set() if "[clang-diagnostic-error" in said else set(headers_of(found))
        if said and len(sources) > 1 and not headers:
            # What cannot be laid to a source lies in one half or the other.
            if suspects:
                parts = [[source] for source in suspects]
                parts.append([source for source in sources if source not in named])
            else:
                middle = len(sources) // 2
                parts = [sources[:middle], sources[middle:]]
            for number, part in enumerate(filter(None, parts)):
                check(f"{name}-{number}", part)
            alone.extend(suspects)
            return
        if said:
            bad.update(dict.fromkeys(headers or sources, said))
            print(said, flush=True)
            return
        for source in sources:
            build.mark(source).touch()

    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for done in [pool.submit(check, str(number), batch) for number, batch in enumerate(batches)]:
            done.result()
    passed = sum(build.mark(source).exists() for source in chosen)
    print(f"tidy: {passed} passed, {len(bad)} with findings; {len(alone)} were read alone")
    sys.exit(1 if bad else 0)


main()
