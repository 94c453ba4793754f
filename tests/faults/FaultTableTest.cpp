// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/faults/Fault.h"
#include "tests/faults/FaultTable.h"
#include "tests/faults/ProcessNames.h"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace quillbar {

namespace {

using namespace std::chrono_literals;
using std::chrono::seconds;
using ::testing::AnyOf;
using ::testing::HasSubstr;
using ::testing::MatchesRegex;
using ::testing::Not;

constexpr seconds kSoon = 5s;
constexpr seconds kLate = 90s;
/// So long Qt remembers a name.
constexpr seconds kNameMemory = 61s;

constexpr const char* kAllWell = "刚刚更新\n已连接";

/// One fault in one situation: the state of the application when it comes.
struct FaultTableTest : ::testing::TestWithParam<std::tuple<Fault, Situation>> {
    FaultTableTest() { ProcessNames::setKnown(true); }

    [[nodiscard]] static const Fault& fault() { return std::get<0>(GetParam()); }
    [[nodiscard]] static Situation situation() { return std::get<1>(GetParam()); }
    [[nodiscard]] static bool isFromStart() {
        return situation() == Situation::starting || situation() == Situation::waking;
    }

    // What happens.

    void bringAboutWithFault() {
        if (situation() == Situation::starting) {
            ProcessTime::pass(kNameMemory);
            fault().begin(world);
            world.start();
            return;
        }
        world.start();
        world.pass(3s);
        ProcessTime::pass(kNameMemory);
        prepareView();
        if (situation() == Situation::waking) {
            world.sleepMachine(10min);
        }
        fault().begin(world);
        ask();
    }
    void prepareView() {
        if (situation() == Situation::onABoard) {
            world.click("涨幅");
        } else if (situation() == Situation::withAChart) {
            world.click("展开 BTC 走势");
        } else if (situation() == Situation::inTheSearch) {
            world.click("添加币种");
        }
        world.pass(3s);
    }
    /// What the user, or the system, wants once the fault is there.
    void ask() {
        if (situation() == Situation::withAChart) {
            world.click("走势范围：一周");
        } else if (situation() == Situation::inTheSearch) {
            world.type("SOL");
        } else if (situation() == Situation::waking) {
            world.resume();
        }
    }

    // What is seen.

    [[nodiscard]] std::string view() const {
        switch (situation()) {
        case Situation::onABoard:
            return world.board();
        case Situation::withAChart:
            return world.chart();
        case Situation::inTheSearch:
            return world.search();
        default:
            return "";
        }
    }
    [[nodiscard]] Sight sight() const {
        const LabelFace face = world.face();
        return {.label = face.text.toStdString(),
                .tooltip = face.details.toStdString(),
                .banner = world.banner(),
                .view = view()};
    }
    [[nodiscard]] bool isWell() const {
        const Sight seen = sight();
        return world.hasPresentPrices() && world.hasPresentPrice() && seen.tooltip == kAllWell
               && seen.banner.empty() && seen.view == viewWhenWell();
    }
    [[nodiscard]] static std::string viewWhenWell() {
        switch (situation()) {
        case Situation::onABoard:
            return "rows";
        case Situation::withAChart:
            return "chart";
        case Situation::inTheSearch:
            return "rows of SOLUSDT";
        default:
            return "";
        }
    }

    // What must be seen.

    [[nodiscard]] static seconds backAfter() {
        const StreamEffect& stream = fault().stream;
        return isFromStart() ? stream.backFromStart : stream.backFromLive;
    }
    /// A price is shown for a minute after it came; the snapshot of a start and a waking counts.
    [[nodiscard]] static bool mustShowPrice(seconds after) {
        const bool hadPrice = !isFromStart() || fault().requests == RequestEffect::answered;
        return backAfter() <= after || (hadPrice && after < 60s);
    }
    void expectLabel(const Sight& seen, seconds after) const {
        if (mustShowPrice(after)) {
            EXPECT_THAT(seen.label, MatchesRegex("BTC [0-9,.]+ (▲|▼|) ?[0-9.]+%"));
        } else if (backAfter() > kLate || after < 10s) {
            // In between, a price may have come early.
            EXPECT_EQ(seen.label, "BTC");
        }
    }
    /// The tooltip claims to be live while prices flow, and no later than a minute after they did.
    void expectTooltip(const Sight& seen, seconds after) const {
        const StreamEffect& stream = fault().stream;
        if (backAfter() <= after) {
            EXPECT_EQ(seen.tooltip, kAllWell);
            return;
        }
        if (backAfter() > kLate && after > 60s) {
            EXPECT_THAT(seen.tooltip, Not(HasSubstr("刚刚更新")));
        }
        if (after >= (isFromStart() ? stream.reasonFromStart : stream.reasonFromLive)) {
            EXPECT_THAT(seen.tooltip, HasSubstr(stream.reason));
        }
        if (stream.failsAtOnce) {
            EXPECT_THAT(seen.tooltip, Not(HasSubstr("已连接")));
        }
    }
    /// The banner is there in every state but "connected", which an attempt is in from its first
    /// moment until it has failed.
    void expectBanner(const Sight& seen, seconds after) const {
        if (backAfter() <= after) {
            EXPECT_EQ(seen.banner, "");
        } else if (fault().stream.failsAtOnce) {
            EXPECT_THAT(seen.banner, HasSubstr("连接中…"));
            EXPECT_EQ(
                seen.banner.find("最后更新") != std::string::npos,
                situation() != Situation::starting || fault().requests == RequestEffect::answered);
        } else {
            // Between two attempts, or during one.
            EXPECT_THAT(seen.banner, AnyOf("", HasSubstr("连接中…")));
        }
    }

