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

# llvm_tool PRESET NAME: the tool of the same version as the preset's compiler.
llvm_tool() {
    local compiler
    compiler=$(sed -n 's/^QUILLBAR_CLANG:[A-Z]*=//p' "build/$1/CMakeCache.txt")
    printf '%s%s' "$2" "$(sed -nE 's/.*(-[0-9]+)$/\1/p' <<<"$compiler")"
}

# build PRESET [TARGET...]
build() {
    local preset=$1
    shift
    configure "$preset"
    cmake --build "build/$preset" "${@/#/--target=}"
}
