// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QEvent>
#include <QObject>
#include <QPaintEvent>
#include <QRect>
#include <QWidget>

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

}  // namespace quillbar
