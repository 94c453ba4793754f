// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <algorithm>
#include <cstddef>
#include <vector>

namespace quillbar {

/// The titles of all values that a `ChoiceList` offers, in their order. `titleOf` gives the title
/// of one value. Any thread.
template <class Values, class TitleOf>
[[nodiscard]] std::vector<QString> titlesOf(const Values& values, const TitleOf& titleOf) {
    std::vector<QString> titles;
    titles.reserve(values.size());
    for (const auto& value : values) {
        titles.push_back(titleOf(value));
    }
    return titles;
}

/// The position of a value among those that a `ChoiceList` offers. The value is one of them. Any
/// thread.
template <class Values>
[[nodiscard]] std::size_t indexIn(const Values& values, const typename Values::value_type& value) {
    return static_cast<std::size_t>(std::find(values.begin(), values.end(), value)
                                    - values.begin());
}

}  // namespace quillbar
