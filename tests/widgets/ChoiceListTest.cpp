// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/text/SystemFont.h"
#include "Quillbar/widgets/ChoiceList.h"
#include "Quillbar/widgets/Theme.h"
#include "tests/qtsupport/Ink.h"
#include "tests/qtsupport/SpinUntil.h"
#include "tests/qtsupport/Widgets.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QAccessibleInterface>
#include <QLineEdit>
#include <QPainter>
#include <QPen>
#include <QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <memory>
#include <vector>

namespace quillbar {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

const QString kSmall = QStringLiteral("小");
const QString kMiddle = QStringLiteral("中");
const QString kLarge = QStringLiteral("大");

/// A choice of three between two other stops of the Tab key, on a dark window.
struct ChoiceListTest : ::testing::Test {
    ChoiceListTest() {
        ThemeKey::set(window, {.colors = ThemeColors::dark()});
        window.resize(300, 200);
        before->setGeometry(0, 0, 100, 20);
        list->setGeometry(0, 30, 300, 3 * ChoiceList::kRowHeight);
        after->setGeometry(0, 160, 100, 20);
        list->onSelect = [this](std::size_t index) { told.push_back(index); };
        showActive(window);
        spinUntilIdle();
    }

    [[nodiscard]] QAbstractButton& row(const QString& title) const {
        return dynamic_cast<QAbstractButton&>(*named(*list, title));
    }
    void press(Qt::Key key) { QTest::keyClick(window.focusWidget(), key); }
    [[nodiscard]] QString focused() const { return window.focusWidget()->accessibleName(); }

    /// A row as it should look.
    [[nodiscard]] static QImage drawn(const QString& title, bool isChosen, bool isHovered) {
        const ThemeColors::Resolved& colors = ThemeColors::dark();
        QImage image(300, 28, QImage::Format_ARGB32_Premultiplied);
        image.fill(colors.surface);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        if (isHovered) {
            painter.setBrush(colors.rowHover);
            painter.drawRoundedRect(image.rect(), 4, 4);
        }
        const QPointF middle(8 + 6.5, 14);
        if (isChosen) {
            painter.setBrush(colors.accent);
            painter.drawEllipse(middle, 3, 3);
        }
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(isChosen ? colors.accent : colors.secondaryText, 1.5));
        painter.drawEllipse(middle, 5.75, 5.75);
        painter.setFont(systemFont(12));
        painter.setPen(colors.primaryText);
        painter.drawText(QRect(29, 0, 300 - 29 - 8, 28), Qt::AlignLeft | Qt::AlignVCenter, title);
        return image;
    }

    QWidget window;
    QLineEdit* before = new QLineEdit(&window);
    ChoiceList* list = new ChoiceList(QStringLiteral("大小"), {kSmall, kMiddle, kLarge}, &window);
    QLineEdit* after = new QLineEdit(&window);
    std::vector<std::size_t> told;
};

TEST_F(ChoiceListTest, beginsWithTheFirstTitle) {
    EXPECT_EQ(list->selection(), 0U);
    EXPECT_TRUE(row(kSmall).isChecked());
    EXPECT_FALSE(row(kMiddle).isChecked());
    EXPECT_EQ(list->sizeHint().height(), 3 * ChoiceList::kRowHeight);
}

TEST_F(ChoiceListTest, aClickAnywhereOnARowSelectsItAndTellsOnce) {
    QAbstractButton& large = row(kLarge);
    QTest::mouseClick(&large, Qt::LeftButton, {}, QPoint(large.width() - 2, 2));
    QTest::mouseClick(&large, Qt::LeftButton);
    EXPECT_EQ(list->selection(), 2U);
    EXPECT_TRUE(large.isChecked());
    EXPECT_FALSE(row(kSmall).isChecked());
    EXPECT_THAT(told, ElementsAre(2U));
}

TEST_F(ChoiceListTest, isSetWithoutTelling) {
    list->setSelection(1);
    EXPECT_EQ(list->selection(), 1U);
    EXPECT_TRUE(row(kMiddle).isChecked());
    EXPECT_FALSE(row(kSmall).isChecked());
    EXPECT_THAT(told, IsEmpty());
}

