# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
# shellcheck shell=bash
#
# What run, test and .ci/run share; sourced by them from the project's root.

# build PRESET [TARGET...]: configures build/PRESET when that is due, and builds. The build tool
# notices changed lists of sources by itself, but not a changed preset.
build() {
    local preset=$1
    shift
    local folder=build/$preset
    if [ ! -e "$folder/build.ninja" ] || [ CMakePresets.json -nt "$folder/CMakeCache.txt" ]; then
        if command -v ccache >/dev/null; then
            export CMAKE_CXX_COMPILER_LAUNCHER=ccache
        fi
        cmake --preset "$preset"
        touch "$folder/CMakeCache.txt"
    fi
    cmake --build "$folder" "${@/#/--target=}"
}
