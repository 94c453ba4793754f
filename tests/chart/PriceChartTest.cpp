// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/chart/PriceChart.h"
#include "tests/chart/Candles.h"
#include "tests/model/Instants.h"
#include "tests/qtsupport/SpinUntil.h"
#include "tests/qtsupport/Widgets.h"

#include <QAccessible>
#include <QLocale>
#include <QMouseEvent>
#include <QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <vector>

namespace quillbar {
namespace {

using std::chrono::hours;

const TimePoint kNoon = utcInstant(2026, 11, 14, 12);

/// A chart alone in a window, 376 points wide, on a transparent ground.
struct PriceChartTest : testing::Test {
    void SetUp() override {
        chart.setLocale(QLocale(QLocale::Chinese, QLocale::China));
        chart.resize(376, 140);
        chart.setCandles(candlesThrough({100, 110, 105}, kNoon, hours(1)));
        chart.show();
    }

    // Sent, not moved there: the pointer of the machine may be there already.
    static void pointAt(QWidget& widget, double x) {
        const QPointF place(x, 70);
        QMouseEvent event(QEvent::MouseMove,
                          place,
                          widget.mapToGlobal(place),
                          Qt::NoButton,
                          Qt::NoButton,
                          Qt::NoModifier);
        QCoreApplication::sendEvent(&widget, &event);
    }
    void pointAt(double x) { pointAt(chart, x); }
    void leave() {
        QEvent event(QEvent::Leave);
        QCoreApplication::sendEvent(&chart, &event);
    }
    void press(Qt::Key key) { QTest::keyClick(&chart, key); }

    [[nodiscard]] QImage picture() {
        QImage image(chart.size(), QImage::Format_ARGB32);
        image.fill(Qt::transparent);
        chart.render(&image, {}, {}, QWidget::DrawChildren);
        return image;
    }
    /// How many pixels have this colour, whatever their opacity.
    [[nodiscard]] int pixelsOf(const QColor& color) {
        const QImage image = picture();
        int count = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const QColor pixel = image.pixelColor(x, y);
                count += pixel.alpha() > 200 && std::abs(pixel.red() - color.red()) < 6
                                 && std::abs(pixel.green() - color.green()) < 6
                                 && std::abs(pixel.blue() - color.blue()) < 6
                             ? 1
                             : 0;
            }
        }
        return count;
    }

    PriceChart chart{Calendar::utc()};
};

TEST_F(PriceChartTest, drawsARiseInTheColourOfRising) {
    EXPECT_GT(pixelsOf(ThemeColors::dark().up), 300);
    EXPECT_EQ(pixelsOf(ThemeColors::dark().down), 0);
}

TEST_F(PriceChartTest, drawsAFallInTheColourOfFalling) {
    chart.setCandles(candlesThrough({110, 100, 105}, kNoon, hours(1)));
    EXPECT_GT(pixelsOf(ThemeColors::dark().down), 300);
    EXPECT_EQ(pixelsOf(ThemeColors::dark().up), 0);
}

TEST_F(PriceChartTest, choosesItsColourByTheChange) {
    const ThemeColors::Resolved& colors = ThemeColors::light();
    EXPECT_EQ(PriceChart::lineColor({1, 1, 0.001, 1, 1}, colors), colors.up);
    EXPECT_EQ(PriceChart::lineColor({1, 1, -0.001, 1, 1}, colors), colors.down);
    EXPECT_EQ(PriceChart::lineColor({1, 1, 0, 1, 1}, colors), colors.accent);
    EXPECT_EQ(PriceChart::lineColor({1, 1, std::nullopt, 1, 1}, colors), colors.accent);
}

TEST_F(PriceChartTest, followsTheTheme) {
    ThemeKey::set(chart, {.colors = ThemeColors::light()});
    EXPECT_GT(pixelsOf(ThemeColors::light().up), 300);
    EXPECT_EQ(pixelsOf(ThemeColors::dark().up), 0);
}

TEST_F(PriceChartTest, fadesTheAreaFromTheLineDownToNothing) {
    chart.setCandles(candlesThrough({100, 110, 100, 110, 101}, kNoon, hours(1)));
    const QImage image = picture();
    // Below the second candle's peak, beside the grid.
    const int x = 3 + (376 - 60) / 4 - 2;
    const int high = image.pixelColor(x, 30).alpha();
    const int middle = image.pixelColor(x, 70).alpha();
    const int low = image.pixelColor(x, 115).alpha();
    EXPECT_LE(high, 46);
    EXPECT_GT(high, middle);
    EXPECT_GT(middle, low);
    EXPECT_LE(low, 8);
}

TEST_F(PriceChartTest, readsTheCandleNearestToThePointer) {
    EXPECT_TRUE(chart.hasMouseTracking());
    EXPECT_EQ(chart.reading(), QString());
    pointAt(5);
    EXPECT_EQ(chart.reading(), QStringLiteral("11/14 12:00  100.00  0.00%"));
    pointAt(160);
    EXPECT_EQ(chart.reading(), QStringLiteral("11/14 13:00  110.00  +10.00%"));
    pointAt(370);
    EXPECT_EQ(chart.reading(), QStringLiteral("11/14 14:00  105.00  +5.00%"));
}

