// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/faults/Fault.h"
#include "tests/faults/ProcessConnections.h"
#include "tests/faults/ProcessNames.h"

#include <QCoreApplication>
#include <QStringList>

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <iostream>
#include <malloc.h>
#include <optional>
#include <random>
#include <regex>
#include <utility>

namespace quillbar {

namespace {

using namespace std::chrono_literals;
using std::chrono::minutes;
using std::chrono::seconds;

/// What the exchange allows an address: it answers no connection attempt beyond that.
constexpr std::size_t kMostConnections = 300;
constexpr seconds kConnectionSpan = 300s;
/// And in a minute, where each request has its weight.
constexpr int kMostWeight = 6'000;

constexpr std::size_t kMemoryGrowth = std::size_t{1024} * 1024;

/// How much market, and after how much of it the memory has filled with what is kept for good.
struct Soak {
    minutes length;
    minutes warmUp;
};
constexpr Soak kShort{.length = 30min, .warmUp = 10min};
constexpr Soak kLong{.length = 8h, .warmUp = 1h};

/// Lines that a user may find in the log, and what they tell.
struct Explained {
    const char* line;
    const char* meaning;
};
constexpr std::array kExplained{
    Explained{"PriceStream\\|error\\|connection failed: .+", "why prices stopped"},
    Explained{"PriceStream\\|default\\|stream closed by server", "why prices stopped"},
    Explained{"PriceStream\\|error\\|failed to decode frame: .+", "a message that is no price"},
    Explained{"REST\\|error\\|request failed for https://.+: .+", "which request got no answer"},
    Explained{"REST\\|error\\|HTTP [0-9]{3} for https://.+", "which request was refused"},
    Explained{"Endpoint\\|default\\|switching endpoint to .+", "another host is asked"},
    Explained{"Endpoint\\|default\\|every endpoint has failed, beginning anew with .+",
              "the first host is asked again"},
    Explained{"AppState\\|error\\|snapshot refresh failed: .+", "prices come later"},
    Explained{"AppState\\|error\\|today open refresh failed for [A-Z]+: .+",
              "a change comes later"},
    Explained{"MarketState\\|error\\|market refresh failed: .+", "a board keeps its old rows"},
    Explained{"ServiceGate\\|default\\|exchange answered 4(29|18): not asked again for [0-9]+ s",
              "the exchange asked to be left alone"},
    Explained{"ServiceGate\\|default\\|exchange may be asked again", "and that time is over"},
    Explained{
        "ServiceGate\\|default\\|https://.+ has failed 3 times in a row, asking it less often",
        "one host is left alone for a while"},
    Explained{"ServiceGate\\|default\\|https://.+ answers again", "and that time is over"},
};

bool isExplained(const std::string& line) {
    static const std::vector<std::regex> known = [] {
        std::vector<std::regex> all;
        for (const Explained& each : kExplained) {
            all.emplace_back(each.line);
        }
        return all;
    }();
    return std::any_of(known.begin(), known.end(), [&line](const std::regex& each) {
        return std::regex_match(line, each);
    });
}

/// What a request costs, as the exchange counts it.
int weightOf(const simulator::RequestRecord& request) {
    if (request.path == "/api/v3/ticker/24hr") {
        return request.target.find("type=MINI") == std::string::npos ? 2 : 80;
    }
    return request.path == "/api/v3/exchangeInfo" ? 20 : 2;
}

/// What the process has asked the heap for and not given back. 0 under a sanitizer, which looks for
/// leaks itself.
std::size_t ownMemory() {
    const auto heap = ::mallinfo2();
    return heap.uordblks + heap.hblkhd;
}

/// The long one with the argument --long.
const Soak& chosenSoak() {
    return QCoreApplication::arguments().contains(QStringLiteral("--long")) ? kLong : kShort;
}

struct SoakTest : ::testing::Test {
    SoakTest() { ProcessNames::setKnown(true); }

    /// Between two numbers, both of them among the results.
    int draw(int least, int most) {
        return least + static_cast<int>(random() % static_cast<unsigned>(most - least + 1));
    }

