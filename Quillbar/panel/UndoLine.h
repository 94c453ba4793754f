// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/widgets/ViewEnvironment.h"
#include "QuillbarCore/model/Coin.h"
#include "QuillbarCore/model/Watchlist.h"
#include "QuillbarCore/runtime/Observed.h"
#include "QuillbarCore/runtime/Task.h"
#include "QuillbarCore/runtime/TaskScope.h"
#include "QuillbarCore/runtime/Time.h"

#include <QWidget>

#include <functional>
#include <optional>
#include <set>
#include <string>

namespace quillbar {

class TextButton;
class ThemedLabel;

/// The row that offers, for a short time, to take back the removal of a coin. The coin comes back
/// to its place in the user's own order, with its pin, its price alerts and its open chart. Other
/// changes that the user has made since stay: the place is found by the neighbours that are still
/// there, and coins that were added since come after them. Only the latest removal can be taken
/// back, and only while the coin is not added again in another way. The row is hidden while there
/// is nothing to take back. Closing the panel does not end the offer.
///
/// Make it before the list of coins, because the list closes the chart of a coin that was removed,
/// and this row must see first whether it was open.
class UndoLine final : public QWidget {
public:
    /// How long a removal can be taken back.
    static constexpr Seconds kOffered{10};

    /// The environment, which has a sleeper, and `expandedSymbol`, the coin whose chart is open,
    /// outlive the line.
    UndoLine(const ViewEnvironment& environment,
             Observed<std::optional<std::string>>& expandedSymbol,
             QWidget* parent = nullptr);

    /// Makes the button the last stop of the Tab key in its window. Widgets that are made later
    /// come after it until this is called again.
    void moveToEndOfTabOrder();

    /// A coin is back on the list, and its row is to get the focus that the button had, for the
    /// reason by which the button got it. May be empty.
    std::function<void(const std::string& symbol, Qt::FocusReason reason)> onBack;

private:
    /// A coin that was removed, with all that is needed to bring it back.
    struct Removal {
        Coin coin;
        /// The symbols that stood in front of it and behind it.
        std::set<std::string> leaders;
        std::set<std::string> followers;
        bool wasPinned;
        bool wasExpanded;
        /// The pin that the removal left.
        std::optional<std::string> pinSince;
    };

    void onChange(const Watchlist& watchlist);
    [[nodiscard]] std::optional<Removal> removalSince(const Watchlist& before,
                                                      const Watchlist& now) const;
    void offer(Removal removal);
    void withdraw();
    Task<void> showForAWhile();
    void undo();
    [[nodiscard]] std::optional<std::string> nextOf(const Removal& removal) const;
    Task<void> finish(std::string symbol, bool wasExpanded, std::optional<Qt::FocusReason> focus);

    const ViewEnvironment& m_environment;
    Observed<std::optional<std::string>>& m_expandedSymbol;
    ThemedLabel* m_text;
    TextButton* m_button;
    /// The list as it was before the next change.
    Watchlist m_watchlist;
    std::optional<Removal> m_removal;
    Observation m_observation;
    TaskScope::Handle m_offer;
    // Last: its tasks use all of the above.
    TaskScope m_scope;
};

}  // namespace quillbar
