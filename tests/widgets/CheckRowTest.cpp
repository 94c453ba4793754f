// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/widgets/CheckRow.h"
#include "Quillbar/widgets/Theme.h"
#include "tests/qtsupport/SpinUntil.h"
#include "tests/qtsupport/Widgets.h"

#include <QAccessible>
#include <QAccessibleInterface>
#include <QImage>
#include <QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

namespace quillbar {
namespace {

using ::testing::ElementsAre;

/// A row on a dark window, which has the focus.
struct CheckRowTest : ::testing::Test {
    CheckRowTest() {
        ThemeKey::set(window, {.colors = ThemeColors::dark()});
        window.resize(300, 200);
        row->setGeometry(0, 0, 300, CheckRow::kRowHeight);
        QObject::connect(
            row, &QAbstractButton::clicked, &window, [this](bool isOn) { told.push_back(isOn); });
        showActive(window);
        row->setFocus(Qt::TabFocusReason);
        spinUntilIdle();
    }

    QWidget window;
    CheckRow* row = new CheckRow(QStringLiteral("提示音"), &window);
    std::vector<bool> told;
};

TEST_F(CheckRowTest, isSwitchedByAClickAndByBothKeys) {
    EXPECT_FALSE(row->isChecked());
    QTest::mouseClick(row, Qt::LeftButton, {}, QPoint(200, 14));
    QTest::keyClick(row, Qt::Key_Space);
    QTest::keyClick(row, Qt::Key_Return);
    EXPECT_TRUE(row->isChecked());
    EXPECT_THAT(told, ElementsAre(true, false, true));
}

TEST_F(CheckRowTest, isACheckBoxForScreenReaders) {
    row->setTexts(QStringLiteral("BTC 价格 ≥ 110.00"), QStringLiteral("等待触发"));
    row->setChecked(true);
    const QAccessibleInterface& spoken = *QAccessible::queryAccessibleInterface(row);
    EXPECT_EQ(spoken.role(), QAccessible::CheckBox);
    EXPECT_EQ(spoken.text(QAccessible::Name), QStringLiteral("BTC 价格 ≥ 110.00，等待触发"));
    EXPECT_TRUE(spoken.state().checked);
    row->setChecked(false);
    EXPECT_FALSE(spoken.state().checked);
}

TEST_F(CheckRowTest, growsWithItsTextsAndWrapsThem) {
    EXPECT_EQ(row->heightForWidth(300), CheckRow::kRowHeight);
    row->setTexts(QStringLiteral("提示音"), QStringLiteral("价格提醒出现时响一声"));
    const int two = row->heightForWidth(300);
    EXPECT_GT(two, CheckRow::kRowHeight);
    EXPECT_GT(row->heightForWidth(100), two);
    row->setTexts(QStringLiteral("提示音"), QString(400, u'长'));
    EXPECT_GT(row->heightForWidth(300), 10 * CheckRow::kRowHeight);
    EXPECT_GT(row->heightForWidth(1), 0) << "however narrow";
}

TEST_F(CheckRowTest, showsWhetherItIsOn) {
    const QImage off = pictureOf(*row);
    row->setChecked(true);
    const QImage on = pictureOf(*row);
    EXPECT_NE(on, off);
    const QRect mark(8, 7, 13, 13);
    const QRect rest(22, 2, 276, 24);
    EXPECT_NE(on.copy(mark), off.copy(mark));
    EXPECT_EQ(on.copy(rest), off.copy(rest));
}

TEST_F(CheckRowTest, drawsEachOfItsTexts) {
    row->setTexts(QStringLiteral("提示音"), QStringLiteral("价格提醒出现时响一声"));
    row->resize(300, row->heightForWidth(300));
    const QImage both = pictureOf(*row);
    row->setTexts(QStringLiteral("提示音"), QStringLiteral("价格提醒出现时响两声"));
    EXPECT_NE(pictureOf(*row), both);
    row->setTexts(QStringLiteral("声音"), QStringLiteral("价格提醒出现时响一声"));
    EXPECT_NE(pictureOf(*row), both);
}

}  // namespace
}  // namespace quillbar
