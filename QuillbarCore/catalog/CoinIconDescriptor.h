// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>

namespace quillbar {

/// What a coin's icon is named and looks like while there is no logo, from its base asset alone. A
/// plain value; all of it is pure.
struct CoinIconDescriptor final {
    /// How many colours the placeholders have.
    static constexpr int kColorCount = 12;
    /// The most bytes of a base asset that can have a logo.
    static constexpr std::size_t kLongestBaseAsset = 64;

    /// In any case.
    std::string baseAsset;

    /// Whether the base asset can name a file of its own in the folder of logos. Base assets come
    /// from the network and from a file the user may edit: one with a slash or a NUL, "." and "..",
    /// an empty one and one of over 64 bytes has no logo.
    [[nodiscard]] bool canHaveLogo() const;

    /// The logo's file: the base asset in lower case, then ".png".
    [[nodiscard]] std::string fileName() const;

    /// Up to three characters in upper case, without the digits in front unless there is nothing
    /// else; "?" for an empty base asset.
    [[nodiscard]] std::string monogram() const;

    /// From 0 to 11, the same for ever for a base asset in any case.
    [[nodiscard]] int colorIndex() const;

    [[nodiscard]] bool operator==(const CoinIconDescriptor&) const = default;
};

}  // namespace quillbar
