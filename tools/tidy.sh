#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
#
# Usage: tools/tidy.sh BUILD_FOLDER [SOURCE...]
#
# Runs clang-tidy on the given sources, else on every source of the build that has not yet passed as
# it stands. What passed is kept in BUILD_FOLDER/passed, under a hash of all that the verdict rests
# on: the source, every header of ours below it, its .clang-tidy, its command, and the versions of
# clang-tidy and of the packages with headers. So a fresh build folder costs half an hour on two cores,
# and later only what a change reaches is looked at, however many commits it has.
#
# QUILLBAR_TIDY_SECONDS ends the looking after that time: what was changed last is looked at first, and
# the sources that are left are counted.
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

def changed():
    # When each file was changed last: now, where it differs from its last commit.
    times = {}
    log = ["git", "log", "--format=%ct", "--name-only", "--no-renames"]
    when = 0
    for line in subprocess.run(log, stdout=subprocess.PIPE, check=True, text=True).stdout.split("\n"):
        if line.isdigit():
            when = int(line)
        elif line:
            times.setdefault(line, when)
    status = ["git", "status", "--porcelain", "--no-renames"]
    for line in subprocess.run(status, stdout=subprocess.PIPE, check=True, text=True).stdout.split("\n"):
        times[line[3:]] = float("inf")
    return times


times = changed()


def newest_first(name):
    path = os.path.relpath(os.path.abspath(name), root)
    header = os.path.splitext(path)[0] + ".h"
    return -max(times.get(path, 0), times.get(header, 0)), path


for name in sorted(given or entries, key=newest_first):
    source = os.path.abspath(name)
    if source not in entries:
        sys.exit(f"tidy: {build} does not compile {name}")
    print(hash_of(entries[source], source), os.path.relpath(source, root))
PYTHON
}

check() {
    local build=$1 end=$2 hash=$3 source=$4
    if [ "$end" != never ] && [ "$(date +%s)" -ge "$end" ]; then
        printf 'left\n' >>"$build/left"
        return 0
    fi
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
end=never
[ -z "${QUILLBAR_TIDY_SECONDS:-}" ] || end=$(($(date +%s) + QUILLBAR_TIDY_SECONDS))
rm -f "$build/left"
printf '%s\n' "$chosen" |
    xargs -r -P "$(nproc)" -L 1 bash -e -o pipefail -c 'check "$0" "$1" "$2" "$3"' "$build" "$end"
if [ -e "$build/left" ]; then
    printf 'tidy: no time was left for %d sources, those that were not changed for longest\n' \
        "$(wc -l <"$build/left")"
fi
