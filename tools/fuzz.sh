#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
#
# Usage: tools/fuzz.sh SECONDS
#
# Runs each fuzzer of build/fuzz for so long, from its corpus, and keeps what it finds out of the
# sources. What broke a fuzzer is left in build/fuzz/found.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."

. tools/build.sh

seconds=$1
mkdir -p build/fuzz/found
shopt -s nullglob
fuzzers=(build/fuzz/bin/fuzz-*)
if [ ${#fuzzers[@]} -eq 0 ]; then
    printf 'fuzz: there is no fuzzer in build/fuzz/bin\n' >&2
    exit 1
fi

fuzz() {
    local program=$1 seconds=$2
    local name=${program##*/fuzz-}
    local grown corpus=()
    grown=$(mktemp -d)
    [ ! -d "fuzz/corpus/$name" ] || corpus=("fuzz/corpus/$name")
    local status=0
    "$program" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 -verbosity=0 \
        -print_final_stats=1 -artifact_prefix="build/fuzz/found/$name-" \
        "$grown" "${corpus[@]}" >"build/fuzz/found/$name.log" 2>&1 || status=$?
    if [ $status -eq 0 ]; then
        printf 'fuzz: %-24s %s runs\n' "$name" \
            "$(awk '/number_of_executed_units/ { print $2 }' "build/fuzz/found/$name.log")"
    else
        printf 'fuzz: %s FAILED\n' "$name"
        tail -n 60 "build/fuzz/found/$name.log"
    fi
    rm -rf "$grown"
    return $status
}
export -f fuzz

# A fuzzer with files waits for a disk nine tenths of its time; this folder is in memory.
if [ -d /dev/shm ] && [ -w /dev/shm ]; then
    export TMPDIR=/dev/shm
fi
export ASAN_OPTIONS=detect_leaks=1 UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
ASAN_SYMBOLIZER_PATH=$(command -v "$(llvm_tool fuzz llvm-symbolizer)")
export ASAN_SYMBOLIZER_PATH
printf '%s\n' "${fuzzers[@]}" |
    xargs -r -P "$(nproc)" -I{} bash -c 'fuzz "$0" "$1"' {} "$seconds"
