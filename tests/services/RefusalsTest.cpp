// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/state/SettingsStore.h"
#include "QuillbarCore/state/WatchlistStore.h"
#include "tests/qtsupport/SpinUntil.h"
#include "tests/services/AppServicesFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace quillbar {

namespace {

using simulator::Simulator;
using ::testing::Contains;
using ::testing::SizeIs;

constexpr std::string_view kSnapshotPath = "/api/v3/ticker/24hr";
constexpr std::string_view kOpensPath = "/api/v3/klines";

/// The services against exchanges that are well, and refuse.
class RefusalsTest : public AppServicesFixture {};

TEST_F(RefusalsTest, bringThePricesOfAListWithACoinThatTheExchangeDoesNotKnow) {
    Watchlist list = Watchlist::defaultWatchlist();
    list.coins.insert(list.coins.begin(), Coin{"GONEUSDT", "GONE"});
    WatchlistStore(m_folder.path()).save(list);
    Simulator& binance = exchange();
    start({&binance});
    EXPECT_TRUE(spinUntil([&] { return hasPrice(); }));
    EXPECT_EQ(state().tickers().find("GONEUSDT"), nullptr);
    EXPECT_EQ(requestCount(binance, kSnapshotPath), 2);
    const std::string line = "REST|error|the exchange does not know GONEUSDT, going on without it";
    EXPECT_THAT(m_log.lines("REST"), Contains(line));
    ASSERT_TRUE(isSettled(binance));
    m_services->resume();
    // The coin may be listed by now: it is asked for once more, and refused once more.
    ASSERT_TRUE(spinUntil([&] { return requestCount(binance, kSnapshotPath) == 4; }));
    ASSERT_TRUE(isSettled(binance));
    EXPECT_TRUE(nextPriceArrives(binance));
    EXPECT_EQ(requestCount(binance, kSnapshotPath), 4);
    EXPECT_THAT(m_log.lines("REST"), Contains(line).Times(1));
}

TEST_F(RefusalsTest, askTheNextServerWhereOneDoesNotServeThisRegion) {
    Simulator& first = exchange();
    Simulator& mirror = exchange();
    first.faults().status(451, 1000, "/api");
    start({&first, &mirror});
    EXPECT_TRUE(spinUntil([&] { return hasPrice(); }));
    EXPECT_EQ(requestCount(first, kSnapshotPath), 1);
    EXPECT_EQ(requestCount(mirror, kSnapshotPath), 1);
    EXPECT_EQ(*state().connectionFailure(), std::nullopt);
}

TEST_F(RefusalsTest, sayThatNoServerServesThisRegion) {
    Simulator& binance = exchange();
    binance.faults().status(451, 1000, "/api");
    binance.faults().status(451, 1000, "/stream");
    start({&binance});
    ASSERT_TRUE(spinUntil([&] { return *m_services->isStarted(); }));
    ASSERT_TRUE(spinUntil([&] { return state().connectionFailure()->has_value(); }));
    EXPECT_EQ((*state().connectionFailure())->kind, ConnectionFailure::Kind::notServedHere);
    // And takes it back as soon as one does.
    binance.faults().clear();
    ASSERT_TRUE(endBackOff());
    ASSERT_TRUE(isStreaming(binance));
    EXPECT_TRUE(nextPriceArrives(binance));
    EXPECT_EQ(*state().connectionFailure(), std::nullopt);
}

TEST_F(RefusalsTest, spareAServerThatFails) {
    AppSettings settings = AppSettings::defaultSettings();
    SettingsStore(m_folder.path()).save(settings.settingBasis(ChangeBasis::today));
    Watchlist list;
    for (const char* const base : {"BTC", "ETH", "SOL", "BNB", "XRP", "ADA", "DOGE", "TRX"}) {
        list.coins.push_back(Coin{std::string(base) + "USDT", base});
    }
    WatchlistStore(m_folder.path()).save(list);
    Simulator& binance = exchange();
    binance.faults().status(503, 1000, "/api");
    start({&binance});
    ASSERT_TRUE(spinUntil([&] { return *m_services->isStarted(); }));
    // The snapshot and the opens of eight coins, three requests of which were sent.
    EXPECT_EQ(requestCount(binance, kSnapshotPath) + requestCount(binance, kOpensPath), 3);
    EXPECT_THAT(m_log.lines("ServiceGate"), SizeIs(1));
    // What comes with another network is another matter.
    binance.faults().clear();
    m_services->resume();
    EXPECT_TRUE(spinUntil([&] { return requestCount(binance, kSnapshotPath) == 2; }));
}

}  // namespace

}  // namespace quillbar