TEST_F(PriceChartTest, losesTheCrosshairWithThePointer) {
    const QImage without = picture();
    pointAt(160);
    EXPECT_NE(picture(), without);
    leave();
    EXPECT_EQ(chart.reading(), QString());
    EXPECT_EQ(picture(), without);
}

TEST_F(PriceChartTest, readsInTheCalendarsZone) {
    PriceChart shanghai(Calendar::fixed("Asia/Shanghai"));
    shanghai.setLocale(QLocale(QLocale::German, QLocale::Germany));
    shanghai.resize(376, 140);
    shanghai.setCandles(candlesThrough({100}, kNoon + hours(6), hours(1)));
    shanghai.show();
    pointAt(shanghai, 160);
    EXPECT_EQ(shanghai.reading(), QStringLiteral("15.11. 02:00  100.00  0.00%"));
}

TEST_F(PriceChartTest, writesTimesAsThePanelsLanguageDoes) {
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    PriceChart american(Calendar::fixed("UTC"));
    american.resize(376, 140);
    american.setCandles(candlesThrough({100}, kNoon + hours(6), hours(1)));
    american.show();
    pointAt(american, 160);
    EXPECT_EQ(american.reading(), QStringLiteral("11/14 18:00  100.00  0.00%"));
    QLocale::setDefault(before);
}

TEST_F(PriceChartTest, readsFromCandleToCandleByTheArrowKeys) {
    press(Qt::Key_Left);
    EXPECT_EQ(chart.reading(), QStringLiteral("11/14 14:00  105.00  +5.00%"));
    press(Qt::Key_Left);
    EXPECT_EQ(chart.reading(), QStringLiteral("11/14 13:00  110.00  +10.00%"));
    press(Qt::Key_Home);
    press(Qt::Key_Left);
    EXPECT_EQ(chart.reading(), QStringLiteral("11/14 12:00  100.00  0.00%"));
    press(Qt::Key_Right);
    EXPECT_EQ(chart.reading(), QStringLiteral("11/14 13:00  110.00  +10.00%"));
    press(Qt::Key_End);
    press(Qt::Key_Right);
    EXPECT_EQ(chart.reading(), QStringLiteral("11/14 14:00  105.00  +5.00%"));
}

TEST_F(PriceChartTest, beginsAtTheEndWithEitherArrow) {
    press(Qt::Key_Right);
    EXPECT_EQ(chart.reading(), QStringLiteral("11/14 14:00  105.00  +5.00%"));
}

TEST_F(PriceChartTest, losesTheCrosshairOfTheKeysWithTheFocus) {
    showActive(chart);
    chart.setFocus(Qt::TabFocusReason);
    press(Qt::Key_Left);
    leave();
    EXPECT_EQ(chart.reading(), QStringLiteral("11/14 14:00  105.00  +5.00%"));
    chart.clearFocus();
    EXPECT_EQ(chart.reading(), QString());
}

TEST_F(PriceChartTest, keepsTheCrosshairOfThePointerWithoutTheFocus) {
    showActive(chart);
    chart.setFocus(Qt::TabFocusReason);
    pointAt(160);
    chart.clearFocus();
    EXPECT_EQ(chart.reading(), QStringLiteral("11/14 13:00  110.00  +10.00%"));
}

TEST_F(PriceChartTest, goesOnByTheKeysFromWhereThePointerIs) {
    pointAt(160);
    press(Qt::Key_Right);
    EXPECT_EQ(chart.reading(), QStringLiteral("11/14 14:00  105.00  +5.00%"));
    pointAt(161);
    EXPECT_EQ(chart.reading(), QStringLiteral("11/14 13:00  110.00  +10.00%"));
    leave();
    EXPECT_EQ(chart.reading(), QString());
}

TEST_F(PriceChartTest, leavesOtherKeysToItsParents) {
    struct Parent final : QWidget {
        void keyPressEvent(QKeyEvent* event) override { keys.push_back(event->key()); }
        std::vector<int> keys;
    };
    Parent parent;
    auto* const child = new PriceChart(Calendar::utc(), &parent);
    parent.show();
    QTest::keyClick(child, Qt::Key_Escape);
    QTest::keyClick(child, Qt::Key_Up);
    // Without candles there is nothing to go through.
    QTest::keyClick(child, Qt::Key_Left);
    EXPECT_THAT(parent.keys, testing::ElementsAre(Qt::Key_Escape, Qt::Key_Up, Qt::Key_Left));
}

TEST_F(PriceChartTest, showsTheFocusOfTheKeyboard) {
    showActive(chart);
    // Who is alone in a window has it from the start.
    chart.clearFocus();
    const QImage without = picture();
    chart.setFocus(Qt::TabFocusReason);
    EXPECT_TRUE(chart.hasFocus());
    EXPECT_NE(picture(), without);
    EXPECT_EQ(chart.focusPolicy(), Qt::TabFocus);
}

