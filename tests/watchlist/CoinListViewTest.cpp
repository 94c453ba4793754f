// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/watchlist/CoinListFixture.h"

#include <QCursor>

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace quillbar {
namespace {

using ::testing::ElementsAre;

struct CoinListViewTest : CoinListFixture {};

// Layout

TEST_F(CoinListViewTest, anEmptyListShowsOnlyItsText) {
    show(std::vector<std::string>{});
    const QWidget* const text = named(*window, QStringLiteral("自选列表是空的,点 + 添加币种"));
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(text->width(), 400);
    EXPECT_EQ(view->height(), text->height());
    EXPECT_FALSE(header("价格")->isVisible());
    EXPECT_FALSE(rows->isVisible());
}

TEST_F(CoinListViewTest, theTextGivesWayToTheFirstCoin) {
    show(std::vector<std::string>{});
    run(state->add(coinOf("BTC")));
    EXPECT_EQ(named(*window, QStringLiteral("自选列表是空的,点 + 添加币种")), nullptr);
    EXPECT_TRUE(header("价格")->isVisible());
    EXPECT_TRUE(spinUntil([this] { return order() == std::vector<std::string>{"BTC"}; }));
    run(state->remove(symbolOf("BTC")));
    EXPECT_FALSE(rows->isVisible());
}

TEST_F(CoinListViewTest, isAsHighAsItsRowsAndItsChartUpToALimit) {
    using Chart = CoinListView::Chart;
    EXPECT_EQ(CoinListView::listHeight(0, Chart::closed), 4);
    EXPECT_EQ(CoinListView::listHeight(4, Chart::closed), 4 * kRow + 4);
    EXPECT_EQ(CoinListView::listHeight(4, Chart::open), 4 * kRow + 210 + 4);
    EXPECT_EQ(CoinListView::listHeight(12, Chart::open), 12 * kRow + 210 + 4);
    EXPECT_EQ(CoinListView::listHeight(15, Chart::open), 560);
    EXPECT_EQ(CoinListView::listHeight(19, Chart::closed), 19 * kRow + 4);
    EXPECT_EQ(CoinListView::listHeight(20, Chart::closed), 560);
    EXPECT_EQ(CoinListView::listHeight(1'000'000'000, Chart::open), 560);
}

TEST_F(CoinListViewTest, isAsHighAsItsPartsAtALargerTextSize) {
    using Chart = CoinListView::Chart;
    EXPECT_EQ(CoinListView::listHeight(0, Chart::closed, 1.15), 5);
    EXPECT_EQ(CoinListView::listHeight(4, Chart::closed, 1.15), 4 * 32 + 5);
    EXPECT_EQ(CoinListView::listHeight(4, Chart::open, 1.15), 4 * 32 + 241 + 5);
    EXPECT_EQ(CoinListView::listHeight(4, Chart::open, 1.3), 4 * 36 + 273 + 5);
    EXPECT_EQ(CoinListView::listHeight(19, Chart::closed, 1.15), 19 * 32 + 5);
    // 560 points, enlarged.
    EXPECT_EQ(CoinListView::listHeight(1'000'000'000, Chart::open, 1.15), 644);
    EXPECT_EQ(CoinListView::listHeight(1'000'000'000, Chart::closed, 1.3), 728);
}

TEST_F(CoinListViewTest, fifteenCoinsWithAChartScrollIn560Points) {
    std::vector<std::string> coins;
    for (int each = 10; each < 25; ++each) {
        coins.push_back("C" + std::to_string(each));
    }
    show(coins);
    EXPECT_EQ(rows->height(), 15 * kRow + 4);
    clickArrow("C12");
    EXPECT_EQ(view->listHeight(), 560);
    EXPECT_TRUE(spinUntil([this] { return rows->height() == 560; }));
    EXPECT_EQ(view->height(), 20 + 560);
    rows->scrollTo(10000);
    EXPECT_EQ(rows->scrollOffset(), 15 * kRow + 210 - 560);
}

TEST_F(CoinListViewTest, shrinksWhenTheChartHasClosed) {
    show({"BTC", "ETH"});
    clickArrow("BTC");
    EXPECT_EQ(rows->height(), 2 * kRow + 210 + 4);
    EXPECT_EQ(chart("BTC")->height(), 210);
    QTest::mouseClick(arrow("BTC"), Qt::LeftButton);
    EXPECT_EQ(view->listHeight(), 2 * kRow + 4);
    EXPECT_EQ(rows->height(), 2 * kRow + 210 + 4) << "the rows are still moving";
    EXPECT_TRUE(spinUntil([this] { return rows->height() == 2 * kRow + 4; }));
    EXPECT_EQ(chart("BTC"), nullptr);
}

TEST_F(CoinListViewTest, givenLessHeightTheListShrinksAndScrollsToItsLastRow) {
    std::vector<std::string> coins;
    for (int each = 10; each < 25; ++each) {
        coins.push_back("C" + std::to_string(each));
    }
    show(coins);
    const int wanted = view->sizeHint().height();
    EXPECT_EQ(wanted, 20 + 15 * kRow + 4);
    giveHeight(200);
    ASSERT_TRUE(spinUntil([this] { return view->height() == 200; }));
    EXPECT_EQ(rows->visibleRegion().boundingRect(), rows->rect()) << "none of it is cut off";
    EXPECT_EQ(rows->height(), 180);
    EXPECT_EQ(view->sizeHint().height(), wanted) << "it wants what it wanted";
    row("C10")->setFocus(Qt::TabFocusReason);
    press(Qt::Key_End);
    EXPECT_EQ(row("C24")->visibleRegion().boundingRect(), row("C24")->rect());
    EXPECT_TRUE(row("C24")->hasFocus());
    giveHeight(0);
    EXPECT_TRUE(spinUntil([this] { return rows->height() == kRow; })) << "one row is the least";
    giveHeight(wanted);
    EXPECT_TRUE(spinUntil([this] { return rows->height() == 15 * kRow + 4; }));
    EXPECT_EQ(rows->scrollOffset(), 0);
}

TEST_F(CoinListViewTest, everyColumnStandsUnderItsTitle) {
    show({"BTC"});
    const auto left = [this](const QWidget* widget) { return widget->mapTo(view, QPoint()).x(); };
    EXPECT_EQ(arrow("BTC")->size(), QSize(16, 28));
    EXPECT_EQ(left(arrow("BTC")), 12);
    EXPECT_EQ(left(coinCell("BTC")), 12 + 16 + 6);
    EXPECT_EQ(left(named(*window, QStringLiteral("币种"))), left(coinCell("BTC")));
    EXPECT_EQ(volumeCell("BTC")->width(), 64);
    EXPECT_EQ(priceCell("BTC")->width(), 82);
    EXPECT_EQ(changeCell("BTC")->width(), 62);
    EXPECT_EQ(left(changeCell("BTC")) + 62 + 6 + 14 + 12, 400);
    EXPECT_EQ(left(header("成交额")), left(volumeCell("BTC")));
    EXPECT_EQ(left(header("价格")), left(priceCell("BTC")));
    EXPECT_EQ(left(header("涨跌")), left(changeCell("BTC")));
    EXPECT_EQ(header("价格")->width(), 82);
    EXPECT_EQ(left(coinCell("BTC")) + coinCell("BTC")->width() + 6, left(volumeCell("BTC")));
}

TEST_F(CoinListViewTest, theTintStaysUnderThePointerWhenALineAppearsAboveTheList) {
    show({"BTC", "ETH", "SOL"});
    QCursor::setPos(row("ETH")->mapToGlobal(QPoint(100, 14)));
    ASSERT_TRUE(spinUntil([this] { return row("ETH")->isHovering(); }));
    auto* const line = new QWidget;
    line->setFixedHeight(kRow);
    static_cast<QVBoxLayout*>(window->layout())->insertWidget(0, line);
    const int place = row("ETH")->mapToGlobal(QPoint(0, 0)).y();
    ASSERT_TRUE(spinUntil([this] { return view->y() >= kRow; }));
    EXPECT_EQ(row("ETH")->mapToGlobal(QPoint(0, 0)).y(), place) << "and so does its row";
    EXPECT_TRUE(row("ETH")->isHovering());
    EXPECT_FALSE(row("BTC")->isHovering());
}

// What prices cost

TEST_F(CoinListViewTest, aPriceRepaintsOnlyTheCellsThatChange) {
    show({"BTC", "ETH"});
    tick("BTC", {110, 100, 1e8});
    tick("ETH", {110, 100, 1e8});
    spinUntilIdle();
    const QImage eth = pictureOf(*row("ETH"));
    const QString spoken = row("ETH")->accessibleName();
    tick("BTC", {111, 100, 1e8});
    EXPECT_EQ(priceCell("BTC")->text(), QStringLiteral("111.00"));
    EXPECT_EQ(row("ETH")->accessibleName(), spoken);
    EXPECT_EQ(pictureOf(*row("ETH")), eth);
}

TEST_F(CoinListViewTest, pricesCostNothingWhileTheViewIsHidden) {
    show({"BTC"});
    tick("BTC", {110, 100});
    NumericCell* const cell = priceCell("BTC");
    window->hide();
    tick("BTC", {120, 100});
    EXPECT_EQ(cell->text(), QStringLiteral("110.00"));
    window->show();
    EXPECT_EQ(cell->text(), QStringLiteral("120.00"));
    tick("BTC", {130, 100});
    EXPECT_EQ(cell->text(), QStringLiteral("130.00"));
}

TEST_F(CoinListViewTest, tenThousandCoinsHaveAsManyRowsAsCanBeSeen) {
    std::vector<std::string> coins;
    for (int each = 0; each < 10000; ++each) {
        coins.push_back("C" + std::to_string(each));
    }
    show(coins);
    EXPECT_EQ(rows->height(), 560);
    EXPECT_EQ(rows->widgetCount(), 20 + RowList::kMargin);
    tick("C9999", {5, 1});
    rows->scrollTo(1'000'000);
    EXPECT_EQ(priceCell("C9999")->text(), QStringLiteral("5.00"));
    EXPECT_TRUE(rows->isConsistent()) << rows->brokenRule();
}

TEST_F(CoinListViewTest, aCoinThatIsTwiceOnTheListHasOneRow) {
    show({"BTC", "ETH", "BTC"});
    EXPECT_THAT(order(), ElementsAre("BTC", "ETH"));
    EXPECT_TRUE(rows->isConsistent()) << rows->brokenRule();
}

TEST_F(CoinListViewTest, theViewMayGoWhileItsRowsMove) {
    show({"BTC", "ETH"});
    QTest::mouseClick(arrow("BTC"), Qt::LeftButton);
    ASSERT_TRUE(rows->isMoving());
    window.reset();
    tick("BTC", {110, 100});
    spinUntilIdle();
    EXPECT_EQ(ticker("BTC")->lastPrice, 110);
}

// The keyboard

TEST_F(CoinListViewTest, enterOpensTheChartOfTheRowThatTheArrowsReached) {
    show({"BTC", "ETH", "SOL"});
    row("BTC")->setFocus(Qt::TabFocusReason);
    press(Qt::Key_Down);
    EXPECT_TRUE(row("ETH")->hasFocus());
    press(Qt::Key_Return);
    EXPECT_EQ(expanded.get(), symbolOf("ETH"));
    EXPECT_TRUE(row("ETH")->hasFocus());
    press(Qt::Key_Return);
    EXPECT_EQ(expanded.get(), std::nullopt);
    press(Qt::Key_Up);
    EXPECT_TRUE(row("BTC")->hasFocus());
}

TEST_F(CoinListViewTest, tabGoesFromTheTitlesToTheRows) {
    show({"BTC", "ETH"});
    header("成交额")->setFocus(Qt::TabFocusReason);
    press(Qt::Key_Tab);
    EXPECT_TRUE(header("价格")->hasFocus());
    press(Qt::Key_Space);
    EXPECT_EQ(view->sort(), (WatchlistSort{WatchlistSortColumn::price, false}));
    press(Qt::Key_Tab);
    press(Qt::Key_Tab);
    EXPECT_TRUE(row("BTC")->hasFocus());
    press(Qt::Key_Backtab);
    EXPECT_TRUE(header("涨跌")->hasFocus());
}

TEST_F(CoinListViewTest, removingTheFocusedCoinPassesTheFocusOn) {
    show({"BTC", "ETH", "SOL"});
    row("ETH")->setFocus(Qt::TabFocusReason);
    press(Qt::Key_Menu);
    choose("删除");
    EXPECT_EQ(window->focusWidget(), row("SOL"));
}

// Themes

TEST_F(CoinListViewTest, drawsInBothPalettes) {
    show({"BTC", "ETH"});
    tick("BTC", {110, 100, 1e9});
    const QImage dark = pictureOf(*window);
    ThemeKey::set(*window, Theme{ThemeColors::light()});
    const QImage light = pictureOf(*window);
    EXPECT_EQ(dark.pixelColor(5, 34), ThemeColors::dark().surface);
    EXPECT_EQ(light.pixelColor(5, 34), ThemeColors::light().surface);
    EXPECT_NE(dark, light);
}

}  // namespace
}  // namespace quillbar
