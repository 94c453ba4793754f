// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/watchlist/CoinRowMenu.h"

#include "Quillbar/platform/Translated.h"
#include "Quillbar/widgets/Glyphs.h"
#include "Quillbar/widgets/PanelMenu.h"
#include "Quillbar/widgets/TextScale.h"
#include "Quillbar/widgets/Theme.h"
#include "QuillbarCore/model/Watchlist.h"

#include <QAction>
#include <QIcon>
#include <QMenu>
#include <QObject>
#include <QPainter>
#include <QPixmap>
#include <QRectF>
#include <QString>
#include <QWidget>

#include <cstddef>
#include <optional>
#include <utility>
#include <vector>

namespace quillbar {

namespace {

constexpr int kIconSize = 16;
constexpr double kGlyphMargin = 2;

/// Where a coin moves to.
enum class Move { toTop, up, down };

// The offset in front of which the coin moves; absent when it is there already.
std::optional<std::size_t> destination(Move move, std::size_t index, std::size_t count) {
    switch (move) {
    case Move::toTop:
        return index > 0 ? std::optional<std::size_t>(0) : std::nullopt;
    case Move::up:
        return index > 0 ? std::optional(index - 1) : std::nullopt;
    case Move::down:
        break;
    }
    return index + 1 < count ? std::optional(index + 2) : std::nullopt;
}

void moveCoin(const ViewEnvironment& environment, const std::string& symbol, Move move) {
    const Watchlist& watchlist = *environment.appState.watchlist();
    if (const auto index = watchlist.indexOf(symbol)) {
        if (const auto to = destination(move, *index, watchlist.coins.size())) {
            environment.edits.spawn(environment.appState.move({*index}, *to));
        }
    }
}

void addMoves(QMenu& menu, const ViewEnvironment& environment, const std::string& symbol) {
    const Watchlist& watchlist = *environment.appState.watchlist();
    const auto index = watchlist.indexOf(symbol);
    if (!index) {
        return;
    }
    const std::vector<std::pair<QString, Move>> items{
        {translated("watchlist", "置顶"), Move::toTop},
        {translated("watchlist", "上移"), Move::up},
        {translated("watchlist", "下移"), Move::down}};
    for (const auto& [title, move] : items) {
        QAction* const action = menu.addAction(title);
        action->setEnabled(destination(move, *index, watchlist.coins.size()).has_value());
        QObject::connect(action, &QAction::triggered, &menu, [&environment, symbol, chosen = move] {
            moveCoin(environment, symbol, chosen);
        });
    }
}

// The colour by which a destructive item differs from the others.
QIcon trashIcon(const QWidget& view) {
    const double scale = view.devicePixelRatioF();
    const QSizeF size = TextScale::size(view, {kIconSize, kIconSize});
    const double margin = kGlyphMargin * TextScale::of(view);
    QPixmap pixmap((size * scale).toSize());
    pixmap.setDevicePixelRatio(scale);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    drawGlyph(painter,
              Glyph::trash,
              QRectF(QPointF(), size).adjusted(margin, margin, -margin, -margin),
              ThemeKey::value(view).colors.danger);
    return {pixmap};
}

}  // namespace

QMenu* CoinRowMenu::make(const ViewEnvironment& environment,
                         const std::string& symbol,
                         std::function<void()> restoreManualOrder,
                         std::function<void()> openAlerts,
                         QWidget* parent) {
    auto* const menu = new PanelMenu(parent);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    if (restoreManualOrder) {
        QObject::connect(menu->addAction(translated("watchlist", "恢复手动顺序")),
                         &QAction::triggered,
                         menu,
                         std::move(restoreManualOrder));
    } else {
        addMoves(*menu, environment, symbol);
    }
    menu->addSeparator();
    QObject::connect(menu->addAction(translated("watchlist", "固定到菜单栏")),
                     &QAction::triggered,
                     menu,
                     [&environment, symbol] { environment.appState.pin(symbol); });
    if (openAlerts) {
        QObject::connect(menu->addAction(translated("watchlist", "价格提醒…")),
                         &QAction::triggered,
                         menu,
                         std::move(openAlerts));
    }
    QAction* const removal = menu->addAction(trashIcon(*parent), translated("watchlist", "删除"));
    PanelMenu::setDestructive(*removal);
    QObject::connect(removal, &QAction::triggered, menu, [&environment, symbol] {
        environment.edits.spawn(environment.appState.remove(symbol));
    });
    return menu;
}

}  // namespace quillbar
