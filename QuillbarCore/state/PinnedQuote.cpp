// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/state/PinnedQuote.h"

#include "QuillbarCore/model/PriceFormatter.h"

#include <fmt/format.h>

namespace quillbar {

LabelDirection PinnedQuote::direction() const {
    if (isStale()) {
        return LabelDirection::stale;
    }
    const double change = changePercent.value_or(0);
    if (change > 0) {
        return LabelDirection::up;
    }
    return change < 0 ? LabelDirection::down : LabelDirection::flat;
}

std::string PinnedQuote::text() const {
    if (!coin) {
        return "Quillbar";
    }
    if (!showsPrice()) {
        return coin->baseAsset;
    }
    return fmt::format("{} {} {}",
                       coin->baseAsset,
                       PriceFormatter::price(ticker->lastPrice),
                       PriceFormatter::menuBarChange(changePercent));
}

}  // namespace quillbar
