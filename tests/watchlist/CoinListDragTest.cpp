// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/watchlist/WatchlistMove.h"
#include "tests/qtsupport/Pointer.h"
#include "tests/watchlist/CoinListFixture.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QToolTip>
#include <QWidget>

#include <gmock/gmock.h>

namespace quillbar {
namespace {

using ::testing::ElementsAre;

struct CoinListDragTest : CoinListFixture {
    void TearDown() override {
        if (rows != nullptr) {
            pointer::letGo(*rows);
        }
    }

    /// From where a row stands to another place, without letting it go.
    void drag(const std::string& baseAsset, int position) {
        pointer::press(*row(baseAsset), {100, kRow / 2}, Qt::LeftButton);
        line = position * kRow + kRow / 2;
        pointer::pull(*rows, {100, line});
    }
    /// The edit itself does not run yet.
    void release() { pointer::release(*rows, {100, line}, Qt::LeftButton); }

    [[nodiscard]] static QWidget* shownTooltip() {
        for (QWidget* const window : QApplication::topLevelWidgets()) {
            if (window->inherits("QTipLabel") && window->isVisible()) {
                return window;
            }
        }
        return nullptr;
    }

    [[nodiscard]] static std::vector<std::string> coinsOf(const Watchlist& list) {
        std::vector<std::string> names;
        for (const Coin& coin : list.coins) {
            names.push_back(coin.baseAsset);
        }
        return names;
    }
    [[nodiscard]] std::vector<std::string> watched() const { return coinsOf(*state->watchlist()); }
    [[nodiscard]] std::vector<std::string> saved() const {
        return coinsOf(WatchlistStore(folder.path()).load());
    }

