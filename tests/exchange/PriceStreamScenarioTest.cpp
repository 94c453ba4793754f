// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/exchange/PriceStreamFixture.h"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

// One session with the exchange, disturbed before its first step, then before its second, and so
// on, until it runs to its end: by the network, by the user, by the machine.

namespace quillbar {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

using Step = std::function<void(PriceStreamSession&)>;

const std::vector<Step>& script() {
    static const std::vector<Step> steps{
        [](auto& session) { session.watch({"BTCUSDT"}); },
        [](auto& session) { session.frame("BTCUSDT", "1"); },
        [](auto& session) { session.message("bad"); },
        [](auto& session) { session.advance(31); },
        [](auto& session) { session.frame("BTCUSDT", "2"); },
        [](auto& session) { session.closeByServer(); },
        [](auto& session) { session.advance(0.5); },
        [](auto& session) { session.advance(0.5); },
        [](auto& session) { session.advance(29); },
        [](auto& session) { session.fail(); },
        [](auto& session) { session.advance(2); },
        [](auto& session) { session.frame("BTCUSDT", "3"); },
    };
    return steps;
}

// Which events may follow which; "" stands for the beginning.
bool mayFollow(const std::string& before, const std::string& event) {
    static const std::map<std::string, std::set<std::string>> allowed{
        {"", {"connecting", "disconnected"}},
        {"connecting", {"connected"}},
        {"connected", {"price", "waitingRetry", "connecting", "disconnected"}},
        {"price", {"price", "waitingRetry", "connecting", "disconnected"}},
        {"waitingRetry", {"connecting", "disconnected"}},
        {"disconnected", {"connecting", "disconnected"}},
    };
    return allowed.at(before).contains(event);
}

std::string kind(const std::string& event) {
    return event.starts_with("BTCUSDT ") ? "price" : event;
}

// Names the first rule that is broken, or nothing.
std::string broken(PriceStreamSession& session, std::vector<std::string>& all) {
    for (const std::string& event : session.takeEvents()) {
        const std::string before = all.empty() ? "" : all.back();
        if (!mayFollow(before, kind(event))) {
            return fmt::format(R"("{}" follows "{}")", event, before);
        }
        all.push_back(kind(event));
    }
    const std::string last = all.empty() ? "disconnected" : all.back();
    const bool isConnected = last == "connected" || last == "price";
    if (session.openCount() != (isConnected ? 1U : 0U)) {
        return fmt::format("{} connections are open in the state {}", session.openCount(), last);
    }
    if (session.time.sleepingCount() != (last == "waitingRetry" ? 1U : 0U)) {
        return fmt::format("{} waits in the state {}", session.time.sleepingCount(), last);
    }
    return {};
}

// Runs the session with `disturb` before each of its steps in turn, and after the last; `after`
// sees what becomes of it.
void disturbEverywhere(const Step& disturb, const Step& after) {
    for (std::size_t when = 0; when <= script().size(); ++when) {
        SCOPED_TRACE(fmt::format("disturbed before step {}", when));
        PriceStreamSession session;
        std::vector<std::string> all;
        for (std::size_t step = 0; step < when; ++step) {
            script()[step](session);
            ASSERT_EQ(broken(session, all), "") << "after step " << step;
        }
        disturb(session);
        if (session.client) {
            ASSERT_EQ(broken(session, all), "") << "after the disturbance";
        }
        after(session);
    }
}

void expectPriceArrives(PriceStreamSession& session) {
    session.advance(60);
    session.takeEvents();
    session.frame("BTCUSDT", "9");
    EXPECT_THAT(session.takeEvents(), ElementsAre("BTCUSDT 9"));
    EXPECT_EQ(session.openCount(), 1U);
}

void disturbConnection(PriceStreamSession& session, const Step& disturb) {
    if (session.connections.made.empty()) {
        session.watch({"BTCUSDT"});
    }
    disturb(session);
}

}  // namespace

