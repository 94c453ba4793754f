// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "benchmarks/Application.h"
#include "benchmarks/Benchmarks.h"
#include "benchmarks/Comparison.h"
#include "benchmarks/ExchangeBodies.h"
#include "QuillbarCore/exchange/BinanceDecoder.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace quillbar::benchmarks {

namespace {

constexpr std::size_t kTicks = 2000;
constexpr std::size_t kPairs = 20;
constexpr int kFewAlerts = 20;
constexpr int kManyAlerts = 10'000;
/// Enough frames for each pair to come several times.
constexpr int kFrames = 4000;
/// No price gets there.
constexpr double kFarAbove = 1e12;
constexpr double kFarBelow = 1e-12;

/// Frames of a few pairs, in turn.
struct Ticks {
    Ticks() {
        Frames ofPairs;
        for (const std::string& frame : ExchangeBodies::frames(kFrames)) {
            const std::string symbol = BinanceDecoder::decodeMiniTickerFrame(frame).symbol;
            const bool isKnown = std::find(symbols.begin(), symbols.end(), symbol) != symbols.end();
            if (!isKnown && symbols.size() < kPairs) {
                symbols.push_back(symbol);
            } else if (!isKnown) {
                continue;
            }
            ofPairs.push_back(frame);
        }
        while (frames.size() < kTicks) {
            frames.push_back(ofPairs[frames.size() % ofPairs.size()]);
        }
    }

    std::vector<std::string> symbols;
    Frames frames;
};

/// So many alerts, spread over the pairs and over both sides of the price, which meets none.
std::vector<Alert> alertsOn(const std::vector<std::string>& symbols, int count) {
    std::vector<Alert> alerts;
    for (int each = 0; each < count; ++each) {
        const bool isAbove = each % 2 == 0;
        alerts.push_back({.id = each + 1,
                          .symbol = symbols[static_cast<std::size_t>(each) % symbols.size()],
                          .kind = isAbove ? AlertKind::priceAtLeast : AlertKind::priceAtMost,
                          .threshold = isAbove ? kFarAbove + each : kFarBelow / (each + 1),
                          .isArmed = true});
    }
    return alerts;
}

}  // namespace

void registerAlerts() {
    const auto ticks = std::make_shared<Ticks>();
    const auto run = [ticks](const std::shared_ptr<Application>& application) {
        return [ticks, application](const Frames& frames) {
            application->receive(frames);
            return application->ticker(ticks->symbols.front());
        };
    };
    const auto without = std::make_shared<Application>();
    const auto compare = [&](const std::string& subject, int count) {
        const auto application = std::make_shared<Application>();
        application->setAlerts(alertsOn(ticks->symbols, count));
        Comparison(subject, std::vector<Frames>{ticks->frames}, run(application))
            .with("without alerts", run(without));
    };
    compare("2,000 ticks with 20 alerts", kFewAlerts);
    compare("2,000 ticks with 10,000 alerts", kManyAlerts);
}

}  // namespace quillbar::benchmarks
