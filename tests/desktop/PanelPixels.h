// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QRect>

namespace quillbar {

/// Whether anything in the picture has a colour that is far from grey.
[[nodiscard]] bool hasStrongColor(const QImage& image);

/// How many pixels wide what is written in the area is, in whatever colour; 0 where nothing is.
/// `bare` is the lightness of the ground.
[[nodiscard]] int writtenWidth(const QImage& image, const QRect& area, int bare);

}  // namespace quillbar
