# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
# shellcheck shell=bash
#
# What run, test and .ci/run share; sourced by them from the project's root.

# configure PRESET: makes build/PRESET when that is due. The build tool notices changed lists of
# sources by itself, but not a changed preset.
configure() {
    local made=build/$1/build.ninja
    if [ -e "$made" ] && [ ! CMakePresets.json -nt "$made" ]; then
        return
    fi
    if command -v ccache >/dev/null; then
        export CMAKE_CXX_COMPILER_LAUNCHER=ccache
    fi
    cmake --preset "$1"
}

# build PRESET [TARGET...]
build() {
    local preset=$1
    shift
    configure "$preset"
    cmake --build "build/$preset" "${@/#/--target=}"
}
