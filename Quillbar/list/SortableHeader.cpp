// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/list/SortableHeader.h"

#include "Quillbar/list/ColumnHeader.h"
#include "Quillbar/platform/Translated.h"
#include "Quillbar/widgets/Glyphs.h"
#include "Quillbar/widgets/TextScale.h"
#include "Quillbar/widgets/Theme.h"

#include <QPainter>
#include <QRectF>

namespace quillbar {

namespace {

// The width of the arrow as it is drawn. It is narrower than its slot, and does not touch the
// title.
constexpr double kArrowSize = 9;

QString spoken(const QString& title, std::optional<SortDirection> direction) {
    if (!direction) {
        return title;
    }
    return (direction == SortDirection::descending ? translated("list", "%1，降序")
                                                   : translated("list", "%1，升序"))
        .arg(title);
}

}  // namespace

SortableHeader::SortableHeader(const QString& title, int width, QWidget* parent)
    : PlainButton(parent, RingBy::parent) {
    setText(title);
    setAccessibleName(title);
    setToolTip(translated("list", "点击排序:降序 → 升序 → 手动顺序"));
    setAccessibleDescription(toolTip());
    TextScale::follow(*this, [this, width] {
        setFixedSize(TextScale::length(*this, width),
                     TextScale::length(*this, ColumnHeader::kHeight) - 1);
    });
}

void SortableHeader::setDirection(std::optional<SortDirection> direction) {
    if (direction != m_direction) {
        m_direction = direction;
        setAccessibleName(spoken(text(), direction));
        update();
    }
}

void SortableHeader::drawContent(QPainter& painter) {
    const ThemeColors::Resolved& colors = ThemeKey::value(*this).colors;
    const QRectF area = TextScale::enlarge(painter, *this);
    painter.setFont(ColumnHeader::titleFont());
    painter.setPen(isHovered() || m_direction ? colors.primaryText : colors.secondaryText);
    painter.drawText(area.adjusted(0, 0, -kSortIndicatorWidth, 0),
                     static_cast<int>(Qt::AlignRight | Qt::AlignVCenter),
                     text());
    if (m_direction) {
        QRectF arrow(0, 0, kArrowSize, kArrowSize);
        arrow.moveCenter(
            QRectF(area.right() - kSortIndicatorWidth, 0, kSortIndicatorWidth, area.height())
                .center());
        drawGlyph(painter,
                  *m_direction == SortDirection::descending ? Glyph::chevronDown : Glyph::chevronUp,
                  arrow,
                  colors.accent);
    }
}

}  // namespace quillbar
