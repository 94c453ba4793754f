// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/label/PrintedLabels.h"
#include "QuillbarCore/runtime/Executor.h"
#include "QuillbarCore/runtime/Observed.h"
#include "QuillbarCore/runtime/Sleeper.h"
#include "QuillbarCore/runtime/TaskScope.h"
#include "QuillbarCore/runtime/Time.h"

#include <functional>
#include <string>
#include <vector>

namespace quillbar {

class AppState;

/// A label for each coin on the list of a state, in the list's order. Main thread.
class CoinLabels final : public PrintedLabels {
public:
    /// Changes are told no more often than this, so that each label keeps its price for a second.
    static constexpr Seconds kSpacing{1};
    /// How often the labels are looked at without a change: nothing tells of a stream that falls
    /// silent.
    static constexpr Seconds kLookInterval{30};

    /// What is referred to outlives the labels.
    struct Dependencies final {
        const AppState& state;
        const Observed<bool>& isStarted;
        /// Whether the exchange does not know the pair.
        std::function<bool(const std::string& symbol)> isUnknown;
        Executor& executor;
        /// On a monotonic clock.
        Sleeper sleeper;
    };

    explicit CoinLabels(Dependencies dependencies);

    [[nodiscard]] std::vector<LabelSnapshot> snapshots() const override;
    [[nodiscard]] bool isStarted() const override;
    /// A coin that has had a price counts as known.
    [[nodiscard]] std::vector<std::string> unknownCoins() const override;
    /// The calls come from the executor's queue.
    void observe(std::function<void()> onChange) override;

private:
    void changed();
    Task<void> tell();
    Task<void> lookNowAndThen();

    Dependencies m_dependencies;
    std::function<void()> m_onChange;
    std::vector<Observation> m_observations;
    bool m_hasNews = false;
    TaskScope::Handle m_telling;
    // Last: its tasks use `this`.
    TaskScope m_scope;
};

}  // namespace quillbar