TEST(PriceStreamScenarioTest, runsToItsEndUndisturbed) {
    PriceStreamSession session;
    std::vector<std::string> all;
    for (const Step& step : script()) {
        step(session);
        ASSERT_EQ(broken(session, all), "");
    }
    EXPECT_THAT(all,
                ElementsAre("connecting",
                            "connected",
                            "price",
                            "price",
                            "waitingRetry",
                            "connecting",
                            "connected",
                            "waitingRetry",
                            "connecting",
                            "connected",
                            "price"));
    EXPECT_THAT(session.time.requested, ElementsAre(1, 2));
}

TEST(PriceStreamScenarioTest, recoversFromAFailureAtEveryStep) {
    disturbEverywhere(
        [](auto& session) { disturbConnection(session, [](auto& own) { own.fail(); }); },
        expectPriceArrives);
}

TEST(PriceStreamScenarioTest, recoversFromAFarewellAtEveryStep) {
    disturbEverywhere(
        [](auto& session) { disturbConnection(session, [](auto& own) { own.closeByServer(); }); },
        expectPriceArrives);
}

TEST(PriceStreamScenarioTest, recoversFromThreeFailuresInARowAtEveryStep) {
    disturbEverywhere(
        [](auto& session) {
            for (int count = 0; count < 3; ++count) {
                disturbConnection(session, [](auto& own) { own.fail(); });
                session.advance(8);
            }
        },
        expectPriceArrives);
}

TEST(PriceStreamScenarioTest, takesOtherSymbolsAtEveryStep) {
    disturbEverywhere(
        [](auto& session) {
            session.watch({"BTCUSDT", "ETHUSDT"});
        },
        [](auto& session) {
            EXPECT_TRUE(session.urls().back().ends_with(
                "/stream?streams=btcusdt@miniTicker/ethusdt@miniTicker"));
            expectPriceArrives(session);
        });
}

TEST(PriceStreamScenarioTest, takesTheSameSymbolsAgainAtEveryStep) {
    disturbEverywhere(
        [](auto& session) {
            const auto made = session.connections.made.size();
            session.watch({"BTCUSDT"});
            EXPECT_EQ(session.connections.made.size(), made + 1);
        },
        expectPriceArrives);
}

TEST(PriceStreamScenarioTest, stopsAtEveryStep) {
    disturbEverywhere([](auto& session) { session.stop(); },
                      [](auto& session) {
                          session.advance(1000);
                          EXPECT_THAT(session.takeEvents(), IsEmpty());
                          EXPECT_EQ(session.openCount(), 0U);
                          session.watch({"BTCUSDT"});
                          expectPriceArrives(session);
                      });
}

TEST(PriceStreamScenarioTest, leavesNothingWhenDestroyedAtEveryStep) {
    disturbEverywhere([](auto& session) { session.destroy(); },
                      [](auto& session) {
                          const auto made = session.connections.made.size();
                          EXPECT_EQ(session.openCount(), 0U);
                          EXPECT_EQ(session.time.sleepingCount(), 0U);
                          session.advance(1000);
                          EXPECT_EQ(session.connections.made.size(), made);
                          EXPECT_EQ(session.takeEvents().back(), "ended");
                      });
}

TEST(PriceStreamScenarioTest, leavesNothingWhenDestroyedWithWorkQueuedAtEveryStep) {
    disturbEverywhere(
        [](auto& session) {
            TaskScope scope(session.executor);
            scope.spawn(session.client->setSymbols({"BTCUSDT"}));
            if (!session.connections.made.empty()) {
                session.connections.last().frame("BTCUSDT", "7");
                session.connections.last().fail();
            }
            // The other loop is queued, behind the end of the one before.
            ASSERT_TRUE(session.executor.runOne());
            session.destroy();
        },
        [](auto& session) {
            EXPECT_EQ(session.openCount(), 0U);
            EXPECT_EQ(session.time.sleepingCount(), 0U);
            EXPECT_THAT(session.log.lines("Runtime"), IsEmpty());
        });
}

}  // namespace quillbar
