// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <Qt>

class QPainter;
class QRectF;
class QWidget;

namespace quillbar {

/// Whether a widget got the focus by the keyboard, which is when it shows it: who clicks knows
/// where they are. Tell it of every focus event of the widget.
class KeyboardFocus final {
public:
    /// The widget has got the focus. Another window or a menu that gives it back changes nothing.
    void focusIn(Qt::FocusReason reason);

    /// Whether the widget shows a ring while it has the focus.
    [[nodiscard]] bool isByKeyboard() const noexcept { return m_isByKeyboard; }

    /// Draws the ring of a widget that has the focus by the keyboard: a rounded outline in the
    /// accent colour, just inside the rectangle. Draws nothing otherwise.
    void drawRing(QPainter& painter, const QWidget& widget, const QRectF& rectangle) const;

private:
    bool m_isByKeyboard = false;
};

}  // namespace quillbar
