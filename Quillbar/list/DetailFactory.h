// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/model/Coin.h"

#include <functional>

class QWidget;

namespace quillbar {

/// The height of what unfolds under a coin's row, in points at a text size of 100 %.
inline constexpr int kDetailHeight = 210;

/// Makes what unfolds under the row of a coin, as a child of `parent`. It is as high as
/// `kDetailHeight` at the text size.
using DetailFactory = std::function<QWidget*(const Coin& coin, QWidget* parent)>;

}  // namespace quillbar
