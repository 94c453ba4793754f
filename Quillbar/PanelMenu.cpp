// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/PanelMenu.h"

#include "Quillbar/PanelMenuStyle.h"
#include "Quillbar/text/SystemFont.h"
#include "Quillbar/Theme.h"
#include "Quillbar/tray/EntryMenu.h"

#include <QAction>
#include <QFontMetrics>
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

}  // namespace

PanelMenu::PanelMenu(QWidget* parent)
    : QMenu(parent) {
    auto* const style = new PanelMenuStyle;
    style->setParent(this);
    setStyle(style);
    setFont(systemFont(kFontSize));
}

void PanelMenu::openBelow(const QWidget& button) {
    const QSize size = sizeHint();
    const QRect anchor(button.mapToGlobal(QPoint(0, 0)), button.size());
    QPoint corner(anchor.right() + 1 - size.width(), anchor.bottom() + 1 + kGap);
    if (corner.y() + size.height() > button.screen()->availableGeometry().bottom() + 1) {
        corner.setY(anchor.top() - kGap - size.height());
    }
    // The menu stays on the screen by itself.
    popup(corner);
}

void PanelMenu::initStyleOption(QStyleOptionMenuItem* option, const QAction* action) const {
    QMenu::initStyleOption(option, action);
    const ThemeColors::Resolved& colors = ThemeKey::value(*this).colors;
    QColor text = action->isEnabled() ? colors.primaryText : colors.tertiaryText;
    switch (entryKindOf(*action)) {
    case MenuEntry::Kind::header:
        option->font = systemFont(kSmallFontSize);
        text = colors.secondaryText;
        break;
    case MenuEntry::Kind::notice:
        option->font = systemFont(kSmallFontSize);
        text = colors.down;
        break;
    case MenuEntry::Kind::action:
    case MenuEntry::Kind::separator:
    case MenuEntry::Kind::submenu:
        break;
    }
    option->fontMetrics = QFontMetrics(option->font);
    option->palette.setColor(QPalette::Text, text);
}

}  // namespace quillbar
