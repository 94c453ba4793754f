// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/market/RankingBoard.h"

#include <QString>

#include <optional>
#include <vector>

namespace quillbar {

/// One of the panel's tabs: the watchlist or a board of the market. A plain value. It stands for an
/// optional board, which is what the settings save.
class PanelTab final {
public:
    [[nodiscard]] static PanelTab watchlist() { return PanelTab(std::nullopt); }
    [[nodiscard]] static PanelTab board(RankingBoard board) { return PanelTab(board); }

    /// The tab of a board; the watchlist's tab when `board` is absent.
    explicit PanelTab(std::optional<RankingBoard> board)
        : m_board(board) {}

    /// The watchlist, then each board in the boards' own order.
    [[nodiscard]] static std::vector<PanelTab> allCases();

    /// Absent for the watchlist.
    [[nodiscard]] std::optional<RankingBoard> board() const noexcept { return m_board; }

    [[nodiscard]] QString title() const;

    [[nodiscard]] bool operator==(const PanelTab&) const = default;

private:
    std::optional<RankingBoard> m_board;
};

}  // namespace quillbar
