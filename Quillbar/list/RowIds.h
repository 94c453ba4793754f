// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

/// The ids by which a list tells its rows apart. Pure.
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

/// Drops every item that has the id of an earlier one. Files and answers may name a coin twice, and
/// a list can have only one row of an id.
template <class Item>
void dropRepeated(std::vector<Item>& items) {
    std::unordered_set<std::string> seen;
    seen.reserve(items.size());
    std::erase_if(items, [&seen](const Item& item) { return !seen.insert(item.id()).second; });
}

/// The first item of that id; null when there is none.
template <class Item>
[[nodiscard]] const Item* find(const std::vector<Item>& items, std::string_view id) {
    const auto found = std::find_if(
        items.begin(), items.end(), [id](const Item& item) { return item.id() == id; });
    return found == items.end() ? nullptr : &*found;
}

}  // namespace quillbar::RowIds
