// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/watchlist/CoinListFixture.h"

#include <QAccessible>
#include <QAccessibleInterface>
#include <QHelpEvent>
#include <QToolTip>

#include <gmock/gmock.h>

namespace quillbar {
namespace {

using ::testing::ElementsAre;
using Roles = ThemeColors::Resolved;

constexpr int kRow = 28;

struct CoinListViewTest : CoinListFixture {
    /// Thirty coins, C10 to C39, of which the last has risen most.
    void showMany() {
        std::vector<std::string> coins;
        for (int each = 10; each < 40; ++each) {
            coins.push_back("C" + std::to_string(each));
        }
        show(coins);
        tick("C39", {200, 100});
        ASSERT_EQ(rows->height(), 560);
    }
    void showManySorted() {
        showMany();
        click("涨跌");
    }
    /// BTC, ETH and SOL, whose changes are +1, +3 and +2 percent.
    void showThreeByChange() {
        show({"BTC", "ETH", "SOL"});
        tick("BTC", {101, 100, 3e8});
        tick("ETH", {103, 100, 1e8});
        tick("SOL", {102, 100, 2e8});
        click("涨跌");
        ASSERT_THAT(order(), ElementsAre("ETH", "SOL", "BTC"));
    }
    [[nodiscard]] bool comesTo(const std::vector<std::string>& expected) {
        return spinUntil([&] { return order() == expected; });
    }
};

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

// Cells

TEST_F(CoinListViewTest, aRowShowsItsCoinAsTheFormattersSay) {
    show({"BTC", "ETH"});
    tick("BTC", {67234.5, 66417.56, 1.5e9});
    EXPECT_EQ(priceCell("BTC")->text(), QStringLiteral("67,234.50"));
    EXPECT_EQ(volumeCell("BTC")->text(), QStringLiteral("15.00亿"));
    EXPECT_EQ(changeCell("BTC")->text(), QStringLiteral("+1.23%"));
    EXPECT_EQ(changeCell("BTC")->color(), &Roles::up);
    EXPECT_EQ(priceCell("BTC")->color(), &Roles::primaryText);
    EXPECT_EQ(volumeCell("BTC")->color(), &Roles::secondaryText);
}

TEST_F(CoinListViewTest, aCoinWithoutATickerShowsDashes) {
    show({"BTC"});
    EXPECT_EQ(priceCell("BTC")->text(), QStringLiteral("—"));
    EXPECT_EQ(changeCell("BTC")->text(), QStringLiteral("—"));
    EXPECT_EQ(volumeCell("BTC")->text(), QStringLiteral("—"));
    EXPECT_EQ(row("BTC")->accessibleName(), QStringLiteral("BTC, 价格 —, 涨跌 —, 成交额 —"));
}

TEST_F(CoinListViewTest, aTickerWithoutAVolumeShowsADash) {
    show({"BTC"});
    tick("BTC", {110, 100});
    EXPECT_EQ(volumeCell("BTC")->text(), QStringLiteral("—"));
    EXPECT_EQ(priceCell("BTC")->text(), QStringLiteral("110.00"));
}

TEST_F(CoinListViewTest, readsAloudAsASentence) {
    show({"BTC"});
    tick("BTC", {67234.5, 66417.56, 1.5e9});
    EXPECT_EQ(row("BTC")->accessibleName(),
              QStringLiteral("BTC, 价格 67,234.50, 涨跌 +1.23%, 成交额 15.00亿"));
    EXPECT_EQ(arrow("BTC")->accessibleName(), QStringLiteral("展开 BTC 走势"));
    clickArrow("BTC");
    EXPECT_EQ(arrow("BTC")->accessibleName(), QStringLiteral("收起 BTC 走势"));
    EXPECT_EQ(rows->accessibleName(), QStringLiteral("自选列表"));
}

TEST_F(CoinListViewTest, aBaseAssetIsOneLineWhateverItHolds) {
    const std::string hostile = "A\nB\u202eC";
    show({"BTC", "A BC", hostile});
    EXPECT_EQ(row(hostile)->accessibleName(), QStringLiteral("A BC, 价格 —, 涨跌 —, 成交额 —"));
    EXPECT_EQ(arrow(hostile)->accessibleName(), QStringLiteral("展开 A BC 走势"));
    const auto written = [this](const std::string& baseAsset) {
        CoinCell* const cell = coinCell(baseAsset);
        return pictureOf(*cell).copy(cell->rect().adjusted(CoinCell::kIconSize, 0, 0, 0));
    };
    EXPECT_EQ(written(hostile), written("A BC"));
}

TEST_F(CoinListViewTest, isAListOfItemsToAScreenReader) {
    show({"BTC"});
    EXPECT_EQ(QAccessible::queryAccessibleInterface(rows)->role(), QAccessible::List);
    QAccessibleInterface* const item = QAccessible::queryAccessibleInterface(row("BTC"));
    EXPECT_EQ(item->role(), QAccessible::ListItem);
    EXPECT_EQ(item->text(QAccessible::Name), row("BTC")->accessibleName());
    EXPECT_EQ(QAccessible::queryAccessibleInterface(arrow("BTC"))->role(), QAccessible::Button);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(header("价格"))->role(), QAccessible::Button);
}

TEST_F(CoinListViewTest, thePinnedCoinAloneCarriesThePin) {
    show({"BTC", "ETH"});
    EXPECT_EQ(coinCell("BTC")->pinMark(), PinMark::pinned);
    EXPECT_EQ(coinCell("ETH")->pinMark(), PinMark::none);
    state->pin(symbolOf("ETH"));
    EXPECT_EQ(coinCell("BTC")->pinMark(), PinMark::none);
    EXPECT_EQ(coinCell("ETH")->pinMark(), PinMark::pinned);
}

TEST_F(CoinListViewTest, everySecondRowIsTinted) {
    show({"A", "B", "C"});
    EXPECT_FALSE(row("A")->isAlternate());
    EXPECT_TRUE(row("B")->isAlternate());
    EXPECT_FALSE(row("C")->isAlternate());
    run(state->remove(symbolOf("A")));
    EXPECT_FALSE(row("B")->isAlternate());
}

TEST_F(CoinListViewTest, theChangeFollowsTheBasis) {
    theOpenIs(50);
    show({"BTC"});
    tick("BTC", {110, 100});
    EXPECT_EQ(changeCell("BTC")->text(), QStringLiteral("+10.00%"));
    state->setChangeBasis(ChangeBasis::today);
    EXPECT_EQ(changeCell("BTC")->text(), QStringLiteral("—"));
    executor.run();
    EXPECT_EQ(changeCell("BTC")->text(), QStringLiteral("+120.00%"));
}

// Stale prices

TEST_F(CoinListViewTest, pricesOfALostConnectionAreDimmed) {
    show({"BTC"});
    tick("BTC", {110, 100});
    tell(ConnectionState::waitingRetry);
    EXPECT_EQ(priceCell("BTC")->color(), &Roles::secondaryText);
    tell(ConnectionState::connected);
    EXPECT_EQ(priceCell("BTC")->color(), &Roles::primaryText);
}

TEST_F(CoinListViewTest, pricesThatGrowOldWithoutAnEventAreDimmed) {
    show({"BTC"});
    tick("BTC", {110, 100});
    auto* const timer = view->findChild<QTimer*>(QStringLiteral("staleness"));
    ASSERT_NE(timer, nullptr);
    EXPECT_TRUE(timer->isActive());
    EXPECT_EQ(timer->interval(), 5000);
    const auto theTimerFires = [timer] { QMetaObject::invokeMethod(timer, "timeout"); };
    time.setClock(time.now() + Seconds{60});
    theTimerFires();
    EXPECT_EQ(priceCell("BTC")->color(), &Roles::primaryText);
    time.setClock(time.now() + Seconds{1});
    theTimerFires();
    EXPECT_EQ(priceCell("BTC")->color(), &Roles::secondaryText);
    tick("BTC", {110, 100});
    EXPECT_EQ(priceCell("BTC")->color(), &Roles::primaryText);
    window->hide();
    EXPECT_FALSE(timer->isActive());
}

TEST_F(CoinListViewTest, aRowTellsTheAgeOfItsOwnPriceThoughOthersAreLive) {
    show({"BTC", "ETH", "SOL"});
    const auto hint = [this](const std::string& baseAsset) {
        QWidget& widget = *row(baseAsset);
        QHelpEvent event(QEvent::ToolTip, QPoint(100, 14), widget.mapToGlobal(QPoint(100, 14)));
        QApplication::sendEvent(&widget, &event);
        return widget.toolTip();
    };
    tick("BTC", {110, 100});
    tick("ETH", {110, 100});
    time.advance(Seconds{59});
    EXPECT_EQ(hint("BTC"), QString());
    time.advance(Seconds{11.0 * 60 + 1});
    tick("ETH", {111, 100});
    EXPECT_TRUE(hint("BTC").startsWith(QStringLiteral("12 分钟前更新 (")))
        << hint("BTC").toStdString();
    EXPECT_EQ(hint("ETH"), QString());
    EXPECT_EQ(hint("SOL"), QStringLiteral("尚无数据"));
    tick("BTC", {111, 100});
    EXPECT_EQ(hint("BTC"), QString());
    QToolTip::hideText();
}

// Sorting

TEST_F(CoinListViewTest, aClickOnATitleSortsDescendingThenAscendingThenNot) {
    showThreeByChange();
    EXPECT_EQ(view->sort(), (WatchlistSort{WatchlistSortColumn::change, false}));
    EXPECT_EQ(header("涨跌")->direction(), SortDirection::descending);
    EXPECT_EQ(header("涨跌")->accessibleName(), QStringLiteral("涨跌,降序"));
    click("涨跌");
    EXPECT_THAT(order(), ElementsAre("BTC", "SOL", "ETH"));
    EXPECT_EQ(header("涨跌")->direction(), SortDirection::ascending);
    click("涨跌");
    EXPECT_THAT(order(), ElementsAre("BTC", "ETH", "SOL"));
    EXPECT_EQ(view->sort(), std::nullopt);
    EXPECT_EQ(header("涨跌")->direction(), std::nullopt);
}

TEST_F(CoinListViewTest, anotherTitleBeginsDescendingAndTakesTheArrow) {
    showThreeByChange();
    click("成交额");
    EXPECT_THAT(order(), ElementsAre("BTC", "SOL", "ETH"));
    EXPECT_EQ(header("涨跌")->direction(), std::nullopt);
    EXPECT_EQ(header("成交额")->direction(), SortDirection::descending);
    click("价格");
    EXPECT_THAT(order(), ElementsAre("ETH", "SOL", "BTC"));
    EXPECT_EQ(header("价格")->toolTip(), QStringLiteral("点击排序:降序 → 升序 → 手动顺序"));
}

TEST_F(CoinListViewTest, aSortedListFollowsThePricesAMomentLaterAndOnceForAll) {
    showThreeByChange();
    tick("BTC", {150, 100});
    EXPECT_EQ(changeCell("BTC")->text(), QStringLiteral("+50.00%")) << "the cell is at once";
    EXPECT_THAT(order(), ElementsAre("ETH", "SOL", "BTC")) << "the order is not";
    tick("SOL", {140, 100});
    EXPECT_TRUE(comesTo({"BTC", "SOL", "ETH"}));
    EXPECT_TRUE(rows->isConsistent()) << rows->brokenRule();
}

TEST_F(CoinListViewTest, thousandsOfPricesAreOneNewOrder) {
    showThreeByChange();
    auto* const timer = view->findChild<QTimer*>(QStringLiteral("reorder"));
    ASSERT_NE(timer, nullptr);
    int orders = 0;
    QObject::connect(timer, &QTimer::timeout, view, [&orders] { ++orders; });
    for (int each = 0; each < 2000; ++each) {
        tick("BTC", {104 + each / 1000.0, 100});
    }
    EXPECT_THAT(order(), ElementsAre("ETH", "SOL", "BTC"));
    EXPECT_TRUE(comesTo({"BTC", "ETH", "SOL"}));
    EXPECT_EQ(orders, 1);
    EXPECT_FALSE(timer->isActive()) << "nothing is left to do";
}

TEST_F(CoinListViewTest, aSortedListFollowsTodaysOpensAndTheBasis) {
    theOpenIs(50);
    showThreeByChange();
    state->setChangeBasis(ChangeBasis::today);
    EXPECT_TRUE(comesTo({"BTC", "ETH", "SOL"})) << "without opens they come by symbol";
    executor.run();
    EXPECT_TRUE(comesTo({"ETH", "SOL", "BTC"}));
}

TEST_F(CoinListViewTest, pricesDoNotReorderTheManualOrder) {
    show({"BTC", "ETH"});
    tick("ETH", {500, 100});
    spinUntilIdle();
    EXPECT_THAT(order(), ElementsAre("BTC", "ETH"));
}

TEST_F(CoinListViewTest, hidingEndsTheSort) {
    showThreeByChange();
    window->hide();
    EXPECT_EQ(view->sort(), std::nullopt);
    window->show();
    EXPECT_THAT(order(), ElementsAre("BTC", "ETH", "SOL"));
    EXPECT_EQ(header("涨跌")->direction(), std::nullopt);
}

TEST_F(CoinListViewTest, hidingASortedListLeadsItBackToItsBeginning) {
    showManySorted();
    rows->scrollTo(10000);
    ASSERT_GT(rows->scrollOffset(), 0);
    window->hide();
    window->show();
    EXPECT_EQ(rows->scrollOffset(), 0);
}

TEST_F(CoinListViewTest, hidingASortedListLeadsItBackToItsChart) {
    showManySorted();
    ASSERT_EQ(order().front(), "C39");
    clickArrow("C39");
    ASSERT_EQ(rows->scrollOffset(), 0);
    window->hide();
    window->show();
    ASSERT_TRUE(spinUntil([this] { return row("C39") != nullptr && row("C39")->isVisible(); }));
    EXPECT_EQ(chart("C39")->visibleRegion().boundingRect(), chart("C39")->rect());
    EXPECT_EQ(rows->scrollOffset(), 30 * kRow + 210 - 560);
}

TEST_F(CoinListViewTest, leavingASortedListWhileItsChartOpensLeadsItBackToAllOfIt) {
    showManySorted();
    QTest::mouseClick(arrow("C39"), Qt::LeftButton);
    ASSERT_TRUE(rows->isMoving());
    view->hide();
    view->show();
    ASSERT_TRUE(spinUntil([this] { return chart("C39") != nullptr && chart("C39")->isVisible(); }));
    EXPECT_EQ(chart("C39")->visibleRegion().boundingRect(), QRect(0, 0, 400, 210));
}

TEST_F(CoinListViewTest, hidingAListInItsOwnOrderLeavesItWhereItIs) {
    showMany();
    rows->scrollTo(30);
    window->hide();
    window->show();
    EXPECT_EQ(rows->scrollOffset(), 30);
}

// Charts

TEST_F(CoinListViewTest, theArrowOpensTheChartUnderItsRowAndClosesIt) {
    show({"BTC", "ETH"});
    clickArrow("BTC");
    EXPECT_EQ(expanded.get(), symbolOf("BTC"));
    EXPECT_EQ(arrow("BTC")->glyph(), Glyph::chevronDown);
    EXPECT_EQ(arrow("ETH")->glyph(), Glyph::chevronRight);
    ASSERT_NE(chart("BTC"), nullptr);
    EXPECT_EQ(chart("BTC")->mapTo(rows, QPoint()).y(), kRow);
    EXPECT_EQ(row("ETH")->y(), kRow + 210);
    clickArrow("BTC");
    EXPECT_EQ(expanded.get(), std::nullopt);
    EXPECT_EQ(arrow("BTC")->glyph(), Glyph::chevronRight);
    EXPECT_EQ(row("ETH")->y(), kRow);
}

TEST_F(CoinListViewTest, theWholeArrowButtonIsClickable) {
    show({"BTC"});
    QTest::mouseClick(arrow("BTC"), Qt::LeftButton, {}, QPoint(0, 27));
    EXPECT_EQ(expanded.get(), symbolOf("BTC"));
}

TEST_F(CoinListViewTest, oneChartAtATimeIsOpen) {
    show({"BTC", "ETH"});
    clickArrow("BTC");
    clickArrow("ETH");
    EXPECT_EQ(expanded.get(), symbolOf("ETH"));
    EXPECT_EQ(chart("BTC"), nullptr);
    EXPECT_NE(chart("ETH"), nullptr);
    EXPECT_EQ(rows->height(), 2 * kRow + 210 + 4);
}

TEST_F(CoinListViewTest, pricesDoNotReorderASortedListWhileAChartIsOpen) {
    showThreeByChange();
    clickArrow("SOL");
    tick("BTC", {150, 100});
    spinUntilIdle();
    EXPECT_THAT(order(), ElementsAre("ETH", "SOL", "BTC"));
    EXPECT_EQ(changeCell("BTC")->text(), QStringLiteral("+50.00%"));
    clickArrow("SOL");
    EXPECT_TRUE(comesTo({"BTC", "ETH", "SOL"}));
}

TEST_F(CoinListViewTest, anotherChartKeepsTheOrderThatWasFrozen) {
    showThreeByChange();
    clickArrow("SOL");
    tick("BTC", {150, 100});
    clickArrow("BTC");
    EXPECT_THAT(order(), ElementsAre("ETH", "SOL", "BTC"));
}

TEST_F(CoinListViewTest, aCoinThatComesWhileTheOrderIsFrozenComesLast) {
    showThreeByChange();
    clickArrow("SOL");
    theSnapshotIs({{symbolOf("XRP"), Ticker{900, 100}}});
    run(state->add(coinOf("XRP")));
    EXPECT_THAT(order(), ElementsAre("ETH", "SOL", "BTC", "XRP"));
    clickArrow("SOL");
    EXPECT_TRUE(comesTo({"XRP", "ETH", "SOL", "BTC"}));
}

TEST_F(CoinListViewTest, aTitleClickedWhileAChartIsOpenSortsWhenItCloses) {
    show({"BTC", "ETH"});
    tick("BTC", {101, 100});
    tick("ETH", {103, 100});
    clickArrow("BTC");
    click("涨跌");
    EXPECT_EQ(header("涨跌")->direction(), SortDirection::descending);
    EXPECT_THAT(order(), ElementsAre("BTC", "ETH"));
    clickArrow("BTC");
    EXPECT_TRUE(comesTo({"ETH", "BTC"}));
}

TEST_F(CoinListViewTest, aChartThatStaysOpenHoldsTheRowsWhenTheyAreShownAgain) {
    showThreeByChange();
    clickArrow("SOL");
    window->hide();
    window->show();
    click("涨跌");
    tick("BTC", {150, 100});
    state->pin(symbolOf("ETH"));
    EXPECT_THAT(order(), ElementsAre("BTC", "ETH", "SOL"));
    clickArrow("SOL");
    EXPECT_TRUE(comesTo({"BTC", "ETH", "SOL"}));
    tick("SOL", {190, 100});
    EXPECT_TRUE(comesTo({"SOL", "BTC", "ETH"}));
}

TEST_F(CoinListViewTest, thePanelMayOpenAndCloseTheChart) {
    show({"BTC", "ETH"});
    expanded.set(symbolOf("ETH"));
    EXPECT_TRUE(spinUntil([this] { return chart("ETH") != nullptr && !rows->isMoving(); }));
    expanded.set(std::nullopt);
    EXPECT_TRUE(spinUntil([this] { return chart("ETH") == nullptr; }));
}

TEST_F(CoinListViewTest, aChartThatWasOpenIsThereAtOnceWhenTheViewIsMadeAgain) {
    startConnected(listOf({"BTC", "ETH"}));
    expanded.set(symbolOf("BTC"));
    make();
    showActive(*window);
    EXPECT_FALSE(rows->isMoving());
    ASSERT_NE(chart("BTC"), nullptr);
    EXPECT_EQ(row("ETH")->y(), kRow + 210);
    EXPECT_EQ(rows->height(), 2 * kRow + 210 + 4);
}

TEST_F(CoinListViewTest, removingTheCoinWhoseChartIsOpenClosesIt) {
    showThreeByChange();
    clickArrow("SOL");
    openMenu("SOL");
    choose("删除");
    EXPECT_EQ(expanded.get(), std::nullopt);
    EXPECT_EQ(chart("SOL"), nullptr);
    EXPECT_THAT(order(), ElementsAre("ETH", "BTC"));
    EXPECT_TRUE(spinUntil([this] { return rows->height() == 2 * kRow + 4; }));
    EXPECT_TRUE(rows->isConsistent()) << rows->brokenRule();
}

TEST_F(CoinListViewTest, removingAnotherCoinLeavesTheChartOpen) {
    show({"BTC", "ETH", "SOL"});
    clickArrow("SOL");
    run(state->remove(symbolOf("BTC")));
    EXPECT_EQ(expanded.get(), symbolOf("SOL"));
    EXPECT_NE(chart("SOL"), nullptr);
    EXPECT_EQ(chartsMade, 1);
}

TEST_F(CoinListViewTest, aCoinRemovedWhileTheViewIsHiddenTakesItsChartAlong) {
    show({"BTC", "ETH"});
    clickArrow("BTC");
    window->hide();
    run(state->remove(symbolOf("BTC")));
    EXPECT_EQ(expanded.get(), std::nullopt);
    window->show();
    EXPECT_THAT(order(), ElementsAre("ETH"));
    EXPECT_EQ(rows->height(), kRow + 4);
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
