// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/runtime/Time.h"

#include <functional>

namespace quillbar {

/// How long to wait before the next attempt to connect: twice as long each time, up to a ceiling,
/// and then jittered, so that not everybody returns to a server at the same moment.
struct ReconnectPolicy final {
    /// Takes and returns seconds.
    using Jitter = std::function<double(double)>;

    /// The delay of the first retry.
    Seconds baseDelay{};
    /// The ceiling, before jitter.
    Seconds maxDelay{};
    /// Applied to the delay.
    Jitter jitter = randomJitter();

    /// The delay of retry `attempt`, which counts from 1.
    [[nodiscard]] Seconds delay(int attempt) const;

    /// Multiplies by a factor between 0.8 and 1.2, drawn anew each time from a generator that the
    /// system's random source seeds. Copies share the generator.
    [[nodiscard]] static Jitter randomJitter();
};

}  // namespace quillbar
