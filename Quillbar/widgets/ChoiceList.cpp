// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/widgets/ChoiceList.h"

#include "Quillbar/text/SystemFont.h"
#include "Quillbar/widgets/PlainButton.h"
#include "Quillbar/widgets/TextScale.h"
#include "Quillbar/widgets/Theme.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QPainter>
#include <QPen>
#include <QRectF>
#include <QVBoxLayout>

namespace quillbar {

namespace {

constexpr double kFontSize = 12;
constexpr double kPadding = 8;
constexpr double kMarkSize = 13;
constexpr double kMarkWidth = 1.5;
constexpr double kDotSize = 6;
constexpr double kGap = 8;
constexpr double kRadius = 4;

void drawMark(QPainter& painter,
              const QPointF& center,
              const ThemeColors::Resolved& colors,
              bool isChosen) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(isChosen ? colors.accent : colors.secondaryText, kMarkWidth));
    const double radius = (kMarkSize - kMarkWidth) / 2;
    painter.drawEllipse(center, radius, radius);
    if (isChosen) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(colors.accent);
        painter.drawEllipse(center, kDotSize / 2, kDotSize / 2);
    }
}

// The caller owns what is made; null leaves the object to Qt.
QAccessibleInterface* makeAccessible(const QString& /*className*/, QObject* object) {
    auto* const list = dynamic_cast<ChoiceList*>(object);
    return list == nullptr ? nullptr : new QAccessibleWidget(list, QAccessible::Grouping);
}

}  // namespace

class ChoiceList::Row final : public PlainButton {
public:
    Row(const QString& title, std::size_t index, ChoiceList& list)
        : PlainButton(&list)
        , m_list(list)
        , m_index(index) {
        setText(title);
        setAccessibleName(title);
        setCheckable(true);
        setAutoExclusive(true);
        TextScale::follow(*this, [this] { setFixedHeight(TextScale::length(*this, kRowHeight)); });
    }

protected:
    void drawContent(QPainter& painter) override {
        const ThemeColors::Resolved& colors = ThemeKey::value(*this).colors;
        const QRectF row = TextScale::enlarge(painter, *this);
        painter.setRenderHint(QPainter::Antialiasing);
        if (isHovered()) {
            painter.setPen(Qt::NoPen);
            painter.setBrush(colors.rowHover);
            painter.drawRoundedRect(row, kRadius, kRadius);
        }
        drawMark(painter,
                 QPointF(row.left() + kPadding + kMarkSize / 2, row.center().y()),
                 colors,
                 isChecked());
        painter.setFont(systemFont(kFontSize));
        painter.setPen(colors.primaryText);
        const QRectF rest = row.adjusted(kPadding + kMarkSize + kGap, 0, -kPadding, 0);
        painter.drawText(rest, Qt::AlignLeft | Qt::AlignVCenter, text());
        if (m_list.drawSample) {
            m_list.drawSample(painter, rest, m_index);
        }
    }

private:
    // Owns this.
    ChoiceList& m_list;
    std::size_t m_index;
};

ChoiceList::ChoiceList(const QString& name, const std::vector<QString>& titles, QWidget* parent)
    : QWidget(parent) {
    // Installing it again changes nothing.
    QAccessible::installFactory(makeAccessible);
    setAccessibleName(name);
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    for (const QString& title : titles) {
        const std::size_t index = m_rows.size();
        auto* const row = new Row(title, index, *this);
        row->setChecked(index == m_selection);
        connect(row, &QAbstractButton::clicked, this, [this, index] { select(index); });
        column->addWidget(row);
        m_rows.push_back(row);
    }
    updateTabStop();
}

void ChoiceList::setSelection(std::size_t index) {
    m_selection = index;
    m_rows[index]->setChecked(true);
    updateTabStop();
}

void ChoiceList::focusSelection(Qt::FocusReason reason) {
    m_rows[m_selection]->setFocus(reason);
}

void ChoiceList::select(std::size_t index) {
    if (index == m_selection) {
        return;
    }
    m_selection = index;
    updateTabStop();
    if (onSelect) {
        onSelect(index);
    }
}

void ChoiceList::updateTabStop() {
    // Qt moves the stop only while the list has the focus.
    for (std::size_t index = 0; index < m_rows.size(); ++index) {
        m_rows[index]->setFocusPolicy(index == m_selection ? Qt::TabFocus : Qt::NoFocus);
    }
}

}  // namespace quillbar
