// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/chart/ChartSummary.h"
#include "Quillbar/list/DetailFactory.h"
#include "Quillbar/widgets/ViewEnvironment.h"
#include "QuillbarCore/exchange/Candle.h"
#include "QuillbarCore/exchange/ChartRange.h"
#include "QuillbarCore/model/Coin.h"
#include "QuillbarCore/runtime/Sleeper.h"
#include "QuillbarCore/runtime/Task.h"
#include "QuillbarCore/runtime/TaskScope.h"
#include "QuillbarCore/runtime/Time.h"

#include <QWidget>

#include <cstdint>
#include <optional>
#include <vector>

class QPainter;

namespace quillbar {

class PriceChart;
class RangeSelector;
class Spinner;
class TextButton;
class ThemedLabel;

/// What unfolds under a coin's row: the buttons for the range, a line of figures, and the chart.
///
/// The view loads the candles when it is shown, when another range is chosen, and, while it is
/// open, when the candles are no longer fresh. The answer of a load is dropped if a later load has
/// begun. Before the first candles, the view shows a spinner in their place, or a message: "暂无数据",
/// or "加载走势失败" with a button to try again. Candles stay until others come. While they are not those
/// of the chosen range they are faint, and the spinner or the message is beside the buttons.
class CoinDetailView final : public QWidget {
public:
    /// In points. The view's height never changes.
    static constexpr int kHeight = kDetailHeight;
    static constexpr int kChartHeight = 140;

    /// The environment outlives the view.
    CoinDetailView(const ViewEnvironment& environment, Coin coin, QWidget* parent = nullptr);

    [[nodiscard]] const Coin& coin() const noexcept { return m_coin; }
    [[nodiscard]] ChartRange range() const noexcept { return m_range; }
    [[nodiscard]] const std::vector<Candle>& candles() const noexcept { return m_candles; }
    [[nodiscard]] bool isLoading() const noexcept { return m_isLoading; }
    [[nodiscard]] bool loadFailed() const noexcept { return m_loadFailed; }

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    enum class Outcome { success, failure, cancelled };

    void startLoad();
    // Loads the candles, and loads them again each time they are no longer fresh. What is shown
    // changes only when such a later load ends.
    Task<void> keepLoaded(ChartRange range, std::uint64_t generation);
    // The time until the next load; absent when none follows by itself.
    [[nodiscard]] std::optional<Seconds> pauseAfter(Outcome outcome, ChartRange range) const;
    Task<Outcome> load(ChartRange range, std::uint64_t generation);
    void finishLoad(std::uint64_t generation, Outcome outcome);

    void choose(ChartRange range);
    [[nodiscard]] bool isOutdated() const;
    void refresh();
    void placeChildren();
    void placeFailure(const QRect& place, bool isCentred);
    double paintLabelled(QPainter& painter,
                         double x,
                         const QString& label,
                         const QString& value,
                         const QColor& color);

    AppState& m_appState;
    Sleeper m_sleeper;
    Coin m_coin;
    ChartRange m_range = ChartRange::day;
    std::vector<Candle> m_candles;
    ChartSummary m_summary;
    // The range of `m_candles`; absent without candles.
    std::optional<ChartRange> m_candlesRange;
    bool m_isLoading = false;
    bool m_loadFailed = false;
    // Identifies the latest load.
    std::uint64_t m_loadGeneration = 0;
    // Children, owned by Qt.
    RangeSelector* m_ranges;
    Spinner* m_spinner;
    ThemedLabel* m_message;
    TextButton* m_retry;
    PriceChart* m_chart;
    TaskScope::Handle m_loading;
    // Last: its tasks use `this`.
    TaskScope m_scope;
};

}  // namespace quillbar
