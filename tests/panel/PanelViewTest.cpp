// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/boards/MarketBoardView.h"
#include "Quillbar/panel/ConnectionBanner.h"
#include "Quillbar/panel/ErrorLine.h"
#include "Quillbar/panel/UnderlineTabs.h"
#include "Quillbar/watchlist/AddCoinView.h"
#include "Quillbar/watchlist/CoinListView.h"
#include "tests/panel/PanelFixture.h"
#include "tests/qtsupport/Pointer.h"

#include <QAbstractButton>
#include <QAction>

#include <gmock/gmock.h>

#include <algorithm>
#include <vector>

namespace quillbar {

namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::Not;

using PanelViewTest = PanelFixture;

TEST(PanelTabTest, theWatchlistIsFirstThenEachBoard) {
    std::vector<QString> titles;
    for (const PanelTab tab : PanelTab::allCases()) {
        titles.push_back(tab.title());
    }
    EXPECT_THAT(titles,
                ElementsAre(QStringLiteral("自选"),
                            QStringLiteral("涨幅"),
                            QStringLiteral("跌幅"),
                            QStringLiteral("成交额"),
                            QStringLiteral("市值")));
}

TEST(PanelTabTest, standsForAnOptionalBoard) {
    EXPECT_EQ(PanelTab::watchlist().board(), std::nullopt);
    EXPECT_EQ(PanelTab::board(RankingBoard::losers).board(), RankingBoard::losers);
    EXPECT_EQ(PanelTab(std::nullopt), PanelTab::watchlist());
    EXPECT_NE(PanelTab(RankingBoard::volume), PanelTab::watchlist());
}

TEST_F(PanelViewTest, isFourHundredPointsWideAndAsHighAsItsContent) {
    startConnected(listOf({"BTC", "ETH"}));
    const int two = show().sizeHint().height();
    EXPECT_EQ(panel->width(), 400);
    run(state->add(coinOf("SOL")));
    spinUntilIdle();
    EXPECT_EQ(panel->sizeHint().height(), two + 28);
}

TEST_F(PanelViewTest, itsContentStaysInItsPlaceWhileTheWindowIsHigher) {
    startConnected(listOf({"BTC", "ETH"}));
    show();
    panel->resize(panel->sizeHint());
    spinUntilIdle();
    const auto places = [this] {
        const auto placeIn = [this](const QWidget& widget) {
            return QRect(widget.mapTo(panel.get(), QPoint()), widget.size());
        };
        return std::vector<QRect>{placeIn(*widgetsOf<UnderlineTabs>(*panel).front()),
                                  placeIn(*widgetsOf<CoinListView>(*panel).front())};
    };
    const std::vector<QRect> before = places();
    panel->resize(panel->width(), panel->height() + 100);
    spinUntilIdle();
    EXPECT_EQ(places(), before);
}

TEST_F(PanelViewTest, aFirstStartOpensTheWatchlistInTheDark) {
    start();
    show();
    EXPECT_EQ(panel->tab(), PanelTab::watchlist());
    EXPECT_EQ(colors(), ThemeColors::dark());
}

TEST_F(PanelViewTest, aLongErrorTakesNoMoreRoomThanItsLines) {
    startConnected(listOf({"BTC"}));
    show();
    const auto gap = [this] {
        const auto* const error = widgetsOf<ErrorLine>(*panel).at(0);
        return error->height() - error->heightForWidth(400);
    };
    files.breakAll();
    state->setAppearance(AppearanceMode::light);
    spinUntilIdle();
    panel->resize(panel->sizeHint());
    spinUntilIdle();
    EXPECT_EQ(gap(), 0);
}

TEST_F(PanelViewTest, offersTheWatchlistAndEveryBoard) {
    startConnected(listOf({"BTC"}));
    show();
    for (const PanelTab tab : PanelTab::allCases()) {
        click(tab.title());
        EXPECT_EQ(panel->tab(), tab);
        EXPECT_EQ(shown<CoinListView>() != nullptr, !tab.board());
        EXPECT_EQ(shown<MarketBoardView>() != nullptr, tab.board().has_value());
        if (tab.board()) {
            EXPECT_EQ(shown<MarketBoardView>()->board(), *tab.board());
        }
    }
}

TEST_F(PanelViewTest, isAsHighAsTheContentThatIsShown) {
    startConnected(listOf({"BTC", "ETH"}));
    theExchangeHas({"BTC", "ETH"});
    show();
    const int list = panel->sizeHint().height();
    click(QStringLiteral("涨幅"));
    ASSERT_TRUE(spinUntil([this] { return shown<RowList>() != nullptr; }));
    EXPECT_EQ(panel->sizeHint().height(), list - (2 * 28 + 4) + MarketBoardView::kBoardHeight);
    click(QStringLiteral("自选"));
    EXPECT_EQ(panel->sizeHint().height(), list);
}

TEST_F(PanelViewTest, remembersTheTab) {
    start();
    show();
    click(QStringLiteral("市值"));
    EXPECT_EQ(state->settings()->lastBoard, RankingBoard::marketCap);
    show();
    EXPECT_EQ(panel->tab(), PanelTab::board(RankingBoard::marketCap));
    EXPECT_NE(shown<MarketBoardView>(), nullptr);
    EXPECT_EQ(shown<CoinListView>(), nullptr);
    click(QStringLiteral("自选"));
    EXPECT_EQ(state->settings()->lastBoard, std::nullopt);
    show();
    EXPECT_EQ(panel->tab(), PanelTab::watchlist());
}

TEST_F(PanelViewTest, changesTheTabWithoutWaitingForTheDisk) {
    start();
    show();
    files.calls.clear();
    for (const PanelTab tab : PanelTab::allCases()) {
        click(tab.title());
    }
    EXPECT_EQ(storedSettings().lastBoard, RankingBoard::marketCap);
    EXPECT_THAT(files.calls, Contains("write"));
    EXPECT_THAT(files.calls, Not(Contains("fsync")));
}

TEST_F(PanelViewTest, pollsTheMarketOnlyWhileABoardIsOnScreen) {
    start();
    show();
    EXPECT_FALSE(market().isPolling());
    click(QStringLiteral("市值"));
    EXPECT_TRUE(market().isPolling());
    EXPECT_TRUE(marketCaps().isPolling());
    panel->hide();
    EXPECT_FALSE(market().isPolling());
    EXPECT_FALSE(marketCaps().isPolling());
    panel->show();
    spinUntilIdle();
    EXPECT_TRUE(market().isPolling());
    click(QStringLiteral("自选"));
    EXPECT_FALSE(market().isPolling());
}

TEST_F(PanelViewTest, keepsTheOpenChartOfTheWatchlistOverAnotherTab) {
    startConnected(listOf({"BTC", "ETH"}));
    show();
    widgetsOf<CoinListView>(*panel).at(0)->toggle("ETHUSDT");
    click(QStringLiteral("涨幅"));
    click(QStringLiteral("自选"));
    EXPECT_EQ(*panel->expandedSymbol(), "ETHUSDT");
}

TEST_F(PanelViewTest, thePlusOpensTheSearch) {
    start();
    show();
    click(QStringLiteral("添加币种"));
    ASSERT_EQ(widgetsOf<AddCoinView>(*panel).size(), 1U);
    EXPECT_EQ(ThemeKey::value(*widgetsOf<AddCoinView>(*panel).at(0)).colors, ThemeColors::dark());
    panel->hide();
    spinUntilIdle();
    EXPECT_TRUE(widgetsOf<AddCoinView>(*panel).empty());
}

TEST_F(PanelViewTest, followsTheUsersAppearance) {
    start();
    show();
    state->setAppearance(AppearanceMode::light);
    EXPECT_EQ(colors(), ThemeColors::light());
    state->setAppearance(AppearanceMode::dark);
    EXPECT_EQ(colors(), ThemeColors::dark());
    systemScheme.set(ColorScheme::dark);
    state->setAppearance(AppearanceMode::light);
    EXPECT_EQ(colors(), ThemeColors::light());
}

TEST_F(PanelViewTest, followsTheDesktopWhenTheUserSaysSo) {
    theUserHas(AppSettings::defaultSettings().settingAppearance(AppearanceMode::system));
    start();
    show();
    EXPECT_EQ(colors(), ThemeColors::light());
    systemScheme.set(ColorScheme::dark);
    EXPECT_EQ(colors(), ThemeColors::dark());
}

TEST_F(PanelViewTest, givesWayToASmallScreen) {
    startConnected(listOf({"BTC", "ETH", "SOL", "BNB", "XRP", "ADA", "DOT", "LTC"}));
    show();
    panel->resize(400, panel->sizeHint().height() - 100);
    spinUntilIdle();
    // The list of rows itself: what it lies in is cut in any case.
    const auto* const rows = widgetsOf<RowList>(*panel).at(0);
    EXPECT_LE(rows->mapTo(panel.get(), QPoint(0, rows->height())).y(), panel->height());
}

TEST_F(PanelViewTest, aClickedTabHasTheFocusThatWasInWhatItHides) {
    startConnected(listOf({"BTC", "ETH"}));
    show();
    QWidget* inside = nullptr;
    for (QWidget* const each : shown<CoinListView>()->findChildren<QWidget*>()) {
        if (each->isVisible() && each->focusPolicy() != Qt::NoFocus) {
            inside = each;
        }
    }
    ASSERT_NE(inside, nullptr);
    inside->setFocus(Qt::MouseFocusReason);
    click(QStringLiteral("涨幅"));
    ASSERT_NE(panel->focusWidget(), nullptr);
    EXPECT_EQ(panel->focusWidget()->accessibleName(), QStringLiteral("涨幅"));
}

TEST_F(PanelViewTest, theLastCoinRemovedWithTheMousePassesTheFocusOnUnseen) {
    showOneCoin();
    const QPoint middle = onlyRow().rect().center();
    pointer::press(onlyRow(), middle, Qt::RightButton);
    pointer::release(onlyRow(), middle, Qt::RightButton);
    ASSERT_NE(menu(), nullptr);
    QAction* const removal = menu()->actions().back();
    ASSERT_EQ(removal->text(), QStringLiteral("删除"));
    QTest::mouseClick(menu(), Qt::LeftButton, {}, menu()->actionGeometry(removal).center());
    letEditRun();
    ASSERT_TRUE(state->watchlist()->coins.empty());
    EXPECT_EQ(focused(), QStringLiteral("添加币种"));
    EXPECT_FALSE(hasRing(QStringLiteral("添加币种")));
    QTest::keyClick(panel->focusWidget(), Qt::Key_Tab);
    EXPECT_TRUE(hasRing(QStringLiteral("设置"))) << "with the keyboard it is to be seen again";
}

TEST_F(PanelViewTest, theLastCoinRemovedWithTheKeyboardPassesTheFocusOnInSight) {
    showOneCoin();
    onlyRow().setFocus(Qt::TabFocusReason);
    QTest::keyClick(&onlyRow(), Qt::Key_Menu);
    ASSERT_NE(menu(), nullptr);
    QTest::keyClick(menu(), Qt::Key_Up);
    QTest::keyClick(menu(), Qt::Key_Return);
    letEditRun();
    ASSERT_TRUE(state->watchlist()->coins.empty());
    EXPECT_EQ(focused(), QStringLiteral("添加币种"));
    EXPECT_TRUE(hasRing(QStringLiteral("添加币种")));
}

// How to get a price into the item

const QString kPinHint = QStringLiteral("右键任一币种，固定到菜单栏");

TEST_F(PanelViewTest, aListWithNothingPinnedSaysHowToPinACoin) {
    theExchangeHas({"BTC"});
    Watchlist list = listOf({"BTC", "ETH"});
    list.pinnedSymbol.reset();
    startConnected(list);
    show();
    const QWidget* const hint = named(*panel, kPinHint);
    ASSERT_NE(hint, nullptr);
    EXPECT_GT(hint->y(), shown<CoinListView>()->geometry().bottom()) << "no row moves for it";
    click(QStringLiteral("涨幅"));
    EXPECT_EQ(named(*panel, kPinHint), nullptr) << "no coin is pinned from there";
    click(QStringLiteral("自选"));
    EXPECT_NE(named(*panel, kPinHint), nullptr);
    state->pin("ETHUSDT");
    EXPECT_EQ(named(*panel, kPinHint), nullptr);
}

TEST_F(PanelViewTest, aPinOfACoinThatIsNotOnTheListIsNone) {
    Watchlist list = listOf({"BTC"});
    list.pinnedSymbol = "GONEUSDT";
    startConnected(list);
    show();
    EXPECT_NE(named(*panel, kPinHint), nullptr);
}

TEST_F(PanelViewTest, anEmptyListHasNoRowToPinAndSaysSoAlone) {
    startConnected(Watchlist{});
    show();
    EXPECT_NE(named(*panel, QStringLiteral("自选列表是空的,点 + 添加币种")), nullptr);
    EXPECT_EQ(named(*panel, kPinHint), nullptr);
}

struct PanelAdditionTest : PanelFixture {
    /// Adds a coin by the keyboard alone.
    void add(const QString& baseAsset) {
        QWidget& plus = *named(*panel, QStringLiteral("添加币种"));
        plus.setFocus(Qt::TabFocusReason);
        QTest::keyClick(&plus, Qt::Key_Return);
        spinUntilIdle();
        QTest::keyClicks(QApplication::focusWidget(), baseAsset);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        executor.run();
        spinUntilIdle();
        letEditRun();
    }
};

TEST_F(PanelAdditionTest, theFirstCoinHasItsMenuOneKeyAway) {
    theExchangeHas({"BTC"});
    startConnected(Watchlist{});
    showActive(show());
    add(QStringLiteral("BTC"));
    ASSERT_EQ(state->watchlist()->coins.size(), 1U);
    EXPECT_EQ(panel->focusWidget(), &onlyRow());
    QTest::keyClick(&onlyRow(), Qt::Key_Menu);
    ASSERT_NE(menu(), nullptr);
    const QList<QAction*> entries = menu()->actions();
    EXPECT_TRUE(std::any_of(entries.begin(), entries.end(), [](const QAction* entry) {
        return entry->text() == QStringLiteral("固定到菜单栏");
    }));
    menu()->close();
}

TEST_F(PanelAdditionTest, theCoinThatWasAddedHasItsMenuOneKeyAwayWhereverItsRowIs) {
    theExchangeHas({"BTC", "ETH", "SOL"});
    Watchlist list = listOf({"BTC", "ETH"});
    list.pinnedSymbol.reset();
    startConnected(list);
    showActive(show());
    shown<RowList>()->row(symbolOf("BTC"))->setFocus(Qt::TabFocusReason);
    add(QStringLiteral("SOL"));
    ASSERT_EQ(state->watchlist()->coins.size(), 3U);
    EXPECT_EQ(panel->focusWidget(), shown<RowList>()->row(symbolOf("SOL")));
    QTest::keyClick(panel->focusWidget(), Qt::Key_Menu);
    ASSERT_NE(menu(), nullptr);
    for (QAction* const entry : menu()->actions()) {
        if (entry->text() == QStringLiteral("固定到菜单栏")) {
            entry->trigger();
        }
    }
    menu()->close();
    EXPECT_EQ(state->watchlist()->pinnedSymbol, symbolOf("SOL"));
}

TEST_F(PanelAdditionTest, inAListThatShowsAPriceTheFocusStaysWhereItIs) {
    theExchangeHas({"BTC", "ETH"});
    startConnected(listOf({"BTC"}));
    showActive(show());
    add(QStringLiteral("ETH"));
    ASSERT_EQ(state->watchlist()->coins.size(), 2U);
    EXPECT_EQ(focused(), QStringLiteral("添加币种"));
}

}  // namespace

}  // namespace quillbar
