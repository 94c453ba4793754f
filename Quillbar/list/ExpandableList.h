// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/list/DetailFactory.h"
#include "Quillbar/list/RowIds.h"
#include "Quillbar/list/RowList.h"
#include "QuillbarCore/market/FrozenOrder.h"
#include "QuillbarCore/market/RankedCoin.h"
#include "QuillbarCore/model/Coin.h"
#include "QuillbarCore/runtime/Observed.h"

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace quillbar {

/// The order in which a list shows its items. `live` is the order of the items; `frozen` is the
/// order that the rows had when a chart was opened. Without an open chart both are the same.
enum class RowOrder { live, frozen };

/// A list of coins. Under each row a chart can unfold, under one row at a time.
///
/// It keeps the items that the rows show, and the order that the rows had when a chart was opened.
/// The view that holds it decides which items there are and makes the widgets.
///
/// `Item` is a `Coin` or a `RankedCoin`. A row's id is its coin's symbol.
///
/// Everything here is called on the main thread, and the list calls back there.
template <class Item>
class ExpandableList final {
public:
    /// Makes the rows as a child widget of `parent`. The list owns them: it deletes them when it is
    /// destroyed, which is before `parent`.
    ///
    /// `expandedSymbol` is the coin whose chart is open, if any. It outlives the list. The list
    /// sets it in `show` and `toggle`; others may set it too. When it changes, the list notes the
    /// order of the rows, and nothing else: the view observes it as well, and calls `unfold`.
    ///
    /// `content` is what the rows ask of the view; its `makeDetail` is not used. `makeDetail` makes
    /// the chart of a coin when that is to unfold. Both are kept until the list is destroyed. They
    /// are called inside the list's functions that are not const, from the event loop when a chart
    /// has come to rest, and when the user asks for something; they may call the list in turn. Each
    /// of these may hide a row, give it another coin, or hide a chart, which is deleted once the
    /// event loop runs again. So do not keep a pointer to a row or a chart beyond the next call.
    ExpandableList(Observed<std::optional<std::string>>& expandedSymbol,
                   RowListContent content,
                   DetailFactory makeDetail,
                   QWidget* parent)
        : m_expandedSymbol(expandedSymbol)
        , m_rows(std::make_unique<RowList>(withDetails(std::move(content), std::move(makeDetail)),
                                           kDetailHeight,
                                           parent))
        , m_observation(expandedSymbol.observe(
              [this](const std::optional<std::string>& /*symbol*/) { freezeOrder(); })) {}

    ExpandableList(const ExpandableList&) = delete;
    ExpandableList& operator=(const ExpandableList&) = delete;
    ExpandableList(ExpandableList&&) = delete;
    ExpandableList& operator=(ExpandableList&&) = delete;
    ~ExpandableList() = default;

    /// The widget of the rows, for the view's layout. The list owns it.
    [[nodiscard]] RowList& rows() const noexcept { return *m_rows; }
    /// The items that the rows show, from the first row to the last. Valid until `show`.
    [[nodiscard]] const std::vector<Item>& items() const noexcept { return m_items; }
    /// The coin of the row with this symbol. There must be such a row. Valid until `show`.
    [[nodiscard]] const Coin& coin(const std::string& symbol) const {
        return coinOf(*RowIds::find(m_items, symbol));
    }
    /// The coin whose chart is open; absent while none is.
    [[nodiscard]] const std::optional<std::string>& expandedSymbol() const noexcept {
        return *m_expandedSymbol;
    }

    /// Shows these items. Of several items with the same symbol only the first is shown. If the
    /// coin of the open chart is not among them, `expandedSymbol` is cleared first, which calls its
    /// observers.
    void show(std::vector<Item> items, RowOrder order) {
        RowIds::dropRepeated(items);
        const std::optional<std::string>& expanded = *m_expandedSymbol;
        if (expanded && RowIds::find(items, *expanded) == nullptr) {
            m_expandedSymbol.set(std::nullopt);
        }
        const bool isFrozen = order == RowOrder::frozen && expanded;
        m_items = isFrozen ? FrozenOrder::project(items, m_frozenOrder) : std::move(items);
        m_rows->setIds(RowIds::of(m_items));
    }

    /// Sets `expandedSymbol` to this coin, or clears it when the coin's chart is open already. Its
    /// observers are called before this returns.
    void toggle(const std::string& symbol) {
        m_expandedSymbol.set(*m_expandedSymbol == symbol ? std::nullopt : std::optional(symbol));
    }
    /// Notes the order that the rows have now, for the next `show` in the frozen order.
    void freezeOrder() { m_frozenOrder = FrozenOrder::capture(m_items); }
    /// Makes the rows show what `expandedSymbol` says: unfolds that chart and folds any other. In a
    /// list that is shown they move; `content.settled` is called when they have come to rest.
    void unfold() { m_rows->setExpanded(*m_expandedSymbol); }

private:
    static const Coin& coinOf(const Coin& item) { return item; }
    static const Coin& coinOf(const RankedCoin& item) { return item.coin; }

    [[nodiscard]] RowListContent withDetails(RowListContent content,
                                             DetailFactory makeDetail) const {
        content.makeDetail = [this, makeDetail = std::move(makeDetail)](const std::string& symbol,
                                                                        QWidget* parent) {
            return makeDetail(coin(symbol), parent);
        };
        return content;
    }

    Observed<std::optional<std::string>>& m_expandedSymbol;
    std::vector<Item> m_items;
    decltype(FrozenOrder::capture(m_items)) m_frozenOrder;
    // After the items, so that it is destroyed before them: rows read them until they are deleted.
    std::unique_ptr<RowList> m_rows;
    Observation m_observation;
};

}  // namespace quillbar
