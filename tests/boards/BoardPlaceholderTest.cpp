// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/boards/BoardPlaceholder.h"
#include "tests/qtsupport/Widgets.h"

#include <gtest/gtest.h>

namespace quillbar {
namespace {

TEST(BoardPlaceholderTest, aFailedBoardIsALineAndAButtonSixPointsApartInTheMiddle) {
    QWidget window;
    window.resize(400, 300);
    BoardPlaceholder placeholder(440, &window);
    EXPECT_EQ(placeholder.sizeHint().height(), 440);
    placeholder.resize(400, 440);
    placeholder.setContent(BoardPlaceholder::Content::failed);
    window.show();
    spinUntilIdle();
    const QRect line = named(placeholder, QStringLiteral("加载行情失败"))->geometry();
    const QRect retry = named(placeholder, QStringLiteral("重试"))->geometry();
    EXPECT_EQ(retry.top(), line.bottom() + 1 + 6);
    EXPECT_NEAR((line.top() + retry.bottom()) / 2.0, 220, 1);
    EXPECT_NEAR(retry.center().x(), 200, 1);
    placeholder.setContent(BoardPlaceholder::Content::loading);
    spinUntilIdle();
    const QRect spinner = named(placeholder, QStringLiteral("正在加载行情"))->geometry();
    EXPECT_EQ(spinner.size(), QSize(16, 16));
    EXPECT_NEAR(spinner.center().x(), 200, 1);
    EXPECT_NEAR(spinner.center().y(), 220, 1);
    placeholder.setContent(BoardPlaceholder::Content::empty);
    spinUntilIdle();
    EXPECT_NEAR(named(placeholder, QStringLiteral("暂无数据"))->geometry().center().y(), 220, 1);
}

}  // namespace
}  // namespace quillbar
