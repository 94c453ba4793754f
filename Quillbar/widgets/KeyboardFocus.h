// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <Qt>

class QPainter;
class QRectF;
class QWidget;

namespace quillbar {

/// Whether a widget got the focus by the keyboard. Only then does it show a ring, because a user
/// who clicks knows where the focus is. Call it for every focus event of the widget.
class KeyboardFocus final {
public:
    /// Call it when the widget has got the focus. If it gets the focus back from another window or
    /// a menu, nothing changes.
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
