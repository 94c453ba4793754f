// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>

#include <string_view>

/// How the bytes of a logo become a picture that is cheap to keep.
namespace quillbar::CoinIconImage {

/// The side in pixels of the largest picture that is kept: what the largest icon needs on the
/// densest screen.
inline constexpr int kSide = 64;

/// A logo with more pixels is not decoded. Logos come from the network, and a small file can claim
/// to be a picture of any size.
inline constexpr int kMostPixels = 2048 * 2048;

/// The square middle of the picture in the bytes of a PNG file, at most `kSide` pixels wide; null
/// when the bytes are not a PNG that can be decoded. One of more than `kMostPixels` is refused
/// before its pixels are allocated.
[[nodiscard]] QImage decoded(std::string_view png);

}  // namespace quillbar::CoinIconImage
