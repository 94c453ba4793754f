// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/market/MarketCapRanking.h"
#include "simulator/Coins.h"
#include "tests/qtsupport/SpinUntil.h"
#include "tests/services/AppServicesFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <string>
#include <vector>

namespace quillbar {

namespace {

using simulator::Listing;
using simulator::ListingStatus;
using simulator::RequestFault;
using simulator::Simulator;
using ::testing::AllOf;
using ::testing::Contains;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::SizeIs;

constexpr std::string_view kTickersPath = "/api/v3/ticker/24hr";
constexpr std::string_view kMarketCapsPath = "/coingecko/api/v3/coins/markets";

/// The boards over real sockets, judged by the simulator's own state.
class BoardsTest : public AppServicesFixture {
protected:
    MarketState& market() { return m_services->marketState(); }
    MarketCapState& marketCaps() { return m_services->marketCapState(); }

    /// Runs one refresh of both models to its end.
    [[nodiscard]] bool refresh() {
        TaskScope scope(*m_executor);
        const auto boards = scope.spawn(market().refreshOnce());
        const auto caps = scope.spawn(marketCaps().refreshOnce());
        return spinUntil([&] { return !boards.isRunning() && !caps.isRunning(); });
    }

    static double change(const simulator::DayStatistics& day) {
        return (day.last - day.open) / day.open * 100;
    }

    /// The USDT pairs in trading, by an order of the test's own.
    template <class Before>
    static std::vector<std::string> expected(const Simulator& exchange, Before before) {
        std::vector<const Listing*> listings;
        for (const Listing& listing : exchange.market().listings()) {
            if (listing.quoteAsset == "USDT" && listing.status == ListingStatus::trading) {
                listings.push_back(&listing);
            }
        }
        std::sort(listings.begin(), listings.end(), [&](const Listing* left, const Listing* right) {
            return before(exchange.market().day(*left), exchange.market().day(*right));
        });
        std::vector<std::string> symbols;
        for (const Listing* const listing : listings) {
            symbols.push_back(listing->symbol);
        }
        symbols.resize(std::min<std::size_t>(symbols.size(), kRows));
        return symbols;
    }

    struct Capitalised {
        std::string symbol;
        double marketCap = 0;
    };

    /// The pairs of the coins with the largest capitalisations that have a market of their own.
    static std::vector<Capitalised> largestCoins(const Simulator& exchange, std::size_t count) {
        std::vector<Capitalised> coins;
        for (const simulator::CoinFigures& coin : simulator::makeCoins(kCoins)) {
            const Listing* const listing = exchange.market().find(coin.asset + "USDT");
            if (listing == nullptr || listing->status != ListingStatus::trading
                || coin.peg == simulator::Peg::pegged) {
                continue;
            }
            const double supply = coin.marketCap / coin.price;
            coins.push_back({listing->symbol, supply * exchange.market().price(*listing)});
        }
        std::sort(coins.begin(), coins.end(), [](const auto& left, const auto& right) {
            return left.marketCap > right.marketCap;
        });
        coins.resize(std::min(coins.size(), count));
        return coins;
    }

    static std::vector<std::string> symbolsOf(const std::vector<RankedCoin>& rows) {
        std::vector<std::string> symbols;
        for (const RankedCoin& row : rows) {
            symbols.push_back(row.id());
        }
        return symbols;
    }

