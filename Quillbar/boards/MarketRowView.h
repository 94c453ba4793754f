// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/boards/SecondaryColumn.h"
#include "Quillbar/list/ListRow.h"
#include "Quillbar/widgets/Glyphs.h"
#include "Quillbar/widgets/ViewEnvironment.h"
#include "QuillbarCore/market/RankedCoin.h"

#include <QString>

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace quillbar {

class ChangeText;
class CoinCell;
class NumericCell;

/// A row of a board: the rank, the coin, its volume or market capitalisation, its price, its
/// change, and a button that adds it to the watchlist, or a check mark when it is there. A click
/// anywhere else opens or closes the chart. The key + adds the coin too.
class MarketRowView : public ListRow {
public:
    /// The width of the rank's column, in points.
    static constexpr int kRankWidth = 16;

    /// The environment outlives the row. `toggle` is called with the symbol of a row that is
    /// clicked.
    MarketRowView(const ViewEnvironment& environment,
                  std::function<void(const std::string& symbol)> toggle,
                  QWidget* parent);

    /// Whether the row's chart is open.
    enum class Chart : std::uint8_t { closed, open };

    /// Shows a coin. Repaints only the cells that change.
    void setEntry(const RankedCoin& entry, SecondaryColumn column, Chart chart);
    [[nodiscard]] const RankedCoin& entry() const noexcept { return m_entry; }

    /// Whether the coin is on the watchlist.
    [[nodiscard]] bool isWatched() const;

    /// What is shown in place of the rank: an arrow under the pointer, as a click opens the chart,
    /// and an arrow while the chart is open.
    [[nodiscard]] std::optional<Glyph> rankGlyph() const;

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    class RankCell;
    class AddCell;

    void add();
    [[nodiscard]] QString sentence(SecondaryColumn column) const;

    const ViewEnvironment& m_environment;
    std::function<void(const std::string& symbol)> m_toggle;
    RankedCoin m_entry;
    Chart m_chart = Chart::closed;
    bool m_isPressed = false;
    // Children, owned by Qt.
    RankCell* m_rank;
    CoinCell* m_coin;
    NumericCell* m_secondary;
    NumericCell* m_price;
    ChangeText* m_change;
    AddCell* m_add;
};

}  // namespace quillbar
