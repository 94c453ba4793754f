# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
#
# Builds with GCC: the one that tools/packages.txt names for Debian 12 or 13.
if(NOT CMAKE_CXX_COMPILER)
    find_program(QUILLBAR_GCC REQUIRED NAMES g++-12 g++-14 g++)
    set(CMAKE_CXX_COMPILER "${QUILLBAR_GCC}")
endif()
