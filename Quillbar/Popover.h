// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

#include <functional>

namespace quillbar {

/// A small window that opens at a widget, its anchor, and closes at Escape, at a press outside and
/// when the anchor is hidden. The window of the anchor stays open and as it is: a press on the
/// anchor only closes the popover, any other press reaches what it hits, and the keyboard's focus
/// returns to where it was.
///
/// It opens once. Closed, it deletes itself with its content, soon after; it goes with its anchor
/// in any case. It has the anchor's theme and follows it.
class Popover final : public QWidget {
public:
    static constexpr double kCornerRadius = 8;

    /// The anchor, which owns the popover, is shown.
    explicit Popover(QWidget& anchor);

    /// Takes `content` over, which decides the size, and shows it at the anchor, with the focus.
    /// Once.
    void open(QWidget* content);

    /// The popover has closed. Not called when it goes with its anchor.
    std::function<void()> onClosed;

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void place();

    QWidget& m_anchor;
    QWidget* m_content = nullptr;
    // Nobody blends windows, so the corners are cut.
    bool m_isMasked = false;
};

}  // namespace quillbar
