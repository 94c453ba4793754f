// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/ListRow.h"
#include "Quillbar/ViewEnvironment.h"
#include "QuillbarCore/model/Coin.h"
#include "QuillbarCore/runtime/Observed.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

class QString;

namespace quillbar {

class CoinRowView;
class GlyphButton;

/// A row of the watchlist: the arrow that opens its chart, and the coin. A screen reader is told of
/// the coin's place too.
class CoinListRow final : public ListRow {
public:
    /// The width of the arrow's column, in points.
    static constexpr int kDisclosureWidth = 16;

    /// What the rows of a list have in common; it outlives them.
    struct Source final {
        /// What the rows show, by their index.
        const std::vector<Coin>& coins;
        /// Whose chart is open.
        const Observed<std::optional<std::string>>& expandedSymbol;
        /// The arrow of a coin's row was clicked.
        std::function<void(const std::string& symbol)> toggle;
    };

    /// The environment outlives the row.
    CoinListRow(const ViewEnvironment& environment, const Source& source, QWidget* parent);

    void present(const std::string& id, std::size_t index) override;

private:
    void describePlace(std::size_t index);

    const Source& m_source;
    // The place that was described last, and among how many.
    std::size_t m_index = 0;
    std::size_t m_count = 0;
    GlyphButton* m_disclosure;
    CoinRowView* m_coin;
};

}  // namespace quillbar
