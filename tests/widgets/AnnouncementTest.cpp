// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/widgets/Announcement.h"

#include <QAccessible>
#include <QAccessibleInterface>
#include <QString>
#include <QWidget>

#include <gtest/gtest.h>

namespace quillbar {
namespace {

TEST(AnnouncementTest, isANotificationForScreenReadersUnderItsName) {
    QWidget marked;
    QWidget plain;
    Announcement::mark(marked);
    marked.setAccessibleName(QStringLiteral("已删除 BTC"));
    const QAccessibleInterface& told = *QAccessible::queryAccessibleInterface(&marked);
    EXPECT_EQ(told.role(), QAccessible::Notification);
    EXPECT_EQ(told.text(QAccessible::Name), QStringLiteral("已删除 BTC"));
    EXPECT_NE(QAccessible::queryAccessibleInterface(&plain)->role(), QAccessible::Notification);
}

}  // namespace
}  // namespace quillbar
