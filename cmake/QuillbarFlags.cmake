# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
#
# quillbar_flags is the one place where compiler and linker flags live: every target of ours links
# to it. Warnings are errors in a checkout (QUILLBAR_DEVELOPER), never for packagers.

add_library(quillbar_flags INTERFACE)
target_compile_features(quillbar_flags INTERFACE cxx_std_20)
target_include_directories(quillbar_flags INTERFACE "${CMAKE_SOURCE_DIR}")
target_compile_definitions(quillbar_flags INTERFACE
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS
    QUILLBAR_VERSION="${PROJECT_VERSION}")

# Programs too, not libraries alone: they share precompiled headers, which this must fit.
target_compile_options(quillbar_flags INTERFACE -fPIC)

set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

target_compile_options(quillbar_flags INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast
    -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-align -Wunused -Wformat=2
    -Wimplicit-fallthrough -Wextra-semi)
# The other tools of the compiler's own version end like it: "-16" of clang++-16, or nothing.
string(REGEX MATCH "-[0-9]+$" QUILLBAR_LLVM_SUFFIX "${CMAKE_CXX_COMPILER}")
if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    # Debian's default linker takes twice as long on the tests.
    find_program(QUILLBAR_LLD NAMES "ld.lld${QUILLBAR_LLVM_SUFFIX}")
    if(QUILLBAR_LLD)
        target_link_options(quillbar_flags INTERFACE "-fuse-ld=${QUILLBAR_LLD}")
    endif()
endif()
if(QUILLBAR_DEVELOPER)
    target_compile_options(quillbar_flags INTERFACE -Werror)
endif()

if(QUILLBAR_SANITIZERS)
    target_compile_options(quillbar_flags INTERFACE
        "-fsanitize=${QUILLBAR_SANITIZERS}" -fno-omit-frame-pointer -fno-sanitize-recover=all)
    target_link_options(quillbar_flags INTERFACE "-fsanitize=${QUILLBAR_SANITIZERS}")
endif()
if(QUILLBAR_FUZZERS)
    # Tells libFuzzer which paths an input took, in what is fuzzed too.
    target_compile_options(quillbar_flags INTERFACE -fsanitize=fuzzer-no-link)
endif()
