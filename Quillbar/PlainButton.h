// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/KeyboardFocus.h"

#include <QAbstractButton>

namespace quillbar {

/// A button that is only what it draws: no bezel, and a ring while it has the keyboard's focus. Its
/// whole rectangle is clickable. Space and Enter click it; the pointer does not take the focus away
/// from where it is.
///
/// Give it an accessible name, and connect to `clicked`.
class PlainButton : public QAbstractButton {
public:
    explicit PlainButton(QWidget* parent = nullptr);

protected:
    /// Draws the button without its ring. The painter is fresh.
    virtual void drawContent(QPainter& painter) = 0;

    /// Whether the pointer is over the button and it can be clicked.
    [[nodiscard]] bool isHovered() const { return isEnabled() && underMouse(); }

    void paintEvent(QPaintEvent* event) final;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    KeyboardFocus m_focus;
};

}  // namespace quillbar
