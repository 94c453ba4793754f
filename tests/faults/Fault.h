// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "tests/faults/World.h"

#include <chrono>
#include <functional>
#include <string>
#include <vector>

namespace quillbar {

/// Longer than any test.
inline constexpr std::chrono::seconds kNotWhileItLasts{1'000'000};

/// What becomes of the stream of prices while a fault lasts.
struct StreamEffect {
    /// When prices flow again at the latest, by way of another host or another attempt: counted
    /// from a start or a waking into the fault, and from its coming over a stream that flows.
    std::chrono::seconds backFromStart{0};
    std::chrono::seconds backFromLive{0};
    /// Whether each attempt fails at once, so that nearly always the next one is waited for.
    bool failsAtOnce = false;
    /// What the tooltip says of it, from when on at the latest; empty for nothing.
    std::string reason = {};
    std::chrono::seconds reasonFromStart{0};
    std::chrono::seconds reasonFromLive{0};
};

/// What becomes of requests while a fault lasts.
enum class RequestEffect {
    answered,       ///< at once, by whichever host
    failed,         ///< at once
    late,           ///< within half a minute
    elsewhereLate,  ///< by another host, once those before have been given up
    unanswered,     ///< for half a minute at least; then the host may have been given up
};

/// Something that goes wrong with the network or the exchange, and ends again.
struct Fault {
    /// In words, and as a part of a test's name.
    std::string words;
    std::string name;
    std::function<void(World&)> begin;
    std::function<void(World&)> end;
    StreamEffect stream;
    RequestEffect requests = RequestEffect::answered;
    /// By when after its end all is as it was.
    std::chrono::seconds wellWithin{0};
};

/// Every fault that the table tries, in its order.
[[nodiscard]] const std::vector<Fault>& allFaults();

}  // namespace quillbar
