// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/DetailFactory.h"
#include "Quillbar/SecondaryColumn.h"
#include "Quillbar/ViewEnvironment.h"
#include "QuillbarCore/market/FrozenOrder.h"
#include "QuillbarCore/market/PolledModel.h"
#include "QuillbarCore/market/RankedCoin.h"
#include "QuillbarCore/market/RankingBoard.h"
#include "QuillbarCore/runtime/Observed.h"
#include "QuillbarCore/runtime/Task.h"
#include "QuillbarCore/runtime/TaskScope.h"
#include "QuillbarCore/runtime/Time.h"

#include <QString>
#include <QTimer>
#include <QWidget>

#include <array>
#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace quillbar {

class BannerRow;
class BoardPlaceholder;
class ColumnHeader;
class RowList;

/// One board of the market: a row for each coin, in the board's order, and a coin's chart under its
/// row. While a chart is open the rows keep their places and their ranks. A row above tells of data
/// that have grown old; without data a spinner, a failure or an empty text stands in their place.
///
/// While it is shown it has the models poll, and ranks their data again after they have changed,
/// once for all that changed together. Polling that a board needs begins after the board's first
/// frame, or at the next look at the data where none is painted. Hiding the view ends the polling
/// and closes the chart; hidden, it does nothing.
class MarketBoardView final : public QWidget {
public:
    /// The height of the list of rows, in points. The view is as high while there are none.
    static constexpr int kBoardHeight = 420;
    /// How many coins the exchange's own boards show, and the one by market capitalisation.
    static constexpr int kExchangeLimit = 50;
    static constexpr int kMarketCapLimit = 100;
    /// Data older than this are stale.
    static constexpr Seconds kStaleAge{60};
    /// How often the data are looked at that grow old without an event.
    static constexpr std::chrono::seconds kLookInterval{5};

    /// The environment and the models that it gives outlive the view.
    MarketBoardView(const ViewEnvironment& environment,
                    RankingBoard board,
                    DetailFactory makeDetail,
                    QWidget* parent = nullptr);
    MarketBoardView(const MarketBoardView&) = delete;
    MarketBoardView& operator=(const MarketBoardView&) = delete;
    MarketBoardView(MarketBoardView&&) = delete;
    MarketBoardView& operator=(MarketBoardView&&) = delete;
    /// Ends the polling when the view is shown.
    ~MarketBoardView() override;

    /// Shows another board from its beginning, with no chart open.
    void setBoard(RankingBoard board);
    [[nodiscard]] RankingBoard board() const noexcept { return m_board; }

    /// The coin whose chart is open.
    [[nodiscard]] const std::optional<std::string>& expandedSymbol() const noexcept {
        return m_expandedSymbol;
    }
    /// The rows as they were when the chart was opened; empty when none is.
    [[nodiscard]] const std::vector<FrozenRank>& frozenRows() const noexcept {
        return m_frozenRows;
    }
    /// The rows in the order in which they are shown.
    [[nodiscard]] const std::vector<RankedCoin>& shownRows() const noexcept { return m_shown; }

    /// What a click on a row does: opens its chart, or closes it.
    void toggle(const std::string& symbol);

    enum class LastLoad : std::uint8_t { succeeded, failed };

    /// Whether data of that age, absent when unknown, are to be warned of. Pure.
    [[nodiscard]] static bool isStale(std::optional<Seconds> age, LastLoad lastLoad);
    /// The warning: "已停止刷新,数据为3 分钟前的". Pure.
    [[nodiscard]] static QString staleText(std::optional<Seconds> age, LastLoad lastLoad);
    /// The same of the exchange's data as they stand, whether or not it is shown.
    [[nodiscard]] QString staleText() const;

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    class Row;

    [[nodiscard]] ColumnHeader* makeHeader(SecondaryColumn column);
    [[nodiscard]] RowList* makeRows(DetailFactory makeDetail);
    [[nodiscard]] const Coin* shownCoin(const std::string& symbol) const;

    void observe();
    void observe(const PolledModel& model);
    [[nodiscard]] bool isPolling() const;
    void pollAfterFrame();
    void startPolling();
    void leave();

    [[nodiscard]] std::vector<RankedCoin> liveEntries() const;
    [[nodiscard]] bool isOfMarketCaps() const noexcept {
        return m_board == RankingBoard::marketCap;
    }
    [[nodiscard]] LastLoad lastLoad() const;
    void scheduleRefresh();
    void refresh();
    void showContent();
    void dropRows();

    void retry();
    Task<void> load(RankingBoard board);

    const ViewEnvironment& m_environment;
    MarketModels m_models;
    RankingBoard m_board;
    std::optional<std::string> m_expandedSymbol;
    std::vector<FrozenRank> m_frozenRows;
    // What the rows show, by their index.
    std::vector<RankedCoin> m_shown;
    bool m_isOnScreen = false;
    // Polling begins once a frame has been painted.
    bool m_awaitsFrame = false;
    // Polling has begun, and its first refresh has had no turn to say so.
    bool m_isStarting = false;

    // Children, owned by Qt. The headers by their column.
    BannerRow* m_banner;
    std::array<ColumnHeader*, 2> m_headers;
    RowList* m_rows;
    BoardPlaceholder* m_placeholder;

    QTimer m_start;
    QTimer m_refresh;
    QTimer m_look;
    // Only while the view is shown.
    std::vector<Observation> m_observations;
    TaskScope::Handle m_retry;
    // Last: its tasks use `this`.
    TaskScope m_scope;
};

}  // namespace quillbar
