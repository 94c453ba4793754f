// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/support/TestEnvironment.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

#include <clocale>
#include <locale>

// The main of the test programs that need an event loop. The application takes on the locale of the
// environment, as everywhere with Qt.
int main(int argc, char** argv) {
    const quillbar::TestEnvironment environment(argv);
    ::testing::InitGoogleTest(&argc, argv);
    const QCoreApplication application(argc, argv);
    if (std::setlocale(LC_ALL, "") != nullptr) {
        std::locale::global(std::locale(""));
    }
    return RUN_ALL_TESTS();
}
