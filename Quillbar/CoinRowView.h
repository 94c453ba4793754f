// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/ViewEnvironment.h"
#include "QuillbarCore/model/Coin.h"

#include <QString>
#include <QWidget>

namespace quillbar {

class ChangeText;
class CoinCell;
class NumericCell;

/// The cells of a watched coin: the coin, its volume, its price and its change. It reads the models
/// when it is told to, and repaints the cells whose text or colour is another.
class CoinRowView final : public QWidget {
public:
    // The widths of the columns, in points; the coin takes the rest.
    static constexpr int kVolumeWidth = 64;
    static constexpr int kPriceWidth = 82;
    static constexpr int kChangeWidth = 62;
    static constexpr int kTrailingGap = 14;

    /// The environment outlives the view.
    explicit CoinRowView(const ViewEnvironment& environment, QWidget* parent = nullptr);

    /// Shows a coin as the models have it.
    void setCoin(const Coin& coin);
    [[nodiscard]] const Coin& coin() const noexcept { return m_coin; }

    /// Shows what the models have by now.
    void refresh();

    /// What a screen reader says of the row: "BTC, 价格 67,234.50, 涨跌 +1.23%, 成交额 15.00亿".
    [[nodiscard]] QString spokenText() const;

private:
    AppState& m_appState;
    Coin m_coin;
    CoinCell* m_coinCell;
    NumericCell* m_volume;
    NumericCell* m_price;
    ChangeText* m_change;
};

}  // namespace quillbar
