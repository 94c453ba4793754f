// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/widgets/Theme.h"

#include <QColor>

namespace quillbar {

/// A colour by its role in the palette, such as `&ThemeColors::Resolved::accent`: what is drawn in
/// a role follows the theme by itself.
using ColorRole = QColor ThemeColors::Resolved::*;

/// The colour of a change: `up` above zero, `down` below it, and `flat` for zero. Pure.
[[nodiscard]] inline ColorRole colorOfChange(
    double change,
    ColorRole flat = &ThemeColors::Resolved::secondaryText) {
    if (change > 0) {
        return &ThemeColors::Resolved::up;
    }
    return change < 0 ? &ThemeColors::Resolved::down : flat;
}

}  // namespace quillbar
