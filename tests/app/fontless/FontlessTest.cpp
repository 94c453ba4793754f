// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/QuillbarApp.h"
#include "Quillbar/text/ChineseFont.h"
#include "tests/qtsupport/Widgets.h"
#include "tests/support/CapturedLog.h"
#include "tests/support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quillbar {

namespace {

using ::testing::Contains;
using ::testing::Not;

const std::string kComplaint =
    "QuillbarApp|error|no font for Simplified Chinese is installed: install fonts-noto-cjk";

TEST(FontlessTest, noFontIsFound) {
    EXPECT_FALSE(ChineseFont::isInstalled());
}

TEST(FontlessTest, thePanelAndTheLogSaySoOnceThePanelOpens) {
    const CapturedLog log;
    const TemporaryFolder folder;
    QuillbarApp app(std::nullopt, ServiceEndpoints::production(), folder.path());
    EXPECT_THAT(log.lines("QuillbarApp"), Not(Contains(kComplaint)));
    app.showPanel(QString());
    EXPECT_THAT(log.lines("QuillbarApp"), Contains(kComplaint).Times(1));
    bool isTold = false;
    for (const QWidget* const window : QApplication::topLevelWidgets()) {
        isTold = isTold || named(*window, Notices::text(Notice::noChineseFont)) != nullptr;
    }
    EXPECT_TRUE(isTold);
}

}  // namespace

}  // namespace quillbar
