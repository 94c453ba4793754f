// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/list/ExpandableList.h"
#include "Quillbar/list/ListRow.h"
#include "Quillbar/widgets/ViewEnvironment.h"
#include "QuillbarCore/model/Coin.h"

#include <cstddef>
#include <functional>
#include <string>

namespace quillbar {

class CoinRowView;
class GlyphButton;

/// A row of the watchlist: the arrow that opens its chart, and the coin. For screen readers it also
/// has the coin's place in the list. Its tooltip says how old a price is that is not live.
class CoinListRow final : public ListRow {
public:
    /// The width of the arrow's column, in points.
    static constexpr int kDisclosureWidth = 16;

    /// The environment and the list of this row outlive it. `toggle` is called with the symbol of a
    /// row whose arrow is clicked.
    CoinListRow(const ViewEnvironment& environment,
                const ExpandableList<Coin>& list,
                std::function<void(const std::string& symbol)> toggle,
                QWidget* parent);

    void present(const std::string& id, std::size_t index) override;

protected:
    bool event(QEvent* event) override;

private:
    void describePlace(std::size_t index);

    const ExpandableList<Coin>& m_list;
    std::function<void(const std::string& symbol)> m_toggle;
    // The place and the number of rows that were last put into the spoken text.
    std::size_t m_index = 0;
    std::size_t m_count = 0;
    GlyphButton* m_disclosure;
    CoinRowView* m_coin;
};

}  // namespace quillbar