TEST_F(PriceChartTest, tellsItsSummaryAndWhatItReads) {
    EXPECT_EQ(chart.accessibleDescription(),
              QStringLiteral("起始 100.00，最新 105.00，区间 +5.00%，高 110.00，低 100.00"));
    press(Qt::Key_Left);
    EXPECT_EQ(chart.accessibleDescription(),
              QStringLiteral("11/14 14:00  105.00  +5.00%；起始 100.00，最新 105.00，区间 "
                             "+5.00%，高 110.00，低 100.00"));
    pointAt(160);
    leave();
    EXPECT_EQ(chart.accessibleDescription(),
              QStringLiteral("起始 100.00，最新 105.00，区间 +5.00%，高 110.00，低 100.00"));
}

TEST_F(PriceChartTest, tellsTheRangeByItsName) {
    chart.setCandles(chart.candles(), QStringLiteral("一周"));
    EXPECT_EQ(chart.accessibleDescription(),
              QStringLiteral("一周，起始 100.00，最新 105.00，区间 +5.00%，高 110.00，低 100.00"));
    press(Qt::Key_Left);
    EXPECT_TRUE(chart.accessibleDescription().startsWith(
        QStringLiteral("11/14 14:00  105.00  +5.00%；一周，起始 100.00，")));
}

TEST_F(PriceChartTest, tellsNoChangeFromAFirstOpenOfNothing) {
    chart.setCandles(candlesThrough({0, 5}, kNoon, hours(1)));
    press(Qt::Key_Left);
    EXPECT_EQ(chart.reading(), QStringLiteral("11/14 13:00  5.00"));
}

TEST_F(PriceChartTest, isAChartToScreenReaders) {
    chart.setAccessibleName(QStringLiteral("BTC 走势图"));
    QAccessibleInterface* const interface = QAccessible::queryAccessibleInterface(&chart);
    ASSERT_NE(interface, nullptr);
    EXPECT_EQ(interface->role(), QAccessible::Chart);
    EXPECT_EQ(interface->text(QAccessible::Name), QStringLiteral("BTC 走势图"));
    EXPECT_EQ(interface->text(QAccessible::Description),
              QStringLiteral("起始 100.00，最新 105.00，区间 +5.00%，高 110.00，低 100.00"));
}

TEST_F(PriceChartTest, dropsTheCrosshairWithItsCandles) {
    pointAt(370);
    chart.setCandles(candlesThrough({100}, kNoon, hours(1)));
    EXPECT_EQ(chart.reading(), QString());
    press(Qt::Key_Left);
    chart.setCandles({});
    EXPECT_EQ(chart.reading(), QString());
    EXPECT_EQ(chart.accessibleDescription(), QString());
}

TEST_F(PriceChartTest, keepsTheCrosshairWhenItsSizeChanges) {
    pointAt(160);
    chart.resize(300, 140);
    EXPECT_EQ(chart.reading(), QStringLiteral("11/14 13:00  110.00  +10.00%"));
}

TEST_F(PriceChartTest, drawsASingleCandleAndNoneAndOddOnes) {
    chart.setCandles(candlesThrough({50}, kNoon, hours(1)));
    EXPECT_GT(pixelsOf(ThemeColors::dark().accent), 10);
    chart.setCandles({});
    EXPECT_EQ(picture().pixelColor(188, 70).alpha(), 0);
    auto candles = candlesThrough({100, 110, 105}, kNoon, hours(1));
    candles[1].close = std::nan("");
    chart.setCandles(candles);
    EXPECT_GT(pixelsOf(ThemeColors::dark().up), 10);
}

TEST_F(PriceChartTest, isFaintWhileItIsOutdated) {
    const int strong = pixelsOf(ThemeColors::dark().up);
    chart.setOutdated(true);
    EXPECT_LT(pixelsOf(ThemeColors::dark().up), strong / 10);
    chart.setOutdated(false);
    EXPECT_EQ(pixelsOf(ThemeColors::dark().up), strong);
}

TEST_F(PriceChartTest, repaintsOnlyWhenWhatItShowsChanges) {
    struct Paints final : QObject {
        bool eventFilter(QObject* /*watched*/, QEvent* event) override {
            count += event->type() == QEvent::UpdateRequest ? 1 : 0;
            return false;
        }
        int count = 0;
    };
    pointAt(160);
    spinUntilIdle();
    Paints paints;
    chart.installEventFilter(&paints);
    pointAt(161);
    chart.setCandles(chart.candles());
    chart.setOutdated(false);
    spinUntilIdle();
    EXPECT_EQ(paints.count, 0);
    pointAt(300);
    spinUntilIdle();
    EXPECT_EQ(paints.count, 1);
}

}  // namespace
}  // namespace quillbar