TEST_F(ChoiceListTest, isOneStopOfTheTabKeyAtWhatIsSelected) {
    list->setSelection(1);
    before->setFocus();
    press(Qt::Key_Tab);
    EXPECT_EQ(focused(), kMiddle);
    press(Qt::Key_Tab);
    EXPECT_EQ(window.focusWidget(), after);
    press(Qt::Key_Backtab);
    EXPECT_EQ(focused(), kMiddle);
    press(Qt::Key_Backtab);
    EXPECT_EQ(window.focusWidget(), before);
}

TEST_F(ChoiceListTest, aClickMovesTheStopOfTheTabKey) {
    QTest::mouseClick(&row(kLarge), Qt::LeftButton);
    before->setFocus();
    press(Qt::Key_Tab);
    EXPECT_EQ(focused(), kLarge);
    press(Qt::Key_Tab);
    EXPECT_EQ(window.focusWidget(), after);
}

TEST_F(ChoiceListTest, theArrowKeysSelectAndStopAtTheEnds) {
    list->focusSelection(Qt::TabFocusReason);
    press(Qt::Key_Up);
    EXPECT_EQ(list->selection(), 0U);
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    EXPECT_EQ(focused(), kLarge);
    press(Qt::Key_Up);
    EXPECT_EQ(focused(), kMiddle);
    EXPECT_THAT(told, ElementsAre(1U, 2U, 1U));
}

TEST_F(ChoiceListTest, theFocusGoesToWhatIsSelected) {
    list->setSelection(2);
    list->focusSelection(Qt::TabFocusReason);
    EXPECT_EQ(focused(), kLarge);
}

TEST_F(ChoiceListTest, isAGroupOfRadioButtonsForScreenReaders) {
    list->setSelection(1);
    QAccessibleInterface* const group = QAccessible::queryAccessibleInterface(list);
    EXPECT_EQ(group->role(), QAccessible::Grouping);
    EXPECT_EQ(group->text(QAccessible::Name), QStringLiteral("大小"));
    ASSERT_EQ(group->childCount(), 3);
    for (int index = 0; index < 3; ++index) {
        QAccessibleInterface* const button = group->child(index);
        EXPECT_EQ(button->role(), QAccessible::RadioButton);
        EXPECT_EQ(button->state().checked, index == 1);
    }
    EXPECT_EQ(group->child(2)->text(QAccessible::Name), kLarge);
}

TEST_F(ChoiceListTest, marksWhatIsSelectedInTheAccentColor) {
    const auto markOf = [this](const QString& title) {
        QAbstractButton& button = row(title);
        // The middle of the dot.
        return pictureOf(button).pixelColor(8 + 6, button.height() / 2);
    };
    EXPECT_EQ(markOf(kSmall), ThemeColors::dark().accent);
    EXPECT_EQ(markOf(kMiddle), ThemeColors::dark().surface);
    list->setSelection(1);
    EXPECT_EQ(markOf(kSmall), ThemeColors::dark().surface);
    EXPECT_EQ(markOf(kMiddle), ThemeColors::dark().accent);
}

TEST_F(ChoiceListTest, aRowIsDrawnAtItsSizes) {
    EXPECT_LE(difference(pictureOf(row(kSmall)), drawn(kSmall, true, false)), 1);
    EXPECT_LE(difference(pictureOf(row(kMiddle)), drawn(kMiddle, false, false)), 1);
    row(kMiddle).setAttribute(Qt::WA_UnderMouse);
    EXPECT_LE(difference(pictureOf(row(kMiddle)), drawn(kMiddle, false, true)), 1);
}

TEST_F(ChoiceListTest, eachRowHasItsSampleAtItsEnd) {
    list->drawSample = [](QPainter& painter, const QRectF& rectangle, std::size_t index) {
        const QRectF end(rectangle.right() - 10, 10, 10, 10);
        painter.fillRect(end, index == 2 ? Qt::red : Qt::green);
    };
    const auto endOf = [this](const QString& title) {
        return pictureOf(row(title)).pixelColor(300 - 8 - 5, 14);
    };
    EXPECT_EQ(endOf(kMiddle), QColor(Qt::green));
    EXPECT_EQ(endOf(kLarge), QColor(Qt::red));
}

}  // namespace
}  // namespace quillbar