    static constexpr std::size_t kRows = 10;
    // More than the exchange lists.
    static constexpr std::size_t kCoins = 200;
};

TEST_F(BoardsTest, areTheMarketsOwnOrder) {
    Simulator& binance = exchange();
    start({&binance});
    ASSERT_TRUE(refresh());
    using Day = simulator::DayStatistics;
    EXPECT_EQ(symbolsOf(market().board(Ranking::Board::gainers, kRows)),
              expected(binance, [](const Day& left, const Day& right) {
                  return change(left) > change(right);
              }));
    EXPECT_EQ(symbolsOf(market().board(Ranking::Board::losers, kRows)),
              expected(binance, [](const Day& left, const Day& right) {
                  return change(left) < change(right);
              }));
    EXPECT_EQ(symbolsOf(market().board(Ranking::Board::volume, kRows)),
              expected(binance, [](const Day& left, const Day& right) {
                  return left.quoteVolume > right.quoteVolume;
              }));
}

TEST_F(BoardsTest, carryTheMarketsOwnNumbers) {
    Simulator& binance = exchange();
    start({&binance});
    ASSERT_TRUE(refresh());
    const auto rows = market().board(Ranking::Board::volume, 1000);
    ASSERT_FALSE(rows.empty());
    for (const RankedCoin& row : rows) {
        const Listing* const listing = binance.market().find(row.id());
        ASSERT_NE(listing, nullptr);
        const auto day = binance.market().day(*listing);
        // The exchange writes prices with as many digits as the pair's tick.
        const double tick = std::pow(10, -listing->priceDigits);
        EXPECT_NEAR(row.ticker.lastPrice, day.last, tick);
        EXPECT_NEAR(row.ticker.openPrice24h, day.open, tick);
        EXPECT_NEAR(*row.ticker.quoteVolume24h, day.quoteVolume, day.quoteVolume * 1e-6 + 1);
    }
}

TEST_F(BoardsTest, fillTheMarketCapBoard) {
    Simulator& binance = exchange();
    start({&binance});
    ASSERT_TRUE(refresh());
    const auto data = market().snapshot();
    const auto rows =
        MarketCapRanking::rank(marketCaps().entries(), data.tickers, data.universe, 100);
    const auto capitalised = largestCoins(binance, 100);
    ASSERT_GE(capitalised.size(), 3U);
    ASSERT_EQ(rows.size(), capitalised.size());
    EXPECT_EQ(rows.front().id(), "BTCUSDT");
    for (std::size_t index = 0; index < rows.size(); ++index) {
        EXPECT_EQ(rows[index].rank, static_cast<int>(index) + 1);
        EXPECT_EQ(rows[index].id(), capitalised[index].symbol);
        EXPECT_DOUBLE_EQ(*rows[index].marketCap, capitalised[index].marketCap);
    }
    EXPECT_THAT(m_log.lines(), ::testing::IsEmpty());
}

TEST_F(BoardsTest, keepTheirRowsOverABadAnswer) {
    Simulator& binance = exchange();
    start({&binance});
    ASSERT_TRUE(refresh());
    const auto before = market().board(Ranking::Board::volume, kRows);
    for (const RequestFault::Kind kind : {RequestFault::Kind::cutShort,
                                          RequestFault::Kind::wrongNumber,
                                          RequestFault::Kind::notJson}) {
        SCOPED_TRACE(static_cast<int>(kind));
        binance.faults().on(kind, std::string(kTickersPath), 1);
        ASSERT_TRUE(refresh());
        EXPECT_TRUE(*market().loadFailed());
        EXPECT_EQ(market().board(Ranking::Board::volume, kRows), before);
        ASSERT_TRUE(refresh());
        EXPECT_FALSE(*market().loadFailed());
    }
    EXPECT_THAT(m_log.lines("MarketState"),
                Each(::testing::StartsWith("MarketState|error|market refresh failed: ")));
}

TEST_F(BoardsTest, keepTheMarketCapsOverABadAnswer) {
    Simulator& binance = exchange();
    start({&binance});
    ASSERT_TRUE(refresh());
    const auto before = marketCaps().entries();
    const auto updated = *marketCaps().lastUpdate();
    for (const RequestFault::Kind kind :
         {RequestFault::Kind::cutShort, RequestFault::Kind::notJson}) {
        SCOPED_TRACE(static_cast<int>(kind));
        letPass(Seconds(300));
        binance.faults().on(kind, std::string(kMarketCapsPath), 1);
        ASSERT_TRUE(refresh());
        EXPECT_TRUE(*marketCaps().loadFailed());
        EXPECT_EQ(marketCaps().entries(), before);
        EXPECT_EQ(*marketCaps().lastUpdate(), updated);
    }
    EXPECT_THAT(
        m_log.lines("MarketCapState"),
        AllOf(SizeIs(2),
              Each(::testing::StartsWith("MarketCapState|error|market cap refresh failed: "))));
    ASSERT_TRUE(refresh());
    EXPECT_FALSE(*marketCaps().loadFailed());
}

TEST_F(BoardsTest, showTheMarketCapsAgainAfterARestartWithoutARequest) {
    Simulator& binance = exchange();
    start({&binance});
    ASSERT_TRUE(refresh());
    const auto entries = marketCaps().entries();
    ASSERT_FALSE(entries.empty());
    ASSERT_EQ(requestCount(binance, kMarketCapsPath), 1);

    m_services.reset();
    letPass(Seconds(299));
    start({&binance});
    EXPECT_EQ(marketCaps().entries(), entries);
    ASSERT_TRUE(refresh());
    EXPECT_EQ(requestCount(binance, kMarketCapsPath), 1);
    letPass(Seconds(2));
    ASSERT_TRUE(refresh());
    EXPECT_EQ(requestCount(binance, kMarketCapsPath), 2);
}

TEST_F(BoardsTest, readTheirFileWhenSomebodyFirstAsksForThem) {
    const auto file = m_folder.path() / "market-cap.json";
    const auto elsewhere = m_folder.path() / "elsewhere.json";
    Simulator& binance = exchange();
    start({&binance});
    ASSERT_TRUE(refresh());
    const auto entries = marketCaps().entries();
    m_services.reset();
    std::filesystem::rename(file, elsewhere);
    start({&binance});
    std::filesystem::rename(elsewhere, file);
    ASSERT_FALSE(entries.empty());
    EXPECT_EQ(marketCaps().entries(), entries);
}

TEST_F(BoardsTest, keepAwayFromAServiceThatHasAskedUsTo) {
    Simulator& binance = exchange();
    binance.faults().onRequests({.kind = RequestFault::Kind::status,
                                 .times = 1,
                                 .pathPrefix = std::string(kMarketCapsPath),
                                 .status = 429,
                                 .retryAfter = std::chrono::seconds(119),
                                 .location = {}});
    start({&binance});
    ASSERT_TRUE(refresh());
    EXPECT_TRUE(*marketCaps().loadFailed());
    letPass(Seconds(118));
    ASSERT_TRUE(refresh());
    EXPECT_EQ(requestCount(binance, kMarketCapsPath), 1);
    EXPECT_THAT(m_log.lines("ServiceGate"),
                Contains("ServiceGate|default|market-cap answered 429: not asked again for 119 s"));
    // The exchange is another service.
    EXPECT_FALSE(*market().loadFailed());

    m_services.reset();
    start({&binance});
    ASSERT_TRUE(refresh());
    EXPECT_EQ(requestCount(binance, kMarketCapsPath), 1);
    letPass(Seconds(2));
    ASSERT_TRUE(refresh());
    EXPECT_EQ(requestCount(binance, kMarketCapsPath), 2);
    EXPECT_FALSE(*marketCaps().loadFailed());
}

TEST_F(BoardsTest, keepAwayFromAllHostsOfAnExchangeThatHasBannedUs) {
    Simulator& first = exchange();
    Simulator& second = exchange();
    start({&first, &second});
    ASSERT_TRUE(isSettled(first));
    first.faults().onRequests({.kind = RequestFault::Kind::status,
                               .times = 1,
                               .pathPrefix = std::string(kTickersPath),
                               .status = 418,
                               .retryAfter = std::chrono::seconds(600),
                               .location = {}});
    ASSERT_TRUE(refresh());
    letPass(Seconds(599));
    ASSERT_TRUE(refresh());
    EXPECT_TRUE(*market().loadFailed());
    EXPECT_EQ(requestCount(second, kTickersPath), 0);
    letPass(Seconds(2));
    ASSERT_TRUE(refresh());
    EXPECT_FALSE(*market().loadFailed());
    EXPECT_THAT(m_log.lines("ServiceGate"),
                ElementsAre("ServiceGate|default|exchange answered 418: not asked again for 600 s",
                            "ServiceGate|default|exchange may be asked again"));
}

TEST_F(BoardsTest, fetchALogoOnce) {
    Simulator& binance = exchange();
    start({&binance});
    std::vector<std::string> logos;
    TaskScope scope(*m_executor);
    const auto fetch = [&]() -> Task<void> {
        const std::optional<std::string> logo = co_await m_services->iconStore().iconData("btc");
        logos.push_back(logo.value_or(""));
    };
    for (int round = 1; round <= 2; ++round) {
        scope.spawn(fetch);
        ASSERT_TRUE(spinUntil([&] { return logos.size() == static_cast<std::size_t>(round); }));
    }
    EXPECT_EQ(logos[0].substr(0, 4), "\x89PNG");
    EXPECT_EQ(logos[0], logos[1]);
    EXPECT_EQ(requestCount(binance, "/icons/BTC.png"), 1);
}

TEST_F(BoardsTest, askAgainForAMissingLogoOnAnotherNetwork) {
    Simulator& binance = exchange();
    start({&binance});
    TaskScope scope(*m_executor);
    IconStore& icons = m_services->iconStore();
    const auto asking = scope.spawn(
        [&icons]() -> Task<void> { static_cast<void>(co_await icons.iconData("nosuchcoin")); });
    ASSERT_TRUE(spinUntil([&] { return !asking.isRunning(); }));
    ASSERT_TRUE(icons.isMissing("nosuchcoin"));
    m_services->resume();
    EXPECT_FALSE(icons.isMissing("nosuchcoin"));
}

}  // namespace

}  // namespace quillbar
