// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>

namespace quillbar {

/// The file name of a coin's logo, and the placeholder while there is no logo. Both depend on the
/// base asset alone. A plain value; every function is pure.
struct CoinIconDescriptor final {
    /// How many colours the placeholders have.
    static constexpr int kColorCount = 12;
    /// The most bytes of a base asset that can have a logo.
    static constexpr std::size_t kLongestBaseAsset = 64;

    /// In upper or lower case.
    std::string baseAsset;

    /// Whether the base asset can be the name of a file in the folder of logos. Base assets come
    /// from the network and from a file that the user may edit. One that is empty, is "." or "..",
    /// holds a slash or a NUL, or has more than 64 bytes has no logo.
    [[nodiscard]] bool canHaveLogo() const;

    /// The logo's file: the base asset in lower case, then ".png".
    [[nodiscard]] std::string fileName() const;

    /// Up to three characters in upper case, without leading digits unless there is nothing else;
    /// "?" for an empty base asset.
    [[nodiscard]] std::string monogram() const;

    /// The placeholder's colour, from 0 to 11: stable for ever, and the same in upper and lower
    /// case.
    [[nodiscard]] int colorIndex() const;

    [[nodiscard]] bool operator==(const CoinIconDescriptor&) const = default;
};

}  // namespace quillbar
