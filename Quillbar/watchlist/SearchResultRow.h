// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/watchlist/SearchRow.h"
#include "Quillbar/widgets/ViewEnvironment.h"
#include "QuillbarCore/model/Coin.h"

#include <QString>

#include <cstddef>
#include <functional>
#include <string>

namespace quillbar {

class CoinIconView;

/// Whether a coin is on the watchlist.
enum class Watched { no, yes };

/// A row of the search's results: the coin's icon, its base asset and its pair. The row of a
/// watched coin ends with "已添加" and cannot be picked.
class SearchResultRow final : public SearchRow {
public:
    /// Returns the coin at that place of the list.
    using Content = std::function<const Coin&(std::size_t index)>;

    /// The environment outlives the row.
    SearchResultRow(const ViewEnvironment& environment, Content content, QWidget* parent);

    void present(const std::string& id, std::size_t index) override;

    /// A coin's pair as people write it, such as "SOL/USDT"; the symbol itself if it does not begin
    /// with the base asset. Pure.
    [[nodiscard]] static QString pairOf(const Coin& coin);

    [[nodiscard]] Watched watched() const noexcept { return m_watched; }

    /// Called when the row of a coin that is not watched is clicked.
    std::function<void(const Coin& coin)> onPick;

protected:
    void onClick() override { onPick(Coin(m_coin)); }
    void resizeEvent(QResizeEvent* event) override;

private:
    AppState& m_appState;
    Content m_content;
    CoinIconView* m_icon;
    Coin m_coin;
    Watched m_watched = Watched::no;
};

}  // namespace quillbar
