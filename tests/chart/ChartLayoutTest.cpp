// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/chart/ChartLayout.h"
#include "tests/chart/Candles.h"
#include "tests/model/Instants.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <string_view>
#include <vector>

namespace quillbar {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

using std::chrono::hours;
using std::chrono::minutes;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

// Each character is 5 points wide, and 12 high.
const ChartLayout::TextMeasure kMeasure{
    .width = [](const QString& text) { return 5.0 * static_cast<double>(text.size()); },
    .height = 12,
};
const QSizeF kSize(376, 140);
const QLocale kChinese(QLocale::Chinese, QLocale::China);

ChartLayout layoutOf(const std::vector<Candle>& candles,
                     const Calendar& calendar = Calendar::utc(),
                     const QLocale& locale = kChinese,
                     QSizeF size = kSize) {
    return ChartLayout::of({.candles = candles,
                            .size = size,
                            .text = kMeasure,
                            .calendar = calendar,
                            .locale = locale});
}

std::vector<std::string> textsOf(const std::vector<ChartLayout::Label>& labels) {
    std::vector<std::string> texts;
    for (const ChartLayout::Label& label : labels) {
        texts.push_back(label.text.toStdString());
    }
    return texts;
}

std::vector<Candle> day(double low, double high, TimePoint end = utcInstant(2026, 11, 14, 12)) {
    return waves(288, low, high, end - minutes(5) * 287, minutes(5));
}
std::vector<Candle> week(double low, double high, TimePoint end = utcInstant(2026, 11, 14, 12)) {
    return waves(168, low, high, end - hours(167), hours(1));
}
std::vector<Candle> month(double low, double high, TimePoint end = utcInstant(2026, 11, 14, 12)) {
    return waves(180, low, high, end - hours(4) * 179, hours(4));
}

/// What is wrong with the labels, first; empty when each lies in the chart and none touches
/// another.
std::string fault(const ChartLayout& layout, QSizeF size) {
    std::vector<ChartLayout::Label> labels = layout.priceLabels;
    labels.insert(labels.end(), layout.timeLabels.begin(), layout.timeLabels.end());
    for (std::size_t index = 0; index < labels.size(); ++index) {
        const ChartLayout::Label& label = labels[index];
        if (!QRectF(QPointF(), size).contains(label.rectangle)) {
            return label.text.toStdString() + " is cut off";
        }
        for (std::size_t other = index + 1; other < labels.size(); ++other) {
            if (label.rectangle.intersects(labels[other].rectangle)) {
                return label.text.toStdString() + " touches " + labels[other].text.toStdString();
            }
        }
    }
    return {};
}

TEST(ChartLayoutTest, givesThePlotWhatTheLabelsLeave) {
    const ChartLayout layout = layoutOf(day(100, 110));
    // Right of it "110.00", 30 points wide, and 3 for the tag; above half a label, below a whole
    // one.
    EXPECT_EQ(layout.plot, QRectF(3, 6, 332, 119));
    EXPECT_EQ(layout.priceLabels.front().rectangle.left(), 343);
}

TEST(ChartLayoutTest, marksRoundPrices) {
    const auto candles = candlesThrough({100, 110, 105}, utcInstant(2026, 11, 14, 12), hours(1));
    const ChartLayout layout = layoutOf(candles);
    EXPECT_THAT(textsOf(layout.priceLabels), ElementsAre("100.00", "105.00", "110.00"));
    // The domain is 99.6 to 110.4.
    ASSERT_THAT(layout.priceGrid, SizeIs(3));
    EXPECT_NEAR(layout.priceGrid[0], 125 - 119 * 0.4 / 10.8, 1e-9);
    EXPECT_NEAR(layout.priceGrid[1], 6 + 119 / 2.0, 1e-9);
    EXPECT_NEAR(layout.priceLabels[1].rectangle.center().y(), layout.priceGrid[1], 1e-9);
}

TEST(ChartLayoutTest, marksDearAndCheapCoins) {
    EXPECT_THAT(textsOf(layoutOf(day(66'800, 67'900)).priceLabels),
                ElementsAre("67,000.00", "67,500.00"));
    EXPECT_THAT(textsOf(layoutOf(day(0.0000121, 0.0000126)).priceLabels),
                ElementsAre("0.0000122", "0.0000124", "0.0000126"));
}

TEST(ChartLayoutTest, tagsTheLastCloseInTheColumnOfTheLabels) {
    const auto candles = candlesThrough({100, 110, 104.5}, utcInstant(2026, 11, 14, 12), hours(1));
    const ChartLayout layout = layoutOf(candles);
    ASSERT_TRUE(layout.lastPrice);
    EXPECT_EQ(layout.lastPrice->text, QStringLiteral("104.50"));
    const QRectF tag = layout.lastPrice->rectangle;
    EXPECT_EQ(tag.left() + 3, layout.priceLabels.front().rectangle.left());
    EXPECT_EQ(tag.size(), QSizeF(3 + 30 + 3, 1 + 12 + 1));
    EXPECT_NEAR(tag.center().y(), layout.points.back().position.y(), 1e-9);
    EXPECT_EQ(tag.right(), 376);
}

TEST(ChartLayoutTest, makesRoomForALastCloseWiderThanTheLabels) {
    auto candles = day(0.1, 0.5);
    candles.back().close = 0.1234567;
    const ChartLayout layout = layoutOf(candles);
    EXPECT_EQ(layout.lastPrice->text, QStringLiteral("0.1235"));
    EXPECT_EQ(layout.lastPrice->rectangle.right(), 376);
    EXPECT_LT(layout.priceLabels.front().rectangle.right(), 360);
}

TEST(ChartLayoutTest, keepsTheTagOfAWorthlessCoinAboveTheTimes) {
    const ChartLayout layout = layoutOf(day(0, 0));
    EXPECT_EQ(layout.lastPrice->rectangle.bottom(), layout.plot.bottom() + 3);
}

TEST(ChartLayoutTest, tagsTheLastCandleThatCounts) {
    auto candles = candlesThrough({100, 110, 105}, utcInstant(2026, 11, 14, 12), hours(1));
    candles[2].close = kNaN;
    EXPECT_EQ(layoutOf(candles).lastPrice->text, QStringLiteral("110.00"));
}

TEST(ChartLayoutTest, writesNoPriceTwice) {
    // In cents these are the same.
    const ChartLayout layout = layoutOf(day(1.0001, 1.0009));
    EXPECT_THAT(textsOf(layout.priceLabels), ElementsAre("1.00"));
    EXPECT_GE(layout.priceGrid.size(), 3U);
}

TEST(ChartLayoutTest, marksHoursAndTheMidnightOfADay) {
    const ChartLayout layout = layoutOf(day(100, 110));
    EXPECT_THAT(textsOf(layout.timeLabels),
                ElementsAre("16:00", "20:00", "11/14", "04:00", "08:00", "12:00"));
    EXPECT_THAT(layout.timeGrid, SizeIs(6));
    // The last candle opens at 12:00.
    EXPECT_NEAR(layout.timeGrid.back(), layout.plot.right(), 1e-9);
    EXPECT_NEAR(layout.timeLabels[1].rectangle.center().x(), layout.timeGrid[1], 1e-9);
}

TEST(ChartLayoutTest, marksTheDaysOfAWeek) {
    EXPECT_THAT(textsOf(layoutOf(week(100, 110)).timeLabels),
                ElementsAre("11/8", "11/9", "11/10", "11/11", "11/12", "11/13", "11/14"));
    // Even where times of day are long.
    const QLocale american(QLocale::English, QLocale::UnitedStates);
    EXPECT_THAT(layoutOf(week(100, 110), Calendar::utc(), american).timeLabels, SizeIs(7));
}

TEST(ChartLayoutTest, marksTheWeeksOfAMonth) {
    // Where weeks begin on Sundays.
    const QLocale american(QLocale::English, QLocale::UnitedStates);
    EXPECT_THAT(textsOf(layoutOf(month(100, 110), Calendar::utc(), american).timeLabels),
                ElementsAre("10/18", "10/25", "11/1", "11/8"));
    // Where they begin on Mondays.
    const QLocale french(QLocale::French, QLocale::France);
    EXPECT_THAT(textsOf(layoutOf(month(100, 110), Calendar::utc(), french).timeLabels),
                ElementsAre("19/10", "26/10", "02/11", "09/11"));
}

TEST(ChartLayoutTest, writesTimesAsTheLocaleDoes) {
    const QLocale german(QLocale::German, QLocale::Germany);
    EXPECT_THAT(textsOf(layoutOf(day(100, 110), Calendar::utc(), german).timeLabels),
                Contains("14.11."));
    const QLocale american(QLocale::English, QLocale::UnitedStates);
    std::vector<std::string> times =
        textsOf(layoutOf(day(100, 110), Calendar::utc(), american).timeLabels);
    for (std::string& time : times) {
        // Qt 6.8 knows the narrow space that Americans write there.
        if (const auto narrow = time.find("\u202F"); narrow != std::string::npos) {
            time.replace(narrow, std::string_view("\u202F").size(), " ");
        }
    }
    EXPECT_THAT(times,
                ElementsAre("4:00 PM", "8:00 PM", "11/14", "4:00 AM", "8:00 AM", "12:00 PM"));
    // Prices follow no locale.
    EXPECT_THAT(textsOf(layoutOf(day(66'800, 67'900), Calendar::utc(), german).priceLabels),
                Contains("67,500.00"));
}

TEST(ChartLayoutTest, takesDaysAndHoursInTheCalendarsZone) {
    EXPECT_THAT(textsOf(layoutOf(day(100, 110), Calendar::fixed("Asia/Shanghai")).timeLabels),
                ElementsAre("11/14", "04:00", "08:00", "12:00", "16:00", "20:00"));
}

TEST(ChartLayoutTest, marksTheDayThatBeginsAtOneWhereItBegins) {
    const auto candles = day(100, 110, utcInstant(2025, 9, 7, 16));
    const ChartLayout layout = layoutOf(candles, Calendar::fixed("America/Santiago"));
    EXPECT_THAT(textsOf(layout.timeLabels),
                ElementsAre("16:00", "20:00", "9/7", "04:00", "08:00", "12:00"));
    // At 04:00 in UTC, that is 12 hours before the last candle.
    EXPECT_NEAR(
        layout.timeGrid[2], layout.plot.right() - layout.plot.width() * 12 * 12 / 287.0, 1e-9);
}

TEST(ChartLayoutTest, drawsTheLineThroughEveryClose) {
    const auto candles = candlesThrough({100, 110, 105}, utcInstant(2026, 11, 14, 12), hours(1));
    const ChartLayout layout = layoutOf(candles);
    ASSERT_THAT(layout.lines, SizeIs(1));
    ASSERT_THAT(layout.lines[0], SizeIs(3));
    const auto y = [](double price) { return 125 - 119 * (price - 99.6) / 10.8; };
    EXPECT_NEAR(layout.lines[0][0].x(), 3, 1e-9);
    EXPECT_NEAR(layout.lines[0][1].x(), 3 + 332 / 2.0, 1e-9);
    EXPECT_NEAR(layout.lines[0][2].x(), 335, 1e-9);
    EXPECT_NEAR(layout.lines[0][0].y(), y(100), 1e-9);
    EXPECT_NEAR(layout.lines[0][1].y(), y(110), 1e-9);
    EXPECT_NEAR(layout.lines[0][2].y(), y(105), 1e-9);
}

TEST(ChartLayoutTest, fillsTheAreaDownToTheBottomOfTheDomain) {
    const auto candles = candlesThrough({100, 110, 105}, utcInstant(2026, 11, 14, 12), hours(1));
    const ChartLayout layout = layoutOf(candles);
    ASSERT_THAT(layout.areas, SizeIs(1));
    ASSERT_THAT(layout.areas[0], SizeIs(5));
    EXPECT_EQ(layout.areas[0].first(), QPointF(3, 125));
    EXPECT_EQ(layout.areas[0][1], layout.lines[0][0]);
    EXPECT_EQ(layout.areas[0].last(), QPointF(layout.lines[0][2].x(), 125));
}

TEST(ChartLayoutTest, marksTheHighestHighAndTheLowestLow) {
    auto candles = candlesThrough({100, 102, 101}, utcInstant(2026, 11, 14, 12), hours(1));
    candles[0].low = 90;
    candles[1].high = 110;
    candles[2].high = 110;
    const ChartLayout layout = layoutOf(candles);
    ASSERT_TRUE(layout.high && layout.low);
    // Not at the closes; the first of equals.
    EXPECT_NEAR(layout.high->x(), layout.points[1].position.x(), 1e-9);
    EXPECT_NEAR(layout.high->y(), 125 - 119 * (110 - 89.2) / 21.6, 1e-9);
    EXPECT_NEAR(layout.low->x(), layout.points[0].position.x(), 1e-9);
    EXPECT_NEAR(layout.low->y(), 125 - 119 * (90 - 89.2) / 21.6, 1e-9);
}

TEST(ChartLayoutTest, isEmptyWithoutCandles) {
    const ChartLayout layout = layoutOf({});
    EXPECT_TRUE(layout.plot.isEmpty());
    EXPECT_THAT(layout.lines, IsEmpty());
    EXPECT_EQ(layout.high, std::nullopt);
    EXPECT_EQ(layout.nearest(100), std::nullopt);
}

TEST(ChartLayoutTest, putsASingleCandleInTheMiddle) {
    const auto candles = candlesThrough({50}, utcInstant(2026, 11, 14, 12), hours(1));
    const ChartLayout layout = layoutOf(candles);
    ASSERT_THAT(layout.points, SizeIs(1));
    EXPECT_EQ(layout.points[0].position, layout.plot.center());
    EXPECT_EQ(*layout.high, layout.plot.center());
    EXPECT_THAT(textsOf(layout.timeLabels), ElementsAre("12:00"));
    EXPECT_THAT(textsOf(layout.priceLabels), ElementsAre("49.80", "50.00", "50.20"));
}

TEST(ChartLayoutTest, drawsPricesThatNeverMoveThroughTheMiddle) {
    const ChartLayout layout = layoutOf(day(50, 50));
    EXPECT_EQ(layout.lines[0].boundingRect().height(), 0);
    EXPECT_NEAR(layout.lines[0][0].y(), layout.plot.center().y(), 1e-9);
}

TEST(ChartLayoutTest, drawsACoinThatIsWorthNothingAlongTheBottom) {
    const ChartLayout layout = layoutOf(day(0, 0));
    EXPECT_EQ(layout.lines[0][0].y(), layout.plot.bottom());
    EXPECT_THAT(textsOf(layout.priceLabels), ElementsAre("0"));
}

TEST(ChartLayoutTest, leavesAGapWhereANumberIsMissing) {
    for (const double bad : {kNaN, kInfinity, -1.0}) {
        auto candles =
            candlesThrough({100, 110, 105, 107, 100}, utcInstant(2026, 11, 14, 12), hours(1));
        candles[2].close = bad;
        const ChartLayout layout = layoutOf(candles);
        ASSERT_THAT(layout.lines, SizeIs(2));
        EXPECT_THAT(layout.lines[0], SizeIs(2));
        EXPECT_THAT(layout.lines[1], SizeIs(2));
        EXPECT_THAT(layout.areas, SizeIs(2));
        EXPECT_EQ(layout.points[2].candle, 3U);
    }
}

TEST(ChartLayoutTest, passesOverBadNumbersInAnyPlace) {
    const auto spoiled = [](auto spoil) {
        auto candles = candlesThrough({100, 110, 105}, utcInstant(2026, 11, 14, 12), hours(1));
        spoil(candles[0]);
        return layoutOf(candles);
    };
    for (const double bad : {kNaN, kInfinity, -kInfinity}) {
        EXPECT_THAT(spoiled([bad](Candle& c) { c.open = bad; }).points, SizeIs(2));
        EXPECT_THAT(spoiled([bad](Candle& c) { c.high = bad; }).points, SizeIs(2));
        EXPECT_THAT(spoiled([bad](Candle& c) { c.low = bad; }).points, SizeIs(2));
        EXPECT_THAT(spoiled([bad](Candle& c) { c.openTime = TimePoint(Seconds(bad)); }).points,
                    SizeIs(2));
    }
}

TEST(ChartLayoutTest, isEmptyWhenNoCandleCounts) {
    EXPECT_THAT(layoutOf({candle(utcInstant(2026, 11, 14), kNaN, kNaN)}).points, IsEmpty());
}

TEST(ChartLayoutTest, passesOverCandlesThatGoBackInTime) {
    auto candles = candlesThrough({100, 110, 105}, utcInstant(2026, 11, 14, 12), hours(1));
    candles[1].openTime = candles[0].openTime;
    const ChartLayout layout = layoutOf(candles);
    EXPECT_THAT(layout.points, SizeIs(2));
    EXPECT_LT(layout.points[0].position.x(), layout.points[1].position.x());
}

TEST(ChartLayoutTest, passesOverTimesThatNoDateCanName) {
    auto candles = candlesThrough({100, 110, 105}, utcInstant(2026, 11, 14, 12), hours(1));
    candles[0].openTime = TimePoint(Seconds(-1e17));
    candles[2].openTime = TimePoint(Seconds(1e17));
    EXPECT_THAT(layoutOf(candles).points, SizeIs(1));
}

TEST(ChartLayoutTest, drawsPricesAtTheEndOfTheNumbers) {
    EXPECT_THAT(layoutOf(day(1e300, 3e300)).points, SizeIs(288));
    const auto furthest = candlesThrough(
        {0, std::numeric_limits<double>::max()}, utcInstant(2026, 11, 14, 12), hours(1));
    EXPECT_THAT(layoutOf(furthest).points, IsEmpty());
    EXPECT_THAT(layoutOf(day(1e-290, 3e-290)).points, SizeIs(288));
    // Written out, such prices would be wider than the chart.
    EXPECT_THAT(layoutOf(day(1e300, 3e300)).priceLabels, IsEmpty());
    EXPECT_FALSE(layoutOf(day(1e300, 3e300)).lastPrice);
}

TEST(ChartLayoutTest, keepsACloseBeyondItsOwnHighInThePlot) {
    auto candles = candlesThrough({100, 110, 105}, utcInstant(2026, 11, 14, 12), hours(1));
    candles[2].close = 1e9;
    const ChartLayout layout = layoutOf(candles);
    EXPECT_EQ(layout.points[2].position.y(), layout.plot.top());
}

TEST(ChartLayoutTest, findsTheNearestCandle) {
    const auto candles = candlesThrough({100, 110, 105}, utcInstant(2026, 11, 14, 12), hours(1));
    const ChartLayout layout = layoutOf(candles);
    // At 3, 169 and 335.
    EXPECT_EQ(layout.nearest(-50), 0U);
    EXPECT_EQ(layout.nearest(85.9), 0U);
    EXPECT_EQ(layout.nearest(86.1), 1U);
    EXPECT_EQ(layout.nearest(251.9), 1U);
    EXPECT_EQ(layout.nearest(252.1), 2U);
    EXPECT_EQ(layout.nearest(5000), 2U);
}

TEST(ChartLayoutTest, isEmptyWithoutRoom) {
    for (const QSizeF size : {QSizeF(0, 0), QSizeF(10, 140), QSizeF(376, 20), QSizeF(-1, -1)}) {
        EXPECT_TRUE(layoutOf(day(100, 110), Calendar::utc(), kChinese, size).plot.isEmpty());
    }
}

TEST(ChartLayoutTest, neverCutsOrCrowdsALabel) {
    const std::vector<Calendar> calendars{Calendar::fixed("Asia/Shanghai"),
                                          Calendar::fixed("America/Santiago"),
                                          Calendar::fixed("Australia/Lord_Howe")};
    const std::vector<QLocale> locales{kChinese,
                                       QLocale(QLocale::English, QLocale::UnitedStates),
                                       QLocale(QLocale::Hungarian, QLocale::Hungary),
                                       QLocale::c()};
    for (const Calendar& calendar : calendars) {
        for (const QLocale& locale : locales) {
            // Around the change of Santiago's clock, in all its phases.
            for (int shift = 0; shift < 48; ++shift) {
                const TimePoint end = utcInstant(2025, 9, 6, 20) + minutes(55) * shift;
                for (const auto& candles :
                     {day(0.0000121, 0.0000126, end), week(98, 111, end), month(66e3, 68e3, end)}) {
                    for (const QSizeF size : {kSize, QSizeF(150, 60)}) {
                        const ChartLayout layout = layoutOf(candles, calendar, locale, size);
                        ASSERT_EQ(fault(layout, size), "") << locale.name().toStdString() << shift;
                        ASSERT_FALSE(layout.plot.isEmpty());
                        ASSERT_TRUE(layout.lastPrice);
                        ASSERT_TRUE(QRectF(QPointF(), size).contains(layout.lastPrice->rectangle));
                        for (const ChartLayout::Label& time : layout.timeLabels) {
                            ASSERT_FALSE(time.rectangle.intersects(layout.lastPrice->rectangle));
                        }
                    }
                }
            }
        }
    }
}

}  // namespace
}  // namespace quillbar
