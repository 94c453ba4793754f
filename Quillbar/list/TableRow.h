// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/widgets/KeyboardFocus.h"

#include <QWidget>

class QHBoxLayout;

namespace quillbar {

/// One row of a table: 28 points high, its content side by side, 6 points apart and 12 from either
/// edge, at a text size of 100 %. Its background spans the whole width and follows the pointer; a
/// ring shows the keyboard's focus.
class TableRow : public QWidget {
public:
    static constexpr int kHeight = 28;
    static constexpr int kSpacing = 6;
    static constexpr int kPadding = 12;

    explicit TableRow(QWidget* parent = nullptr);

    /// Adds a widget at the right end of the content; it takes the width that the others leave when
    /// `stretch` is not 0. The row owns it.
    void addContent(QWidget* content, int stretch = 0);
    /// Adds an empty column of that width at 100 %.
    void addGap(int width);

    /// Whether this is one of the rows that are tinted to guide the eye.
    void setAlternate(bool isAlternate);
    [[nodiscard]] bool isAlternate() const noexcept { return m_isAlternate; }

    /// Whether the row is tinted under the pointer. The default is that it is.
    void setReactsToPointer(bool reacts);

    /// Whether the pointer is over the row.
    [[nodiscard]] bool isHovering() const noexcept { return m_isHovering; }
    /// For a row that has moved under the pointer or away from it: Qt sends no event for that.
    void setHovering(bool isHovering);

protected:
    void paintEvent(QPaintEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;

private:
    QHBoxLayout* m_layout;
    bool m_isAlternate = false;
    bool m_reactsToPointer = true;
    bool m_isHovering = false;
    KeyboardFocus m_focus;
};

}  // namespace quillbar
