// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/CoinListRow.h"
#include "Quillbar/DetailFactory.h"
#include "Quillbar/ViewEnvironment.h"
#include "QuillbarCore/model/ChangeBasis.h"
#include "QuillbarCore/model/Coin.h"
#include "QuillbarCore/model/WatchlistSort.h"
#include "QuillbarCore/runtime/Observed.h"

#include <QElapsedTimer>
#include <QTimer>
#include <QWidget>

#include <array>
#include <chrono>
#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace quillbar {

class ColumnHeader;
class RowList;
class SortableHeader;

/// The watchlist: a header whose columns sort, a row for each coin, and a coin's chart under its
/// row.
///
/// In the order of the watchlist, which a row is dragged to another place of, or moved by Alt and
/// an arrow, the user's edit is seen at once.
///
/// While it is shown it follows the models: a price that comes in changes the cells of its row, if
/// that can be seen, and the order of a sorted list follows a moment later, once for all prices
/// that came meanwhile. While it is hidden prices cost nothing. Hiding it ends the sort; a list
/// that was sorted begins at its first row then, or where its open chart can be seen.
class CoinListView final : public QWidget {
public:
    /// The height of an open chart.
    static constexpr int kExpandedDetailHeight = kDetailHeight;
    /// What is left free below the last row.
    static constexpr int kBottomSlack = 4;
    /// The list never grows taller.
    static constexpr int kMaxPanelHeight = 560;
    /// The least time between two orders of a sorted list.
    static constexpr std::chrono::milliseconds kReorderSpacing{100};
    /// How often prices are looked at that grow old without an event.
    static constexpr std::chrono::seconds kStalenessInterval{5};

    /// Whether a chart is open.
    enum class Chart { closed, open };

    /// The environment outlives the view.
    /// `expandedSymbol` is the coin whose chart is open; it outlives the view, which follows it.
    CoinListView(const ViewEnvironment& environment,
                 Observed<std::optional<std::string>>& expandedSymbol,
                 DetailFactory makeDetail,
                 QWidget* parent = nullptr);
    CoinListView(const CoinListView&) = delete;
    CoinListView& operator=(const CoinListView&) = delete;
    CoinListView(CoinListView&&) = delete;
    CoinListView& operator=(CoinListView&&) = delete;
    ~CoinListView() override;

    /// What the user sorts by; absent for the order of the watchlist.
    [[nodiscard]] const std::optional<WatchlistSort>& sort() const noexcept { return m_sort; }
    /// The order of the rows when the chart was opened; empty when none is.
    [[nodiscard]] const std::vector<std::string>& frozenOrder() const noexcept {
        return m_frozenOrder;
    }

    /// The coins in the order in which they are to be shown: sorted, but in the frozen order while
    /// a chart is open.
    [[nodiscard]] std::vector<Coin> displayedCoins() const;

    /// The height of the list of rows. Pure.
    [[nodiscard]] static int listHeight(std::size_t coinCount, Chart chart);
    /// That of the list as it stands.
    [[nodiscard]] int listHeight() const;

    /// What a click on a column's title does: sorts by it descending, then ascending, then not.
    void sortBy(WatchlistSortColumn column);
    /// What a click on a row's arrow does: opens its chart, or closes it.
    void toggle(const std::string& symbol);

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void makeHeader();
    void makeRows(DetailFactory makeDetail);
    void observeEdits();
    void observePrices();
    void scrollToBeginning();

    void onWatchlistChange();
    void onExpandedChange();
    void onPriceChange(const std::string& symbol);
    void checkStaleness();

    void setSort(std::optional<WatchlistSort> sort);
    void scheduleReorder();
    void updateOrder();
    void updateHeight();
    void move(const std::string& symbol, std::size_t before);
    void openMenu(const std::string& symbol, const QPoint& position);

    const ViewEnvironment& m_environment;
    Observed<std::optional<std::string>>& m_expandedSymbol;
    std::optional<WatchlistSort> m_sort;
    std::vector<std::string> m_frozenOrder;
    // What the rows show, by their index.
    std::vector<Coin> m_displayed;

    QWidget* m_empty;
    ColumnHeader* m_header;
    RowList* m_rows = nullptr;
    std::array<SortableHeader*, kAllWatchlistSortColumns.size()> m_columns{};
    CoinListRow::Source m_source;

    ChangeBasis m_basis;
    bool m_isStale = false;
    bool m_hasLostItsOrder = false;
    QTimer m_reorder;
    QElapsedTimer m_sinceReorder;
    QTimer m_staleness;

    Observation m_watchlistObservation;
    Observation m_expandedObservation;
    // Only while the view is shown.
    std::vector<Observation> m_priceObservations;
};

}  // namespace quillbar
