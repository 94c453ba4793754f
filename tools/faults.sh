#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."

usage() {
    cat <<'TEXT'
Usage: tools/faults.sh table|soak

Tries the application on an exchange and a network that fail, in a time of its own.
table prints what a user sees of faults of the network, the exchange and the clock, in every
situation, while they last and afterwards.
soak lets eight hours of market pass with a fault every few minutes.
The result is 0 when all of it is as it must be.
TEXT
}

. tools/build.sh

run() {
    build dev quillbar-tests-faults
    build/dev/bin/quillbar-tests-faults "$@"
}

case ${1:-} in
table)
    # Where something is wrong, its test says what was expected.
    run --gtest_filter='*FaultTable*' --gtest_brief=1 --print-table
    ;;
soak)
    run --gtest_filter='SoakTest.*' --long
    ;;
--help)
    usage
    ;;
*)
    usage >&2
    exit 2
    ;;
esac
