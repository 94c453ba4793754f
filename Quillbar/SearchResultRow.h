// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/ListRow.h"
#include "Quillbar/ViewEnvironment.h"
#include "QuillbarCore/model/Coin.h"

#include <QString>

#include <functional>

namespace quillbar {

class CoinIconView;

/// Whether a coin is on the watchlist.
enum class Watched { no, yes };

/// A row of the search's results: the coin's icon, its base asset and its pair; "已添加" at the end of
/// the row of a watched coin, which can neither be clicked nor looks so. A click leaves the focus
/// where it is.
class SearchResultRow final : public ListRow {
public:
    static constexpr int kIconSize = 16;

    /// What the row of an id shows at that place of the list.
    using Content = std::function<const Coin&(std::size_t index)>;

    /// The environment outlives the row.
    SearchResultRow(const ViewEnvironment& environment, Content content, QWidget* parent);

    void present(const std::string& id, std::size_t index) override;

    /// A coin's pair as people write it: "SOL/USDT"; the symbol where it is not made of the base
    /// asset. Pure.
    [[nodiscard]] static QString pairOf(const Coin& coin);

    [[nodiscard]] Watched watched() const noexcept { return m_watched; }

    /// The row of a coin that is not watched was clicked.
    std::function<void(const Coin& coin)> onPick;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    AppState& m_appState;
    Content m_content;
    CoinIconView* m_icon;
    Coin m_coin;
    Watched m_watched = Watched::no;
};

}  // namespace quillbar
