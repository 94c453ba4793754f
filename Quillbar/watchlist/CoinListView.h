// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/list/DetailFactory.h"
#include "Quillbar/list/ExpandableList.h"
#include "Quillbar/widgets/ViewEnvironment.h"
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
class SortableHeader;

/// The watchlist: a header whose columns sort, a row for each coin, and a coin's chart under its
/// row.
///
/// In the order of the watchlist, the user drags a row to another place, or moves it by Alt and an
/// arrow. The rows show the new order at once. Alt and Enter open the price alerts of a row.
///
/// While it is shown it follows the models. A new price changes the cells of its row, if the row
/// can be seen. A sorted list is put in order again a moment later, once for all prices that came
/// meanwhile. While the view is hidden, prices cost nothing. Hiding the view ends the sort; the
/// list then begins at its first row, or where its open chart can be seen. When the view gets the
/// focus, it passes it to a row.
class CoinListView final : public QWidget {
public:
    /// The height of an open chart.
    static constexpr int kExpandedDetailHeight = kDetailHeight;
    /// The space that is left free below the last row.
    static constexpr int kBottomSlack = 4;
    /// The greatest height of the list.
    static constexpr int kMaxPanelHeight = 560;
    /// The shortest time between two sorts of a sorted list.
    static constexpr std::chrono::milliseconds kReorderSpacing{100};
    /// How often the age of prices is checked: they grow old without an event.
    static constexpr std::chrono::seconds kStalenessInterval{5};

    /// Whether a chart is open.
    enum class Chart { closed, open };

    /// The environment outlives the view.
    /// `expandedSymbol` is the coin whose chart is open; it outlives the view, which follows it.
    CoinListView(const ViewEnvironment& environment,
                 Observed<std::optional<std::string>>& expandedSymbol,
                 DetailFactory makeDetail,
                 QWidget* parent = nullptr);

    /// What the user sorts by; absent for the order of the watchlist.
    [[nodiscard]] const std::optional<WatchlistSort>& sort() const noexcept { return m_sort; }

    /// The height of the list of rows at a text size of that factor. Pure.
    [[nodiscard]] static int listHeight(std::size_t coinCount, Chart chart, double scale = 1);
    /// The height of the list as it is now.
    [[nodiscard]] int listHeight() const;

    /// What a click on a column's title does: sorts by it descending, then ascending, then not.
    void sortBy(WatchlistSortColumn column);
    /// What a click on a row's arrow does: opens its chart, or closes it.
    void toggle(const std::string& symbol);
    /// Scrolls to the row of that coin and gives it the focus. Does nothing for a coin that is not
    /// on the list.
    void focusCoin(const std::string& symbol, Qt::FocusReason reason);

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    [[nodiscard]] ColumnHeader* makeHeader();
    [[nodiscard]] RowListContent rowContent();
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
    void refuseDrag(const std::string& symbol, const QPoint& position);
    void openMenu(const std::string& symbol, const QPoint& position);
    void openAlerts(const std::string& symbol);

    const ViewEnvironment& m_environment;
    Observed<std::optional<std::string>>& m_expandedSymbol;
    std::optional<WatchlistSort> m_sort;

    QWidget* m_empty;
    // The titles by their column, children of the header. `makeHeader` fills them, so they are
    // declared before `m_header`.
    std::array<SortableHeader*, kAllWatchlistSortColumns.size()> m_columns{};
    ColumnHeader* m_header;
    ExpandableList<Coin> m_list;
    // Owned by `m_list`.
    RowList& m_rows;

    ChangeBasis m_basis;
    bool m_isStale = false;
    bool m_hasLostItsOrder = false;
    QTimer m_reorder;
    QElapsedTimer m_sinceReorder;
    QTimer m_staleness;

    Observation m_watchlistObservation;
    Observation m_expandedObservation;
    Observation m_alertsObservation;
    // Empty while the view is hidden.
    std::vector<Observation> m_priceObservations;
};

}  // namespace quillbar
