// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/desktop/DesktopFixture.h"

#include <gmock/gmock.h>

namespace quillbar {

namespace {

using ::testing::ElementsAre;

const QString kWatchlist = QStringLiteral("watchlist.json");

using DesktopTest = DesktopFixture;

TEST_F(DesktopTest, theItemTellsThePriceOfThePinnedCoin) {
    startApplication();
    const QString text = label().value(QStringLiteral("text")).toString();
    EXPECT_TRUE(text.startsWith(QStringLiteral("BTC "))) << text.toStdString();
    EXPECT_TRUE(
        item(QStringLiteral("XAyatanaLabel")).toString().startsWith(QStringLiteral("BTC ")));
    EXPECT_EQ(item(QStringLiteral("Title")).toString(), QStringLiteral("Quillbar"));
    EXPECT_TRUE(tooltip().contains(QStringLiteral("已连接"))) << tooltip().toStdString();
}

TEST_F(DesktopTest, aClickOpensThePanelBesideTheItemWithTheFocusAndNoTaskbarEntry) {
    startApplication();
    openPanel();
    const auto window = panel();
    ASSERT_TRUE(window);
    const QRect& area = window->geometry;
    EXPECT_TRUE(screen().workArea().contains(area));
    EXPECT_EQ(area.top(), screen().workArea().top()) << "no strip of another window between";
    EXPECT_LE(area.left(), itemCentre().x());
    EXPECT_GE(area.right(), itemCentre().x());
    EXPECT_EQ(screen().activeWindow(), window->id);
    EXPECT_TRUE(screen().hasState(window->id, "_NET_WM_STATE_SKIP_TASKBAR"));
    EXPECT_TRUE(screen().hasState(window->id, "_NET_WM_STATE_SKIP_PAGER"));
    EXPECT_TRUE(screen().hasState(window->id, "_NET_WM_STATE_ABOVE"));
}

TEST_F(DesktopTest, thePanelTouchesABarThatNoWindowManagerTellsOf) {
    ASSERT_TRUE(eventually([] { return screen().workArea().top() > 0; })) << "the bar is there";
    const QRect workArea = screen().workArea();
    screen().forgetWorkArea();
    startApplication();
    openPanel();
    EXPECT_EQ(panelGeometry().top(), workArea.top());
    // The window manager tells again of what has changed.
    desktop().killBar();
    EXPECT_TRUE(eventually([] { return screen().workArea().isValid(); }));
    desktop().startBar();
    EXPECT_TRUE(eventually([&] { return screen().workArea() == workArea; }));
}

TEST_F(DesktopTest, thePanelIsAToolThatBelongsToNoWindow) {
    startApplication();
    openPanel();
    const auto window = panel();
    ASSERT_TRUE(window);
    EXPECT_TRUE(screen().isOfKind(window->id, "_NET_WM_WINDOW_TYPE_UTILITY"));
    EXPECT_EQ(screen().ownerOf(window->id), 0U) << "a window that no window manager knows";
}

TEST_F(DesktopTest, anOpenPanelThatIsAskedForKeepsItsStates) {
    startApplication();
    openPanel();
    const auto window = panel();
    ASSERT_TRUE(window);
    EXPECT_EQ(startAgain({QStringLiteral("--show")}), 0);
    settle();
    EXPECT_TRUE(screen().hasState(window->id, "_NET_WM_STATE_SKIP_TASKBAR"));
    EXPECT_TRUE(screen().hasState(window->id, "_NET_WM_STATE_ABOVE"));
}

TEST_F(DesktopTest, sortsPinsAndRemovesCoins) {
    startApplication();
    openPanel();
    const int height = panelGeometry().height();
    // From the dearest down, BNB comes before SOL.
    clickOnPanel(kPriceTitle);
    chooseFromMenuOfRow(2, 2);
    EXPECT_TRUE(eventually([this] {
        return kept(kWatchlist).value(QStringLiteral("pinnedSymbol")) == QStringLiteral("BNBUSDT");
    }));
    EXPECT_TRUE(eventually([this] {
        return item(QStringLiteral("XAyatanaLabel")).toString().startsWith(QStringLiteral("BNB "));
    }));
    EXPECT_EQ(label().value(QStringLiteral("symbol")).toString(), QStringLiteral("BNBUSDT"));
    chooseFromMenuOfRow(3, 4);
    EXPECT_TRUE(eventually([this] { return keptSymbols().size() == 3; }));
    EXPECT_THAT(keptSymbols(), ElementsAre("BTCUSDT", "ETHUSDT", "BNBUSDT"));
    EXPECT_TRUE(eventually([&] { return panelGeometry().height() == height - kRowHeight; }));
}

TEST_F(DesktopTest, aRowUnfoldsItsChartAndFoldsItAgain) {
    startApplication();
    openPanel();
    const int height = panelGeometry().height();
    const QPoint disclosure(kDisclosureX, rowCentre(1).y());
    clickOnPanel(disclosure);
    EXPECT_TRUE(eventually([&] { return panelGeometry().height() == height + kChartHeight; }));
    clickOnPanel(disclosure);
    EXPECT_TRUE(eventually([&] { return panelGeometry().height() == height; }));
}

TEST_F(DesktopTest, theKeyboardAloneReachesRowsTheirChartsAndTheirMenus) {
    startApplication();
    openPanel();
    const int height = panelGeometry().height();
    ASSERT_TRUE(tabToRows());
    screen().key(Screen::kEscape);
    EXPECT_TRUE(eventually([this] { return !hasMenu(); }));
    EXPECT_TRUE(isPanelOpen()) << "Escape closes the menu alone";
    screen().key(Screen::kDown);
    screen().key(Screen::kReturn);
    EXPECT_TRUE(eventually([&] { return panelGeometry().height() == height + kChartHeight; }));
    screen().key(Screen::kMenu);
    chooseFromMenu(4);
    EXPECT_TRUE(eventually([this] {
        return kept(kWatchlist).value(QStringLiteral("pinnedSymbol")) == QStringLiteral("ETHUSDT");
    }));
}

TEST_F(DesktopTest, escapeClosesThePanelAndAClickOpensItAgain) {
    startApplication();
    openPanel();
    screen().key(Screen::kEscape);
    EXPECT_TRUE(eventually([this] { return !isPanelOpen(); }));
    openPanel();
}

TEST_F(DesktopTest, aSecondClickOnTheItemClosesThePanelForGood) {
    startApplication();
    openPanel();
    clickItem();
    EXPECT_TRUE(eventually([this] { return !isPanelOpen(); }));
    pause();
    EXPECT_FALSE(isPanelOpen());
    openPanel();
}

TEST_F(DesktopTest, aPressOnTheBareDesktopAndOneOnTheBarCloseThePanel) {
    startApplication();
    const QPoint bareDesktop(300, 600);
    const QPoint emptyBar(600, 14);
    for (const QPoint place : {bareDesktop, emptyBar}) {
        openPanel();
        screen().movePointer(place);
        screen().press();
        EXPECT_TRUE(eventually([this] { return !isPanelOpen(); })) << place.y();
        screen().release();
        settle();
    }
}

TEST_F(DesktopTest, aPressInsideIsOneThoughThePointerGoesOnBeforeItIsHandled) {
    startApplication();
    openPanel();
    const QRect panel = panelGeometry();
    const QPoint disclosure = panel.topLeft() + QPoint(kDisclosureX, rowCentre(0).y());
    haltApplication();
    screen().movePointer(disclosure);
    screen().press();
    screen().movePointer({300, 600});
    screen().finish();
    resumeApplication();
    settle();
    screen().movePointer(disclosure);
    screen().release();
    EXPECT_TRUE(
        eventually([&] { return panelGeometry().height() == panel.height() + kChartHeight; }));
}

TEST_F(DesktopTest, thePanelMovesFromAMonitorThatIsUnplugged) {
    const QRect left(0, 0, 640, 900);
    const QRect right(640, 0, 640, 900);
    startApplication();
    desktop().splitIntoMonitors();
    EXPECT_TRUE(eventually([this, right] { return right.contains(itemCentre()); }));
    openPanel();
    EXPECT_TRUE(right.contains(panelGeometry())) << panelGeometry().x();
    desktop().unplugRightMonitor();
    EXPECT_TRUE(eventually([this, left] { return left.contains(panelGeometry()); }))
        << panelGeometry().x();
    pause();
    EXPECT_TRUE(left.contains(panelGeometry())) << "it stays there, open";
    screen().key(Screen::kEscape);
    EXPECT_TRUE(eventually([this] { return !isPanelOpen(); }));
    EXPECT_EQ(startAgain({QStringLiteral("--show")}), 0);
    EXPECT_TRUE(eventually([this, left] { return left.contains(panelGeometry()); }))
        << "where the item was, nothing can be seen";
    desktop().joinMonitors();
}

TEST_F(DesktopTest, furtherStartsReachTheRunningApplication) {
    startApplication();
    EXPECT_EQ(startAgain({QStringLiteral("--toggle")}), 0);
    EXPECT_TRUE(eventually([this] { return isPanelOpen(); }));
    EXPECT_EQ(startAgain({QStringLiteral("--show")}), 0);
    settle();
    EXPECT_TRUE(isPanelOpen());
    EXPECT_EQ(startAgain(), 0);
    EXPECT_TRUE(eventually([this] { return !isPanelOpen(); }));
    EXPECT_EQ(startAgain({QStringLiteral("--show")}), 0);
    EXPECT_TRUE(eventually([this] { return isPanelOpen(); }));
    EXPECT_EQ(desktop().items().size(), 1);
}

TEST_F(DesktopTest, theItemComesBackWithTheStatusArea) {
    startApplication();
    desktop().killBar();
    ASSERT_TRUE(eventually([this] { return !isItemInStatusArea(); }));
    desktop().startBar();
    ASSERT_TRUE(eventually([this] { return isItemInStatusArea(); }));
    openPanel();
}

TEST_F(DesktopTest, aLostExchangeIsToldAndPricesComeBackWithIt) {
    startApplication();
    openPanel();
    const int height = panelGeometry().height();
    const auto connection = [this] {
        return label().value(QStringLiteral("connection")).toString();
    };
    desktop().killExchange();
    EXPECT_TRUE(eventually([&] {
        return connection() == QStringLiteral("waitingRetry") && panelGeometry().height() > height;
    })) << connection().toStdString();
    EXPECT_EQ(tooltip(), QString()) << "it would cover the panel";
    const double lastUpdate = label().value(QStringLiteral("lastUpdate")).toDouble();
    desktop().startExchange();
    EXPECT_TRUE(eventually([&] {
        return label().value(QStringLiteral("lastUpdate")).toDouble() > lastUpdate
               && panelGeometry().height() == height && connection() == QStringLiteral("connected");
    }));
}

}  // namespace

}  // namespace quillbar
