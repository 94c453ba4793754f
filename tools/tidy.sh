#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
#
# Usage: tools/tidy.sh BUILD_FOLDER [SOURCE...]
#
# Runs clang-tidy on the given sources, else on those that the change touches: what differs from
# QUILLBAR_BASE, or from where this branch left origin/main, or else from the commit before. A header
# is checked through a source that includes it. QUILLBAR_BASE=all checks everything, in half an hour.
set -euo pipefail
shopt -s inherit_errexit
cd "$(dirname "$(readlink -f "$0")")/.."
build=$1
shift

base_of_change() {
    if [ -n "${QUILLBAR_BASE:-}" ]; then
        [ "$QUILLBAR_BASE" = all ] || git rev-parse --verify "$QUILLBAR_BASE^{commit}"
        return
    fi
    local base
    base=$(git merge-base HEAD origin/main 2>/dev/null) || base=$(git rev-parse HEAD)
    if [ "$base" = "$(git rev-parse HEAD)" ]; then
        base=$(git rev-parse --verify --quiet 'HEAD^' || true)
    fi
    printf '%s\n' "$base"
}

# The sources through which a header is seen: the one of its name, or else the first that has it.
sources_of_header() {
    local header=$1
    if [ -e "${header%.h}.cpp" ]; then
        printf '%s\n' "${header%.h}.cpp"
    else
        git grep -lF "#include \"$header\"" -- '*.cpp' | head -n 1
    fi
}

touched() {
    local base
    base=$(base_of_change)
    if [ -z "$base" ]; then
        git ls-files -- '*.cpp'
        return
    fi
    printf 'tidy: what differs from %s\n' "$base" >&2
    local file
    git diff --name-only --diff-filter=d "$base" -- '*.h' '*.cpp' | while read -r file; do
        case $file in
        *.h) sources_of_header "$file" ;;
        *) printf '%s\n' "$file" ;;
        esac
    done
}

in_database() {
    python3 -c '
import json, os, sys
entries = json.load(open(sys.argv[1] + "/compile_commands.json"))
known = {os.path.join(e["directory"], e["file"]) for e in entries}
print("\n".join(sorted(f for f in set(sys.stdin.read().split()) if os.path.abspath(f) in known)))
' "$build"
}

check() {
    clang-tidy-16 --quiet -p "$1" "$2" 2>&1 | { grep -v ' warnings\? generated\.$' || true; }
}
export -f check

if [ $# -eq 0 ]; then
    chosen=$(touched | in_database)
else
    chosen=$(printf '%s\n' "$@")
fi
if [ -z "$chosen" ]; then
    printf 'tidy: nothing to check\n'
    exit 0
fi
printf 'tidy: %d sources\n' "$(wc -l <<<"$chosen")"
printf '%s\n' "$chosen" |
    xargs -r -P "$(nproc)" -I{} bash -o pipefail -c 'check "$0" "$1"' "$build" {}
