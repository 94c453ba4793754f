// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/boards/SecondaryColumn.h"
#include "Quillbar/list/DetailFactory.h"
#include "Quillbar/list/ExpandableList.h"
#include "Quillbar/widgets/ViewEnvironment.h"
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

/// One board of the market: a row for each coin, in the board's order, and a coin's chart under its
/// row. While a chart is open the rows keep their places and their ranks. A row above them warns of
/// old data, and a row below that one of old market capitalisations. Without data, a spinner or a
/// message is shown in place of the rows.
///
/// While it is shown, the models poll, and the view ranks their data again after they have changed,
/// once for all changes of a turn. Polling begins after the board's first frame; if no frame is
/// painted, at the next check of the data's age. Hiding the view ends the polling and closes the
/// chart. While it is hidden, it does nothing.
class MarketBoardView final : public QWidget {
public:
    /// The height of the list of rows, in points. The view has the same height while there are no
    /// rows.
    static constexpr int kBoardHeight = 420;
    /// How many coins are shown: by the boards of the exchange's own data, and by the board of
    /// market capitalisations.
    static constexpr int kExchangeLimit = 50;
    static constexpr int kMarketCapLimit = 100;
    /// Data older than this are stale.
    static constexpr Seconds kStaleAge{60};
    /// How often the age of the data is checked: they grow old without an event.
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
    /// If the view is shown, the polling ends.
    ~MarketBoardView() override;

    /// Shows another board from its first row, with no chart open.
    void setBoard(RankingBoard board);
    [[nodiscard]] RankingBoard board() const noexcept { return m_board; }

    /// The coin whose chart is open.
    [[nodiscard]] const std::optional<std::string>& expandedSymbol() const noexcept {
        return m_list.expandedSymbol();
    }

    /// What a click on a row does: opens its chart, or closes it.
    void toggle(const std::string& symbol);

    enum class LastLoad : std::uint8_t { succeeded, failed };

    /// Whether the user must be warned of data of that age, which is absent when it is unknown.
    /// Pure.
    [[nodiscard]] static bool isStale(std::optional<Seconds> age, LastLoad lastLoad);
    /// The warning: "已停止刷新,数据为3 分钟前的". Pure.
    [[nodiscard]] static QString staleText(std::optional<Seconds> age, LastLoad lastLoad);
    /// The warning about the exchange's data as they are now, whether or not it is shown.
    [[nodiscard]] QString staleText() const;

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    class Row;

    /// What the board waits for before it is live. What it shows also depends on the data of the
    /// models, which may be old or may have failed to load.
    enum class Life : std::uint8_t {
        /// Nothing: the board is not shown, and does nothing.
        hidden,
        /// The first frame. The exchange's answer would compete with it.
        waitingForFrame,
        /// The frame is painted, and is on its way to the screen.
        painted,
        /// Polling has begun, but its first refresh has not run yet.
        starting,
        live,
    };

    [[nodiscard]] ColumnHeader* makeHeader(SecondaryColumn column);
    [[nodiscard]] RowListContent rowContent();

    void enter(Life life);
    void begin();
    void poll();
    void onTurn();
    void scheduleTurn();
    void observe();
    [[nodiscard]] std::vector<PolledModel*> polledModels() const;
    [[nodiscard]] bool isPolling() const;

    [[nodiscard]] std::vector<RankedCoin> liveEntries() const;
    [[nodiscard]] bool isOfMarketCaps() const noexcept {
        return m_board == RankingBoard::marketCap;
    }
    [[nodiscard]] LastLoad lastLoad() const;
    void refresh();
    void showContent();
    void showWarnings();

    void retry();
    Task<void> load(RankingBoard board);

    const ViewEnvironment& m_environment;
    MarketModels m_models;
    RankingBoard m_board;
    Life m_life = Life::hidden;
    Observed<std::optional<std::string>> m_expandedSymbol;

    // Children, owned by Qt. The headers by their column.
    BannerRow* m_banner;
    BannerRow* m_marketCapBanner;
    std::array<ColumnHeader*, 2> m_headers;
    ExpandableList<RankedCoin> m_list;
    BoardPlaceholder* m_placeholder;

    // The next step of its life, and the update after models have changed, once for all of them.
    QTimer m_turn;
    QTimer m_look;
    // Empty while the view is hidden.
    std::vector<Observation> m_observations;
    TaskScope::Handle m_retry;
    // Last: its tasks use `this`.
    TaskScope m_scope;
};

}  // namespace quillbar
