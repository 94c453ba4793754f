// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

namespace quillbar {

/// The hairline around the panel. It is above the content, which reaches to the edges of the
/// window. It takes neither clicks nor the focus.
class PanelEdge final : public QWidget {
public:
    /// The edge has the theme of the content, which outlives it. The radius is that of the corners.
    PanelEdge(QWidget* parent, const QWidget& content, double radius);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const QWidget& m_content;
    double m_radius;
};

}  // namespace quillbar
