#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
#
# Usage: tools/tidy.sh BUILD_FOLDER [SOURCE...]
#
# Runs clang-tidy on the given sources, else on every source of the build that has not yet passed as
# it stands. What passed is kept in BUILD_FOLDER/passed, under a hash of all that the verdict rests
# on: the source, every header of ours below it, its .clang-tidy, its command, and the versions of
# clang-tidy and of the packages with headers. So a fresh build folder costs some twenty minutes on
# two cores, and later only what a change reaches is looked at, however many commits it has.
set -euo pipefail
shopt -s inherit_errexit
cd "$(dirname "$(readlink -f "$0")")/.."
build=$1
shift
mkdir -p "$build/once" "$build/passed"

# Lines of a hash and its source. A source that several targets compile is looked at once, by the
# database in BUILD_FOLDER/once.
hashed_sources() {
    python3 - "$build" "$@" <<'PYTHON'
import functools, hashlib, json, os, re, subprocess, sys

build, given = sys.argv[1], sys.argv[2:]
root = os.getcwd()
INCLUDE = re.compile(rb'^\s*#\s*include\s+"([^"]+)"', re.MULTILINE)
TOOLS = subprocess.run(
    ["dpkg-query", "-W", "clang-tidy-16", "*-dev"], stdout=subprocess.PIPE, check=True
).stdout


@functools.lru_cache(None)
def content(path):
    with open(path, "rb") as file:
        return file.read()


def with_headers(source):
    found, waiting = {source}, [source]
    while waiting:
        path = waiting.pop()
        for name in map(os.fsdecode, INCLUDE.findall(content(path))):
            for header in (os.path.join(os.path.dirname(path), name), os.path.join(root, name)):
                header = os.path.normpath(header)
                if os.path.exists(header) and header not in found:
                    found.add(header)
                    waiting.append(header)
    return sorted(found)


def configurations(source):
    folder = os.path.dirname(source)
    while folder.startswith(root):
        path = os.path.join(folder, ".clang-tidy")
        if os.path.exists(path):
            yield path
        folder = os.path.dirname(folder)


def hash_of(entry, source):
    digest = hashlib.sha256(TOOLS + entry["command"].encode())
    for path in [*with_headers(source), *configurations(source)]:
        digest.update(path.encode() + b"\0" + hashlib.sha256(content(path)).digest())
    return digest.hexdigest()


entries = {}
with open(f"{build}/compile_commands.json") as file:
    for entry in json.load(file):
        source = os.path.normpath(os.path.join(entry["directory"], entry["file"]))
        if not source.startswith(os.path.abspath(build) + os.sep):
            entries.setdefault(source, entry)
with open(f"{build}/once/compile_commands.json", "w") as file:
    json.dump(list(entries.values()), file)

for name in given or sorted(entries):
    source = os.path.abspath(name)
    if source not in entries:
        sys.exit(f"tidy: {build} does not compile {name}")
    print(hash_of(entries[source], source), os.path.relpath(source, root))
PYTHON
}

check() {
    local build=$1 hash=$2 source=$3
    clang-tidy-16 --quiet -p "$build/once" "$source" 2>&1 |
        { grep -v ' warnings\? generated\.$' || true; }
    touch "$build/passed/$hash"
}
export -f check

chosen=$(hashed_sources "$@" | while read -r hash source; do
    if [ $# -gt 0 ] || [ ! -e "$build/passed/$hash" ]; then
        printf '%s %s\n' "$hash" "$source"
    fi
done)
if [ -z "$chosen" ]; then
    printf 'tidy: every source has passed as it stands\n'
    exit 0
fi
printf 'tidy: %d sources\n' "$(wc -l <<<"$chosen")"
printf '%s\n' "$chosen" |
    xargs -r -P "$(nproc)" -L 1 bash -e -o pipefail -c 'check "$0" "$1" "$2"' "$build"
