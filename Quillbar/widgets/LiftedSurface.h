// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/widgets/Theme.h"

#include <QColor>
#include <QRect>

class QPainter;
class QWidget;

/// What popovers, menus and tooltips have in common: a surface that stands out from the panel, with
/// round corners, a hairline along its edge, and a shadow on the panel where windows are blended.
/// Used on the main thread alone.
namespace quillbar::LiftedSurface {

inline constexpr double kRadius = 8;

/// A shade lighter than the panel in the dark, a shade darker in the light.
[[nodiscard]] QColor color(const ThemeColors::Resolved& colors);

/// What the view stands on: the lifted surface in a window that is one, else the panel's.
[[nodiscard]] QColor under(const QWidget& view);

/// Makes a window without a frame such a surface, before it is first shown. It has a parent, whose
/// window says whether windows are blended, and gets the shadow then; where they are not, the
/// corners are cut at every size. Again changes nothing.
void lift(QWidget& window);

/// Fills the window, with its hairline.
void paint(QPainter& painter, const QWidget& window);

/// The rectangle of a button on the screen, widened to the right edge of its window, where what it
/// opens has its right edge too: nothing shows beside that.
[[nodiscard]] QRect anchorOf(const QWidget& button);

}  // namespace quillbar::LiftedSurface
