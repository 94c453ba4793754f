// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/alerts/AlertBook.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <vector>

namespace quillbar {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

Alert alertOn(AlertKind kind, double threshold, std::optional<double> margin = std::nullopt) {
    return {.symbol = "BTCUSDT",
            .baseAsset = "BTC",
            .kind = kind,
            .threshold = threshold,
            .margin = margin,
            .isArmed = true};
}

struct AlertBookTest : testing::Test {
    std::int64_t add(Alert alert, AlertBook::Latest latest = AlertBook::Latest::live) {
        alert.id = ++lastId;
        book.add(alert, latest);
        return alert.id;
    }
    /// The ids of what the price fired; one that fired across a gap is negative.
    std::vector<std::int64_t> price(double last, double open = 100) {
        std::vector<std::int64_t> fired;
        for (const AlertBook::Firing& each : book.take("BTCUSDT", {last, open}).fired) {
            fired.push_back(each.isMeanwhile ? -each.alert.id : each.alert.id);
        }
        return fired;
    }

    AlertBook book;
    std::int64_t lastId = 0;
};

TEST_F(AlertBookTest, firesOnTheLineAndBeyondIt) {
    add(alertOn(AlertKind::priceAtLeast, 110));
    EXPECT_THAT(price(109.99), IsEmpty());
    EXPECT_THAT(price(110), ElementsAre(1));
    add(alertOn(AlertKind::priceAtMost, 90));
    EXPECT_THAT(price(90.01), IsEmpty());
    EXPECT_THAT(price(89), ElementsAre(2));
}

TEST_F(AlertBookTest, firesByTheChangeOver24Hours) {
    add(alertOn(AlertKind::changeAtLeast, 5));
    add(alertOn(AlertKind::changeAtMost, -5));
    EXPECT_THAT(price(104.9), IsEmpty());
    EXPECT_THAT(price(105), ElementsAre(1));
    EXPECT_THAT(price(95), ElementsAre(2));
}

TEST_F(AlertBookTest, anAlertThatFiresOnceIsGoneThen) {
    add(alertOn(AlertKind::priceAtLeast, 110));
    EXPECT_THAT(price(111), ElementsAre(1));
    EXPECT_TRUE(book.isEmpty());
    EXPECT_THAT(price(100), IsEmpty());
    EXPECT_THAT(price(111), IsEmpty());
}

TEST_F(AlertBookTest, oneCrossingFiresOnce) {
    add(alertOn(AlertKind::priceAtLeast, 110, 5));
    EXPECT_THAT(price(111), ElementsAre(1));
    EXPECT_THAT(price(111), IsEmpty()) << "the same price again";
    EXPECT_THAT(price(109), IsEmpty());
    EXPECT_THAT(price(112), IsEmpty()) << "it has not gone back by the margin";
    EXPECT_THAT(price(105), IsEmpty());
    EXPECT_THAT(price(110), ElementsAre(1));
}

TEST_F(AlertBookTest, aFallingAlertIsArmedAgainFromAbove) {
    add(alertOn(AlertKind::priceAtMost, 90, 5));
    EXPECT_THAT(price(90), ElementsAre(1));
    EXPECT_THAT(price(94.9), IsEmpty());
    EXPECT_THAT(price(89), IsEmpty());
    EXPECT_THAT(price(95), IsEmpty());
    EXPECT_THAT(price(89), ElementsAre(1));
}

TEST_F(AlertBookTest, whatIsNotArmedFiresOnlyAfterAPriceOnTheNearSide) {
    Alert alert = alertOn(AlertKind::priceAtLeast, 110);
    alert.isArmed = false;
    add(alert);
    EXPECT_THAT(price(120), IsEmpty());
    EXPECT_THAT(price(110), IsEmpty());
    EXPECT_FALSE(book.alerts().front().isArmed);
    EXPECT_TRUE(book.take("BTCUSDT", {109.99, 100}).hasChanged);
    EXPECT_TRUE(book.alerts().front().isArmed);
    EXPECT_THAT(price(110), ElementsAre(1));
}

TEST_F(AlertBookTest, aLineThatWasCrossedInAGapIsToldAsSuch) {
    add(alertOn(AlertKind::priceAtLeast, 110));
    add(alertOn(AlertKind::priceAtLeast, 130));
    EXPECT_THAT(price(100), IsEmpty());
    book.markGap();
    EXPECT_THAT(price(120), ElementsAre(-1));
    EXPECT_THAT(price(130), ElementsAre(2)) << "the next price has no gap before it";
}

TEST_F(AlertBookTest, anAlertThatIsSwitchedOffNeitherFiresNorIsArmed) {
    Alert off = alertOn(AlertKind::priceAtLeast, 110, 5);
    off.isOn = false;
    add(off);
    off.isArmed = false;
    add(off);
    EXPECT_FALSE(book.isEmpty());
    EXPECT_FALSE(book.waitsForPrices());
    for (const double last : {100.0, 111.0, 100.0}) {
        const AlertBook::Outcome outcome = book.take("BTCUSDT", {last, 100});
        EXPECT_THAT(outcome.fired, IsEmpty()) << last;
        EXPECT_FALSE(outcome.hasChanged) << last;
    }
    EXPECT_FALSE(book.find(2)->isArmed);
    book.remove(1);
    EXPECT_EQ(book.find(1), nullptr);
    EXPECT_EQ(book.removeAllOf("BTCUSDT").size(), 1U);
    EXPECT_TRUE(book.isEmpty());
}

TEST_F(AlertBookTest, anAlertThatIsOffDoesNotCountAsTheFirstOfItsPair) {
    Alert off = alertOn(AlertKind::priceAtLeast, 110);
    off.isOn = false;
    add(off);
    book.markGap();
    add(alertOn(AlertKind::priceAtLeast, 110), AlertBook::Latest::live);
    EXPECT_THAT(price(111), ElementsAre(2)) << "its pair's price was live";
}

TEST_F(AlertBookTest, theGapsBeforeAPairHadAlertsAgainDoNotCount) {
    add(alertOn(AlertKind::priceAtLeast, 110));
    EXPECT_THAT(price(110), ElementsAre(1));
    book.markGap();
    add(alertOn(AlertKind::priceAtLeast, 120), AlertBook::Latest::live);
    EXPECT_THAT(price(120), ElementsAre(2));
    add(alertOn(AlertKind::priceAtLeast, 130), AlertBook::Latest::old);
    EXPECT_THAT(price(130), ElementsAre(-3));
}

TEST_F(AlertBookTest, nothingIsKnownBeforeTheFirstPrice) {
    add(alertOn(AlertKind::priceAtLeast, 110), AlertBook::Latest::old);
    EXPECT_THAT(price(120), ElementsAre(-1));
}

TEST_F(AlertBookTest, aGapCountsForEachPairAlone) {
    add(alertOn(AlertKind::priceAtLeast, 110));
    Alert other = alertOn(AlertKind::priceAtLeast, 110);
    other.symbol = "ETHUSDT";
    add(other);
    book.markGap();
    EXPECT_THAT(price(100), IsEmpty());
    EXPECT_THAT(price(110), ElementsAre(1));
    const AlertBook::Outcome outcome = book.take("ETHUSDT", {110, 100});
    ASSERT_EQ(outcome.fired.size(), 1U);
    EXPECT_TRUE(outcome.fired.front().isMeanwhile);
}

TEST_F(AlertBookTest, whatIsNoPriceChangesNothing) {
    add(alertOn(AlertKind::priceAtMost, 90));
    add(alertOn(AlertKind::priceAtLeast, 110));
    add(alertOn(AlertKind::changeAtMost, -5));
    for (const double wrong : {0.0, -1.0, kNoNumber, kInfinity, -kInfinity}) {
        EXPECT_THAT(price(wrong), IsEmpty()) << wrong;
    }
    for (const double wrong : {0.0, -1.0, kNoNumber, kInfinity}) {
        EXPECT_THAT(price(100, wrong), IsEmpty()) << wrong;
    }
    EXPECT_THAT(book.take("XUSDT", {500, 100}).fired, IsEmpty());
    EXPECT_EQ(book.alerts().size(), 3U);
}

TEST_F(AlertBookTest, aWrongOpenIsNoChange) {
    add(alertOn(AlertKind::changeAtMost, 2));
    for (const double wrong : {0.0, -100.0, kNoNumber, kInfinity}) {
        EXPECT_THAT(price(110, wrong), IsEmpty()) << wrong;
    }
    EXPECT_THAT(price(102), ElementsAre(1));
}

TEST_F(AlertBookTest, aWrongPriceDoesNotEndAGap) {
    add(alertOn(AlertKind::priceAtLeast, 110));
    book.markGap();
    EXPECT_THAT(price(0), IsEmpty());
    EXPECT_THAT(price(110), ElementsAre(-1));
}

TEST_F(AlertBookTest, firesEveryLineThatAPriceJumpsOver) {
    for (const double threshold : {120.0, 101.0, 110.0, 150.0}) {
        add(alertOn(AlertKind::priceAtLeast, threshold));
    }
    EXPECT_THAT(price(130), ElementsAre(2, 3, 1));
    EXPECT_EQ(book.alerts().size(), 1U);
}

TEST_F(AlertBookTest, removedAlertsFireNoMore) {
    add(alertOn(AlertKind::priceAtLeast, 110));
    add(alertOn(AlertKind::priceAtLeast, 110, 5));
    book.remove(1);
    book.remove(77);
    EXPECT_THAT(price(110), ElementsAre(2));
    book.remove(2);
    EXPECT_THAT(price(100), IsEmpty()) << "not even armed again";
    EXPECT_TRUE(book.isEmpty());
}

TEST_F(AlertBookTest, theAlertsOfAPairGoTogether) {
    add(alertOn(AlertKind::priceAtLeast, 110));
    Alert other = alertOn(AlertKind::priceAtLeast, 110);
    other.symbol = "ETHUSDT";
    add(other);
    add(alertOn(AlertKind::changeAtMost, -5));
    const std::vector<Alert> removed = book.removeAllOf("BTCUSDT");
    ASSERT_EQ(removed.size(), 2U);
    EXPECT_EQ(removed.front().id, 1);
    EXPECT_EQ(removed.back().id, 3);
    EXPECT_THAT(price(1), IsEmpty());
    EXPECT_EQ(book.alerts().size(), 1U);
}

/// Every alert is asked at every price: slow, and plain enough to be believed.
struct NaiveBook {
    std::vector<Alert> alerts;