    /// Rows stay whatever happens, and are warned of once a refresh has failed or they are older
    /// than a minute. They were last refreshed when the fault came, or up to three seconds before.
    static void expectBoard(const Sight& seen, seconds after) {
        const RequestEffect requests = fault().requests;
        if (after < 30s || requests == RequestEffect::answered || requests == RequestEffect::late) {
            EXPECT_EQ(seen.view, "rows");
        } else if (requests == RequestEffect::failed) {
            EXPECT_EQ(seen.view, "rows+刷新失败,数据为1 分钟前的");
        } else if (requests == RequestEffect::unanswered) {
            EXPECT_THAT(
                seen.view,
                AnyOf("rows+刷新失败,数据为1 分钟前的", "rows+已停止刷新,数据为1 分钟前的"));
        } else {
            EXPECT_THAT(seen.view, AnyOf("rows", "rows+已停止刷新,数据为1 分钟前的"));
        }
    }
    /// The chart of before stays, but pale, until the one of the chosen range is there.
    static void expectChart(const Sight& seen, seconds after) {
        const RequestEffect requests = fault().requests;
        const bool isLate =
            requests == RequestEffect::late || requests == RequestEffect::elsewhereLate;
        if (requests == RequestEffect::answered || (isLate && after > 60s)) {
            EXPECT_EQ(seen.view, "chart");
        } else if (requests == RequestEffect::failed) {
            EXPECT_EQ(seen.view, "加载走势失败+faint chart");
        } else if (requests == RequestEffect::unanswered && after > 60s) {
            EXPECT_THAT(seen.view,
                        AnyOf("spinner+faint chart", "加载走势失败+faint chart", "chart"));
        } else {
            EXPECT_EQ(seen.view, "spinner+faint chart");
        }
    }
    /// Until there is an answer, neither matches nor a failure are claimed.
    static void expectSearch(const Sight& seen, seconds after) {
        const RequestEffect requests = fault().requests;
        const bool isLate =
            requests == RequestEffect::late || requests == RequestEffect::elsewhereLate;
        if (requests == RequestEffect::answered || (isLate && after > 60s)) {
            EXPECT_EQ(seen.view, "rows of SOLUSDT");
        } else if (requests == RequestEffect::failed) {
            EXPECT_EQ(seen.view, "搜索失败,请检查网络后重试");
        } else {
            EXPECT_THAT(seen.view, Not(HasSubstr("rows")));
            EXPECT_THAT(seen.view, Not(HasSubstr("失败")));
        }
    }
    void expectSight(const Sight& seen, seconds after) const {
        SCOPED_TRACE(fmt::format("after {} s", after.count()));
        expectLabel(seen, after);
        expectTooltip(seen, after);
        expectBanner(seen, after);
        if (situation() == Situation::onABoard) {
            expectBoard(seen, after);
        } else if (situation() == Situation::withAChart) {
            expectChart(seen, after);
        } else if (situation() == Situation::inTheSearch) {
            expectSearch(seen, after);
        }
    }

    /// Until all is as it was.
    [[nodiscard]] seconds recover() {
        fault().end(world);
        ProcessTime::settle();
        seconds passed{0};
        while (!isWell() && passed <= fault().wellWithin) {
            world.tryAgain();
            world.pass(1s);
            ++passed;
        }
        return passed;
    }

    World world;
};

TEST_P(FaultTableTest, showsWhatIsTrue) {
    Cell cell{.fault = fault().words, .situation = situation()};
    bringAboutWithFault();
    world.pass(kSoon);
    cell.soon = sight();
    expectSight(cell.soon, kSoon);
    const seconds turn = std::clamp(backAfter(), kSoon, kLate);
    world.pass(turn - kSoon);
    expectSight(sight(), turn);
    world.pass(kLate - turn);
    cell.late = sight();
    expectSight(cell.late, kLate);
    cell.wellAfter = recover();
    EXPECT_LE(cell.wellAfter, fault().wellWithin) << sight();
    FaultTable::add(cell);
}

std::string nameOf(const ::testing::TestParamInfo<FaultTableTest::ParamType>& info) {
    return std::get<0>(info.param).name + "_" + nameOf(std::get<1>(info.param));
}

INSTANTIATE_TEST_SUITE_P(Faults,
                         FaultTableTest,
                         ::testing::Combine(::testing::ValuesIn(allFaults()),
                                            ::testing::ValuesIn(kSituations)),
                         [](const auto& info) { return nameOf(info); });

}  // namespace

}  // namespace quillbar
