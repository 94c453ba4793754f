// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/boards/BoardPlaceholder.h"
#include "Quillbar/boards/MarketBoardView.h"
#include "Quillbar/boards/MarketRowView.h"
#include "Quillbar/coins/CoinCell.h"
#include "Quillbar/list/NumericCell.h"
#include "Quillbar/list/RowList.h"
#include "Quillbar/widgets/BannerRow.h"
#include "Quillbar/widgets/GlyphButton.h"
#include "tests/qtsupport/ChartStandIn.h"
#include "tests/qtsupport/ViewFixture.h"
#include "tests/qtsupport/Widgets.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QMenu>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace quillbar {

/// A board in a window of the panel's width, over the real models on fakes. A coin's chart is a
/// widget named "chart BTC". Base assets stand for their pairs.
struct MarketBoardFixture : ViewFixture {
    using Tickers = std::vector<std::pair<std::string, Ticker>>;

    // What the services answer from here on.

    void theMarketIs(const Tickers& tickers) {
        TickerMap bySymbol;
        std::vector<Coin> coins;
        for (const auto& [baseAsset, ticker] : tickers) {
            coins.push_back(coinOf(baseAsset));
            bySymbol.emplace(symbolOf(baseAsset), ticker);
        }
        api.exchangeInfoAnswers.otherwise(std::move(coins));
        api.ticker24hAllAnswers.otherwise(std::move(bySymbol));
    }
    /// By gain: SOL +30, ETH +20, BTC +10 percent; by volume the other way round.
    void theMarketIsOfThree() {
        theMarketIs({{"BTC", {110, 100, 3e9}}, {"ETH", {120, 100, 2e9}}, {"SOL", {130, 100, 1e8}}});
    }
    /// BTC before ETH; DOGE is not on the exchange.
    void theMarketCapsAreOfTwo() {
        coinGecko.answers.otherwise(
            {{"BTC", 1, 1.35e12, 110}, {"DOGE", 2, 9e11, 1}, {"ETH", 3, 4.2e11, 120}});
    }
    void openThree() {
        theMarketIsOfThree();
        open(RankingBoard::gainers);
        ASSERT_EQ(order(), (std::vector<std::string>{"1 SOL", "2 ETH", "3 BTC"}));
    }
    /// The next refresh has ETH before SOL.
    void thenEthLeads() {
        theMarketIs({{"BTC", {110, 100, 3e9}}, {"ETH", {190, 100, 2e9}}, {"SOL", {130, 100, 1e8}}});
    }
    void theExchangeFails() { api.ticker24hAllAnswers.otherwiseError(BinanceError(503)); }

    /// Shows a board to a user who watches these coins; nothing has had a turn yet.
    void show(RankingBoard board, const std::vector<std::string>& watched = {"XMR"}) {
        prepare(board, watched);
        showActive(*window);
    }
    /// The same, without a frame until the window's updates are enabled.
    void showUnpainted(RankingBoard board) {
        prepare(board, {"XMR"});
        window->setUpdatesEnabled(false);
        showActive(*window);
        spinUntilIdle();
    }
    /// Shows a board and lets the first refresh run.
    void open(RankingBoard board, const std::vector<std::string>& watched = {"XMR"}) {
        show(board, watched);
        settle();
    }

    void prepare(RankingBoard board, const std::vector<std::string>& watched) {
        startConnected(listOf(watched));
        make(board);
    }
    /// Makes the view, over the state that is built, in a window that is not shown.
    void make(RankingBoard board) {
        window = std::make_unique<QWidget>();
        window->setFixedWidth(400);
        auto* const layout = new QVBoxLayout(window.get());
        layout->setContentsMargins(0, 0, 0, 0);
        layout->setSizeConstraint(QLayout::SetFixedSize);
        view = new MarketBoardView(environment(), board, &makeChart);
        view->setFixedWidth(400);
        layout->addWidget(view);
        rows = widgetsOf<RowList>(*window).front();
        lookInterval = lookTimer()->interval();
        // It fires when a test says so.
        lookTimer()->setInterval(std::chrono::hours(24));
    }

    /// Lets what has been begun run, and the view follow.
    void settle() {
        // A frame, after which the polling begins.
        spinUntilIdle();
        executor.run();
        spinUntilIdle();
    }
    /// Lets time pass, and the view follow.
    void pass(Seconds span) {
        time.advance(span);
        spinUntilIdle();
    }
    /// Lets time pass while the view looks at its data, which is demand.
    void passWhileLooking(Seconds span) {
        constexpr Seconds kStep{30};
        for (Seconds passed{0}; passed < span; passed += kStep) {
            pass(kStep);
            look();
        }
    }
    /// The wall clock goes on by itself, and the view looks at it.
    void theClockGoesOn(Seconds span) {
        time.setClock(time.now() + span);
        look();
    }
    void look() { QMetaObject::invokeMethod(lookTimer(), "timeout"); }

