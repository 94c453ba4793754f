// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/exchange/URLError.h"
#include "tests/state/AppStateFixture.h"

#include <gtest/gtest.h>

#include <optional>

namespace quillbar {
namespace {

struct AppStateRegionTest : AppStateFixture {};

TEST_F(AppStateRegionTest, tellsThatNoServerServesThisRegion) {
    const ConnectionFailure notHere{.kind = ConnectionFailure::Kind::notServedHere};
    const ConnectionFailure late{.kind = ConnectionFailure::Kind::timedOut};
    const auto failSnapshot = [this](URLError::Code code) {
        api.ticker24hAnswers.error(URLError(code, "failed"));
        run(state->refreshSnapshot());
    };
    start();
    stream.fails(late);
    failSnapshot(URLError::Code::notServedHere);
    EXPECT_EQ(*state->connectionFailure(), notHere);
    failSnapshot(URLError::Code::timedOut);
    EXPECT_EQ(*state->connectionFailure(), late);
    failSnapshot(URLError::Code::notServedHere);
    EXPECT_EQ(*state->connectionFailure(), notHere);
    run(state->refreshSnapshot());
    EXPECT_EQ(*state->connectionFailure(), late);
}

TEST_F(AppStateRegionTest, doesNotBlameTheRegionForAMissingNetwork) {
    start();
    api.ticker24hAnswers.error(URLError(URLError::Code::notServedHere, "failed"));
    run(state->refreshSnapshot());
    for (const auto kind :
         {ConnectionFailure::Kind::hostNotFound, ConnectionFailure::Kind::cannotConnect}) {
        const ConnectionFailure away{.kind = kind};
        stream.fails(away);
        EXPECT_EQ(*state->connectionFailure(), away);
    }
}

TEST_F(AppStateRegionTest, asksOnceAMinuteWhetherTheRegionIsServedWhenAStreamIsRefusedForIt) {
    const ConnectionFailure refused{.kind = ConnectionFailure::Kind::refused, .httpStatus = 451};
    const ConnectionFailure otherwise{.kind = ConnectionFailure::Kind::refused, .httpStatus = 403};
    startConnected(listOf({"BTC"}));
    const std::size_t before = api.ticker24hRequests.size();
    const auto failWith = [this](const ConnectionFailure& failure) {
        stream.fails(failure);
        executor.run();
    };
    failWith(otherwise);
    EXPECT_EQ(api.ticker24hRequests.size(), before);
    api.ticker24hAnswers.error(URLError(URLError::Code::notServedHere, "failed"));
    failWith(refused);
    EXPECT_EQ(api.ticker24hRequests.size(), before + 1);
    EXPECT_EQ(*state->connectionFailure(),
              ConnectionFailure{.kind = ConnectionFailure::Kind::notServedHere});
    time.advance(Seconds(59));
    failWith(otherwise);
    failWith(refused);
    EXPECT_EQ(api.ticker24hRequests.size(), before + 1);
    time.advance(Seconds(1));
    failWith(otherwise);
    failWith(refused);
    EXPECT_EQ(api.ticker24hRequests.size(), before + 2);
    EXPECT_EQ(*state->connectionFailure(), refused);
}

TEST_F(AppStateRegionTest, doesNotBlameTheRegionOncePricesHaveStreamed) {
    start();
    api.ticker24hAnswers.error(URLError(URLError::Code::notServedHere, "failed"));
    run(state->refreshSnapshot());
    EXPECT_EQ(*state->connectionFailure(), std::nullopt);
    stream.ticker("BTCUSDT", Ticker{100, 90, 5000});
    executor.run();
    const ConnectionFailure lost{.kind = ConnectionFailure::Kind::lost};
    stream.fails(lost);
    EXPECT_EQ(*state->connectionFailure(), lost);
}

}  // namespace
}  // namespace quillbar
