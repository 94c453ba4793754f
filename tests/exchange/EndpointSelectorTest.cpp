// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/exchange/BinanceEndpoints.h"
#include "QuillbarCore/exchange/EndpointSelector.h"
#include "tests/support/CapturedLog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace quillbar {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

int currentIndex(const EndpointSelector& selector) {
    const auto endpoint = selector.current();
    return endpoint ? endpoint->index : -1;
}

void walkTo(EndpointSelector& selector, int index) {
    for (int failed = 0; failed < index; ++failed) {
        selector.markFailed(failed);
    }
}

}  // namespace

TEST(BinanceEndpointsTest, listsTheRESTBasesInTheirOrder) {
    EXPECT_THAT(BinanceEndpoints::rest(),
                ElementsAre("https://api.binance.com/api/v3",
                            "https://data-api.binance.vision/api/v3",
                            "https://api1.binance.com/api/v3",
                            "https://api2.binance.com/api/v3",
                            "https://api3.binance.com/api/v3",
                            "https://api4.binance.com/api/v3"));
}

TEST(BinanceEndpointsTest, listsTheStreamBasesInTheirOrder) {
    EXPECT_THAT(BinanceEndpoints::stream(),
                ElementsAre("wss://stream.binance.com:9443",
                            "wss://data-stream.binance.vision:443",
                            "wss://stream.binance.com:443"));
}

TEST(EndpointSelectorTest, beginsWithTheFirst) {
    const EndpointSelector selector(BinanceEndpoints::rest());
    EXPECT_EQ(selector.count(), 6);
    EXPECT_EQ(selector.current(),
              (EndpointSelector::Endpoint{"https://api.binance.com/api/v3", 0}));
}

TEST(EndpointSelectorTest, tellsOfEachFailureOfTheLast) {
    int exhausted = 0;
    EndpointSelector selector({"one", "two"}, [&exhausted] { ++exhausted; });
    selector.markFailed(0);
    EXPECT_EQ(exhausted, 0);
    selector.markFailed(0);
    EXPECT_EQ(exhausted, 0);
    selector.markFailed(1);
    selector.markFailed(1);
    EXPECT_EQ(exhausted, 2);
    EXPECT_EQ(currentIndex(selector), 1);
}

TEST(EndpointSelectorTest, movesOnceForTwoFailuresOfTheSameEndpoint) {
    const CapturedLog log;
    EndpointSelector selector(BinanceEndpoints::rest());
    selector.markFailed(0);
    selector.markFailed(0);
    EXPECT_EQ(selector.current(),
              (EndpointSelector::Endpoint{"https://data-api.binance.vision/api/v3", 1}));
    EXPECT_THAT(log.lines(),
                ElementsAre("Endpoint|default|switching endpoint to "
                            "https://data-api.binance.vision/api/v3"));
}

TEST(EndpointSelectorTest, staysOnTheLast) {
    EndpointSelector selector(BinanceEndpoints::rest());
    walkTo(selector, 5);
    const CapturedLog log;
    selector.markFailed(5);
    EXPECT_EQ(selector.current(),
              (EndpointSelector::Endpoint{"https://api4.binance.com/api/v3", 5}));
    EXPECT_THAT(log.lines(), IsEmpty());
}

TEST(EndpointSelectorTest, ignoresTheFailureOfAnotherEndpoint) {
    EndpointSelector selector(BinanceEndpoints::rest());
    walkTo(selector, 1);
    const CapturedLog log;
    for (const int other : {-1, 0, 2, 3, 6}) {
        selector.markFailed(other);
        EXPECT_EQ(currentIndex(selector), 1) << other;
    }
    EXPECT_THAT(log.lines(), IsEmpty());
}

TEST(EndpointSelectorTest, hasNoCurrentEndpointInAnEmptyList) {
    const CapturedLog log;
    EndpointSelector selector({});
    EXPECT_EQ(selector.count(), 0);
    EXPECT_EQ(selector.current(), std::nullopt);
    selector.markFailed(0);
    EXPECT_EQ(selector.current(), std::nullopt);
    EXPECT_THAT(log.lines(), IsEmpty());
}

}  // namespace quillbar
