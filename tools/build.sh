# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
# shellcheck shell=bash
#
# What run, test, package, .ci/run and the tools share; sourced by them from the project's root.

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

# copy_sources FOLDER: the sources of the last commit; or all that is here where there is no git, or
# no clone, as in an unpacked archive of a release.
copy_sources() {
    mkdir -p "$1"
    if [ -e .git ] && command -v git >/dev/null; then
        git archive HEAD | tar -x -C "$1"
    else
        tar --exclude=./build --exclude=./.git -c . | tar -x -C "$1"
    fi
}

# build_packages FOLDER: builds the Debian packages of the sources in FOLDER, and leaves them beside
# it. They do not depend on when the sources came here.
build_packages() {
    (
        cd "$1"
        find . -exec touch --date="@$(dpkg-parsechangelog --show-field Timestamp)" {} +
        dpkg-buildpackage --build=binary --no-sign
    )
}

# Where this machine's own packages of Debian come from; the one in the manuals where it has none.
source_of_packages() {
    local uri
    # shellcheck disable=SC2016
    uri=$(apt-get indextargets --format '$(REPO_URI) $(ORIGIN) $(RELEASE)' 2>/dev/null |
        awk '$2 == "Debian" && $3 !~ /security/ { print $1; exit }' || true)
    printf '%s' "${uri:-http://deb.debian.org/debian}"
}
