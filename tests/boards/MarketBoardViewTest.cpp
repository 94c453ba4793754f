// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/boards/MarketBoardFixture.h"
#include "tests/qtsupport/PaintCount.h"
#include "tests/qtsupport/Pointer.h"

#include <QAccessible>
#include <QAccessibleInterface>

#include <gmock/gmock.h>

namespace quillbar {
namespace {

using ::testing::ElementsAre;
using ::testing::SizeIs;
using Roles = ThemeColors::Resolved;

struct MarketBoardViewTest : MarketBoardFixture {};

// Pure

TEST(SecondaryColumnTest, onlyTheMarketCapBoardTellsOfMarketCaps) {
    for (const RankingBoard board : kAllRankingBoards) {
        EXPECT_EQ(secondaryColumnOf(board) == SecondaryColumn::marketCap,
                  board == RankingBoard::marketCap);
    }
    const RankedCoin entry{1, coinOf("BTC"), {1, 1, 1.5e9}, 1.35e12};
    EXPECT_EQ(columnText(SecondaryColumn::volume, entry), QStringLiteral("15.00亿"));
    EXPECT_EQ(columnText(SecondaryColumn::marketCap, entry), QStringLiteral("1.35万亿"));
    EXPECT_EQ(columnText(SecondaryColumn::volume, {}), QStringLiteral("—"));
    EXPECT_EQ(columnText(SecondaryColumn::marketCap, {}), QStringLiteral("—"));
}

// Layout

TEST_F(MarketBoardViewTest, everyColumnStandsUnderItsTitle) {
    openThree();
    const auto left = [this](const QWidget* widget) { return widget->mapTo(view, QPoint()).x(); };
    const auto title = [this](const char16_t* text) {
        return named(*view, QString::fromUtf16(text));
    };
    EXPECT_EQ(left(rankCell("BTC")), 12);
    EXPECT_EQ(rankCell("BTC")->width(), 16);
    EXPECT_EQ(left(title(u"币种")), 12 + 16 + 6);
    EXPECT_EQ(left(widgetsOf<CoinCell>(*row("BTC")).front()), 12 + 16 + 6);
    EXPECT_EQ(left(title(u"成交额")), left(secondaryCell("BTC")));
    EXPECT_EQ(secondaryCell("BTC")->width(), 64);
    EXPECT_EQ(left(title(u"价格")), left(priceCell("BTC")));
    EXPECT_EQ(priceCell("BTC")->width(), 82);
    EXPECT_EQ(left(title(u"涨跌")), left(changeCell("BTC")));
    EXPECT_EQ(changeCell("BTC")->width(), 62);
    EXPECT_EQ(left(addButton("BTC")), left(changeCell("BTC")) + 62 + 6);
    EXPECT_EQ(addButton("BTC")->size(), QSize(14, 28));
    EXPECT_EQ(left(addButton("BTC")) + 14 + 12, 400);
}

TEST_F(MarketBoardViewTest, theListIs420HighHoweverManyRowsThereAre) {
    openThree();
    EXPECT_EQ(rows->height(), 420);
    EXPECT_EQ(view->height(), 20 + 420);
    EXPECT_EQ(row("SOL")->y(), 0);
    EXPECT_FALSE(row("SOL")->isAlternate());
    EXPECT_TRUE(row("ETH")->isAlternate());
}

TEST_F(MarketBoardViewTest, isAsHighWithoutRows) {
    show(RankingBoard::gainers);
    EXPECT_EQ(view->height(), 20 + 420);
}

TEST_F(MarketBoardViewTest, givenLessHeightTheListShrinks) {
    openThree();
    window->layout()->setSizeConstraint(QLayout::SetNoConstraint);
    window->setFixedHeight(200);
    EXPECT_TRUE(spinUntil([this] { return rows->height() == 180; }));
    EXPECT_EQ(view->sizeHint().height(), 440);
}

TEST_F(MarketBoardViewTest, aBoardOfFiftyHasAsManyWidgetsAsCanBeSeen) {
    Tickers tickers;
    for (int each = 0; each < 2500; ++each) {
        tickers.emplace_back("C" + std::to_string(each), Ticker{100.0 + each, 100, 1e6});
    }
    theMarketIs(tickers);
    open(RankingBoard::gainers);
    EXPECT_THAT(rows->ids(), SizeIs(50));
    EXPECT_EQ(rows->widgetCount(), 15 + RowList::kMargin);
    rows->scrollTo(100'000);
    EXPECT_EQ(rankCell("C2450")->text(), QStringLiteral("50"));
    EXPECT_TRUE(rows->isConsistent()) << rows->brokenRule();
}

TEST_F(MarketBoardViewTest, theMarketCapBoardShowsAHundred) {
    Tickers tickers;
    std::vector<MarketCapEntry> entries;
    for (int each = 1; each <= 150; ++each) {
        const std::string name = "C" + std::to_string(each);
        tickers.emplace_back(name, Ticker{100, 100, 1e6});
        entries.push_back({name, each, 1e12 / each, 100});
    }
    theMarketIs(tickers);
    coinGecko.answers.otherwise(entries);
    open(RankingBoard::marketCap);
    EXPECT_THAT(rows->ids(), SizeIs(100));
    EXPECT_EQ(rows->ids().back(), symbolOf("C100"));
}

TEST_F(MarketBoardViewTest, aPairThatTheExchangeListsTwiceHasOneRow) {
    theMarketIsOfThree();
    api.exchangeInfoAnswers.otherwise({coinOf("BTC"), coinOf("ETH"), coinOf("BTC")});
    open(RankingBoard::gainers);
    EXPECT_THAT(order(), ElementsAre("1 ETH", "2 BTC"));
    EXPECT_TRUE(rows->isConsistent()) << rows->brokenRule();
}

// Cells

TEST_F(MarketBoardViewTest, aRowShowsItsCoinAsTheFormattersSay) {
    theMarketIs({{"BTC", {67234.5, 66417.56, 1.5e9}}, {"DOWN", {90, 100, 5e5}}, {"NEW", {5, 0}}});
    open(RankingBoard::gainers);
    EXPECT_THAT(order(), ElementsAre("1 BTC", "2 NEW", "3 DOWN"));
    EXPECT_EQ(secondaryCell("BTC")->text(), QStringLiteral("15.00亿"));
    EXPECT_EQ(priceCell("BTC")->text(), QStringLiteral("67,234.50"));
    EXPECT_EQ(priceCell("BTC")->color(), &Roles::primaryText);
    EXPECT_EQ(changeCell("BTC")->text(), QStringLiteral("+1.23%"));
    EXPECT_EQ(changeCell("BTC")->color(), &Roles::up);
    EXPECT_EQ(changeCell("DOWN")->text(), QStringLiteral("-10.00%"));
    EXPECT_EQ(changeCell("DOWN")->color(), &Roles::down);
    EXPECT_EQ(changeCell("NEW")->text(), QStringLiteral("0.00%")) << "it has no open";
    EXPECT_EQ(secondaryCell("NEW")->text(), QStringLiteral("—"));
    EXPECT_EQ(row("BTC")->accessibleName(),
              QStringLiteral("1，BTC，价格 67,234.50，涨跌 +1.23%，成交额 15.00亿"));
}

TEST_F(MarketBoardViewTest, theMarketCapBoardTellsOfMarketCapsInPlaceOfVolumes) {
    theMarketIsOfThree();
    theMarketCapsAreOfTwo();
    open(RankingBoard::marketCap);
    EXPECT_THAT(order(), ElementsAre("1 BTC", "2 ETH"));
    EXPECT_EQ(secondaryCell("BTC")->text(), QStringLiteral("1.35万亿"));
    EXPECT_NE(named(*view, QStringLiteral("市值")), nullptr);
    EXPECT_EQ(named(*view, QStringLiteral("成交额")), nullptr);
    EXPECT_EQ(row("ETH")->accessibleName(),
              QStringLiteral("2，ETH，价格 120.00，涨跌 +20.00%，市值 4200.00亿"));
    EXPECT_EQ(rows->accessibleName(), QStringLiteral("市值榜"));
}

TEST_F(MarketBoardViewTest, eachBoardHasItsOrder) {
    theMarketIsOfThree();
    open(RankingBoard::losers);
    EXPECT_THAT(order(), ElementsAre("1 BTC", "2 ETH", "3 SOL"));
    view->setBoard(RankingBoard::volume);
    EXPECT_THAT(order(), ElementsAre("1 BTC", "2 ETH", "3 SOL"));
    EXPECT_EQ(rows->accessibleName(), QStringLiteral("成交额榜"));
    view->setBoard(RankingBoard::gainers);
    EXPECT_THAT(order(), ElementsAre("1 SOL", "2 ETH", "3 BTC"));
}

TEST_F(MarketBoardViewTest, anArrowTakesThePlaceOfTheRankUnderThePointerAndWhileTheChartIsOpen) {
    openThree();
    const auto drawn = [this](const std::string& baseAsset) {
        return pictureOf(*rankCell(baseAsset));
    };
    const QImage rank = drawn("ETH");
    EXPECT_EQ(row("ETH")->rankGlyph(), std::nullopt);
    pointerEnters(*row("ETH"));
    EXPECT_EQ(row("ETH")->rankGlyph(), Glyph::chevronRight);
    const QImage right = drawn("ETH");
    EXPECT_NE(right, rank);
    clickRow("ETH");
    EXPECT_EQ(row("ETH")->rankGlyph(), Glyph::chevronDown);
    EXPECT_NE(drawn("ETH"), right);
    pointerLeaves(*row("ETH"));
    EXPECT_EQ(row("ETH")->rankGlyph(), Glyph::chevronDown) << "the chart is open";
    EXPECT_EQ(row("SOL")->rankGlyph(), std::nullopt);
}

TEST_F(MarketBoardViewTest, theRankIsPaintedWhenTheChartOpensAndCloses) {
    openThree();
    // The last row, which does not move.
    row("BTC")->setFocus(Qt::TabFocusReason);
    for (int each = 0; each < 2; ++each) {
        EXPECT_GT(paintsOf(*rankCell("BTC"), [] { press(Qt::Key_Return); }), 0);
        ASSERT_TRUE(spinUntil([this] { return !rows->isMoving(); }));
    }
    EXPECT_EQ(view->expandedSymbol(), std::nullopt);
}

// The watchlist

TEST_F(MarketBoardViewTest, theButtonAddsACoinAndBecomesACheckMark) {
    openThree();
    ASSERT_TRUE(addButton("ETH")->isVisible());
    EXPECT_EQ(addButton("ETH")->accessibleName(), QStringLiteral("加入自选 ETH"));
    EXPECT_EQ(addButton("ETH")->toolTip(), QStringLiteral("加入自选"));
    EXPECT_EQ(addButton("ETH")->glyph(), Glyph::plus);
    EXPECT_EQ(checkMark("ETH"), nullptr);
    clickAt(*addButton("ETH"), {7, 14});
    settle();
    EXPECT_TRUE(isWatched("ETH"));
    EXPECT_FALSE(addButton("ETH")->isVisible());
    ASSERT_NE(checkMark("ETH"), nullptr);
    EXPECT_EQ(checkMark("ETH")->toolTip(), QStringLiteral("已在自选列表中"));
    EXPECT_EQ(row("ETH")->accessibleDescription(), QStringLiteral("已在自选列表中"));
    EXPECT_EQ(view->expandedSymbol(), std::nullopt) << "the button is not the row";
    EXPECT_TRUE(addButton("SOL")->isVisible());
    EXPECT_FALSE(isWatched("SOL"));
}

TEST_F(MarketBoardViewTest, aCoinThatIsWatchedHasACheckMarkUntilItIsRemoved) {
    theMarketIsOfThree();
    open(RankingBoard::gainers, {"BTC"});
    EXPECT_NE(checkMark("BTC"), nullptr);
    EXPECT_FALSE(addButton("BTC")->isVisible());
    run(state->remove(symbolOf("BTC")));
    EXPECT_EQ(checkMark("BTC"), nullptr);
    EXPECT_TRUE(addButton("BTC")->isVisible());
    EXPECT_EQ(row("BTC")->accessibleDescription(), QString());
}

TEST_F(MarketBoardViewTest, theCheckMarkIsPartOfTheRow) {
    theMarketIsOfThree();
    open(RankingBoard::gainers, {"BTC"});
    clickAt(*checkMark("BTC"), {7, 14});
    EXPECT_EQ(view->expandedSymbol(), symbolOf("BTC"));
    EXPECT_THAT(state->watchlist()->coins, ElementsAre(coinOf("BTC")));
}

TEST_F(MarketBoardViewTest, aDoubleClickOnTheButtonAddsWithoutOpeningTheChart) {
    openThree();
    const QPoint place(7, 14);
    clickAt(*addButton("ETH"), place);
    settle();
    QMouseEvent second(QEvent::MouseButtonDblClick,
                       place,
                       checkMark("ETH")->mapToGlobal(place),
                       Qt::LeftButton,
                       Qt::LeftButton,
                       Qt::NoModifier);
    QApplication::sendEvent(checkMark("ETH"), &second);
    QTest::mouseRelease(checkMark("ETH"), Qt::LeftButton, {}, place);
    EXPECT_EQ(view->expandedSymbol(), std::nullopt);
}

TEST_F(MarketBoardViewTest, theButtonIsFaintUntilThePointerIsOverIt) {
    openThree();
    EXPECT_EQ(addButton("ETH")->glyphOpacity(), 0.55);
    const QImage faint = pictureOf(*addButton("ETH"));
    pointerEnters(*addButton("ETH"));
    EXPECT_EQ(addButton("ETH")->glyphOpacity(), 1);
    EXPECT_NE(pictureOf(*addButton("ETH")), faint);
    pointerLeaves(*addButton("ETH"));
    EXPECT_EQ(addButton("ETH")->glyphOpacity(), 0.55);
}

TEST_F(MarketBoardViewTest, theAdditionIsFinishedAlthoughTheViewGoes) {
    openThree();
    clickAt(*addButton("ETH"), {7, 14});
    window.reset();
    executor.run();
    EXPECT_TRUE(isWatched("ETH"));
}

// What a refresh costs

TEST_F(MarketBoardViewTest, aRefreshRepaintsOnlyTheRowsThatChange) {
    openThree();
    spinUntilIdle();
    struct Paints final : QObject {
        int count = 0;
        bool eventFilter(QObject* /*watched*/, QEvent* event) override {
            count += event->type() == QEvent::Paint ? 1 : 0;
            return false;
        }
    } solPaints, ethPaints;
    priceCell("SOL")->installEventFilter(&solPaints);
    priceCell("ETH")->installEventFilter(&ethPaints);
    theMarketIs({{"BTC", {110, 100, 3e9}}, {"ETH", {121, 100, 2e9}}, {"SOL", {130, 100, 1e8}}});
    pass(Seconds(30));
    ASSERT_TRUE(spinUntil([&] { return ethPaints.count > 0; }));
    EXPECT_EQ(solPaints.count, 0);
    EXPECT_EQ(priceCell("ETH")->text(), QStringLiteral("121.00"));
}

// The keyboard

TEST_F(MarketBoardViewTest, enterOpensTheChartOfTheRowThatTheArrowsReached) {
    openThree();
    row("SOL")->setFocus(Qt::TabFocusReason);
    press(Qt::Key_Down);
    EXPECT_TRUE(row("ETH")->hasFocus());
    press(Qt::Key_Return);
    EXPECT_EQ(view->expandedSymbol(), symbolOf("ETH"));
    press(Qt::Key_Return);
    EXPECT_EQ(view->expandedSymbol(), std::nullopt);
}

TEST_F(MarketBoardViewTest, thePlusKeyAddsTheCoinOfTheRow) {
    openThree();
    row("ETH")->setFocus(Qt::TabFocusReason);
    QTest::keyClick(QApplication::focusWidget(), '+', Qt::ControlModifier);
    settle();
    EXPECT_FALSE(isWatched("ETH"));
    QTest::keyClick(QApplication::focusWidget(), '+', Qt::ShiftModifier);
    settle();
    EXPECT_TRUE(isWatched("ETH"));
    EXPECT_NE(checkMark("ETH"), nullptr);
    EXPECT_TRUE(row("ETH")->hasFocus());
    QTest::keyClick(QApplication::focusWidget(), '+', Qt::KeypadModifier);
    settle();
    EXPECT_THAT(state->watchlist()->coins, ElementsAre(coinOf("XMR"), coinOf("ETH")));
}

TEST_F(MarketBoardViewTest, theMenuOfARowAddsItsCoin) {
    openThree();
    row("ETH")->setFocus(Qt::TabFocusReason);
    press(Qt::Key_Menu);
    ASSERT_NE(menu(), nullptr);
    ASSERT_THAT(menu()->actions(), SizeIs(1));
    EXPECT_EQ(menu()->actions().front()->text(), QStringLiteral("加入自选"));
    QTest::keyClick(menu(), Qt::Key_Down);
    QTest::keyClick(menu(), Qt::Key_Return);
    settle();
    EXPECT_TRUE(isWatched("ETH"));
    EXPECT_EQ(menu(), nullptr);
}

TEST_F(MarketBoardViewTest, theMenuOfACoinThatIsWatchedSaysSo) {
    theMarketIsOfThree();
    open(RankingBoard::gainers, {"BTC"});
    openMenu("BTC");
    ASSERT_NE(menu(), nullptr);
    ASSERT_THAT(menu()->actions(), SizeIs(1));
    EXPECT_EQ(menu()->actions().front()->text(), QStringLiteral("已在自选列表中"));
    EXPECT_FALSE(menu()->actions().front()->isEnabled());
    EXPECT_EQ(view->expandedSymbol(), std::nullopt);
    menu()->close();
}

TEST_F(MarketBoardViewTest, isAListOfItemsToAScreenReader) {
    openThree();
    EXPECT_EQ(QAccessible::queryAccessibleInterface(rows)->role(), QAccessible::List);
    EXPECT_EQ(rows->accessibleName(), QStringLiteral("涨幅榜"));
    QAccessibleInterface* const item = QAccessible::queryAccessibleInterface(row("SOL"));
    EXPECT_EQ(item->role(), QAccessible::ListItem);
    EXPECT_EQ(item->text(QAccessible::Name),
              QStringLiteral("1，SOL，价格 130.00，涨跌 +30.00%，成交额 1.00亿"));
    EXPECT_EQ(QAccessible::queryAccessibleInterface(addButton("SOL"))->role(), QAccessible::Button);
}

// Themes

TEST_F(MarketBoardViewTest, drawsInBothPalettes) {
    openThree();
    theExchangeFails();
    pass(Seconds(30));
    const QImage dark = pictureOf(*window);
    ThemeKey::set(*window, Theme{ThemeColors::light()});
    const QImage light = pictureOf(*window);
    EXPECT_EQ(dark.pixelColor(5, 44), ThemeColors::dark().surface);
    EXPECT_EQ(light.pixelColor(5, 44), ThemeColors::light().surface);
    EXPECT_NE(dark.copy(0, 0, 400, 20), light.copy(0, 0, 400, 20));
}

}  // namespace
}  // namespace quillbar
