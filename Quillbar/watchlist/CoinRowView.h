// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/widgets/ViewEnvironment.h"
#include "QuillbarCore/model/Coin.h"

#include <QString>
#include <QWidget>

namespace quillbar {

class ChangeText;
class CoinCell;
class NumericCell;

/// The cells of a watched coin: the coin, its volume, its price and its change. It reads the models
/// in `refresh`, and repaints only the cells whose text or colour has changed.
class CoinRowView final : public QWidget {
public:
    /// The environment outlives the view.
    explicit CoinRowView(const ViewEnvironment& environment, QWidget* parent = nullptr);

    /// Shows a coin as the models have it.
    void setCoin(const Coin& coin);
    [[nodiscard]] const Coin& coin() const noexcept { return m_coin; }

    /// Shows what the models have now.
    void refresh();

    /// How old the price of this coin is; empty while it is live. Other coins may have newer
    /// prices.
    [[nodiscard]] QString ageText() const;

    /// What a screen reader says of the row: "BTC, 价格 67,234.50, 涨跌 +1.23%, 成交额 15.00亿", and
    /// that it has price alerts.
    [[nodiscard]] QString spokenText() const;

private:
    [[nodiscard]] bool hasAlert() const;

    const ViewEnvironment& m_environment;
    Coin m_coin;
    CoinCell* m_coinCell;
    NumericCell* m_volume;
    NumericCell* m_price;
    ChangeText* m_change;
};

}  // namespace quillbar
