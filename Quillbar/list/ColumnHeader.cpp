// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/list/ColumnHeader.h"

#include "Quillbar/list/SortableHeader.h"
#include "Quillbar/list/TableRow.h"
#include "Quillbar/text/SystemFont.h"
#include "Quillbar/widgets/TextScale.h"
#include "Quillbar/widgets/Theme.h"

#include <QHBoxLayout>
#include <QMargins>
#include <QPainter>
#include <QPaintEvent>

namespace quillbar {

namespace {

constexpr double kTitleSize = 9.5;
/// The line below the titles, which is a hairline at every text size.
constexpr int kSeparator = 1;
// Half of what is between two columns.
constexpr double kRingRoom = TableRow::kSpacing / 2.0;

/// A title that cannot be clicked.
class Title final : public QWidget {
public:
    Title(QString text, Qt::Alignment alignment, QWidget* parent)
        : QWidget(parent)
        , m_text(std::move(text))
        , m_alignment(alignment) {
        setAccessibleName(m_text);
        setAttribute(Qt::WA_TransparentForMouseEvents);
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        const QRectF area = TextScale::enlarge(painter, *this);
        painter.setFont(ColumnHeader::titleFont());
        painter.setPen(ThemeKey::value(*this).colors.secondaryText);
        painter.drawText(area, static_cast<int>(m_alignment | Qt::AlignVCenter), m_text);
    }

private:
    QString m_text;
    Qt::Alignment m_alignment;
};

void followWidth(QWidget& column, int width) {
    TextScale::follow(column,
                      [&column, width] { column.setFixedWidth(TextScale::length(column, width)); });
}

}  // namespace

ColumnHeader::ColumnHeader(QWidget* parent)
    : QWidget(parent)
    , m_layout(new QHBoxLayout(this)) {
    TextScale::follow(*this, [this] {
        setFixedHeight(TextScale::length(*this, kHeight));
        QMargins margins =
            TextScale::margins(*this, {TableRow::kPadding, 0, TableRow::kPadding, 0});
        margins.setBottom(kSeparator);
        m_layout->setContentsMargins(margins);
        m_layout->setSpacing(TextScale::length(*this, TableRow::kSpacing));
    });
}

void ColumnHeader::addFlexibleTitle(const QString& title) {
    m_layout->addWidget(new Title(title, Qt::AlignLeft, this), 1);
}

void ColumnHeader::addTitle(const QString& title, int width) {
    auto* const column = new Title(title, Qt::AlignRight, this);
    followWidth(*column, width);
    m_layout->addWidget(column);
}

SortableHeader* ColumnHeader::addSortable(const QString& title, int width) {
    auto* const column = new SortableHeader(title, width, this);
    m_layout->addWidget(column);
    m_sortable.push_back(column);
    return column;
}

void ColumnHeader::addGap(int width) {
    // A widget, because a layout keeps no spacing beside a spacer.
    auto* const gap = new QWidget(this);
    followWidth(*gap, width);
    gap->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_layout->addWidget(gap);
}

QFont ColumnHeader::titleFont() {
    return systemFont(kTitleSize, QFont::DemiBold);
}

void ColumnHeader::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.fillRect(
        0, height() - kSeparator, width(), kSeparator, ThemeKey::value(*this).colors.separator);
    for (const SortableHeader* const column : m_sortable) {
        column->drawRing(painter, QRectF(column->geometry()).adjusted(-kRingRoom, 0, kRingRoom, 0));
    }
}

}  // namespace quillbar
