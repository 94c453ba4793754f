// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/state/AppStateFixture.h"
#include "tests/support/Outcome.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace quillbar {
namespace {

using testing::ElementsAre;
using testing::SizeIs;

using Candles = std::vector<Candle>;
using KlinesRequest = FakeBinanceAPI::KlinesRequest;

struct AppStateChartTest : AppStateFixture {
    void SetUp() override { build(); }

    std::shared_ptr<Outcome<Candles>> chart(const std::string& symbol, ChartRange range) {
        auto outcome = spawnRecorded(scope, state->chart(symbol, range));
        executor.run();
        return outcome;
    }
};

TEST_F(AppStateChartTest, asksForTheCandlesOfTheRangeUpToNow) {
    theOpenIs(7);
    EXPECT_EQ(chart("BTCUSDT", ChartRange::day)->value, candlesFrom(7));
    chart("ETHUSDT", ChartRange::week);
    chart("ETHUSDT", ChartRange::month);
    EXPECT_THAT(api.klinesRequests,
                ElementsAre(KlinesRequest{"BTCUSDT", "5m", 288},
                            KlinesRequest{"ETHUSDT", "1h", 168},
                            KlinesRequest{"ETHUSDT", "4h", 180}));
}

TEST_F(AppStateChartTest, answersFromTheCacheWhileItIsFresh) {
    theOpenIs(7);
    chart("BTCUSDT", ChartRange::day);
    theOpenIs(8);
    time.advance(Seconds(299.9));
    EXPECT_EQ(chart("BTCUSDT", ChartRange::day)->value, candlesFrom(7));
    EXPECT_THAT(api.klinesRequests, SizeIs(1));
    time.advance(Seconds(0.1));
    EXPECT_EQ(chart("BTCUSDT", ChartRange::day)->value, candlesFrom(8));
    EXPECT_THAT(api.klinesRequests, SizeIs(2));
}

TEST_F(AppStateChartTest, countsTheAgeFromTheAnswer) {
    const auto answer = api.klinesAnswers.held();
    chart("BTCUSDT", ChartRange::day);
    time.advance(Seconds(100));
    answer.setValue(candlesFrom(7));
    executor.run();
    time.advance(Seconds(299));
    EXPECT_EQ(chart("BTCUSDT", ChartRange::day)->value, candlesFrom(7));
    EXPECT_THAT(api.klinesRequests, SizeIs(1));
}

TEST_F(AppStateChartTest, tellsForHowLongItAnswersFromTheCache) {
    EXPECT_EQ(state->chartFreshFor("BTCUSDT", ChartRange::day), Seconds(0));
    theOpenIs(7);
    chart("BTCUSDT", ChartRange::day);
    time.advance(Seconds(100));
    EXPECT_EQ(state->chartFreshFor("BTCUSDT", ChartRange::day), Seconds(200));
    EXPECT_EQ(state->chartFreshFor("BTCUSDT", ChartRange::week), Seconds(0));
    time.advance(Seconds(200));
    EXPECT_EQ(state->chartFreshFor("BTCUSDT", ChartRange::day), Seconds(0));
}

TEST_F(AppStateChartTest, passesTheErrorOnAndLeavesTheCache) {
    theOpenIs(7);
    chart("BTCUSDT", ChartRange::day);
    time.advance(Seconds(300));
    api.klinesAnswers.error(BinanceError(418));
    EXPECT_EQ(chart("BTCUSDT", ChartRange::day)->error, BinanceError(418).what());
    EXPECT_THAT(log.lines(), SizeIs(0));
    // The clock goes back to where the first answer is still fresh.
    time.setClock(time.now() - Seconds(200));
    EXPECT_EQ(chart("BTCUSDT", ChartRange::day)->value, candlesFrom(7));
    EXPECT_THAT(api.klinesRequests, SizeIs(2));
}

TEST_F(AppStateChartTest, keepsAnEmptyAnswerAsWell) {
    EXPECT_EQ(chart("BTCUSDT", ChartRange::day)->value, Candles());
    EXPECT_EQ(chart("BTCUSDT", ChartRange::day)->value, Candles());
    EXPECT_THAT(api.klinesRequests, SizeIs(1));
}

}  // namespace
}  // namespace quillbar
