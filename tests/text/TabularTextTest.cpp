// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/text/SystemFont.h"
#include "Quillbar/text/TabularText.h"

#include <QFontInfo>
#include <QFontMetricsF>
#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

#include <algorithm>
#include <string_view>

namespace quillbar {

namespace {

using namespace std::string_view_literals;

QFont font() {
    return systemFont(12);
}

/// The leftmost and rightmost inked columns of what is drawn.
struct Ink {
    int left = -1;
    int right = -1;
};

Ink inkOf(const QString& text, Qt::Alignment alignment) {
    QImage image(120, 30, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    TabularText::draw(painter, QRectF(10, 0, 100, 30), alignment, text, font());
    painter.end();
    Ink ink;
    for (int x = 0; x < image.width(); ++x) {
        for (int y = 0; y < image.height(); ++y) {
            if (image.pixelColor(x, y).lightness() < 200) {
                ink.left = ink.left < 0 ? x : ink.left;
                ink.right = x;
            }
        }
    }
    return ink;
}

TEST(TabularTextTest, textsThatDifferInDigitsAloneAreEquallyWide) {
    EXPECT_DOUBLE_EQ(TabularText::width(QStringLiteral("BTC 11,111.11 ▲ 1.11%"), font()),
                     TabularText::width(QStringLiteral("BTC 67,234.50 ▲ 8.88%"), font()));
    EXPECT_GT(TabularText::width(QStringLiteral("100.00"), font()),
              TabularText::width(QStringLiteral("10.00"), font()));
    EXPECT_DOUBLE_EQ(TabularText::width(QString(), font()), 0);
}

TEST(TabularTextTest, isNotNarrowerThanTheTextItself) {
    const QString text = QStringLiteral("67,234.50");
    EXPECT_GE(TabularText::width(text, font()) + 0.01,
              QFontMetricsF(font()).horizontalAdvance(text));
}

TEST(TabularTextTest, drawsAtTheSideItIsAlignedTo) {
    const QString text = QStringLiteral("8.88");
    const Ink left = inkOf(text, Qt::AlignLeft | Qt::AlignVCenter);
    const Ink centre = inkOf(text, Qt::AlignHCenter | Qt::AlignVCenter);
    const Ink right = inkOf(text, Qt::AlignRight | Qt::AlignVCenter);
    EXPECT_NEAR(left.left, 10, 2);
    EXPECT_NEAR(right.right, 110, 2);
    EXPECT_NEAR((centre.left + centre.right) / 2.0, 60, 2);
}

TEST(TabularTextTest, aTextWithoutDigitsIsDrawnAsAnyOtherAtEachHeight) {
    const QString text = QStringLiteral("HHgg");
    const QFontMetricsF metrics(font());
    struct Row {
        Qt::Alignment alignment;
        double baseline = 0;
    };
    for (const Row& row : {Row{Qt::AlignTop, 20 + metrics.ascent()},
                           Row{Qt::AlignVCenter, 40 + (metrics.ascent() - metrics.descent()) / 2},
                           Row{Qt::AlignBottom, 60 - metrics.descent()}}) {
        QImage image(120, 80, QImage::Format_RGB32);
        image.fill(Qt::white);
        QImage expected = image;
        {
            QPainter painter(&image);
            TabularText::draw(
                painter, QRectF(10, 20, 100, 40), Qt::AlignLeft | row.alignment, text, font());
            QPainter judge(&expected);
            judge.setFont(font());
            judge.drawText(QPointF(10, row.baseline), text);
        }
        EXPECT_EQ(image, expected) << static_cast<int>(row.alignment);
    }
}

TEST(TabularTextTest, eachDigitStandsInTheMiddleOfASlotAsWideAsTheWidest) {
    const QFontMetricsF metrics(font());
    double slot = 0;
    for (const char16_t digit : u"0123456789"sv) {
        slot = std::max(slot, metrics.horizontalAdvance(QChar(digit)));
    }
    EXPECT_DOUBLE_EQ(TabularText::width(QStringLiteral("1.1"), font()),
                     2 * slot + metrics.horizontalAdvance(u'.'));
    EXPECT_DOUBLE_EQ(TabularText::width(QStringLiteral("AB1CD"), font()),
                     metrics.horizontalAdvance(QStringLiteral("AB")) + slot
                         + metrics.horizontalAdvance(QStringLiteral("CD")));
    QImage image(120, 30, QImage::Format_RGB32);
    image.fill(Qt::white);
    QImage expected = image;
    {
        QPainter painter(&image);
        TabularText::draw(painter,
                          QRectF(10, 0, 100, 30),
                          Qt::AlignLeft | Qt::AlignTop,
                          QStringLiteral("19AV"),
                          font());
        QPainter judge(&expected);
        judge.setFont(font());
        const double one = (slot - metrics.horizontalAdvance(u'1')) / 2;
        const double nine = (slot - metrics.horizontalAdvance(u'9')) / 2;
        judge.drawText(QPointF(10 + one, metrics.ascent()), QStringLiteral("1"));
        judge.drawText(QPointF(10 + slot + nine, metrics.ascent()), QStringLiteral("9"));
        judge.drawText(QPointF(10 + 2 * slot, metrics.ascent()), QStringLiteral("AV"));
    }
    EXPECT_EQ(image, expected);
}

TEST(TabularTextTest, aDigitThatChangesMovesNoOther) {
    const auto end = inkOf(QStringLiteral("1.18"), Qt::AlignLeft | Qt::AlignVCenter).right;
    EXPECT_EQ(inkOf(QStringLiteral("7.78"), Qt::AlignLeft | Qt::AlignVCenter).right, end);
}

TEST(SystemFontTest, isAsManyPixelsAsItIsAskedPoints) {
    EXPECT_NEAR(QFontInfo(systemFont(10)).pixelSize(), 10, 0.5);
    EXPECT_NEAR(systemFont(10.5).pointSizeF() / systemFont(21).pointSizeF(), 0.5, 1e-9);
    EXPECT_EQ(systemFont(13, QFont::DemiBold).weight(), QFont::DemiBold);
}

}  // namespace

}  // namespace quillbar
