// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/widgets/GlyphButton.h"
#include "Quillbar/widgets/Glyphs.h"
#include "tests/qtsupport/Widgets.h"

#include <QLineEdit>
#include <QTest>

#include <gtest/gtest.h>

namespace quillbar {
namespace {

struct PlainButtonTest : testing::Test {
    void SetUp() override {
        window.resize(100, 40);
        button.setAccessibleName(QStringLiteral("按钮"));
        QObject::connect(&button, &QAbstractButton::clicked, [this] { ++clicks; });
        showActive(window);
    }

    QWidget window;
    GlyphButton button{Glyph::plus, 9, QSize(32, 28), &window};
    QLineEdit other{&window};
    int clicks = 0;
};

TEST_F(PlainButtonTest, itsWholeRectangleIsClickable) {
    for (const QPoint& point : {QPoint(0, 0), QPoint(31, 0), QPoint(0, 27), QPoint(31, 27)}) {
        QTest::mouseClick(&button, Qt::LeftButton, {}, point);
    }
    EXPECT_EQ(clicks, 4);
}

TEST_F(PlainButtonTest, spaceAndEnterClickIt) {
    button.setFocus(Qt::TabFocusReason);
    QTest::keyClick(&button, Qt::Key_Space);
    QTest::keyClick(&button, Qt::Key_Return);
    QTest::keyClick(&button, Qt::Key_Enter);
    EXPECT_EQ(clicks, 3);
}

TEST_F(PlainButtonTest, aClickLeavesTheFocusWhereItIs) {
    other.setFocus();
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_FALSE(button.hasFocus());
}

}  // namespace
}  // namespace quillbar
