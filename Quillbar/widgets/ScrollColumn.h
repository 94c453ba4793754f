// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/widgets/ScrollFade.h"

#include <QScrollArea>
#include <QSize>

class QVBoxLayout;

namespace quillbar {

/// Widgets one below the other, which scroll where they have less room than they need. As in the
/// lists no bar is shown; a fade at an edge says that there is more. What gets the focus is
/// scrolled into view, and so is all of the widget around it when that grows. Page Up and Down,
/// Home and End scroll, unless the widget with the focus uses the key.
///
/// Used on the main thread alone.
class ScrollColumn final : public QScrollArea {
public:
    /// How far the wheel scrolls in one step, in points at a text size of 100 %.
    static constexpr int kStep = 28;

    /// `spacing` is the distance between two widgets, in points at a text size of 100 %.
    explicit ScrollColumn(int spacing, QWidget* parent = nullptr);

    /// Adds a widget at the end. The column owns it.
    void add(QWidget* widget);
    void scrollToTop();

    /// The height at which nothing has to scroll, for that width; both in points.
    [[nodiscard]] int heightFor(int width) const;
    /// The height at which nothing has to scroll at the present width. The column takes no more.
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    [[nodiscard]] QWidget* partOf(QWidget* widget) const;
    void reveal(QWidget* focused);
    void follow();
    void updateFade();

    // Children, owned by Qt.
    QWidget* m_content;
    QVBoxLayout* m_stack;
    ScrollFade m_fade;
    // The height of the part with the focus, when it was revealed.
    int m_revealedHeight = 0;
};

}  // namespace quillbar
