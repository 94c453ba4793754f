// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/label/CoinLabels.h"
#include "tests/state/AppStateFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <set>
#include <string>
#include <vector>

namespace quillbar {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

using Texts = std::vector<std::string>;

/// The labels of ETH and SOL, connected; what they said at each call is noted.
class CoinLabelsTest : public AppStateFixture {
protected:
    void watch() {
        ownList = listOf({"ETH", "SOL"});
        start();
        tell(ConnectionState::connected);
        m_labels = std::make_unique<CoinLabels>(CoinLabels::Dependencies{
            .state = *state,
            .isStarted = m_isStarted,
            .isUnknown = [this](const std::string& symbol) { return m_unknown.contains(symbol); },
            .executor = executor,
            .sleeper = time.sleeper()});
        m_labels->observe([this] { m_told.push_back(texts()); });
        executor.run();
    }

    [[nodiscard]] Texts texts() const {
        Texts texts;
        for (const LabelSnapshot& label : m_labels->snapshots()) {
            texts.push_back(label.text);
        }
        return texts;
    }

    Observed<bool> m_isStarted;
    std::set<std::string> m_unknown;
    std::vector<Texts> m_told;
    std::unique_ptr<CoinLabels> m_labels;
};

TEST_F(CoinLabelsTest, areThoseOfTheListInItsOrder) {
    watch();
    EXPECT_THAT(texts(), ElementsAre("ETH", "SOL"));
    price("SOL", 101);
    price("ETH", 98);
    EXPECT_THAT(texts(), ElementsAre("ETH 98.00 ▼ 2.00%", "SOL 101.00 ▲ 1.00%"));
    EXPECT_EQ(m_labels->snapshots(),
              (std::vector{LabelSnapshot::of(*state, coinOf("ETH")),
                           LabelSnapshot::of(*state, coinOf("SOL"))}));
}

TEST_F(CoinLabelsTest, tellThePricesOfASecondTogether) {
    watch();
    price("SOL", 101);
    price("ETH", 101);
    price("ETH", 102);
    EXPECT_THAT(m_told, ElementsAre(ElementsAre("ETH", "SOL 101.00 ▲ 1.00%")));
    time.advance(Seconds(0.9));
    EXPECT_EQ(m_told.size(), 1U);
    time.advance(Seconds(0.1));
    ASSERT_EQ(m_told.size(), 2U);
    EXPECT_THAT(m_told[1], ElementsAre("ETH 102.00 ▲ 2.00%", "SOL 101.00 ▲ 1.00%"));
    time.advance(Seconds(5));
    EXPECT_EQ(m_told.size(), 2U);
    price("ETH", 103);
    EXPECT_EQ(m_told.size(), 3U);
}

TEST_F(CoinLabelsTest, tellWhateverElseChangesThem) {
    watch();
    tell(ConnectionState::waitingRetry);
    EXPECT_EQ(m_told.size(), 1U);
    time.advance(Seconds(2));
    stream.fails(ConnectionFailure{.kind = ConnectionFailure::Kind::hostNotFound});
    executor.run();
    EXPECT_EQ(m_told.size(), 2U);
    time.advance(Seconds(2));
    m_isStarted.set(true);
    executor.run();
    EXPECT_EQ(m_told.size(), 3U);
    EXPECT_TRUE(m_labels->isStarted());
}

TEST_F(CoinLabelsTest, tellTheOpensOfTheDayAsTheyCome) {
    theBasisIsToday();
    watch();
    price("SOL", 101);
    time.advance(Seconds(5));
    m_told.clear();
    theOpenIs(50);
    time.advance(Seconds(60));
    price("ETH", 101);
    time.advance(Seconds(5));
    ASSERT_FALSE(m_told.empty());
    EXPECT_THAT(m_told.back(), ElementsAre("ETH 101.00 ▲102.00%", "SOL 101.00 ▲102.00%"));
}

// The first coin, which is the pinned one of the list, never gets a price here.
TEST_F(CoinLabelsTest, tellThatAStreamHasFallenSilent) {
    watch();
    price("SOL", 101);
    time.advance(Seconds(91));
    ASSERT_FALSE(m_told.empty());
    EXPECT_THAT(m_told.back(), ElementsAre("ETH", "SOL"));
}

TEST_F(CoinLabelsTest, tellNothingMoreOnceNobodyObserves) {
    watch();
    price("SOL", 101);
    price("SOL", 102);
    const std::size_t told = m_told.size();
    m_labels->observe({});
    price("SOL", 103);
    time.advance(Seconds(60));
    EXPECT_EQ(m_told.size(), told);
    EXPECT_THAT(log.lines("Runtime"), IsEmpty());
}

TEST_F(CoinLabelsTest, nameTheCoinsThatTheExchangeDoesNotKnow) {
    watch();
    EXPECT_THAT(m_labels->unknownCoins(), IsEmpty());
    m_unknown = {"ETHUSDT", "SOLUSDT", "BTCUSDT"};
    EXPECT_THAT(m_labels->unknownCoins(), ElementsAre("ETH", "SOL"));
    price("SOL", 101);
    EXPECT_THAT(m_labels->unknownCoins(), ElementsAre("ETH"));
}

}  // namespace

}  // namespace quillbar
