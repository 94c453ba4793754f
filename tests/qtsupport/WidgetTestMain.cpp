// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/support/TestEnvironment.h"

#include <QApplication>
#include <QCursor>
#include <QScreen>

#include <gtest/gtest.h>

#include <clocale>
#include <locale>

namespace {

/// Takes the pointer away from where the windows of the test before were, so that no test finds its
/// own under it.
class PointerAway final : public ::testing::EmptyTestEventListener {
    // NOLINTNEXTLINE(readability-identifier-naming): GoogleTest spells it so
    void OnTestStart(const ::testing::TestInfo& /*test*/) override {
        QCursor::setPos(QGuiApplication::primaryScreen()->geometry().bottomRight());
    }
};

}  // namespace

// The main of the test programs that show widgets, on no screen.
int main(int argc, char** argv) {
    const quillbar::TestEnvironment environment(argv);
    ::testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    if (std::setlocale(LC_ALL, "") != nullptr) {
        std::locale::global(std::locale(""));
    }
    ::testing::UnitTest::GetInstance()->listeners().Append(new PointerAway);
    return RUN_ALL_TESTS();
}
