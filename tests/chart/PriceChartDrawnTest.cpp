// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/chart/ChartPicture.h"
#include "Quillbar/chart/PriceChart.h"
#include "Quillbar/text/SystemFont.h"
#include "Quillbar/text/TabularText.h"
#include "tests/chart/Candles.h"
#include "tests/model/Instants.h"
#include "tests/qtsupport/Ink.h"
#include "tests/qtsupport/PaintCount.h"
#include "tests/qtsupport/Widgets.h"

#include <QFontMetricsF>
#include <QLocale>
#include <QMouseEvent>
#include <QPen>
#include <QTest>
#include <QWindow>

#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <vector>

namespace quillbar {
namespace {

using std::chrono::hours;

const TimePoint kNoon = utcInstant(2026, 11, 14, 12);
const QLocale kChinese(QLocale::Chinese, QLocale::China);

/// A chart alone in a window, on a transparent ground, beside the layout that it follows.
struct PriceChartDrawnTest : testing::Test {
    PriceChartDrawnTest() {
        chart.setLocale(kChinese);
        chart.resize(376, 140);
    }

    void show(const std::vector<Candle>& candles) {
        chart.setCandles(candles);
        chart.show();
        layout = ChartLayout::of({
            .candles = chart.candles(),
            .size = QSizeF(376, 140),
            .text = {.width =
                         [this](const QString& text) { return TabularText::width(text, font); },
                     .height = QFontMetricsF(font).height()},
            .calendar = Calendar::utc(),
            .locale = kChinese,
        });
    }
    void showThree() { show(candlesThrough({100, 110, 105}, kNoon, hours(1))); }

