// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include <QApplication>

#include <gtest/gtest.h>

#include <clocale>
#include <locale>

// The main of the test programs that show widgets, on no screen unless the environment names one.
int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    const QApplication application(argc, argv);
    if (std::setlocale(LC_ALL, "") != nullptr) {
        std::locale::global(std::locale(""));
    }
    return RUN_ALL_TESTS();
}
