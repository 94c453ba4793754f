// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/ChartSummary.h"
#include "Quillbar/DetailFactory.h"
#include "Quillbar/ViewEnvironment.h"
#include "QuillbarCore/exchange/Candle.h"
#include "QuillbarCore/exchange/ChartRange.h"
#include "QuillbarCore/model/Coin.h"
#include "QuillbarCore/runtime/Task.h"
#include "QuillbarCore/runtime/TaskScope.h"

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

/// What unfolds under a coin's row: the choice of a range, a line that sums it up, and the chart.
///
/// The candles are asked for whenever the view is shown and whenever another range is chosen; an
/// answer that was overtaken by a later request is dropped. Until the first candles there is a
/// spinner in their place, and then perhaps a message: "暂无数据", or "加载走势失败" with a button
/// to try again. Candles that are there stay until others come; while they are not those of the
/// range that is chosen they are faint, and spinner or message stand beside the ranges.
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
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    enum class Outcome { success, failure, cancelled };

    void startLoad();
    Task<void> load(ChartRange range, std::uint64_t generation);
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
    Coin m_coin;
    ChartRange m_range = ChartRange::day;
    std::vector<Candle> m_candles;
    ChartSummary m_summary;
    // Whose candles these are; absent without candles.
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
