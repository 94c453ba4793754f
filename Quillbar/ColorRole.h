// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/Theme.h"

#include <QColor>

namespace quillbar {

/// A colour by its role in the palette, such as `&ThemeColors::Resolved::accent`: what is drawn in
/// it follows the theme by itself.
using ColorRole = QColor ThemeColors::Resolved::*;

}  // namespace quillbar
