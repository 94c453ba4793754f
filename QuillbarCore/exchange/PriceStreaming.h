// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/exchange/ConnectionFailure.h"
#include "QuillbarCore/exchange/PriceEvent.h"
#include "QuillbarCore/runtime/AsyncStream.h"
#include "QuillbarCore/runtime/Observed.h"
#include "QuillbarCore/runtime/Task.h"

#include <optional>
#include <string>
#include <vector>

namespace quillbar {

/// The live prices of some pairs, as the application sees them. Belongs to the executor's thread.
class PriceStreaming {
public:
    PriceStreaming() = default;
    PriceStreaming(const PriceStreaming&) = delete;
    PriceStreaming& operator=(const PriceStreaming&) = delete;
    PriceStreaming(PriceStreaming&&) = delete;
    PriceStreaming& operator=(PriceStreaming&&) = delete;
    virtual ~PriceStreaming() = default;

    /// The one stream of events for the life of this object: unbounded, for one consumer. It never
    /// fails, and ends only with this object.
    [[nodiscard]] virtual AsyncStream<PriceEvent>& events() = 0;

    /// Why the last attempt failed. Absent before the first failure, and again once a connection
    /// delivers or nothing is to be streamed. Observers are called before the event that belongs to
    /// it.
    [[nodiscard]] virtual const Observed<std::optional<ConnectionFailure>>& failure() const = 0;

    /// Replaces the watched pairs and connects again at once, even if they are the same: a live
    /// connection is replaced, and a wait for the next attempt ends. The events report the outcome.
    /// Throws only `Cancelled`.
    virtual Task<void> setSymbols(std::vector<std::string> symbols) = 0;

    /// Ends the connection and reports `disconnected`. `setSymbols` starts again. Throws only
    /// `Cancelled`.
    virtual Task<void> stop() = 0;
};

}  // namespace quillbar
