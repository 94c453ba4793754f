// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/exchange/PriceStreamClient.h"
#include "tests/exchange/PriceStreamFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <vector>

namespace quillbar {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Failure = ConnectionFailure;
using Kind = ConnectionFailure::Kind;

class PriceStreamFailureTest : public ::testing::Test,
                               public PriceStreamSession {
protected:
    using PriceStreamSession::PriceStreamSession;

    void breaksWith(URLError::Code code) {
        connections.last().fail("for the log", code);
        executor.run();
    }
    [[nodiscard]] std::optional<Failure> failure() const { return *client->failure(); }
};

struct PriceStreamWithoutEndpointTest : PriceStreamFailureTest {
    PriceStreamWithoutEndpointTest()
        : PriceStreamFailureTest(std::vector<std::string>{}) {}
};

TEST_F(PriceStreamFailureTest, isUnknownBeforeTheFirstAttemptHasEnded) {
    EXPECT_EQ(failure(), std::nullopt);
    watch({"BTCUSDT"});
    EXPECT_EQ(failure(), std::nullopt);
}

TEST_F(PriceStreamFailureTest, isWhatEndedTheLastAttempt) {
    watch({"BTCUSDT"});
    breaksWith(URLError::Code::cannotFindHost);
    EXPECT_EQ(failure(), Failure{.kind = Kind::hostNotFound});
    advance(1);
    breaksWith(URLError::Code::timedOut);
    EXPECT_EQ(failure(), Failure{.kind = Kind::timedOut});
    advance(2);
    closeByServer();
    EXPECT_EQ(failure(), Failure{.kind = Kind::closedByServer});
}

TEST_F(PriceStreamFailureTest, lastsUntilAConnectionDelivers) {
    watch({"BTCUSDT"});
    breaksWith(URLError::Code::timedOut);
    advance(1);
    takeEvents();
    EXPECT_EQ(failure(), Failure{.kind = Kind::timedOut}) << "an attempt alone proves nothing";
    frame("BTCUSDT", "65000");
    EXPECT_EQ(failure(), std::nullopt);
    EXPECT_THAT(takeEvents(), ElementsAre("BTCUSDT 65000"));
}

TEST_F(PriceStreamFailureTest, endsWithAFrameThatCannotBeRead) {
    watch({"BTCUSDT"});
    breaksWith(URLError::Code::timedOut);
    advance(1);
    message("no JSON");
    EXPECT_EQ(failure(), std::nullopt);
}

TEST_F(PriceStreamFailureTest, isToldOnceForEachCause) {
    std::vector<std::optional<Failure>> told;
    const Observation observation =
        client->failure().observe([&](const auto& failure) { told.push_back(failure); });
    watch({"BTCUSDT"});
    breaksWith(URLError::Code::timedOut);
    advance(1);
    breaksWith(URLError::Code::timedOut);
    advance(2);
    frame("BTCUSDT", "65000");
    frame("BTCUSDT", "65001");
    EXPECT_THAT(told, ElementsAre(Failure{.kind = Kind::timedOut}, std::nullopt));
}

TEST_F(PriceStreamFailureTest, isKeptWhileOtherPairsAreTried) {
    watch({"BTCUSDT"});
    breaksWith(URLError::Code::connectionLost);
    watch({"ETHUSDT"});
    EXPECT_EQ(failure(), Failure{.kind = Kind::lost});
}

TEST_F(PriceStreamFailureTest, isAbsentForAConnectionThatWasReplacedOrStopped) {
    watch({"BTCUSDT"});
    frame("BTCUSDT", "65000");
    watch({"ETHUSDT"});
    EXPECT_EQ(failure(), std::nullopt);
    stop();
    EXPECT_EQ(failure(), std::nullopt);
}

TEST_F(PriceStreamFailureTest, isForgottenWhenNothingIsToBeStreamed) {
    watch({"BTCUSDT"});
    breaksWith(URLError::Code::connectionLost);
    stop();
    EXPECT_EQ(failure(), std::nullopt);
    watch({"BTCUSDT"});
    breaksWith(URLError::Code::connectionLost);
    watch({});
    EXPECT_EQ(failure(), std::nullopt);
}

TEST_F(PriceStreamWithoutEndpointTest, failsBecauseNoServerIsLeft) {
    watch({"BTCUSDT"});
    EXPECT_EQ(failure(), Failure{.kind = Kind::noServer});
    EXPECT_THAT(takeEvents(), ElementsAre("disconnected"));
    EXPECT_THAT(urls(), IsEmpty());
}

}  // namespace

}  // namespace quillbar
