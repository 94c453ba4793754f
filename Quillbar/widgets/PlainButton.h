// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/widgets/KeyboardFocus.h"

#include <QAbstractButton>

namespace quillbar {

/// A button without a bezel, with a ring while it has the keyboard's focus. Its whole rectangle is
/// clickable. Space and Enter click it. A click does not move the focus.
///
/// Give it an accessible name, and connect to `clicked`.
class PlainButton : public QAbstractButton {
public:
    /// Who draws the ring: the button, along its edges; or the widget that it stands in, further
    /// outside, with `drawRing`.
    enum class RingBy { button, parent };

    explicit PlainButton(QWidget* parent = nullptr, RingBy ringBy = RingBy::button);

    /// By what the button got the focus, as far as its ring tells: by Tab or otherwise.
    [[nodiscard]] Qt::FocusReason focusReason() const {
        return hasRing() ? Qt::TabFocusReason : Qt::OtherFocusReason;
    }

    /// Draws the ring along that rectangle, while the button has it.
    void drawRing(QPainter& painter, const QRectF& rectangle) const;

protected:
    /// Draws the button without its ring, by a painter in its initial state, which need not be
    /// kept.
    virtual void drawContent(QPainter& painter) = 0;

    /// Whether the pointer is over the button and it can be clicked.
    [[nodiscard]] bool isHovered() const { return isEnabled() && underMouse(); }

    /// Whether the button shows that it has the keyboard's focus.
    [[nodiscard]] bool hasRing() const { return hasFocus() && m_focus.isByKeyboard(); }

    void paintEvent(QPaintEvent* event) final;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    void updateRing();

    KeyboardFocus m_focus;
    RingBy m_ringBy;
};

}  // namespace quillbar
