// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "tests/qtsupport/SpinUntil.h"

#include <QEvent>
#include <QObject>
#include <QPaintEvent>
#include <QRect>
#include <QWidget>

#include <functional>

namespace quillbar {

/// Counts how often a widget is painted while this lives.
class PaintCount final : public QObject {
public:
    explicit PaintCount(QWidget& widget) { widget.installEventFilter(this); }

    int count = 0;
    /// All that was painted.
    QRect region;

protected:
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        if (event->type() == QEvent::Paint) {
            ++count;
            region = region.united(static_cast<QPaintEvent*>(event)->rect());
        }
        return false;
    }
};

/// How often that change paints a widget whose window is on the screen.
inline int paintsOf(QWidget& widget, const std::function<void()>& change) {
    spinUntilIdle();
    const PaintCount paints(widget);
    change();
    spinUntilIdle();
    return paints.count;
}

}  // namespace quillbar