    std::vector<std::int64_t> take(const Ticker& ticker) {
        std::vector<std::int64_t> fired;
        std::vector<Alert> left;
        for (Alert alert : alerts) {
            const double value =
                watchesPrice(alert.kind) ? ticker.lastPrice : ticker.changePercent24h();
            const double level = alert.rearmLevel();
            const bool isBack = isRising(alert.kind) ? value <= level : value >= level;
            if (alert.isArmed && alert.isReachedBy(value)) {
                fired.push_back(alert.id);
                if (!alert.margin) {
                    continue;
                }
                alert.isArmed = false;
            } else if (!alert.isArmed && isBack) {
                alert.isArmed = true;
            }
            left.push_back(alert);
        }
        alerts = left;
        return fired;
    }
};

TEST_F(AlertBookTest, doesWhatAskingEveryAlertWouldDo) {
    NaiveBook naive;
    std::uint32_t state = 1;
    const auto next = [&state](std::uint32_t below) {
        state = state * 1664525U + 1013904223U;
        return (state >> 16U) % below;
    };
    for (int round = 0; round < 500; ++round) {
        if (next(4) == 0) {
            const auto kind = kAllAlertKinds.at(next(4));
            Alert alert = alertOn(kind, watchesPrice(kind) ? 80 + next(40) : next(40) - 20.0);
            if (next(2) == 0) {
                alert.margin = 1 + next(5);
            }
            alert.isArmed = next(2) == 0;
            alert.id = add(alert);
            naive.alerts.push_back(alert);
        }
        const Ticker ticker{80.0 + next(40), 100};
        std::vector<std::int64_t> fired = price(ticker.lastPrice);
        std::sort(fired.begin(), fired.end());
        ASSERT_EQ(fired, naive.take(ticker)) << round;
        ASSERT_EQ(book.alerts(), naive.alerts) << round;
    }
}

}  // namespace
}  // namespace quillbar
