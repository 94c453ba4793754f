// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/labelstate/LabelSnapshot.h"

#include <functional>

namespace quillbar {

/// The source of the label, for programs that show it. Main thread.
class LabelSource {
public:
    LabelSource() = default;
    LabelSource(const LabelSource&) = delete;
    LabelSource& operator=(const LabelSource&) = delete;
    LabelSource(LabelSource&&) = delete;
    LabelSource& operator=(LabelSource&&) = delete;
    virtual ~LabelSource() = default;

    /// The label now.
    [[nodiscard]] virtual LabelSnapshot snapshot() const = 0;

    /// Whether all first requests have been answered or have failed. Nobody need wait longer for
    /// the change beside the price.
    [[nodiscard]] virtual bool isStarted() const = 0;

    /// Calls `onChange` after each change of the label or of `isStarted`, perhaps also without a
    /// change. Another call replaces it; an empty function ends the calls. `onChange` must not
    /// destroy this object.
    virtual void observe(std::function<void()> onChange) = 0;
};

/// Whether waiting a little longer is unlikely to bring a better first label: the price with its
/// change is there, the first requests are over, or no coin is pinned.
[[nodiscard]] bool isSettled(const LabelSnapshot& snapshot, bool isStarted);

}  // namespace quillbar
