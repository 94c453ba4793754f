// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/widgets/PanelMenu.h"

#include "Quillbar/widgets/EntryMenu.h"
#include "Quillbar/widgets/LiftedSurface.h"
#include "Quillbar/widgets/PanelMenuStyle.h"
#include "Quillbar/widgets/PopoverPlacement.h"
#include "Quillbar/widgets/TextScale.h"
#include "Quillbar/widgets/Theme.h"

#include <QAction>
#include <QCoreApplication>
#include <QCursor>
#include <QEvent>
#include <QFontMetrics>
#include <QHideEvent>
#include <QMetaObject>
#include <QPalette>
#include <QPoint>
#include <QRect>
#include <QScreen>
#include <QStyleOptionMenuItem>

namespace quillbar {

namespace {

constexpr double kFontSize = 13;
constexpr double kSmallFontSize = 10.5;
constexpr int kGap = 2;
constexpr const char* kDestructiveProperty = "_quillbar_destructive";

void leaveAllButUnderPointer(QWidget& window) {
    const QWidget* const under = window.childAt(window.mapFromGlobal(QCursor::pos()));
    for (QWidget* const widget : window.findChildren<QWidget*>()) {
        const bool isUnder = under != nullptr && (widget == under || widget->isAncestorOf(under));
        if (widget->underMouse() && !isUnder) {
            QEvent leave(QEvent::Leave);
            QCoreApplication::sendEvent(widget, &leave);
        }
    }
}

}  // namespace

PanelMenu::PanelMenu(QWidget* parent)
    : QMenu(parent) {
    auto* const style = new PanelMenuStyle;
    style->setParent(this);
    setStyle(style);
    TextScale::follow(*this, [this] { setFont(TextScale::font(*this, kFontSize)); });
}

void PanelMenu::setDestructive(QAction& action) {
    action.setProperty(kDestructiveProperty, true);
}

void PanelMenu::openBelow(const QWidget& button) {
    // Entries may have become shorter since it was open.
    setMinimumWidth(0);
    QSize size = sizeHint();
    size.setWidth(PopoverPlacement::wholeInPixels(size.width(), button.devicePixelRatioF()));
    setMinimumWidth(size.width());
    const QRect anchor = LiftedSurface::anchorOf(button);
    QPoint corner(anchor.right() + 1 - size.width(), anchor.bottom() + 1 + kGap);
    if (corner.y() + size.height() > button.screen()->availableGeometry().bottom() + 1) {
        corner.setY(anchor.top() - kGap - size.height());
    }
    // Qt keeps the menu on the screen.
    popup(corner);
}

void PanelMenu::initStyleOption(QStyleOptionMenuItem* option, const QAction* action) const {
    QMenu::initStyleOption(option, action);
    const ThemeColors::Resolved& colors = ThemeKey::value(*this).colors;
    QColor text = action->isEnabled() ? colors.primaryText : colors.tertiaryText;
    switch (entryKindOf(*action)) {
    case MenuEntry::Kind::header:
        option->font = TextScale::font(*this, kSmallFontSize);
        text = colors.secondaryText;
        break;
    case MenuEntry::Kind::notice:
        option->font = TextScale::font(*this, kSmallFontSize);
        text = colors.danger;
        break;
    case MenuEntry::Kind::action:
        if (action->isEnabled() && action->property(kDestructiveProperty).toBool()) {
            text = colors.danger;
        }
        break;
    case MenuEntry::Kind::separator:
    case MenuEntry::Kind::submenu:
        break;
    }
    option->fontMetrics = QFontMetrics(option->font);
    option->palette.setColor(QPalette::Text, text);
}

void PanelMenu::hideEvent(QHideEvent* event) {
    QMenu::hideEvent(event);
    // While a menu is open, its window gets no event when the pointer leaves.
    QWidget* const window = parentWidget()->window();
    QMetaObject::invokeMethod(
        window, [window] { leaveAllButUnderPointer(*window); }, Qt::QueuedConnection);
}

}  // namespace quillbar
