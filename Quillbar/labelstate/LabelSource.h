// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/labelstate/LabelSnapshot.h"

#include <functional>

namespace quillbar {

/// Where the label comes from, for those who show it. Main thread.
class LabelSource {
public:
    LabelSource() = default;
    LabelSource(const LabelSource&) = delete;
    LabelSource& operator=(const LabelSource&) = delete;
    LabelSource(LabelSource&&) = delete;
    LabelSource& operator=(LabelSource&&) = delete;
    virtual ~LabelSource() = default;

    /// The label as it stands.
    [[nodiscard]] virtual LabelSnapshot snapshot() const = 0;

    /// Whether the first requests have all been answered, or have failed: whoever waits for the
    /// change beside the price waits so long.
    [[nodiscard]] virtual bool isStarted() const = 0;

    /// Calls `onChange` after each change of either, and perhaps when nothing has changed, until it
    /// is replaced, by nothing among others. It does not destroy this object.
    virtual void observe(std::function<void()> onChange) = 0;
};

/// Whether waiting a little longer is unlikely to bring a better first label: the price with its
/// change is there, the first requests are over, or no coin is pinned.
[[nodiscard]] bool isSettled(const LabelSnapshot& snapshot, bool isStarted);

}  // namespace quillbar
