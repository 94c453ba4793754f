// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

#include <functional>

namespace quillbar {

/// A small window that opens at a widget, its anchor, with its right edge on that of the anchor's
/// window. It closes at Escape, at a press outside, and when the anchor is hidden. The window of
/// the anchor stays open. A press on the anchor only closes the popover; a press elsewhere also
/// reaches the widget under it. The keyboard's focus
/// returns to where it was.
///
/// It opens once. Soon after it has closed it deletes itself and its content; the anchor deletes it
/// at the latest. It follows the anchor's theme.
class Popover final : public QWidget {
public:
    /// `anchor` owns the popover, and must be shown.
    explicit Popover(QWidget& anchor);

    /// Takes ownership of `content`, whose size hint is the size, and shows it at the anchor, with
    /// the focus. Call it once.
    void open(QWidget* content);

    /// Called when the popover has closed; not when its anchor deletes it.
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
};

}  // namespace quillbar
