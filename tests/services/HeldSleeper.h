// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/runtime/Deferred.h"
#include "QuillbarCore/runtime/Sleeper.h"
#include "QuillbarCore/runtime/Time.h"

#include <cstddef>
#include <functional>
#include <utility>
#include <vector>

namespace quillbar {

/// A sleeper that wakes nobody until the test says so, for tests whose sockets are real. Outlives
/// those who sleep.
class HeldSleeper final {
public:
    [[nodiscard]] Sleeper sleeper() {
        return [this](Seconds span) { return sleep(span); };
    }

    /// Wakes those whose sleep, in seconds, matches; returns how many.
    int wake(const std::function<bool(double)>& matches) {
        int count = 0;
        for (auto& [seconds, end] : m_sleeps) {
            if (!end.isSettled() && matches(seconds)) {
                end.setValue(true);
                ++count;
            }
        }
        return count;
    }

    /// The length in seconds of every sleep asked for that matches, in order.
    [[nodiscard]] std::vector<double> requested(const std::function<bool(double)>& matches) const {
        std::vector<double> result;
        for (const auto& [seconds, end] : m_sleeps) {
            if (matches(seconds)) {
                result.push_back(seconds);
            }
        }
        return result;
    }

private:
    Task<void> sleep(Seconds span) {
        const Deferred<bool> end;
        m_sleeps.emplace_back(span.count(), end);
        co_await end.wait();
    }

    std::vector<std::pair<double, Deferred<bool>>> m_sleeps;
};

}  // namespace quillbar
