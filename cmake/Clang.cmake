# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
#
# Builds with clang: the one that tools/packages.txt names for Debian 12 or 13 where it is
# installed, else the newest that there is, else the one that CXX names. CMakeLists.txt refuses one
# before 16.
if(NOT CMAKE_CXX_COMPILER)
    find_program(QUILLBAR_CLANG REQUIRED
        NAMES "$ENV{CXX}" clang++-16 clang++-19
            clang++-23 clang++-22 clang++-21 clang++-20 clang++-18 clang++-17 clang++)
    set(CMAKE_CXX_COMPILER "${QUILLBAR_CLANG}")
endif()