    void pass(seconds span) {
        for (seconds each{0}; each < span; ++each) {
            world.pass(1s);
            ++passed;
            noteRequests();
        }
        for (const std::string& line : world.log().lines()) {
            if (!isExplained(line)) {
                unexplained.push_back(line);
            }
        }
        world.clearLog();
    }
    void noteRequests() {
        int weight = 0;
        world.onEachHost([&weight](simulator::Simulator& host) {
            for (const simulator::RequestRecord& request : host.requests()) {
                weight += weightOf(request);
            }
            host.forgetRequests();
        });
        int& oldest = weights.at(static_cast<std::size_t>(passed.count()) % weights.size());
        weightOfMinute += weight - std::exchange(oldest, weight);
        mostWeight = std::max(mostWeight, weightOfMinute);
    }

    /// A fault comes, lasts for a while, and ends; the user looks around meanwhile.
    void sufferAFault() {
        const auto& faults = allFaults();
        const Fault& fault = faults[random() % faults.size()];
        SCOPED_TRACE(fault.words);
        if (draw(1, 8) == 1) {
            world.sleepMachine(10min);
            fault.begin(world);
            world.resume();
        } else {
            fault.begin(world);
        }
        lookAround();
        pass(seconds(draw(2, 150)));
        fault.end(world);
        lookAround();
        for (seconds left = fault.wellWithin; !isWell() && left > 0s; left -= 1s) {
            pass(1s);
        }
        EXPECT_TRUE(isWell()) << "after " << fault.words;
        ++suffered;
    }
    [[nodiscard]] bool isWell() const { return world.hasPresentPrices() && world.banner().empty(); }
    void lookAround() {
        constexpr std::array kTabs{"自选", "涨幅", "跌幅", "成交额"};
        world.click(kTabs.at(random() % kTabs.size()));
    }

    /// The memory while nothing but the stream goes on.
    std::size_t memoryAtRest() {
        world.click("自选");
        pass(120s);
        return ownMemory();
    }

    // The same faults in every run.
    // NOLINTNEXTLINE(cert-msc32-c,cert-msc51-cpp)
    std::mt19937 random{20261114};
    World world;
    seconds passed{0};
    int suffered = 0;
    // The weight of the requests in each second of the last minute.
    std::array<int, 60> weights{};
    int weightOfMinute = 0;
    int mostWeight = 0;
    std::vector<std::string> unexplained;
};

TEST_F(SoakTest, endsWithTheRightPricesAndNothingLeftBehind) {
    const Soak& soak = chosenSoak();
    std::optional<std::size_t> memory;
    world.start();
    world.state().setChangeBasis(ChangeBasis::today);
    ProcessConnections::forget();
    while (passed < soak.length) {
        // A stream that has stood for half a minute waits no longer than at first when it breaks.
        pass(seconds(draw(40, 120)));
        sufferAFault();
        if (!memory && passed >= soak.warmUp) {
            memory = memoryAtRest();
        }
    }
    const std::size_t memoryAtEnd = memoryAtRest();
    const std::size_t connections = ProcessConnections::mostWithin(kConnectionSpan);
    std::cout << fmt::format(
        "{} s of market, {} faults: {} B of memory after {} min, {} B at the "
        "end; at most {} connections within {} s, and requests of weight {} within "
        "a minute\n",
        passed.count(),
        suffered,
        memory.value_or(0),
        soak.warmUp.count(),
        memoryAtEnd,
        connections,
        kConnectionSpan.count(),
        mostWeight);
    EXPECT_TRUE(world.hasPresentPrice());
    EXPECT_TRUE(world.hasPresentPrices());
    EXPECT_EQ(world.face().details.toStdString(), "刚刚更新\n已连接");
    EXPECT_LE(memoryAtEnd, memory.value_or(0) + kMemoryGrowth);
    EXPECT_LE(connections, kMostConnections);
    EXPECT_LE(mostWeight, kMostWeight);
    EXPECT_THAT(unexplained, ::testing::IsEmpty());
}

}  // namespace

}  // namespace quillbar
