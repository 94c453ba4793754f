// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/list/NumericCell.h"

#include "Quillbar/text/SystemFont.h"
#include "Quillbar/text/TabularText.h"
#include "Quillbar/widgets/TextScale.h"

#include <QFont>
#include <QPainter>
#include <QPaintEvent>
#include <QRectF>

#include <algorithm>

namespace quillbar {

namespace {

// Nobody can read smaller text. A longer one runs out of the column instead.
constexpr double kSmallestScale = 0.6;

}  // namespace

NumericCell::NumericCell(int width, double size, QWidget* parent)
    : QWidget(parent)
    , m_size(size) {
    TextScale::follow(*this, [this, width] { setFixedWidth(TextScale::length(*this, width)); });
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void NumericCell::setText(const QString& text) {
    if (text != m_text) {
        m_text = text;
        update();
    }
}

void NumericCell::setColor(ColorRole role) {
    if (role != m_role) {
        m_role = role;
        update();
    }
}

void NumericCell::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const QRectF area = TextScale::enlarge(painter, *this);
    painter.setPen(ThemeKey::value(*this).colors.*m_role);
    QFont font = systemFont(m_size);
    const double needed = TabularText::width(m_text, font);
    if (needed > area.width()) {
        font = systemFont(m_size * std::max(kSmallestScale, area.width() / needed));
    }
    TabularText::draw(painter, area, Qt::AlignRight | Qt::AlignVCenter, m_text, font);
}

}  // namespace quillbar
