// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/desktop/DesktopFixture.h"

#include <gmock/gmock.h>

namespace quillbar {

namespace {

using ::testing::ElementsAre;

constexpr int kWatchlistTab = 0;
constexpr int kMarketCapTab = 4;
constexpr int kBoardHeight = 420;

const QString kLastBoard = QStringLiteral("lastBoard");

using BoardsTest = DesktopFixture;

TEST_F(BoardsTest, everyTabShowsItsRowsAndIsRemembered) {
    startApplication();
    openPanel();
    const int watchlistHeight = panelGeometry().height();
    const QStringList boards{QStringLiteral("gainers"),
                             QStringLiteral("losers"),
                             QStringLiteral("volume"),
                             QStringLiteral("marketCap")};
    for (int tab = 1; tab < kTabCount; ++tab) {
        openTab(tab);
        EXPECT_FALSE(isTabSelected(tab - 1));
        EXPECT_GT(panelGeometry().height(), kBoardHeight);
        EXPECT_TRUE(comesToKeep(kLastBoard, boards[tab - 1])) << tab;
    }
    openTab(kWatchlistTab);
    EXPECT_TRUE(eventually([&] { return panelGeometry().height() == watchlistHeight; }));
    EXPECT_TRUE(comesToKeep(kLastBoard, QString()));
}

TEST_F(BoardsTest, theLastTabIsOpenAfterTheNextStart) {
    startApplication();
    openPanel();
    openTab(kMarketCapTab);
    ASSERT_TRUE(comesToKeep(kLastBoard, QStringLiteral("marketCap")));
    endApplication();

    startApplication();
    openPanel();
    EXPECT_TRUE(isTabSelected(kMarketCapTab));
    EXPECT_TRUE(eventually([this] { return hasRowsUpTo(12); }));
}

TEST_F(BoardsTest, aRowOfABoardUnfoldsItsChart) {
    startApplication();
    openPanel();
    openTab(kMarketCapTab);
    ASSERT_TRUE(eventually([this] { return hasRowsUpTo(2); }));
    const auto below = [this] {
        const QRect area = panelGeometry();
        const QPoint corner = area.topLeft() + QPoint(40, rowCentre(1).y() - kRowHeight / 2);
        return screen().picture(QRect(corner, QSize(260, kRowHeight)));
    };
    const QImage folded = below();
    clickOnPanel(rowCentre(0));
    EXPECT_TRUE(eventually([&] { return below() != folded; }));
    clickOnPanel(rowCentre(0));
    EXPECT_TRUE(eventually([&] { return hasRowsUpTo(3); }));
}

TEST_F(BoardsTest, aCoinIsAddedFromABoardAndRemovedFromTheWatchlist) {
    startApplication();
    openPanel();
    const int height = panelGeometry().height();
    openTab(kMarketCapTab);
    // The four greatest are watched already, and have no plus.
    clickOnPanel({kRowPlusX, rowCentre(4).y()});
    ASSERT_TRUE(eventually([this] { return keptSymbols().size() == 5; }));
    EXPECT_THAT(keptSymbols(), ElementsAre("BTCUSDT", "ETHUSDT", "SOLUSDT", "BNBUSDT", "XRPUSDT"));

    openTab(kWatchlistTab);
    ASSERT_TRUE(eventually([&] { return panelGeometry().height() == height + kRowHeight; }));
    ASSERT_TRUE(eventually([this] { return hasRowsUpTo(4); })) << "its price comes, too";
    // The third entry, which moves it down, is disabled, and passed over.
    chooseFromMenuOfRow(4, 5);
    EXPECT_TRUE(eventually([this] { return keptSymbols().size() == 4; }));
    EXPECT_THAT(keptSymbols(), ElementsAre("BTCUSDT", "ETHUSDT", "SOLUSDT", "BNBUSDT"));
    EXPECT_TRUE(eventually([&] { return panelGeometry().height() == height; }));
}

TEST_F(BoardsTest, aRowIsDraggedToAnotherPlace) {
    startApplication();
    openPanel();
    const QPoint corner = panelGeometry().topLeft();
    screen().drag(corner + rowCentre(2), corner + rowCentre(0) - QPoint(0, kRowHeight / 3));
    EXPECT_TRUE(eventually([this] { return keptSymbols().size() == 4; }));
    EXPECT_THAT(keptSymbols(), ElementsAre("SOLUSDT", "BTCUSDT", "ETHUSDT", "BNBUSDT"));
}

}  // namespace

}  // namespace quillbar
