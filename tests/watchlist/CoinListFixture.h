// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/coins/CoinCell.h"
#include "Quillbar/list/ListRow.h"
#include "Quillbar/list/NumericCell.h"
#include "Quillbar/list/RowList.h"
#include "Quillbar/list/SortableHeader.h"
#include "Quillbar/watchlist/CoinListView.h"
#include "Quillbar/widgets/GlyphButton.h"
#include "tests/qtsupport/ChartStandIn.h"
#include "tests/qtsupport/ViewFixture.h"
#include "tests/qtsupport/Widgets.h"

#include <QAction>
#include <QMenu>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace quillbar {

/// The watchlist in a window of the panel's width, over a real AppState. A coin's chart is a widget
/// named "chart BTC". Base assets stand for their pairs.
struct CoinListFixture : ViewFixture {
    static constexpr int kRow = 28;

    /// Shows this list, connected.
    void show(const Watchlist& list) {
        startConnected(list);
        make();
        showActive(*window);
    }
    void show(const std::vector<std::string>& baseAssets) { show(listOf(baseAssets)); }
    /// The same, with price alerts.
    void showWithAlerts(const std::vector<std::string>& baseAssets) {
        startConnected(listOf(baseAssets));
        alerts();
        make();
        showActive(*window);
    }

    /// Shows BTC, ETH and SOL, whose changes are +1, +3 and +2 percent, sorted by change.
    void showThreeByChange() {
        show({"BTC", "ETH", "SOL"});
        tick("BTC", {101, 100, 3e8});
        tick("ETH", {103, 100, 1e8});
        tick("SOL", {102, 100, 2e8});
        click("涨跌");
        ASSERT_EQ(order(), (std::vector<std::string>{"ETH", "SOL", "BTC"}));
    }

    /// Makes the view, over the state that is built, in a window that is not shown.
    void make() {
        window = std::make_unique<QWidget>();
        window->setFixedWidth(400);
        auto* const layout = new QVBoxLayout(window.get());
        layout->setContentsMargins(0, 0, 0, 0);
        layout->setSizeConstraint(QLayout::SetFixedSize);
        view = new CoinListView(environment(), expanded, [this](const Coin& coin, QWidget* parent) {
            ++chartsMade;
            return makeChart(coin, parent);
        });
        view->setFixedWidth(400);
        layout->addWidget(view);
        rows = widgetsOf<RowList>(*window).front();
    }

    /// Gives the window this height, or the least that the view takes, whatever the view asks for.
    void giveHeight(int height) {
        window->layout()->setSizeConstraint(QLayout::SetNoConstraint);
        window->setFixedHeight(std::max(height, view->minimumSizeHint().height()));
    }

    // What the stream tells.

    void tick(const std::string& baseAsset, const Ticker& ticker) {
        stream.ticker(symbolOf(baseAsset), ticker);
        executor.run();
    }

    // What the user does.

    void click(const std::string& title) { QTest::mouseClick(header(title), Qt::LeftButton); }
    /// Clicks a row's arrow and waits until its chart has come to rest.
    void clickArrow(const std::string& baseAsset) {
        QTest::mouseClick(arrow(baseAsset), Qt::LeftButton);
        ASSERT_TRUE(spinUntil([this] { return !rows->isMoving(); }));
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }
    /// Opens a row's menu with the pointer.
    void openMenu(const std::string& baseAsset) {
        const QPoint position(100, 14);
        QContextMenuEvent event(
            QContextMenuEvent::Mouse, position, row(baseAsset)->mapToGlobal(position));
        QApplication::sendEvent(row(baseAsset), &event);
    }
    /// Clicks an item of the menu that is open and lets the edit run.
    void choose(const std::string& title) {
        QAction* const action = item(title);
        ASSERT_NE(action, nullptr) << title;
        QTest::mouseClick(menu(), Qt::LeftButton, {}, menu()->actionGeometry(action).center());
        spinUntilIdle();
        executor.run();
        ASSERT_TRUE(spinUntil([this] { return !rows->isMoving(); }));
    }

    // What is seen.

    [[nodiscard]] ListRow* row(const std::string& baseAsset) const {
        ListRow* const found = rows->row(symbolOf(baseAsset));
        EXPECT_NE(found, nullptr) << baseAsset;
        return found;
    }
    /// The base assets of the rows, from above.
    [[nodiscard]] std::vector<std::string> order() const {
        std::vector<CoinCell*> cells;
        for (CoinCell* const cell : widgetsOf<CoinCell>(*rows)) {
            if (cell->isVisible()) {
                cells.push_back(cell);
            }
        }
        std::sort(cells.begin(), cells.end(), [this](CoinCell* left, CoinCell* right) {
            return left->mapTo(rows, QPoint()).y() < right->mapTo(rows, QPoint()).y();
        });
        std::vector<std::string> names;
        names.reserve(cells.size());
        for (CoinCell* const cell : cells) {
            names.push_back(cell->baseAsset());
        }
        return names;
    }
    /// Waits until the rows are in this order; false if that does not happen.
    [[nodiscard]] bool comesTo(const std::vector<std::string>& expected) {
        return spinUntil([&] { return order() == expected; });
    }
    [[nodiscard]] CoinCell* coinCell(const std::string& baseAsset) const {
        return widgetsOf<CoinCell>(*row(baseAsset)).front();
    }
    [[nodiscard]] NumericCell* volumeCell(const std::string& baseAsset) const {
        return widgetsOf<NumericCell>(*row(baseAsset)).at(0);
    }
    [[nodiscard]] NumericCell* priceCell(const std::string& baseAsset) const {
        return widgetsOf<NumericCell>(*row(baseAsset)).at(1);
    }
    [[nodiscard]] NumericCell* changeCell(const std::string& baseAsset) const {
        return widgetsOf<NumericCell>(*row(baseAsset)).at(2);
    }
    [[nodiscard]] GlyphButton* arrow(const std::string& baseAsset) const {
        return widgetsOf<GlyphButton>(*row(baseAsset)).front();
    }
    [[nodiscard]] SortableHeader* header(const std::string& title) const {
        for (SortableHeader* const each : widgetsOf<SortableHeader>(*window)) {
            if (each->text().toStdString() == title) {
                return each;
            }
        }
        ADD_FAILURE() << "no column " << title;
        return nullptr;
    }
    [[nodiscard]] QWidget* chart(const std::string& baseAsset) const {
        return named(*window, chartName(baseAsset));
    }
    [[nodiscard]] static QMenu* menu() {
        return dynamic_cast<QMenu*>(QApplication::activePopupWidget());
    }
    [[nodiscard]] static QAction* item(const std::string& title) {
        if (menu() != nullptr) {
            for (QAction* const action : menu()->actions()) {
                if (action->text().toStdString() == title) {
                    return action;
                }
            }
        }
        return nullptr;
    }
    /// The items of the menu that is open, from above: "-" for a divider, "(title)" when disabled.
    [[nodiscard]] static std::vector<std::string> items() {
        std::vector<std::string> titles;
        for (QAction* const action : menu() == nullptr ? QList<QAction*>() : menu()->actions()) {
            const std::string title = action->isSeparator() ? "-" : action->text().toStdString();
            titles.push_back(action->isEnabled() || action->isSeparator() ? title
                                                                          : "(" + title + ")");
        }
        return titles;
    }

    Observed<std::optional<std::string>> expanded;
    std::unique_ptr<QWidget> window;
    CoinListView* view = nullptr;
    RowList* rows = nullptr;
    int chartsMade = 0;
};

}  // namespace quillbar
