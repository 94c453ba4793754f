// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/market/PeggedAssets.h"

#include "QuillbarCore/catalog/SearchText.h"

#include <algorithm>
#include <string>

namespace quillbar::PeggedAssets {

bool isPegged(std::string_view baseAsset) {
    const std::string name = SearchText::upperCased(baseAsset);
    const auto holds = [&name](const auto& list) {
        return std::find(list.begin(), list.end(), name) != list.end();
    };
    return holds(kStablecoins) || holds(kWrappedAndStaked) || holds(kMetalPegged);
}

}  // namespace quillbar::PeggedAssets
