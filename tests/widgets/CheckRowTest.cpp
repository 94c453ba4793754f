// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/text/SystemFont.h"
#include "Quillbar/widgets/CheckRow.h"
#include "Quillbar/widgets/Glyphs.h"
#include "Quillbar/widgets/Theme.h"
#include "tests/qtsupport/Ink.h"
#include "tests/qtsupport/PaintCount.h"
#include "tests/qtsupport/SpinUntil.h"
#include "tests/qtsupport/Widgets.h"

#include <QAccessible>
#include <QAccessibleInterface>
#include <QFontMetrics>
#include <QImage>
#include <QPainter>
#include <QPen>
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

    /// The row as it should look with two texts, each in one line.
    [[nodiscard]] QImage drawn(const QString& title,
                               const QString& details,
                               bool isChecked,
                               bool isHovered) const {
        const ThemeColors::Resolved& colors = ThemeColors::dark();
        QImage image(row->size(), QImage::Format_ARGB32_Premultiplied);
        image.fill(colors.surface);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        if (isHovered) {
            painter.setPen(Qt::NoPen);
            painter.setBrush(colors.rowHover);
            painter.drawRoundedRect(image.rect(), 4, 4);
        }
        const auto heightOf = [](const QString& text, double size) {
            return QFontMetrics(systemFont(size))
                .boundingRect(QRect(0, 0, 300 - 29 - 8, 200), Qt::TextWordWrap, text)
                .height();
        };
        const int titleHeight = heightOf(title, 12);
        const int detailsHeight = details.isEmpty() ? 0 : heightOf(details, 10.5);
        const int top = (row->height() - titleHeight - detailsHeight) / 2;
        const double middle = top + QFontMetrics(systemFont(12)).height() / 2.0;
        const QRectF box(8, middle - 6.5, 13, 13);
        painter.setPen(QPen(isChecked ? colors.accent : colors.secondaryText, 1.5));
        painter.setBrush(isChecked ? QBrush(colors.accent) : QBrush(Qt::NoBrush));
        painter.drawRoundedRect(box.adjusted(0.75, 0.75, -0.75, -0.75), 3, 3);
        if (isChecked) {
            drawGlyph(
                painter, Glyph::checkmark, box.adjusted(2.5, 2.5, -2.5, -2.5), colors.surface);
        }
        painter.setFont(systemFont(12));
        painter.setPen(colors.primaryText);
        painter.drawText(QRect(29, top, 300 - 29 - 8, titleHeight), 0, title);
        painter.setFont(systemFont(10.5));
        painter.setPen(colors.secondaryText);
        painter.drawText(QRect(29, top + titleHeight, 300 - 29 - 8, detailsHeight), 0, details);
        return image;
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

TEST_F(CheckRowTest, isAsHighAsItsLinesAndTenPointsMore) {
    const QString title = QStringLiteral("提示音");
    const QString details = QStringLiteral("响一声");
    const QRect unlimited(0, 0, 1000, 1000);
    const auto heightOf = [&](const QString& text, double size) {
        return QFontMetrics(systemFont(size)).boundingRect(unlimited, 0, text).height();
    };
    row->setTexts(title, details);
    EXPECT_EQ(row->heightForWidth(300), heightOf(title, 12) + heightOf(details, 10.5) + 2 * 5);
    EXPECT_EQ(row->heightForWidth(row->sizeHint().width()), row->heightForWidth(300));
    EXPECT_EQ(row->sizeHint().width(),
              29 + QFontMetrics(systemFont(12)).horizontalAdvance(title) + 8);
    EXPECT_GT(row->heightForWidth(row->sizeHint().width() - 8), row->heightForWidth(300));
}

TEST_F(CheckRowTest, growsWithTheTextSizeAndWrapsAtTheSamePlace) {
    row->setTexts(QStringLiteral("提示音"), QString(60, u'长'));
    const int before = row->heightForWidth(300);
    const int oneLine = row->sizeHint().width();
    ThemeKey::set(window, {.colors = ThemeColors::dark(), .scale = 1.3});
    EXPECT_NEAR(row->heightForWidth(390), before * 1.3, 0.5);
    EXPECT_NEAR(row->sizeHint().width(), oneLine * 1.3, 1);
    row->setTexts(QStringLiteral("提示音"), QString());
    EXPECT_EQ(row->heightForWidth(390), 36);
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

TEST_F(CheckRowTest, isDrawnAtItsSizes) {
    const QString title = QStringLiteral("提示音");
    const QString details = QStringLiteral("响一声");
    row->clearFocus();
    EXPECT_LE(difference(pictureOf(*row), drawn(title, {}, false, false)), 1);
    row->setTexts(title, details);
    row->setChecked(true);
    row->resize(300, row->heightForWidth(300));
    EXPECT_LE(difference(pictureOf(*row), drawn(title, details, true, false)), 1);
    row->setAttribute(Qt::WA_UnderMouse);
    EXPECT_LE(difference(pictureOf(*row), drawn(title, details, true, true)), 1);
}

TEST_F(CheckRowTest, isPaintedWhenItsTextsChange) {
    const auto change = [this](const QString& details) {
        return paintsOf(*row, [&] { row->setTexts(QStringLiteral("提示音"), details); });
    };
    EXPECT_EQ(change({}), 0);
    EXPECT_GE(change(QStringLiteral("响一声")), 1);
    EXPECT_GE(change(QStringLiteral("响两声")), 1);
    EXPECT_EQ(change(QStringLiteral("响两声")), 0);
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
