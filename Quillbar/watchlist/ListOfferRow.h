// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/watchlist/SearchRow.h"

#include <cstddef>
#include <functional>
#include <string>

namespace quillbar {

struct ListOffer;

/// The row that adds all coins of a list: a plus, how many they are, and their names.
class ListOfferRow final : public SearchRow {
public:
    /// Returns what is offered.
    using Content = std::function<const ListOffer&()>;

    ListOfferRow(Content content, std::function<void()> pick, QWidget* parent);

    void present(const std::string& id, std::size_t index) override;

protected:
    void onClick() override { m_pick(); }
    void paintEvent(QPaintEvent* event) override;

private:
    Content m_content;
    std::function<void()> m_pick;
};

}  // namespace quillbar
