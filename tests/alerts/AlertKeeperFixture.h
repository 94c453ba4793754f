// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/alerts/AlertKeeper.h"
#include "tests/state/AppStateFixture.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace quillbar {

/// The keeper over a real AppState, connected, with BTC and ETH on the list.
struct AlertKeeperFixture : AppStateFixture {
    void begin() {
        startConnected(listOf({"BTC", "ETH"}));
        makeKeeper();
    }
    void makeKeeper() {
        keeper.reset();
        keeper = std::make_unique<AlertKeeper>(AlertKeeperDependencies{
            .executor = executor,
            .appState = *state,
            .store = AlertStore(folder.path(), files),
            .now = time.clock(),
            .monotonic = [clock = time.monotonicClock(), this] { return clock() + asleep; },
            .sleeper = time.sleeper()});
    }
    /// The program ends, at once and without a word, and begins again.
    void restart() { makeKeeper(); }
    std::int64_t add(double threshold,
                     AlertKind kind = AlertKind::priceAtLeast,
                     std::optional<double> margin = std::nullopt,
                     const std::string& baseAsset = "BTC") {
        return keeper
            ->add({.symbol = symbolOf(baseAsset),
                   .baseAsset = baseAsset,
                   .kind = kind,
                   .threshold = threshold,
                   .margin = margin})
            .value();
    }
    /// What fired and was not shown: "BTC 110", or "BTC ~110" across a gap.
    [[nodiscard]] std::vector<std::string> fired() const {
        std::vector<std::string> texts;
        for (const FiredAlert& each : *keeper->fired()) {
            texts.push_back(each.alert.baseAsset + (each.isMeanwhile ? " ~" : " ")
                            + std::to_string(static_cast<int>(each.price)));
        }
        return texts;
    }
    [[nodiscard]] Alerts stored() { return AlertStore(folder.path()).load(); }

    // For how long the machine has slept without a timer that noticed it.
    Seconds asleep{};
    std::unique_ptr<AlertKeeper> keeper;
};

}  // namespace quillbar
