// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/state/LabelPreferences.h"
#include "QuillbarCore/state/PinnedQuote.h"

#include <string>

namespace quillbar {

/// What the item says of a coin, in the wording that the user has chosen. A plain value.
struct LabelWords final {
    /// "BTC 67,234.50" for a wording of coin and price. As in every wording, it is the base asset
    /// alone while there is no current price, and "Quillbar" without a coin. Never blank.
    std::string text;
    /// The change with its arrow at the end of `text`, "▲ 1.23%"; empty when it shows none there.
    std::string change = {};
    /// What a picture that has no room for the text shows of it.
    bool showsSymbol = true;
    bool showsPrice = true;
    bool showsChange = true;

    [[nodiscard]] bool operator==(const LabelWords&) const = default;

    /// The words of this quote. A template that cannot be read, or that writes nothing but spaces,
    /// counts as the wording of a first start. Pure; for any thread.
    [[nodiscard]] static LabelWords of(const PinnedQuote& quote, const LabelPreferences& label);
};

}  // namespace quillbar
