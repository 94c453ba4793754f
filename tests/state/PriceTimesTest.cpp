// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/state/PriceTimes.h"
#include "tests/manual/ManualTime.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace quillbar {
namespace {

struct PriceTimesTest : testing::Test {
    void noteTicker(const std::string& symbol) { times.noteTicker(symbol, time.now()); }
    void noteUpdate() { times.noteUpdate(time.now()); }

    ManualExecutor executor;
    ManualTime time{executor};
    PriceTimes times{time.clock(), time.monotonicClock()};
};

TEST_F(PriceTimesTest, knowsNothingBeforeTheFirstPrice) {
    EXPECT_EQ(*times.lastUpdate(), std::nullopt);
    EXPECT_EQ(times.lastUpdateByPresentClock(), std::nullopt);
    EXPECT_EQ(times.lastUpdateOf("BTCUSDT"), std::nullopt);
    EXPECT_GT(times.silence(), Seconds(1e9));
}

TEST_F(PriceTimesTest, keepsATimeForEachSymbolAndOneForAll) {
    const TimePoint first = time.now();
    noteTicker("BTCUSDT");
    noteUpdate();
    time.advance(Seconds{20});
    noteTicker("ETHUSDT");
    noteUpdate();
    time.advance(Seconds{5});
    EXPECT_EQ(times.lastUpdateOf("BTCUSDT"), first);
    EXPECT_EQ(times.lastUpdateOf("ETHUSDT"), first + Seconds{20});
    EXPECT_EQ(*times.lastUpdate(), first + Seconds{20});
    EXPECT_EQ(times.silence(), Seconds{5});
    times.remove("ETHUSDT");
    EXPECT_EQ(times.lastUpdateOf("ETHUSDT"), std::nullopt);
    EXPECT_EQ(*times.lastUpdate(), first + Seconds{20});
}

TEST_F(PriceTimesTest, measuresSilenceByTheMonotonicClockWhenTheWallClockIsSetBack) {
    noteUpdate();
    time.advance(Seconds{30});
    time.setClock(time.now() - Seconds{3600});
    EXPECT_EQ(times.silence(), Seconds{30});
    EXPECT_EQ(times.lastUpdateByPresentClock(), time.now() - Seconds{30});
    EXPECT_GT(*times.lastUpdate(), time.now()) << "the instant itself is kept as it was";
}

TEST_F(PriceTimesTest, measuresSilenceByTheWallClockWhenThatIsSetForward) {
    noteUpdate();
    time.setClock(time.now() + Seconds{3600});
    EXPECT_EQ(times.silence(), Seconds{3600});
}

TEST_F(PriceTimesTest, isUpToDateWhenItsObserversAreCalled) {
    noteUpdate();
    time.advance(Seconds{90});
    std::optional<Seconds> seen;
    const Observation observation = times.lastUpdate().observe(
        [&](const std::optional<TimePoint>&) { seen = times.silence(); });
    noteUpdate();
    EXPECT_EQ(seen, Seconds{0});
}

}  // namespace
}  // namespace quillbar
