// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QSize>
#include <QWidget>

namespace quillbar {

/// Content of a size that the test sets.
class PanelContent final : public QWidget {
public:
    explicit PanelContent(QSize size)
        : m_size(size) {
        setFocusPolicy(Qt::StrongFocus);
    }

    [[nodiscard]] QSize sizeHint() const override { return m_size; }

    void grow(QSize size) {
        m_size = size;
        updateGeometry();
    }

private:
    QSize m_size;
};

}  // namespace quillbar
