// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/list/TableRow.h"

#include "Quillbar/widgets/TextScale.h"
#include "Quillbar/widgets/Theme.h"

#include <QEnterEvent>
#include <QEvent>
#include <QFocusEvent>
#include <QHBoxLayout>
#include <QHideEvent>
#include <QPainter>
#include <QPaintEvent>
#include <QRectF>

namespace quillbar {

namespace {

constexpr int kRingMargin = 2;

}  // namespace

TableRow::TableRow(QWidget* parent)
    : QWidget(parent)
    , m_layout(new QHBoxLayout(this)) {
    TextScale::follow(*this, [this] {
        setFixedHeight(TextScale::length(*this, kHeight));
        m_layout->setContentsMargins(TextScale::margins(*this, {kPadding, 0, kPadding, 0}));
        m_layout->setSpacing(TextScale::length(*this, kSpacing));
    });
}

void TableRow::addContent(QWidget* content, int stretch) {
    m_layout->addWidget(content, stretch);
}

void TableRow::addGap(int width) {
    // A widget, because a layout keeps no spacing beside a spacer.
    auto* const gap = new QWidget(this);
    TextScale::follow(*gap, [gap, width] { gap->setFixedWidth(TextScale::length(*gap, width)); });
    gap->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_layout->addWidget(gap);
}

void TableRow::setAlternate(bool isAlternate) {
    if (isAlternate != m_isAlternate) {
        m_isAlternate = isAlternate;
        update();
    }
}

void TableRow::setReactsToPointer(bool reacts) {
    if (reacts != m_reactsToPointer) {
        m_reactsToPointer = reacts;
        update();
    }
}

void TableRow::setHovering(bool isHovering) {
    if (isHovering != m_isHovering) {
        m_isHovering = isHovering;
        update();
    }
}

void TableRow::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const ThemeColors::Resolved& colors = ThemeKey::value(*this).colors;
    if (m_isHovering && m_reactsToPointer) {
        painter.fillRect(rect(), colors.rowHover);
    } else if (m_isAlternate) {
        painter.fillRect(rect(), colors.rowAlternate);
    }
    m_focus.drawRing(painter, *this, QRectF(rect()).adjusted(kRingMargin, 1, -kRingMargin, -1));
}

void TableRow::enterEvent(QEnterEvent* event) {
    setHovering(true);
    QWidget::enterEvent(event);
}

void TableRow::leaveEvent(QEvent* event) {
    setHovering(false);
    QWidget::leaveEvent(event);
}

void TableRow::hideEvent(QHideEvent* event) {
    setHovering(false);
    QWidget::hideEvent(event);
}

void TableRow::focusInEvent(QFocusEvent* event) {
    m_focus.focusIn(event->reason());
    QWidget::focusInEvent(event);
}

}  // namespace quillbar
