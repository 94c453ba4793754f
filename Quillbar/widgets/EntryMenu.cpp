// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/widgets/EntryMenu.h"

#include <QAction>
#include <QActionGroup>
#include <QMenu>

namespace quillbar {

namespace {

constexpr const char* kKindProperty = "_quillbar_kind";

// A single ampersand would mark a mnemonic.
QString withoutMnemonic(QString label) {
    return label.replace(u'&', QStringLiteral("&&"));
}

void addAction(QMenu& menu, const MenuEntry& entry, const std::function<void(int id)>& clicked) {
    QAction* const action = menu.addAction(withoutMnemonic(entry.label));
    action->setEnabled(entry.isUsable());
    action->setProperty(kKindProperty, static_cast<int>(entry.kind));
    if (entry.mark != MenuEntry::Mark::none) {
        action->setCheckable(true);
        action->setChecked(entry.isOn);
    }
    if (entry.mark == MenuEntry::Mark::radio) {
        // A group of its own makes it look like a radio button; the owner of the entries decides
        // which of them go together.
        (new QActionGroup(action))->addAction(action);
    }
    QObject::connect(
        action, &QAction::triggered, action, [clicked, id = entry.id] { clicked(id); });
}

}  // namespace

void fillMenu(QMenu& menu,
              const std::vector<MenuEntry>& entries,
              const std::function<void(int id)>& clicked) {
    menu.clear();
    qDeleteAll(menu.findChildren<QMenu*>(Qt::FindDirectChildrenOnly));
    for (const MenuEntry& entry : entries) {
        switch (entry.kind) {
        case MenuEntry::Kind::action:
        case MenuEntry::Kind::header:
        case MenuEntry::Kind::notice:
            addAction(menu, entry, clicked);
            break;
        case MenuEntry::Kind::separator:
            menu.addSeparator();
            break;
        case MenuEntry::Kind::submenu: {
            auto* const below = new QMenu(withoutMnemonic(entry.label), &menu);
            below->setEnabled(entry.isEnabled);
            fillMenu(*below, entry.children, clicked);
            menu.addMenu(below);
            break;
        }
        }
    }
}

MenuEntry::Kind entryKindOf(const QAction& action) {
    return static_cast<MenuEntry::Kind>(action.property(kKindProperty).toInt());
}

}  // namespace quillbar
