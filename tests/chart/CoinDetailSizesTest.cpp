// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/text/SystemFont.h"
#include "Quillbar/text/TabularText.h"
#include "tests/chart/CoinDetailFixture.h"
#include "tests/qtsupport/Ink.h"

#include <QFontMetricsF>
#include <QPainter>

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace quillbar {
namespace {

using Roles = ThemeColors::Resolved;

/// What a figure of the line between the ranges and the chart says.
struct Figure {
    QString label;
    QString value;
    QColor color;
};

struct CoinDetailSizesTest : CoinDetailFixture {
    /// The line between the ranges and the chart, drawn by the test.
    [[nodiscard]] static QImage summaryOf(const std::vector<Figure>& figures, double opacity = 1) {
        const QFont labelFont = systemFont(9.5);
        const QFont valueFont = systemFont(10.5);
        const QFontMetricsF metrics(valueFont);
        QImage image(400, 210, QImage::Format_ARGB32_Premultiplied);
        image.fill(ThemeColors::dark().surface);
        QPainter painter(&image);
        painter.setOpacity(opacity);
        double x = 12;
        for (const Figure& figure : figures) {
            painter.setFont(labelFont);
            painter.setPen(ThemeColors::dark().secondaryText);
            painter.drawText(QPointF(x, 36 + (18 + metrics.ascent() - metrics.descent()) / 2),
                             figure.label);
            x += QFontMetricsF(labelFont).horizontalAdvance(figure.label) + 4;
            const double width = TabularText::width(figure.value, valueFont);
            painter.setPen(figure.color);
            TabularText::draw(painter,
                              QRectF(x, 36, width, 18),
                              Qt::AlignLeft | Qt::AlignVCenter,
                              figure.value,
                              valueFont);
            x += width + 14;
        }
        return image.copy(kSummary);
    }
    [[nodiscard]] QImage seenSummary() const { return pictureOf(*view).copy(kSummary); }
    [[nodiscard]] QRect rangePlace(const QString& name) const {
        return {button(name)->mapTo(view.get(), QPoint()), button(name)->size()};
    }
    [[nodiscard]] QRect message() const { return view->findChild<QLabel*>()->geometry(); }

    static constexpr QRect kSummary{0, 32, 400, 27};
};

TEST_F(CoinDetailSizesTest, theChartIsOf140PointsBelowTheRangesAndTheSummary) {
    theExchangeHas({100, 110});
    show();
    EXPECT_EQ(view->height(), 210);
    EXPECT_EQ(chart().geometry(), QRect(12, 62, 376, 140));
    view->resize(500, CoinDetailView::kHeight);
    EXPECT_EQ(chart().geometry(), QRect(12, 62, 476, 140));
    EXPECT_EQ(view->height(), 210);
}

TEST_F(CoinDetailSizesTest, theRangesAreOfOneSizeAndTwoPointsApart) {
    show();
    EXPECT_EQ(rangePlace(kDay), QRect(12, 8, 36, 20));
    EXPECT_EQ(rangePlace(kWeek), QRect(12 + 38, 8, 36, 20));
    EXPECT_EQ(rangePlace(kMonth), QRect(12 + 76, 8, 36, 20));
}

TEST_F(CoinDetailSizesTest, theChosenRangeIsTintedAndSemibold) {
    show();
    const Roles& colors = ThemeColors::dark();
    const auto drawn = [&colors](const QString& title, bool isChosen, bool isHovered) {
        QImage image(36, 20, QImage::Format_ARGB32_Premultiplied);
        image.fill(colors.surface);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        QColor tint = isChosen ? colors.accent : colors.rowHover;
        if (isChosen) {
            tint.setAlphaF(0.16F);
        }
        painter.setPen(Qt::NoPen);
        if (isChosen || isHovered) {
            painter.setBrush(tint);
            painter.drawRoundedRect(QRect(0, 0, 36, 20), 4, 4);
        }
        painter.setFont(systemFont(10.5, isChosen ? QFont::DemiBold : QFont::Normal));
        painter.setPen(isChosen ? colors.accent : colors.secondaryText);
        painter.drawText(QRect(0, 0, 36, 20), Qt::AlignCenter, title);
        return image;
    };
    EXPECT_EQ(pictureOf(*button(kDay)), drawn(QStringLiteral("1D"), true, false));
    EXPECT_EQ(pictureOf(*button(kWeek)), drawn(QStringLiteral("1W"), false, false));
    button(kWeek)->setAttribute(Qt::WA_UnderMouse);
    EXPECT_EQ(pictureOf(*button(kWeek)), drawn(QStringLiteral("1W"), false, true));
}

TEST_F(CoinDetailSizesTest, theSummaryIsLabelsOf9Point5BeforeValuesOf10Point5) {
    const Roles& colors = ThemeColors::dark();
    theExchangeHas({66'800, 68'000, 67'234.5});
    show();
    const Figure high{QStringLiteral("高"), QStringLiteral("68,000.00"), colors.primaryText};
    const Figure low{QStringLiteral("低"), QStringLiteral("66,800.00"), colors.primaryText};
    EXPECT_EQ(
        seenSummary(),
        summaryOf({{QStringLiteral("区间"), QStringLiteral("+0.65%"), colors.up}, high, low}));
}

TEST_F(CoinDetailSizesTest, theChangeHasTheColourOfItsDirection) {
    const Roles& colors = ThemeColors::dark();
    const Figure high{QStringLiteral("高"), QStringLiteral("100.00"), colors.primaryText};
    theExchangeHas({100, 90});
    show();
    EXPECT_EQ(seenSummary(),
              summaryOf({{QStringLiteral("区间"), QStringLiteral("-10.00%"), colors.down},
                         high,
                         {QStringLiteral("低"), QStringLiteral("90.00"), colors.primaryText}}));
    theExchangeHas({100, 100});
    choose(ChartRange::week);
    EXPECT_EQ(seenSummary(),
              summaryOf({{QStringLiteral("区间"), QStringLiteral("0.00%"), colors.secondaryText},
                         high,
                         {QStringLiteral("低"), QStringLiteral("100.00"), colors.primaryText}}));
}

TEST_F(CoinDetailSizesTest, aRangeWithoutAChangeBeginsWithItsHigh) {
    const Roles& colors = ThemeColors::dark();
    theExchangeHas({0, 5});
    show();
    EXPECT_EQ(seenSummary(),
              summaryOf({{QStringLiteral("高"), QStringLiteral("5.00"), colors.primaryText},
                         {QStringLiteral("低"), QStringLiteral("0"), colors.primaryText}}));
}

TEST_F(CoinDetailSizesTest, theFirstLoadTurnsInTheMiddleOfTheChart) {
    const auto held = api.klinesAnswers.held();
    show();
    EXPECT_EQ(spinner().size(), QSize(16, 16));
    EXPECT_NEAR(spinner().geometry().center().x(), 200, 1);
    EXPECT_NEAR(spinner().geometry().center().y(), 62 + 70, 1);
    view->resize(500, CoinDetailView::kHeight);
    EXPECT_NEAR(spinner().geometry().center().x(), 250, 1);
}

TEST_F(CoinDetailSizesTest, aLoadOfAnotherRangeTurnsAtTheRightOfTheRanges) {
    theExchangeHas({100, 110});
    show();
    const auto held = api.klinesAnswers.held();
    choose(ChartRange::week);
    EXPECT_EQ(spinner().geometry().right() + 1, 400 - 12);
    EXPECT_NEAR(spinner().geometry().center().y(), 8 + 10, 1);
}

TEST_F(CoinDetailSizesTest, theFirstFailureStandsInTheMiddleOfTheChart) {
    theExchangeFails();
    show();
    const QRect retry = button(kRetry)->geometry();
    EXPECT_EQ(retry.left(), message().right() + 1 + 6);
    EXPECT_NEAR((message().left() + retry.right()) / 2.0, 200, 1);
    EXPECT_NEAR(message().center().y(), 62 + 70, 1);
    EXPECT_NEAR(retry.center().y(), 62 + 70, 1);
    EXPECT_EQ(view->findChild<QLabel*>()->font(), systemFont(10.5));
}

TEST_F(CoinDetailSizesTest, theFailureOfAnotherRangeStandsAtTheRightOfTheRanges) {
    theExchangeHas({100, 110});
    show();
    theExchangeFails();
    choose(ChartRange::week);
    const QRect retry = button(kRetry)->geometry();
    EXPECT_EQ(retry.right() + 1, 400 - 12);
    EXPECT_EQ(retry.left(), message().right() + 1 + 6);
    EXPECT_NEAR(message().center().y(), 8 + 10, 1);
    EXPECT_NEAR(retry.center().y(), 8 + 10, 1);
    EXPECT_EQ(
        seenSummary(),
        summaryOf(
            {{QStringLiteral("区间"), QStringLiteral("+10.00%"), ThemeColors::dark().up},
             {QStringLiteral("高"), QStringLiteral("110.00"), ThemeColors::dark().primaryText},
             {QStringLiteral("低"), QStringLiteral("100.00"), ThemeColors::dark().primaryText}},
            0.35));
}

TEST_F(CoinDetailSizesTest, theMessageThatThereIsNoDataStandsInTheMiddle) {
    theExchangeHas({});
    show();
    EXPECT_NEAR(message().center().x(), 200, 1);
    EXPECT_NEAR(message().center().y(), 62 + 70, 1);
}

TEST_F(CoinDetailSizesTest, theButtonIsItsTextWithFourPointsAtItsSides) {
    theExchangeFails();
    show();
    const QFontMetricsF metrics(systemFont(10.5));
    EXPECT_EQ(button(kRetry)->width(), std::ceil(metrics.horizontalAdvance(kRetry)) + 8);
    EXPECT_EQ(button(kRetry)->height(), 20);
}

}  // namespace
}  // namespace quillbar
