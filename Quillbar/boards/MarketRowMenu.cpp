// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/boards/MarketRowMenu.h"

#include "Quillbar/platform/Translated.h"
#include "Quillbar/widgets/PanelMenu.h"
#include "QuillbarCore/model/Watchlist.h"

#include <QAction>
#include <QKeySequence>
#include <QObject>
#include <QString>

namespace quillbar {

QMenu* MarketRowMenu::make(const ViewEnvironment& environment, const Coin& coin, QWidget* parent) {
    auto* const menu = new PanelMenu(parent);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    if (environment.appState.watchlist()->contains(coin.symbol)) {
        menu->addAction(translated("boards", "已在自选列表中"))->setEnabled(false);
        return menu;
    }
    QAction* const add = menu->addAction(translated("boards", "加入自选"));
    // The key works on the row, not in the menu. It is shown here because nothing else names it.
    add->setShortcut(QKeySequence(Qt::Key_Plus));
    add->setShortcutVisibleInContextMenu(true);
    QObject::connect(add, &QAction::triggered, menu, [&environment, coin] {
        environment.edits.spawn(environment.appState.add(coin));
    });
    return menu;
}

}  // namespace quillbar
