// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/text/SystemFont.h"
#include "Quillbar/widgets/Heading.h"

#include <QAccessible>
#include <QAccessibleInterface>

#include <gtest/gtest.h>

namespace quillbar {
namespace {

TEST(Heading, isOneForScreenReadersToo) {
    Heading heading(QStringLiteral("颜色"));
    QAccessibleInterface* const told = QAccessible::queryAccessibleInterface(&heading);
    ASSERT_NE(told, nullptr);
    EXPECT_EQ(told->role(), QAccessible::Heading);
    EXPECT_EQ(told->text(QAccessible::Name), QStringLiteral("颜色"));
}

TEST(Heading, isSmallAndSemibold) {
    const Heading heading(QStringLiteral("颜色"));
    EXPECT_EQ(heading.text(), QStringLiteral("颜色"));
    EXPECT_EQ(heading.font(), systemFont(10.5, QFont::DemiBold));
}

}  // namespace
}  // namespace quillbar