    int line = 0;
};

TEST_F(CoinListDragTest, aRowIsDraggedToAnotherPlaceAndTheOrderIsSaved) {
    show({"BTC", "ETH", "SOL"});
    drag("BTC", 1);
    EXPECT_EQ(rows->lifted(), symbolOf("BTC"));
    release();
    EXPECT_THAT(order(), ElementsAre("ETH", "BTC", "SOL")) << "at once";
    executor.run();
    EXPECT_THAT(watched(), ElementsAre("ETH", "BTC", "SOL"));
    EXPECT_THAT(saved(), ElementsAre("ETH", "BTC", "SOL"));
    EXPECT_EQ(state->watchlist()->pinnedSymbol, symbolOf("BTC"));
    EXPECT_THAT(order(), ElementsAre("ETH", "BTC", "SOL"));
}

TEST_F(CoinListDragTest, toTheTopAndToTheEnd) {
    show({"BTC", "ETH", "SOL"});
    drag("SOL", -3);
    release();
    executor.run();
    EXPECT_THAT(watched(), ElementsAre("SOL", "BTC", "ETH"));
    drag("SOL", 9);
    release();
    executor.run();
    EXPECT_THAT(watched(), ElementsAre("BTC", "ETH", "SOL"));
    EXPECT_THAT(order(), ElementsAre("BTC", "ETH", "SOL"));
}

TEST_F(CoinListDragTest, theSamePlaceIsNoEdit) {
    show({"BTC", "ETH"});
    int edits = 0;
    const Observation edited =
        state->watchlist().observe([&edits](const Watchlist& /*list*/) { ++edits; });
    drag("BTC", 1);
    pointer::pull(*rows, {100, kRow / 2});
    line = kRow / 2;
    release();
    executor.run();
    EXPECT_EQ(edits, 0);
}

TEST_F(CoinListDragTest, aSortedListSaysWhyItCannotBeDragged) {
    show({"BTC", "ETH", "SOL"});
    click("涨跌");
    drag(order().front(), 2);
    QCoreApplication::processEvents();
    EXPECT_EQ(QToolTip::text(), QStringLiteral("按列排序时不能拖动"));
    release();
    QCoreApplication::processEvents();
    EXPECT_EQ(QToolTip::text(), QStringLiteral("按列排序时不能拖动")) << "long enough to be read";
    QToolTip::hideText();
}

TEST_F(CoinListDragTest, whatASortedListSaysStaysWhileItIsDraggedOn) {
    show({"BTC", "ETH", "SOL"});
    click("涨跌");
    const std::string dragged = order().front();
    drag(dragged, 1);
    QCoreApplication::processEvents();
    QWidget* const tooltip = shownTooltip();
    ASSERT_NE(tooltip, nullptr);
    const auto timers = [tooltip] {
        return QAbstractEventDispatcher::instance()->registeredTimers(tooltip).size();
    };
    const auto before = timers();
    pointer::pull(*rows, {100, 2 * kRow});
    EXPECT_EQ(timers(), before) << "one more would hide it soon";
    release();
    QToolTip::hideText();
}

TEST_F(CoinListDragTest, aClickOnASortedListSaysNothing) {
    show({"BTC", "ETH"});
    click("涨跌");
    QTest::mouseClick(row("BTC"), Qt::LeftButton);
    EXPECT_EQ(QToolTip::text(), QString());
}

TEST_F(CoinListDragTest, theOnlyRowSaysNothing) {
    show({"BTC"});
    drag("BTC", 2);
    release();
    EXPECT_EQ(QToolTip::text(), QString());
}

TEST_F(CoinListDragTest, aSortedListKeepsItsOrder) {
    show({"BTC", "ETH", "SOL"});
    click("涨跌");
    const std::vector<std::string> before = order();
    drag(before.front(), 2);
    EXPECT_EQ(rows->lifted(), std::nullopt);
    release();
    executor.run();
    EXPECT_EQ(order(), before);
    EXPECT_THAT(watched(), ElementsAre("BTC", "ETH", "SOL"));
}

TEST_F(CoinListDragTest, oneCoinStaysWhereItIs) {
    show({"BTC"});
    drag("BTC", 3);
    EXPECT_EQ(rows->lifted(), std::nullopt);
    release();
}

TEST_F(CoinListDragTest, theArrowIsClickedAndNotDragged) {
    show({"BTC", "ETH"});
    const QPoint onArrow = arrow("BTC")->rect().center();
    pointer::press(*arrow("BTC"), onArrow, Qt::LeftButton);
    pointer::pull(*arrow("BTC"), onArrow + QPoint(0, 2 * kRow));
    EXPECT_EQ(rows->lifted(), std::nullopt);
    pointer::release(*arrow("BTC"), onArrow, Qt::LeftButton);
    EXPECT_EQ(*expanded, symbolOf("BTC"));
    EXPECT_TRUE(spinUntil([this] { return !rows->isMoving(); }));
}

TEST_F(CoinListDragTest, pricesComeInMeanwhile) {
    show({"BTC", "ETH"});
    drag("BTC", 1);
    tick("BTC", {123, 100});
    EXPECT_EQ(priceCell("BTC")->text(), QStringLiteral("123.00"));
    EXPECT_EQ(rows->lifted(), symbolOf("BTC"));
    release();
}

TEST_F(CoinListDragTest, aCoinThatIsRemovedEndsItsDrag) {
    show({"BTC", "ETH", "SOL"});
    drag("BTC", 2);
    run(state->remove(symbolOf("BTC")));
    EXPECT_EQ(rows->lifted(), std::nullopt);
    release();
    executor.run();
    EXPECT_THAT(watched(), ElementsAre("ETH", "SOL"));
    EXPECT_TRUE(rows->isConsistent()) << rows->brokenRule();
}

TEST_F(CoinListDragTest, theLastCoinButOneThatIsRemovedEndsTheDragToo) {
    show({"BTC", "ETH"});
    drag("BTC", 1);
    run(state->remove(symbolOf("ETH")));
    EXPECT_EQ(rows->lifted(), std::nullopt);
    release();
}

TEST_F(CoinListDragTest, hidingEndsTheDrag) {
    show({"BTC", "ETH", "SOL"});
    drag("BTC", 2);
    window->hide();
    EXPECT_EQ(rows->lifted(), std::nullopt);
    window->show();
    release();
    executor.run();
    EXPECT_THAT(watched(), ElementsAre("BTC", "ETH", "SOL"));
    EXPECT_THAT(order(), ElementsAre("BTC", "ETH", "SOL"));
}

TEST_F(CoinListDragTest, anOpenChartGoesWithItsRow) {
    show({"BTC", "ETH", "SOL"});
    clickArrow("BTC");
    drag("BTC", 2);
    EXPECT_EQ(chart("BTC")->mapTo(rows, QPoint()).y(), 3 * kRow);
    release();
    executor.run();
    EXPECT_THAT(watched(), ElementsAre("ETH", "SOL", "BTC"));
    EXPECT_EQ(*expanded, symbolOf("BTC"));
    EXPECT_EQ(chart("BTC")->mapTo(rows, QPoint()).y(), 3 * kRow);
    EXPECT_EQ(chartsMade, 1);
}

TEST_F(CoinListDragTest, aCoinThatStandsTwiceOnAListMovesAsOne) {
    Watchlist list = listOf({"BTC", "ETH", "SOL"});
    list.coins.push_back(coinOf("BTC"));
    show(list);
    ASSERT_THAT(order(), ElementsAre("BTC", "ETH", "SOL"));
    drag("BTC", 2);
    release();
    executor.run();
    EXPECT_THAT(watched(), ElementsAre("ETH", "SOL", "BTC", "BTC"));
    EXPECT_THAT(order(), ElementsAre("ETH", "SOL", "BTC"));
}

TEST_F(CoinListDragTest, theKeyboardMovesARowFasterThanTheEditsRun) {
    show({"BTC", "ETH", "SOL"});
    row("BTC")->setFocus(Qt::TabFocusReason);
    press(Qt::Key_Down, Qt::AltModifier);
    press(Qt::Key_Down, Qt::AltModifier);
    EXPECT_THAT(order(), ElementsAre("ETH", "SOL", "BTC"));
    executor.run();
    EXPECT_THAT(watched(), ElementsAre("ETH", "SOL", "BTC"));
    EXPECT_THAT(saved(), ElementsAre("ETH", "SOL", "BTC"));
    EXPECT_TRUE(row("BTC")->hasFocus());
}

TEST_F(CoinListDragTest, aScreenReaderIsToldTheNewPlace) {
    show({"BTC", "ETH", "SOL"});
    EXPECT_EQ(row("BTC")->accessibleDescription(), QStringLiteral("第 1 位，共 3 位"));
    row("BTC")->setFocus(Qt::TabFocusReason);
    press(Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(row("BTC")->accessibleDescription(), QStringLiteral("第 2 位，共 3 位"));
    EXPECT_EQ(row("ETH")->accessibleDescription(), QStringLiteral("第 1 位，共 3 位"));
    run(state->remove(symbolOf("SOL")));
    EXPECT_EQ(row("BTC")->accessibleDescription(), QStringLiteral("第 2 位，共 2 位"));
}

struct WatchlistMoveTest : CoinListDragTest {
    void SetUp() override { startConnected(listOf({"BTC", "ETH", "SOL"})); }
    void move(const std::string& baseAsset, const std::optional<std::string>& next) {
        scope.spawn(WatchlistMove::inFrontOf(
            *state, symbolOf(baseAsset), next ? std::optional(symbolOf(*next)) : std::nullopt));
    }
};

TEST_F(WatchlistMoveTest, refersToTheListAsItIsWhenItRuns) {
    move("BTC", "SOL");
    move("BTC", std::nullopt);
    move("SOL", "ETH");
    executor.run();
    EXPECT_THAT(watched(), ElementsAre("SOL", "ETH", "BTC"));
}

TEST_F(WatchlistMoveTest, doesNothingWhenEitherIsGone) {
    move("BTC", "XRP");
    move("XRP", "BTC");
    move("XRP", std::nullopt);
    executor.run();
    EXPECT_THAT(watched(), ElementsAre("BTC", "ETH", "SOL"));
}

}  // namespace
}  // namespace quillbar
