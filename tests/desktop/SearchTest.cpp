// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/desktop/DesktopFixture.h"

#include <gmock/gmock.h>

namespace quillbar {

namespace {

using ::testing::ElementsAre;

using SearchTest = DesktopFixture;

TEST_F(SearchTest, aCoinIsTypedAndAddedByEnterAndRemovedAgain) {
    startApplication();
    openPanel();
    const int height = panelGeometry().height();
    openSearch();
    screen().type("doge");
    screen().key(Screen::kReturn);
    EXPECT_TRUE(eventually([this] { return keptSymbols().size() == 5; }));
    EXPECT_THAT(keptSymbols(), ElementsAre("BTCUSDT", "ETHUSDT", "SOLUSDT", "BNBUSDT", "DOGEUSDT"));
    EXPECT_TRUE(eventually([this] { return !isSearchOpen(); }));
    EXPECT_TRUE(isPanelOpen());
    // A banner is as high as a row.
    ASSERT_TRUE(eventually(
        [&] { return isConnected() && panelGeometry().height() == height + kRowHeight; }));
    chooseFromMenuOfRow(4, 5);
    EXPECT_TRUE(eventually([this] { return keptSymbols().size() == 4; }));
    EXPECT_THAT(keptSymbols(), ElementsAre("BTCUSDT", "ETHUSDT", "SOLUSDT", "BNBUSDT"));
}

TEST_F(SearchTest, theArrowGoesDownToTheMatches) {
    startApplication();
    openPanel();
    openSearch();
    const QRect firstMatch(searchGeometry().topLeft() + QPoint(12, 50), QSize(20, 14));
    const QImage before = screen().picture(firstMatch);
    screen().type("xr");
    ASSERT_TRUE(eventually([&] { return screen().picture(firstMatch) != before; }));
    screen().key(Screen::kDown);
    screen().key(Screen::kReturn);
    EXPECT_TRUE(eventually([this] { return keptSymbols().size() == 5; }));
    EXPECT_EQ(keptSymbols().back(), "XRPUSDT");
    EXPECT_TRUE(eventually([this] { return !isSearchOpen(); }));
}

TEST_F(SearchTest, severalCoinsAreTypedAndAddedByEnter) {
    startApplication();
    openPanel();
    openSearch();
    screen().type("xrp doge btc");
    screen().key(Screen::kReturn);
    EXPECT_TRUE(eventually([this] { return keptSymbols().size() == 6; }));
    EXPECT_THAT(keptSymbols(),
                ElementsAre("BTCUSDT", "ETHUSDT", "SOLUSDT", "BNBUSDT", "XRPUSDT", "DOGEUSDT"));
    EXPECT_TRUE(eventually([this] { return !isSearchOpen(); }));
}

TEST_F(SearchTest, theListThatTheGearsMenuCopiesIsPastedBack) {
    constexpr int kCopy = 8;
    // In the menu of the last row, which cannot be moved down.
    constexpr int kRemove = 5;
    startApplication();
    openPanel();
    chooseFromGear(kCopy);
    for (const int last : {3, 2}) {
        chooseFromMenuOfRow(last, kRemove);
        ASSERT_TRUE(
            eventually([&] { return keptSymbols().size() == static_cast<std::size_t>(last); }));
    }
    openSearch();
    screen().keyWith(Screen::kControl, 'v');
    screen().key(Screen::kReturn);
    EXPECT_TRUE(eventually([this] { return keptSymbols().size() == 4; }));
    EXPECT_THAT(keptSymbols(), ElementsAre("BTCUSDT", "ETHUSDT", "SOLUSDT", "BNBUSDT"));
    EXPECT_TRUE(eventually([this] { return !isSearchOpen(); }));
}

TEST_F(SearchTest, escapeClosesTheSearchAlone) {
    startApplication();
    openPanel();
    openSearch();
    screen().type("so");
    screen().key(Screen::kEscape);
    EXPECT_TRUE(eventually([this] { return !isSearchOpen(); }));
    settle();
    EXPECT_TRUE(isPanelOpen());
    screen().key(Screen::kEscape);
    EXPECT_TRUE(eventually([this] { return !isPanelOpen(); }));
}

TEST_F(SearchTest, aPressOnThePlusClosesTheSearchForGood) {
    startApplication();
    openPanel();
    openSearch();
    clickOnPanel(kPlus);
    EXPECT_TRUE(eventually([this] { return !isSearchOpen(); }));
    pause();
    EXPECT_FALSE(isSearchOpen());
    EXPECT_TRUE(isPanelOpen());
}

TEST_F(SearchTest, aPressOutsideClosesTheSearchAndThePanel) {
    const QPoint bareDesktop(300, 600);
    startApplication();
    openPanel();
    openSearch();
    screen().click(bareDesktop);
    EXPECT_TRUE(eventually([this] { return !isSearchOpen(); }));
    settle();
    screen().click(bareDesktop);
    EXPECT_TRUE(eventually([this] { return !isPanelOpen(); }));
    openPanel();
    EXPECT_FALSE(isSearchOpen());
}

}  // namespace

}  // namespace quillbar
