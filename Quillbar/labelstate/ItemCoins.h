// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/model/Coin.h"
#include "QuillbarCore/model/Watchlist.h"
#include "QuillbarCore/runtime/Executor.h"
#include "QuillbarCore/runtime/Observed.h"
#include "QuillbarCore/runtime/Sleeper.h"
#include "QuillbarCore/runtime/Task.h"
#include "QuillbarCore/runtime/TaskScope.h"
#include "QuillbarCore/runtime/Time.h"
#include "QuillbarCore/state/LabelPreferences.h"
#include "QuillbarCore/state/PinnedQuote.h"
#include "QuillbarCore/state/Preferences.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace quillbar {

class AppState;

/// Which coins the item shows in place of the pinned one, or beside it: those that the user's
/// choice of coins names, and for some seconds the one that the wheel turns to. The pin never
/// changes, and nobody but the item is told. While the numbers are hidden there are none.
///
/// Main thread. With the pinned coin alone it waits for nothing, and hears of no ticker.
class ItemCoins final {
public:
    /// For how long the item shows a coin that the wheel turned to.
    static constexpr Seconds kTurnSpan{10};
    /// How soon the wheel may turn on. Hosts send one step of a wheel, or many of a touchpad.
    static constexpr Seconds kTurnPause{0.15};
    /// A coin keeps its price for so long, as the pinned one does.
    static constexpr Seconds kSpacing{1};
    /// How many coins stand side by side, with the pinned one.
    static constexpr std::size_t kSideBySide = 3;

    /// What is referred to outlives it.
    struct Dependencies final {
        const AppState& state;
        const Observed<Preferences>& preferences;
        Executor& executor;
        /// On a monotonic clock.
        Sleeper sleeper;
    };

    /// What the item shows. At most one of the two is there.
    struct Shown final {
        /// The coin in place of the pinned one; absent while that is shown.
        std::optional<PinnedQuote> instead = std::nullopt;
        /// The coins that stand beside the pinned one, in the list's order.
        std::vector<PinnedQuote> beside = {};

        [[nodiscard]] bool operator==(const Shown&) const = default;
    };

    explicit ItemCoins(Dependencies dependencies);
    ItemCoins(const ItemCoins&) = delete;
    ItemCoins& operator=(const ItemCoins&) = delete;
    ItemCoins(ItemCoins&&) = delete;
    ItemCoins& operator=(ItemCoins&&) = delete;
    ~ItemCoins() = default;

    /// What is shown, with the prices as far as they have been told: at most once a second.
    [[nodiscard]] const Observed<Shown>& shown() const noexcept { return m_shown; }

    /// Shows the coin that stands so many places after the one that is shown, or before it, for
    /// `kTurnSpan`. Does nothing within `kTurnPause` of the last turn.
    void turn(int places);

    /// The coin so many places after the one of this symbol, or before it for less than 0, round
    /// and round; after none, the first or the last. Absent for an empty list. Pure.
    [[nodiscard]] static std::optional<Coin> coinBeside(const Watchlist& list,
                                                        const std::optional<std::string>& symbol,
                                                        int places);

private:
    void onPreferences();
    void onList();
    void restart();
    Task<void> rotate();
    Task<void> goBack();
    Task<void> pauseTurning();
    void step(int places);
    void follow(std::vector<Coin> coins);
    void noteNews(const std::string& symbol);
    Task<void> tell();
    void refresh();
    [[nodiscard]] std::vector<Coin> coinsBesidePinned() const;

    Dependencies m_dependencies;
    Observed<Shown> m_shown;
    // The one coin in place of the pinned one, or those beside it.
    std::vector<Coin> m_coins;
    bool m_isInstead = false;
    // The preferences and the pin for which `m_coins` was made.
    LabelPreferences m_label;
    std::optional<std::string> m_pinned;
    bool m_hasNews = false;
    std::vector<Observation> m_observations;
    // Only while there are coins.
    std::vector<Observation> m_priceObservations;
    TaskScope::Handle m_next;
    TaskScope::Handle m_turnPause;
    TaskScope::Handle m_telling;
    // Last: its tasks use all of the above.
    TaskScope m_scope;
};

}  // namespace quillbar
