// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/window/PanelEdge.h"

#include "Quillbar/widgets/RoundedWindow.h"
#include "Quillbar/widgets/Theme.h"

#include <QPainter>

namespace quillbar {

PanelEdge::PanelEdge(QWidget* parent, const QWidget& content, double radius)
    : QWidget(parent)
    , m_content(content)
    , m_radius(radius) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
}

void PanelEdge::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    RoundedWindow::drawEdge(painter, *this, m_radius, ThemeKey::value(m_content).colors.separator);
}

}  // namespace quillbar
