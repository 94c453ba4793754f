// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/exchange/HostBreakers.h"
#include "tests/manual/ManualExecutor.h"
#include "tests/manual/ManualTime.h"
#include "tests/support/CapturedLog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string_view>
#include <variant>
#include <vector>

namespace quillbar {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr std::string_view kOne = "https://one.test/api/x?a=b";
constexpr std::string_view kTwo = "https://two.test/api/x?a=b";

/// Two hosts. The jitter notes what it is asked and changes nothing.
struct HostBreakersTest : ::testing::Test {
    void fail(int times = 1, std::string_view url = kOne, int status = 503) {
        for (int failure = 0; failure < times; ++failure) {
            breakers.begin(url).failed(status);
        }
    }

    void succeed(std::string_view url = kOne) { breakers.begin(url).succeeded(); }

    [[nodiscard]] bool isAsked(std::string_view url = kOne) const {
        return !breakers.refusal(url).has_value();
    }

    CapturedLog log;
    ManualExecutor executor;
    ManualTime time{executor};
    std::vector<double> jittered;
    HostBreakers breakers{time.clock(), [this](double seconds) {
                              jittered.push_back(seconds);
                              return seconds;
                          }};
};

}  // namespace

TEST_F(HostBreakersTest, askAHostThatFailsTwice) {
    EXPECT_TRUE(isAsked());
    fail(2);
    EXPECT_TRUE(isAsked());
    succeed();
    fail(2);
    EXPECT_TRUE(isAsked()) << "only failures in a row count";
    EXPECT_THAT(jittered, IsEmpty());
    EXPECT_THAT(log.lines(), IsEmpty());
}

TEST_F(HostBreakersTest, pauseForAHostThatFailsThreeTimesInARow) {
    fail(3);
    EXPECT_FALSE(isAsked());
    time.advance(Seconds(1.9));
    EXPECT_FALSE(isAsked());
    time.advance(Seconds(0.1));
    EXPECT_TRUE(isAsked());
}

TEST_F(HostBreakersTest, repeatTheLastFailure) {
    fail(2);
    fail(1, kOne, 502);
    EXPECT_EQ(std::get<int>(breakers.refusal(kOne).value()), 502);
    time.advance(Seconds(2));
    const auto error = std::make_exception_ptr(42);
    breakers.begin(kOne).failed(error);
    EXPECT_EQ(std::get<std::exception_ptr>(breakers.refusal(kOne).value()), error);
}

TEST_F(HostBreakersTest, doubleThePauseUpToAMinute) {
    fail(3);
    for (const double pause : {2, 4, 8, 16, 32, 60, 60}) {
        EXPECT_EQ(jittered.back(), pause);
        time.advance(Seconds(pause - 0.1));
        EXPECT_FALSE(isAsked());
        time.advance(Seconds(0.1));
        ASSERT_TRUE(isAsked());
        fail();
    }
}

TEST_F(HostBreakersTest, pauseAsLongAsTheJitterSays) {
    HostBreakers jittery(time.clock(), [](double seconds) { return seconds * 1.2; });
    for (int failure = 0; failure < 3; ++failure) {
        jittery.begin(kOne).failed(503);
    }
    time.advance(Seconds(2.3));
    EXPECT_TRUE(jittery.refusal(kOne).has_value());
    time.advance(Seconds(0.1));
    EXPECT_FALSE(jittery.refusal(kOne).has_value());
}

TEST_F(HostBreakersTest, sendOneRequestAfterAPause) {
    fail(3);
    time.advance(Seconds(2));
    ASSERT_TRUE(isAsked());
    {
        HostBreakers::Attempt probe = breakers.begin(kOne);
        EXPECT_FALSE(isAsked()) << "the others wait for what becomes of it";
        probe.succeeded();
    }
    EXPECT_TRUE(isAsked());
    fail(2);
    EXPECT_TRUE(isAsked()) << "one success, and it is as good as new";
}

TEST_F(HostBreakersTest, sendAnotherRequestWhenTheOneAfterAPauseIsCancelled) {
    fail(3);
    time.advance(Seconds(2));
    { const HostBreakers::Attempt cancelled = breakers.begin(kOne); }
    EXPECT_TRUE(isAsked());
    EXPECT_THAT(jittered, ElementsAre(2));
}

TEST_F(HostBreakersTest, countRequestsThatFailTogetherAsThree) {
    std::vector<std::unique_ptr<HostBreakers::Attempt>> attempts;
    for (int request = 0; request < 100; ++request) {
        attempts.emplace_back(new HostBreakers::Attempt(breakers.begin(kOne)));
    }
    for (const auto& attempt : attempts) {
        attempt->failed(503);
    }
    EXPECT_THAT(jittered, ElementsAre(2));
    time.advance(Seconds(2));
    EXPECT_TRUE(isAsked());
}

TEST_F(HostBreakersTest, countNoRequestFromBeforeThePauseThatFailsAfterIt) {
    HostBreakers::Attempt early = breakers.begin(kOne);
    fail(3);
    time.advance(Seconds(2));
    early.failed(503);
    EXPECT_THAT(jittered, ElementsAre(2));
    EXPECT_TRUE(isAsked());
    fail();
    EXPECT_THAT(jittered, ElementsAre(2, 4));
    EXPECT_FALSE(isAsked());
}

TEST_F(HostBreakersTest, giveEachHostItsOwnPause) {
    fail(3);
    EXPECT_TRUE(isAsked(kTwo));
    EXPECT_FALSE(isAsked("https://one.test/another/path"));
    EXPECT_FALSE(isAsked("https://one.test?query"));
    EXPECT_FALSE(isAsked("https://one.test"));
    EXPECT_TRUE(isAsked("https://one.test:8443/api/x"));
    EXPECT_TRUE(isAsked("http://one.test/api/x"));
    fail(3, kTwo);
    succeed(kOne);
    EXPECT_TRUE(isAsked(kOne));
    EXPECT_FALSE(isAsked(kTwo));
}

TEST_F(HostBreakersTest, endEveryPauseWhenToldTo) {
    fail(3);
    fail(3, kTwo);
    breakers.forget();
    EXPECT_TRUE(isAsked(kOne));
    EXPECT_TRUE(isAsked(kTwo));
    fail(2);
    EXPECT_TRUE(isAsked());
}

TEST_F(HostBreakersTest, areNotHeldByAClockThatWasSetBack) {
    fail(3);
    time.setClock(time.now() - Seconds(3600));
    EXPECT_TRUE(isAsked());
}

TEST_F(HostBreakersTest, logWhenAHostIsPausedForAndWhenItAnswersAgain) {
    fail(3);
    time.advance(Seconds(2));
    fail();
    time.advance(Seconds(4));
    succeed();
    succeed();
    EXPECT_THAT(log.lines(),
                ElementsAre("ServiceGate|default|https://one.test has failed 3 times in a row, "
                            "asking it less often",
                            "ServiceGate|default|https://one.test answers again"));
}

}  // namespace quillbar
