// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/CoinListView.h"
#include "Quillbar/ConnectionBanner.h"
#include "Quillbar/ErrorLine.h"
#include "Quillbar/PanelView.h"
#include "Quillbar/RowList.h"
#include "Quillbar/UnderlineTabs.h"
#include "tests/qtsupport/SpinUntil.h"
#include "tests/views/ViewFixture.h"
#include "tests/views/Widgets.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quillbar {

namespace {

using ::testing::ElementsAre;

struct PanelViewTest : ViewFixture {
    PanelView& show() {
        panel = std::make_unique<PanelView>(environment(), systemScheme);
        panel->resize(panel->sizeHint());
        panel->show();
        spinUntilIdle();
        return *panel;
    }

    [[nodiscard]] const ThemeColors::Resolved& colors() const {
        return ThemeKey::value(*widgetsOf<UnderlineTabs>(*panel).at(0)).colors;
    }

    Observed<ColorScheme> systemScheme{ColorScheme::light};
    std::unique_ptr<PanelView> panel;
};

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

TEST_F(PanelViewTest, stacksHeaderTabsErrorBannerAndList) {
    theUserHas(listOf({"BTC"}));
    start();
    files.breakAll();
    state->pin("BTCUSDT");
    show();
    const auto top = [this](const QWidget* child) {
        return child->mapTo(panel.get(), QPoint()).y();
    };
    const auto* const tabs = widgetsOf<UnderlineTabs>(*panel).at(0);
    const auto* const error = widgetsOf<ErrorLine>(*panel).at(0);
    const auto* const banner = widgetsOf<ConnectionBanner>(*panel).at(0);
    const auto* const list = widgetsOf<CoinListView>(*panel).at(0);
    EXPECT_LT(0, top(tabs));
    EXPECT_LT(top(tabs), top(error));
    EXPECT_LT(top(error), top(banner));
    EXPECT_LT(top(banner), top(list));
    EXPECT_EQ(banner->width(), 400);
    EXPECT_EQ(list->width(), 400);
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

TEST_F(PanelViewTest, keepsABoardInTheSettingsThatItDoesNotOffer) {
    theUserHas(AppSettings::defaultSettings().settingLastBoard(RankingBoard::marketCap));
    start();
    show();
    EXPECT_EQ(panel->tab(), PanelTab::watchlist());
    EXPECT_EQ(state->settings()->lastBoard, RankingBoard::marketCap);
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

}  // namespace

}  // namespace quillbar
