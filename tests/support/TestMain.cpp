// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/support/TestEnvironment.h"

#include <gtest/gtest.h>

#include <clocale>
#include <locale>

// The main of every test program that brings none. It takes on the locale of the environment, as
// an application of Qt does, so that code which follows the locale is found out under a German one.
int main(int argc, char** argv) {
    const quillbar::TestEnvironment environment(argv);
    ::testing::InitGoogleTest(&argc, argv);
    if (std::setlocale(LC_ALL, "") != nullptr) {
        std::locale::global(std::locale(""));
    }
    return RUN_ALL_TESTS();
}
