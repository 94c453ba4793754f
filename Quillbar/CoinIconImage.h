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

/// The most pixels of a logo that is decoded. Logos come from the network, and a small file can
/// claim a picture of any size.
inline constexpr int kMostPixels = 2048 * 2048;

/// The square middle of the picture in the bytes of a PNG file, at most `kSide` pixels wide; null
/// when they are no PNG that can be decoded, or one of more than `kMostPixels`, whose pixels are
/// never allocated.
[[nodiscard]] QImage decoded(std::string_view png);

}  // namespace quillbar::CoinIconImage