    [[nodiscard]] QImage picture() {
        QImage image(chart.size(), QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        chart.render(&image, {}, {}, QWidget::DrawChildren);
        return image;
    }
    /// All but the crosshair, on a screen of that scale.
    [[nodiscard]] QImage still(double scale) const { return still(scale, chart.rect()); }
    /// A part of it.
    [[nodiscard]] QImage still(double scale, const QRectF& part) const {
        QImage image((part.size() * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
        image.setDevicePixelRatio(scale);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        painter.translate(-part.topLeft());
        painter.setRenderHint(QPainter::Antialiasing);
        ChartPicture::paint(painter, layout, colors.up, colors);
        return image;
    }
    void pointAt(QPointF place) {
        QMouseEvent event(QEvent::MouseMove,
                          place,
                          chart.mapToGlobal(place),
                          Qt::NoButton,
                          Qt::NoButton,
                          Qt::NoModifier);
        QCoreApplication::sendEvent(&chart, &event);
    }
    /// How much is covered by ink in a part of the picture, in pixels.
    [[nodiscard]] static double area(const QImage& image, const QRect& part) {
        double sum = 0;
        for (int y = part.top(); y <= part.bottom(); ++y) {
            for (int x = part.left(); x <= part.right(); ++x) {
                sum += image.pixelColor(x, y).alphaF();
            }
        }
        return sum;
    }

    QFont font = systemFont(9.5);
    PriceChart chart{Calendar::utc()};
    ChartLayout layout;
    ThemeColors::Resolved colors = ThemeColors::dark();
};

TEST_F(PriceChartDrawnTest, theGridIsOfHalfAPointAtItsPlaces) {
    show(candlesThrough({100, 110}, kNoon, hours(1)));
    const QImage image = picture();
    // White at 0.08, half a pixel high.
    constexpr int kHalf = 10;
    const QRectF plot = layout.plot;
    ASSERT_FALSE(layout.priceGrid.empty());
    // The line rises from the lower left, so the upper left shows the grid alone.
    const int column = static_cast<int>(plot.left()) + 5;
    std::vector<int> rows;
    for (int y = static_cast<int>(plot.top()); y < plot.center().y(); ++y) {
        if (image.pixelColor(column, y).alpha() != 0) {
            EXPECT_NEAR(image.pixelColor(column, y).alpha(), kHalf, 1);
            rows.push_back(y);
        }
    }
    std::vector<int> expected;
    for (const double y : layout.priceGrid) {
        if (std::floor(y) < plot.center().y()) {
            expected.insert(expected.begin(), static_cast<int>(std::floor(y)));
        }
    }
    EXPECT_EQ(rows, expected);
}

TEST_F(PriceChartDrawnTest, theLinesOfTheTimesGoFromTheTopOfThePlotToItsBottom) {
    show(waves(24, 100, 110, kNoon, hours(1)));
    const QImage image = picture();
    ASSERT_FALSE(layout.timeGrid.empty());
    const auto isDrawn = [&image](double x, int y) {
        return image.pixelColor(static_cast<int>(std::floor(x)), y).alpha() > 4;
    };
    const int above = static_cast<int>(layout.plot.top()) - 2;
    const int below = static_cast<int>(layout.plot.bottom()) + 1;
    for (const double x : layout.timeGrid) {
        EXPECT_TRUE(isDrawn(x, above + 3));
        EXPECT_TRUE(isDrawn(x, below - 3));
        EXPECT_FALSE(isDrawn(x, above));
    }
}

TEST_F(PriceChartDrawnTest, pricesAndTimesAreWrittenAt9Point5BesideThePlot) {
    showThree();
    QImage expected(chart.size(), QImage::Format_ARGB32_Premultiplied);
    expected.fill(Qt::transparent);
    {
        QPainter painter(&expected);
        painter.setPen(colors.secondaryText);
        // The tag covers the label of the price that is the last one.
        for (const auto& label : layout.priceLabels) {
            if (!label.rectangle.intersects(layout.lastPrice->rectangle)) {
                TabularText::draw(painter, label.rectangle, Qt::AlignVCenter, label.text, font);
            }
        }
        for (const auto& label : layout.timeLabels) {
            TabularText::draw(painter, label.rectangle, Qt::AlignVCenter, label.text, font);
        }
        // In the colour of the line, its text cut out in that of the ground.
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(colors.up);
        painter.drawRoundedRect(layout.lastPrice->rectangle, 3, 3);
        painter.setPen(colors.surface);
        TabularText::draw(
            painter, layout.lastPrice->rectangle, Qt::AlignCenter, QStringLiteral("105.00"), font);
    }
    const QRect beside(static_cast<int>(layout.plot.right()) + 4, 0, 80, 140);
    const QRect below(0, static_cast<int>(layout.plot.bottom()) + 2, 376, 40);
    ASSERT_FALSE(boundsOfInk(expected.copy(beside)).isEmpty());
    ASSERT_FALSE(boundsOfInk(expected.copy(below)).isEmpty());
    EXPECT_EQ(picture().copy(beside), expected.copy(beside));
    EXPECT_EQ(picture().copy(below), expected.copy(below));
}

TEST_F(PriceChartDrawnTest, theHighestAndTheLowestAreHollowAndOf18SquarePoints) {
    // Both at the close, where the line ends at the ring.
    show(candlesThrough({100, 110, 90, 100}, kNoon, hours(1)));
    constexpr int kScale = 32;
    constexpr int kReach = 4;
    const double radius = std::sqrt(18 / 3.14159265358979);
    for (const auto& ring : {layout.high, layout.low}) {
        ASSERT_TRUE(ring.has_value());
        const QImage image =
            still(kScale, QRectF(*ring - QPointF(kReach, kReach), QSizeF(2 * kReach, 2 * kReach)));
        constexpr int kMiddle = kReach * kScale;
        EXPECT_EQ(image.pixelColor(kMiddle, kMiddle).alpha(), 0) << "the ground shows through";
        // Left and right, where neither the line nor the grid goes.
        for (const bool isToTheRight : {false, true}) {
            std::vector<int> covered;
            for (int distance = 0; distance < kMiddle; ++distance) {
                const int x = isToTheRight ? kMiddle + distance : kMiddle - 1 - distance;
                if (image.pixelColor(x, kMiddle).alpha() > 127) {
                    covered.push_back(distance);
                }
            }
            ASSERT_FALSE(covered.empty());
            constexpr double kPixel = 1.0 / kScale;
            EXPECT_NEAR(covered.front() * kPixel, radius - 1.1, kPixel);
            EXPECT_NEAR((covered.back() + 1) * kPixel, radius, kPixel);
        }
    }
}

TEST_F(PriceChartDrawnTest, aStemJoinsAnExtremeToTheLine) {
    auto candles = candlesThrough({100, 100, 100, 100}, kNoon, hours(1));
    candles[1].high = 110;
    candles[2].low = 90;
    show(candles);
    const QImage image = still(4);
    for (const auto& [ring, point] : {std::pair{layout.high, 1U}, std::pair{layout.low, 2U}}) {
        const QPointF middle = (*ring + layout.points.at(point).position) / 2;
        EXPECT_EQ(image.pixelColor((middle * 4).toPoint()).alpha(), 255);
        EXPECT_LT(image.pixelColor(((middle + QPointF(2, 0)) * 4).toPoint()).alpha(), 60);
    }
}

TEST_F(PriceChartDrawnTest, theLastPriceIsADashedLineAcrossThePlot) {
    // Far from the first candle, the line has fallen off from that height.
    show(candlesThrough({100, 100, 100, 110}, kNoon, hours(1)));
    const QImage image = picture();
    const int row = static_cast<int>(layout.points.back().position.y());
    int dashes = 0;
    int gaps = 0;
    for (int x = 5; x < 200; ++x) {
        const int alpha = image.pixelColor(x, row).alpha();
        dashes += alpha > 120 ? 1 : 0;
        gaps += alpha < 40 ? 1 : 0;
    }
    EXPECT_NEAR(dashes, 98, 20);
    EXPECT_NEAR(gaps, 98, 20);
    EXPECT_LT(image.pixelColor(static_cast<int>(layout.plot.right()) + 3, row).alpha(), 40);
}

TEST_F(PriceChartDrawnTest, theLineIsOneAndAHalfPointsWide) {
    auto candles = candlesThrough({100, 100, 100, 100}, kNoon, hours(1));
    candles[1].high = 110;
    candles[2].low = 90;
    show(candles);
    const QImage image = picture();
    const double y = layout.points.at(0).position.y();
    // Between two candles, and above the area.
    const int x = static_cast<int>(layout.points.at(0).position.x()) + 20;
    double width = 0;
    for (int row = static_cast<int>(y) - 3; row <= static_cast<int>(y) + 2; ++row) {
        const double alpha = image.pixelColor(x, row).alphaF();
        width += alpha > 0.2 ? alpha : 0;
    }
    // The area shows through the line's lower edge.
    EXPECT_NEAR(width, 1.5, 0.2);
}

TEST_F(PriceChartDrawnTest, theCrosshairIsALineADotAndWhatItReads) {
    showThree();
    const QRectF plot = layout.plot;
    // The second is at the top of the plot, so its reading is below; the third is so far to the
    // right that its reading has to keep clear of the prices.
    struct Row {
        std::size_t point;
        const char* time;
        const char* price;
        const char* change;
        double left;
        bool isAtTheTop;
    };
    const double height = QFontMetricsF(font).height() + 4;
    const auto widthOf = [this](const char* time, const char* price, const char* change) {
        return 5 + TabularText::width(QString::fromUtf8(time), font) + 6
               + TabularText::width(QString::fromUtf8(price), font) + 6
               + TabularText::width(QString::fromUtf8(change), font) + 5;
    };
    const double middle = layout.points.at(1).position.x();
    for (const Row& row : {Row{0, "11/14 12:00", "100.00", "0.00%", 0, true},
                           Row{1,
                               "11/14 13:00",
                               "110.00",
                               "+10.00%",
                               middle - widthOf("11/14 13:00", "110.00", "+10.00%") / 2,
                               false},
                           Row{2,
                               "11/14 14:00",
                               "105.00",
                               "+5.00%",
                               plot.right() - widthOf("11/14 14:00", "105.00", "+5.00%"),
                               layout.points.at(2).position.y() > plot.center().y()}}) {
        SCOPED_TRACE(row.time);
        QEvent leave(QEvent::Leave);
        QCoreApplication::sendEvent(&chart, &leave);
        QImage expected = picture();
        const QPointF at = layout.points.at(row.point).position;
        const QString time = QString::fromUtf8(row.time);
        const QString price = QString::fromUtf8(row.price);
        {
            QPainter painter(&expected);
            painter.setRenderHint(QPainter::Antialiasing);
            QColor line = colors.secondaryText;
            line.setAlphaF(0.5F);
            painter.fillRect(QRectF(at.x() - 0.5, plot.top(), 1, plot.height()), line);
            // A halo and a dot, which leave the line as it is.
            QColor halo = colors.up;
            halo.setAlphaF(0.25F);
            painter.setPen(Qt::NoPen);
            painter.setBrush(halo);
            painter.drawEllipse(at, 7, 7);
            painter.setBrush(colors.up);
            painter.drawEllipse(at, 4, 4);
            const QRectF bubble(row.left,
                                row.isAtTheTop ? plot.top() : plot.bottom() - height,
                                widthOf(row.time, row.price, row.change),
                                height);
            painter.setPen(QPen(colors.separator, 1));
            painter.setBrush(colors.surface);
            painter.drawRoundedRect(bubble.adjusted(0.5, 0.5, -0.5, -0.5), 4, 4);
            QRectF text = bubble.adjusted(5, 0, -5, 0);
            painter.setPen(colors.secondaryText);
            TabularText::draw(painter, text, Qt::AlignLeft | Qt::AlignVCenter, time, font);
            text.setLeft(text.left() + TabularText::width(time, font) + 6);
            painter.setPen(colors.primaryText);
            TabularText::draw(painter, text, Qt::AlignLeft | Qt::AlignVCenter, price, font);
            painter.setPen(row.point == 0 ? colors.secondaryText : colors.up);
            TabularText::draw(painter,
                              text,
                              Qt::AlignRight | Qt::AlignVCenter,
                              QString::fromUtf8(row.change),
                              font);
        }
        pointAt({at.x(), 70});
        EXPECT_LE(difference(picture(), expected), 1);
    }
}

TEST_F(PriceChartDrawnTest, theRingOfTheFocusGoesAroundThePlotThreePointsOff) {
    showThree();
    showActive(chart);
    chart.clearFocus();
    QImage expected = picture();
    {
        const QRectF around(layout.plot.left() - 3,
                            layout.plot.top() - 3,
                            layout.plot.width() + 6,
                            layout.plot.height() + 6);
        QPainter painter(&expected);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(colors.accent, 1.5));
        painter.drawRoundedRect(around.adjusted(0.75, 0.75, -0.75, -0.75), 4, 4);
    }
    chart.setFocus(Qt::TabFocusReason);
    EXPECT_EQ(picture(), expected);
}

TEST_F(PriceChartDrawnTest, isPaintedWhenWhatItShowsGrowsOldOrIsReadElsewhere) {
    showThree();
    ASSERT_TRUE(spinUntil([this] { return chart.windowHandle()->isExposed(); }));
    for (const bool isOutdated : {true, false}) {
        EXPECT_EQ(paintsOf(chart, [&] { chart.setOutdated(isOutdated); }), 1);
        EXPECT_EQ(paintsOf(chart, [&] { chart.setOutdated(isOutdated); }), 0);
    }
    const double x = layout.points.at(1).position.x();
    EXPECT_EQ(paintsOf(chart, [&] { pointAt({x, 70}); }), 1);
    EXPECT_EQ(paintsOf(chart, [&] { pointAt({x, 60}); }), 0);
    EXPECT_EQ(paintsOf(chart, [&] { chart.setCandles({}); }), 1);
}

TEST_F(PriceChartDrawnTest, isDrawnAnewInAnotherLocale) {
    show(waves(24, 100, 110, kNoon, hours(1)));
    const QImage chinese = picture();
    chart.setLocale(QLocale(QLocale::German, QLocale::Germany));
    EXPECT_NE(picture(), chinese) << "the day is written as it is there";
    chart.setLocale(kChinese);
    EXPECT_EQ(picture(), chinese);
}

TEST_F(PriceChartDrawnTest, isDrawnAnewInAnotherSize) {
    showThree();
    const QImage wide = picture();
    chart.resize(300, 140);
    EXPECT_NE(picture(), wide.copy(0, 0, 300, 140));
    chart.resize(376, 140);
    EXPECT_EQ(picture(), wide);
}

}  // namespace
}  // namespace quillbar
