// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/panel/UndoLine.h"
#include "Quillbar/text/SystemFont.h"
#include "Quillbar/watchlist/CoinListView.h"
#include "tests/panel/PanelFixture.h"
#include "tests/qtsupport/Ink.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QAccessibleInterface>
#include <QLabel>

#include <gmock/gmock.h>

namespace quillbar {

namespace {

using ::testing::ElementsAre;

const QString kUndo = QStringLiteral("撤销删除 ");

struct UndoLineTest : PanelFixture {
    void showThree() {
        startConnected(listOf({"BTC", "ETH", "SOL"}));
        showActive(show());
    }
    void remove(const std::string& baseAsset) {
        run(state->remove(symbolOf(baseAsset)));
        spinUntilIdle();
    }
    [[nodiscard]] QWidget* offerOf(const QString& baseAsset) const {
        return named(*panel, kUndo + baseAsset);
    }
    void undo() {
        QTest::mouseClick(widgetsOf<UndoLine>(*panel).at(0)->findChild<QAbstractButton*>(),
                          Qt::LeftButton);
        executor.run();
        spinUntilIdle();
    }
    [[nodiscard]] std::vector<std::string> watched() const {
        std::vector<std::string> names;
        for (const Coin& coin : state->watchlist()->coins) {
            names.push_back(coin.baseAsset);
        }
        return names;
    }
};

TEST_F(UndoLineTest, aRemovalCanBeTakenBackForTenSeconds) {
    showThree();
    EXPECT_EQ(offerOf(QStringLiteral("ETH")), nullptr);
    remove("ETH");
    EXPECT_NE(offerOf(QStringLiteral("ETH")), nullptr);
    EXPECT_NE(named(*panel, QStringLiteral("已删除 ETH")), nullptr);
    time.advance(Seconds{9.9});
    EXPECT_NE(offerOf(QStringLiteral("ETH")), nullptr);
    time.advance(Seconds{0.1});
    EXPECT_EQ(offerOf(QStringLiteral("ETH")), nullptr);
}

TEST_F(UndoLineTest, theCoinComesBackToItsPlaceAndIsSavedThere) {
    showThree();
    remove("ETH");
    undo();
    EXPECT_THAT(watched(), ElementsAre("BTC", "ETH", "SOL"));
    EXPECT_EQ(storedList(), *state->watchlist());
    EXPECT_EQ(state->watchlist()->pinnedSymbol, symbolOf("BTC"));
    EXPECT_EQ(offerOf(QStringLiteral("ETH")), nullptr);
    remove("SOL");
    undo();
    EXPECT_THAT(watched(), ElementsAre("BTC", "ETH", "SOL"));
}

TEST_F(UndoLineTest, thePlaceIsAmongTheNeighboursThatAreStillThere) {
    startConnected(listOf({"BTC", "ETH", "SOL", "XRP"}));
    showActive(show());
    remove("ETH");
    run(state->add(coinOf("ADA")));
    run(state->move({0}, 2));
    ASSERT_THAT(watched(), ElementsAre("SOL", "BTC", "XRP", "ADA"));
    undo();
    EXPECT_THAT(watched(), ElementsAre("SOL", "BTC", "ETH", "XRP", "ADA"))
        << "behind BTC, in front of XRP, and what was done since stays done";
}

TEST_F(UndoLineTest, theFirstCoinComesBackAsTheFirstThoughItsNeighbourHasMovedAway) {
    showThree();
    remove("BTC");
    run(state->move({0}, 2));
    ASSERT_THAT(watched(), ElementsAre("SOL", "ETH"));
    undo();
    EXPECT_THAT(watched(), ElementsAre("BTC", "SOL", "ETH"));
}

TEST_F(UndoLineTest, theLastCoinComesBackInFrontOfWhatWasAddedSince) {
    showThree();
    remove("SOL");
    run(state->add(coinOf("XRP")));
    undo();
    EXPECT_THAT(watched(), ElementsAre("BTC", "ETH", "SOL", "XRP"));
}

TEST_F(UndoLineTest, aSortedListComesBackInTheUsersOwnOrderAndShowsTheCoinWhereItIsSorted) {
    api.klinesAnswers.otherwise(candlesFrom(100));
    showThree();
    auto& list = *widgetsOf<CoinListView>(*panel).at(0);
    list.toggle(symbolOf("ETH"));
    list.sortBy(WatchlistSortColumn::change);
    remove("ETH");
    undo();
    EXPECT_THAT(watched(), ElementsAre("BTC", "ETH", "SOL"));
    ASSERT_EQ(*panel->expandedSymbol(), symbolOf("ETH"));
    EXPECT_THAT(shown<RowList>()->ids(),
                ElementsAre(symbolOf("BTC"), symbolOf("ETH"), symbolOf("SOL")))
        << "without prices, in the user's order";
}

TEST_F(UndoLineTest, theOfferOutlivesAPanelThatIsClosedAndOpened) {
    api.klinesAnswers.otherwise(candlesFrom(100));
    showThree();
    widgetsOf<CoinListView>(*panel).at(0)->toggle(symbolOf("BTC"));
    remove("BTC");
    panel->hide();
    time.advance(Seconds{5});
    panel->show();
    spinUntilIdle();
    ASSERT_NE(offerOf(QStringLiteral("BTC")), nullptr);
    undo();
    EXPECT_THAT(watched(), ElementsAre("BTC", "ETH", "SOL"));
    EXPECT_EQ(state->watchlist()->pinnedSymbol, symbolOf("BTC"));
    EXPECT_EQ(*panel->expandedSymbol(), symbolOf("BTC"));
    remove("BTC");
    panel->hide();
    time.advance(Seconds{10});
    panel->show();
    spinUntilIdle();
    EXPECT_EQ(offerOf(QStringLiteral("BTC")), nullptr);
}

TEST_F(UndoLineTest, thePinComesBackUnlessTheUserHasPinnedAnother) {
    showThree();
    remove("BTC");
    ASSERT_EQ(state->watchlist()->pinnedSymbol, symbolOf("ETH"));
    undo();
    EXPECT_EQ(state->watchlist()->pinnedSymbol, symbolOf("BTC"));
    remove("BTC");
    state->pin(symbolOf("SOL"));
    undo();
    EXPECT_EQ(state->watchlist()->pinnedSymbol, symbolOf("SOL"));
    EXPECT_THAT(watched(), ElementsAre("BTC", "ETH", "SOL"));
}

TEST_F(UndoLineTest, theOnlyCoinComesBackPinned) {
    startConnected(listOf({"BTC"}));
    showActive(show());
    remove("BTC");
    undo();
    EXPECT_EQ(*state->watchlist(), listOf({"BTC"}));
}

TEST_F(UndoLineTest, theChartIsOpenAgain) {
    api.klinesAnswers.otherwise(candlesFrom(100));
    showThree();
    auto& list = *widgetsOf<CoinListView>(*panel).at(0);
    list.toggle(symbolOf("ETH"));
    remove("ETH");
    ASSERT_EQ(*panel->expandedSymbol(), std::nullopt);
    undo();
    EXPECT_EQ(*panel->expandedSymbol(), symbolOf("ETH"));
    remove("ETH");
    list.toggle(symbolOf("SOL"));
    undo();
    EXPECT_EQ(*panel->expandedSymbol(), symbolOf("SOL")) << "another is open by now";
}

TEST_F(UndoLineTest, onlyTheLatestRemovalIsOffered) {
    showThree();
    remove("BTC");
    time.advance(Seconds{9});
    remove("ETH");
    EXPECT_EQ(offerOf(QStringLiteral("BTC")), nullptr);
    time.advance(Seconds{9});
    EXPECT_NE(offerOf(QStringLiteral("ETH")), nullptr) << "its own ten seconds";
    undo();
    EXPECT_THAT(watched(), ElementsAre("ETH", "SOL"));
}

TEST_F(UndoLineTest, isHiddenBetweenTwoRemovalsBecauseScreenReadersReadWhatAppears) {
    showThree();
    remove("BTC");
    const QWidget& line = *widgetsOf<UndoLine>(*panel).at(0);
    ASSERT_TRUE(line.isVisible());
    bool wasVisible = true;
    const Observation afterTheLine = state->watchlist().observe(
        [&](const Watchlist& /*watchlist*/) { wasVisible = line.isVisible(); });
    remove("ETH");
    EXPECT_FALSE(wasVisible);
    EXPECT_TRUE(line.isVisible());
}

TEST_F(UndoLineTest, otherEditsAreNotOfferedAndACoinThatIsAddedAgainNeedsNoOffer) {
    showThree();
    run(state->move({0}, 3));
    run(state->add(coinOf("XRP")));
    state->pin(symbolOf("SOL"));
    spinUntilIdle();
    EXPECT_FALSE(widgetsOf<UndoLine>(*panel).at(0)->isVisible());
    remove("SOL");
    ASSERT_TRUE(widgetsOf<UndoLine>(*panel).at(0)->isVisible());
    run(state->add(coinOf("SOL")));
    EXPECT_FALSE(widgetsOf<UndoLine>(*panel).at(0)->isVisible());
}

// The Tab key

struct UndoLineTabTest : UndoLineTest {
    /// Where the Tab key goes to from the one that has the focus, as often as that.
    std::vector<std::string> tab(int count, Qt::Key key) {
        std::vector<std::string> names;
        for (int each = 0; each < count; ++each) {
            QTest::keyClick(
                panel->focusWidget(), key, key == Qt::Key_Tab ? Qt::NoModifier : Qt::ShiftModifier);
            names.push_back(focused().toStdString());
        }
        return names;
    }
};

TEST_F(UndoLineTabTest, theButtonFollowsTheListAboveIt) {
    showThree();
    remove("ETH");
    shown<RowList>()->setFocus(Qt::TabFocusReason);
    EXPECT_THAT(tab(2, Qt::Key_Tab), ElementsAre("撤销删除 ETH", "添加币种"));
    const auto back = tab(2, Qt::Key_Backtab);
    EXPECT_EQ(back.front(), "撤销删除 ETH");
    EXPECT_TRUE(shown<RowList>()->isAncestorOf(panel->focusWidget()));
}

TEST_F(UndoLineTabTest, theButtonFollowsAChartThatWasOpenedMeanwhile) {
    api.klinesAnswers.otherwise(candlesFrom(100));
    showThree();
    remove("ETH");
    widgetsOf<CoinListView>(*panel).at(0)->toggle(symbolOf("SOL"));
    ASSERT_TRUE(spinUntil([this] { return !shown<RowList>()->isMoving(); }));
    named(*panel, kUndo + QStringLiteral("ETH"))->setFocus(Qt::TabFocusReason);
    EXPECT_THAT(tab(1, Qt::Key_Tab), ElementsAre("添加币种"));
    tab(2, Qt::Key_Backtab);
    QWidget* const chart = shown<RowList>()->detail(symbolOf("SOL"));
    ASSERT_NE(chart, nullptr);
    EXPECT_TRUE(chart->isAncestorOf(panel->focusWidget()));
    EXPECT_THAT(tab(1, Qt::Key_Tab), ElementsAre("撤销删除 ETH"));
}

TEST_F(UndoLineTabTest, theButtonFollowsABoardThatWasOpenedMeanwhile) {
    theExchangeHas({"BTC", "ETH"});
    showThree();
    remove("ETH");
    click(QStringLiteral("涨幅"));
    ASSERT_TRUE(spinUntil([this] { return shown<RowList>() != nullptr; }));
    shown<RowList>()->setFocus(Qt::TabFocusReason);
    EXPECT_THAT(tab(2, Qt::Key_Tab), ElementsAre("撤销删除 ETH", "添加币种"));
}

TEST_F(UndoLineTabTest, theKeyboardGoesOnAtTheRowThatCameBack) {
    showThree();
    remove("ETH");
    QWidget* const button = named(*panel, kUndo + QStringLiteral("ETH"));
    button->setFocus(Qt::TabFocusReason);
    QTest::keyClick(button, Qt::Key_Return);
    executor.run();
    spinUntilIdle();
    EXPECT_THAT(watched(), ElementsAre("BTC", "ETH", "SOL"));
    EXPECT_EQ(offerOf(QStringLiteral("ETH")), nullptr);
    QWidget* const row = shown<RowList>()->row(symbolOf("ETH"));
    ASSERT_EQ(panel->focusWidget(), row);
    EXPECT_EQ(pictureOf(*row).pixelColor(row->width() / 2, 1), colors().accent) << "with its ring";
}

TEST_F(UndoLineTest, aClickLeavesTheFocusWhereItIs) {
    showThree();
    shown<RowList>()->row(symbolOf("SOL"))->setFocus(Qt::TabFocusReason);
    remove("ETH");
    undo();
    EXPECT_EQ(panel->focusWidget(), shown<RowList>()->row(symbolOf("SOL")));
}

TEST_F(UndoLineTest, aNameThatIsTooLongEndsWithDots) {
    const std::string name(80, 'W');
    startConnected(listOf({"BTC", name}));
    showActive(show());
    remove(name);
    panel->resize(panel->sizeHint());
    spinUntilIdle();
    QWidget& line = *widgetsOf<UndoLine>(*panel).at(0);
    QLabel& label = *line.findChild<QLabel*>();
    EXPECT_EQ(label.text().toStdString(), "已删除 " + name) << "read aloud in full";
    const QImage picture = pictureOf(label);
    const QRect ink = boundsOfInk(picture, colors().surface);
    const int dot = 4;
    const QRect end = boundsOfInk(picture.copy(ink.right() + 1 - dot, 0, dot, picture.height()),
                                  colors().surface);
    EXPECT_LE(end.height(), dot);
    EXPECT_GT(end.top(), ink.center().y());
}

TEST_F(UndoLineTest, keepsTwelvePointsAtItsSidesAndEightBeforeTheButton) {
    showThree();
    remove("ETH");
    panel->resize(panel->sizeHint());
    spinUntilIdle();
    QWidget& line = *widgetsOf<UndoLine>(*panel).at(0);
    const QRect text = line.findChild<QLabel*>()->geometry();
    const QRect button = line.findChild<QAbstractButton*>()->geometry();
    EXPECT_EQ(text.left(), 12);
    EXPECT_EQ(button.left(), text.right() + 1 + 8);
    EXPECT_EQ(button.right() + 1, 400 - 12);
    EXPECT_EQ(button.top(), 0);
    EXPECT_EQ(line.height(), 20 + 4) << "four below";
    EXPECT_EQ(line.findChild<QLabel*>()->font(), systemFont(10.5));
}

TEST_F(UndoLineTest, standsBelowTheListAndIsReadAloud) {
    showThree();
    remove("ETH");
    panel->resize(panel->sizeHint());
    spinUntilIdle();
    QWidget& line = *widgetsOf<UndoLine>(*panel).at(0);
    EXPECT_GT(line.y(), widgetsOf<CoinListView>(*panel).at(0)->geometry().bottom());
    const QAccessibleInterface* const told = QAccessible::queryAccessibleInterface(&line);
    ASSERT_NE(told, nullptr);
    EXPECT_EQ(told->role(), QAccessible::Notification);
}

}  // namespace

}  // namespace quillbar
