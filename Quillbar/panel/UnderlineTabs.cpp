// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/panel/UnderlineTabs.h"

#include "Quillbar/text/SystemFont.h"
#include "Quillbar/widgets/PlainButton.h"
#include "Quillbar/widgets/TextScale.h"
#include "Quillbar/widgets/Theme.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QFontMetricsF>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace quillbar {

namespace {

constexpr int kSpacing = 8;
constexpr double kFontSize = 12;
constexpr int kHorizontalPadding = 6;
constexpr int kTopPadding = 4;
constexpr int kBottomPadding = 6;

QFont tabFont(bool isSelected) {
    return systemFont(kFontSize, isSelected ? QFont::DemiBold : QFont::Normal);
}

/// The tab as screen readers see it. Qt would call it a check box.
class AccessibleTab final : public QAccessibleWidget {
public:
    explicit AccessibleTab(QAbstractButton& tab)
        : QAccessibleWidget(&tab, QAccessible::PageTab)
        , m_tab(tab) {}

    [[nodiscard]] QAccessible::State state() const override {
        QAccessible::State told = QAccessibleWidget::state();
        told.selectable = true;
        told.selected = m_tab.isChecked();
        return told;
    }
    [[nodiscard]] QStringList actionNames() const override {
        return QStringList{pressAction()} + QAccessibleWidget::actionNames();
    }
    void doAction(const QString& name) override {
        if (name == pressAction()) {
            m_tab.click();
        } else {
            QAccessibleWidget::doAction(name);
        }
    }

private:
    // Outlives this.
    QAbstractButton& m_tab;
};

}  // namespace

class UnderlineTabs::Tab final : public PlainButton {
public:
    Tab(const QString& title, double underlineHeight, QWidget* parent)
        : PlainButton(parent)
        , m_underlineHeight(underlineHeight) {
        setText(title);
        setAccessibleName(title);
        setCheckable(true);
        TextScale::follow(*this, [this] { fit(); });
    }

    // For QAccessible. The caller owns what is made; null leaves the object to Qt.
    static QAccessibleInterface* makeAccessible(const QString& /*className*/, QObject* object) {
        if (auto* const tab = dynamic_cast<Tab*>(object)) {
            return new AccessibleTab(*tab);
        }
        auto* const strip = dynamic_cast<UnderlineTabs*>(object);
        return strip == nullptr ? nullptr : new QAccessibleWidget(strip, QAccessible::PageTabList);
    }

protected:
    void drawContent(QPainter& painter) override {
        const ThemeColors::Resolved& colors = ThemeKey::value(*this).colors;
        const QRectF area = TextScale::enlarge(painter, *this);
        painter.setFont(tabFont(isChecked()));
        painter.setPen(isChecked() || isHovered() ? colors.primaryText : colors.secondaryText);
        painter.drawText(
            area.adjusted(kHorizontalPadding, kTopPadding, -kHorizontalPadding, -kBottomPadding),
            Qt::AlignCenter,
            text());
        if (isChecked()) {
            // Otherwise a height that is not a whole number of pixels is rounded.
            painter.setRenderHint(QPainter::Antialiasing);
            painter.fillRect(
                QRectF(0, area.height() - m_underlineHeight, area.width(), m_underlineHeight),
                colors.accent);
        }
    }

    void keyPressEvent(QKeyEvent* event) override {
        // The arrow keys move between tabs; QAbstractButton must not handle them.
        if (event->key() == Qt::Key_Left || event->key() == Qt::Key_Right) {
            event->ignore();
        } else {
            PlainButton::keyPressEvent(event);
        }
    }

private:
    void fit() {
        const QFontMetricsF selected(tabFont(true));
        const double scale = TextScale::of(*this);
        // As wide as when it is selected, so that the other tabs do not move.
        setFixedSize(static_cast<int>(std::ceil(selected.horizontalAdvance(text()) * scale))
                         + TextScale::length(*this, 2 * kHorizontalPadding),
                     static_cast<int>(std::ceil(selected.height() * scale))
                         + TextScale::length(*this, kTopPadding + kBottomPadding));
    }

    double m_underlineHeight;
};

UnderlineTabs::UnderlineTabs(const std::vector<QString>& titles,
                             int outerPadding,
                             double underlineHeight,
                             QWidget* parent)
    : QWidget(parent) {
    // Before the first tab gets its name: Qt asks for the interface then, and keeps it. Installing
    // it again changes nothing.
    QAccessible::installFactory(Tab::makeAccessible);
    auto* const row = new QHBoxLayout(this);
    TextScale::follow(*this, [this, row, outerPadding] {
        row->setContentsMargins(TextScale::margins(*this, {outerPadding, 0, outerPadding, 0}));
        row->setSpacing(TextScale::length(*this, kSpacing));
    });
    for (const QString& title : titles) {
        const std::size_t index = m_tabs.size();
        auto* const tab = new Tab(title, underlineHeight, this);
        connect(tab, &QAbstractButton::clicked, this, [this, index] {
            // Otherwise the content that the tab hides passes its focus on as the Tab key does, and
            // another widget shows a ring.
            m_tabs[index]->setFocus(Qt::MouseFocusReason);
            select(index);
        });
        row->addWidget(tab);
        m_tabs.push_back(tab);
    }
    row->addStretch();
    setSelection(0);
}

void UnderlineTabs::setSelection(std::size_t index) {
    m_selection = index;
    for (std::size_t tab = 0; tab < m_tabs.size(); ++tab) {
        const bool isSelected = tab == index;
        m_tabs[tab]->setChecked(isSelected);
        // One stop of the Tab key for the whole strip.
        m_tabs[tab]->setFocusPolicy(isSelected ? Qt::TabFocus : Qt::NoFocus);
    }
}

void UnderlineTabs::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Left:
        move(-1);
        break;
    case Qt::Key_Right:
        move(+1);
        break;
    default:
        QWidget::keyPressEvent(event);
    }
}

void UnderlineTabs::select(std::size_t index) {
    const bool isOther = index != m_selection;
    setSelection(index);
    if (isOther && onSelect) {
        onSelect(index);
    }
}

void UnderlineTabs::move(int step) {
    const auto last = static_cast<int>(m_tabs.size()) - 1;
    const int index = std::clamp(static_cast<int>(m_selection) + step, 0, last);
    select(static_cast<std::size_t>(index));
    m_tabs[m_selection]->setFocus(Qt::TabFocusReason);
}

}  // namespace quillbar