    // What the user does.

    void clickAt(const QWidget& widget, const QPoint& place) const {
        QTest::mouseClick(
            window->windowHandle(), Qt::LeftButton, {}, widget.mapTo(window.get(), place));
    }
    /// Clicks a row in its middle and waits until its chart has come to rest.
    void clickRow(const std::string& baseAsset) {
        clickAt(*row(baseAsset), {100, 14});
        ASSERT_TRUE(spinUntil([this] { return !rows->isMoving(); }));
    }
    static void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }
    void openMenu(const std::string& baseAsset) const {
        const QPoint place(100, 14);
        QContextMenuEvent event(
            QContextMenuEvent::Mouse, place, row(baseAsset)->mapToGlobal(place));
        QApplication::sendEvent(row(baseAsset), &event);
    }

    // What is seen.

    /// The ranks and base assets of the rows, from above: "1 BTC".
    [[nodiscard]] std::vector<std::string> order() const {
        std::vector<MarketRowView*> seen;
        for (MarketRowView* const each : widgetsOf<MarketRowView>(*rows)) {
            if (each->isVisible()) {
                seen.push_back(each);
            }
        }
        std::sort(seen.begin(), seen.end(), [](MarketRowView* left, MarketRowView* right) {
            return left->y() < right->y();
        });
        std::vector<std::string> texts;
        texts.reserve(seen.size());
        for (MarketRowView* const each : seen) {
            texts.push_back(cellOf(*each, 0)->text().toStdString() + " "
                            + widgetsOf<CoinCell>(*each).front()->baseAsset());
        }
        return texts;
    }
    [[nodiscard]] MarketRowView* row(const std::string& baseAsset) const {
        auto* const found = dynamic_cast<MarketRowView*>(rows->row(symbolOf(baseAsset)));
        EXPECT_NE(found, nullptr) << baseAsset;
        return found;
    }
    [[nodiscard]] static NumericCell* cellOf(const MarketRowView& row, std::size_t index) {
        return widgetsOf<NumericCell>(row).at(index);
    }
    [[nodiscard]] NumericCell* rankCell(const std::string& baseAsset) const {
        return cellOf(*row(baseAsset), 0);
    }
    [[nodiscard]] NumericCell* secondaryCell(const std::string& baseAsset) const {
        return cellOf(*row(baseAsset), 1);
    }
    [[nodiscard]] NumericCell* priceCell(const std::string& baseAsset) const {
        return cellOf(*row(baseAsset), 2);
    }
    [[nodiscard]] NumericCell* changeCell(const std::string& baseAsset) const {
        return cellOf(*row(baseAsset), 3);
    }
    /// The plus of a row, shown or not.
    [[nodiscard]] GlyphButton* addButton(const std::string& baseAsset) const {
        return widgetsOf<GlyphButton>(*row(baseAsset)).front();
    }
    /// The check mark of a row; null while it has none.
    [[nodiscard]] QWidget* checkMark(const std::string& baseAsset) const {
        return named(*row(baseAsset), QStringLiteral("已在自选列表中"));
    }
    [[nodiscard]] QWidget* chart(const std::string& baseAsset) const {
        return named(*window, chartName(baseAsset));
    }
    /// What stands in the place of the rows; null while there are rows.
    [[nodiscard]] BoardPlaceholder* placeholder() const {
        BoardPlaceholder* const found = widgetsOf<BoardPlaceholder>(*view).front();
        return found->isVisible() ? found : nullptr;
    }
    [[nodiscard]] QAbstractButton* retryButton() const {
        return dynamic_cast<QAbstractButton*>(named(*view, QStringLiteral("重试")));
    }
    /// What the banner says; empty while there is none.
    [[nodiscard]] std::string warning() const { return textOf(0); }
    /// What the banner of market capitalisations says; empty while there is none.
    [[nodiscard]] std::string marketCapWarning() const { return textOf(1); }
    [[nodiscard]] QTimer* lookTimer() const {
        return view->findChild<QTimer*>(QStringLiteral("look"));
    }
    [[nodiscard]] static QMenu* menu() {
        return dynamic_cast<QMenu*>(QApplication::activePopupWidget());
    }
    [[nodiscard]] bool isWatched(const std::string& baseAsset) const {
        return state->watchlist()->contains(symbolOf(baseAsset));
    }

    std::unique_ptr<QWidget> window;
    MarketBoardView* view = nullptr;
    /// As the view has it, in milliseconds.
    int lookInterval = 0;
    RowList* rows = nullptr;

private:
    [[nodiscard]] std::string textOf(std::size_t banner) const {
        const BannerRow* const row = widgetsOf<BannerRow>(*view).at(banner);
        return row->isVisible() ? row->accessibleName().toStdString() : "";
    }
};

}  // namespace quillbar
