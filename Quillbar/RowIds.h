// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <unordered_set>
#include <vector>

/// What the rows of a list are known by. Pure.
namespace quillbar::RowIds {

/// The ids of the items, in their order.
template <class Item>
[[nodiscard]] std::vector<std::string> of(const std::vector<Item>& items) {
    std::vector<std::string> ids;
    ids.reserve(items.size());
    for (const Item& item : items) {
        ids.push_back(item.id());
    }
    return ids;
}

/// Drops every item whose id an earlier one has: what others have written may name a coin twice,
/// and a row is known by its id alone.
template <class Item>
void dropRepeated(std::vector<Item>& items) {
    std::unordered_set<std::string> seen;
    seen.reserve(items.size());
    std::erase_if(items, [&seen](const Item& item) { return !seen.insert(item.id()).second; });
}

}  // namespace quillbar::RowIds
