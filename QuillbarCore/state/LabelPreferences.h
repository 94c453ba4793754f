// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/state/LabelCoins.h"
#include "QuillbarCore/state/LabelWording.h"

#include <string>

namespace quillbar {

/// What the user has chosen for the item in the status area. A plain value.
struct LabelPreferences final {
    LabelWording wording = LabelWording::symbolPriceChange;
    /// The user's own template, kept while another wording is chosen. May be anything: the stored
    /// document can be edited by hand.
    std::string ownTemplate = "{symbol} {price} {arrow} {change}";
    /// Whether the item shows no numbers, for example while others see the screen.
    bool isDiscreet = false;
    LabelCoins coins = LabelCoins::pinned;
    /// For how long each of the coins in turn is shown: one of `kAllRotationSeconds`.
    int rotationSeconds = 10;

    [[nodiscard]] bool operator==(const LabelPreferences&) const = default;
};

}  // namespace quillbar
