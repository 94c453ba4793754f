// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/watchlist/ListOffer.h"

#include <QWidget>

#include <functional>

namespace quillbar {

class RowList;
class ThemedLabel;

/// What the search shows for a list of names: one row that adds the coins, and below it what cannot
/// be added. Without coins to add there is no row. A screen reader reads all of it aloud when it
/// appears.
class ListOfferView final : public QWidget {
public:
    /// `pick` is called when the row is clicked, or chosen by the keyboard.
    explicit ListOfferView(std::function<void()> pick, QWidget* parent = nullptr);

    void present(const ListOffer& offer);

    /// The list of the one row, or of none. It lives as long as the view.
    [[nodiscard]] RowList& rows() const noexcept { return *m_rows; }

private:
    std::function<void()> m_pick;
    ListOffer m_offer;
    RowList* m_rows;
    ThemedLabel* m_notes;
};

}  // namespace quillbar
