// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/boards/MarketBoardFixture.h"

#include <QLineEdit>

#include <gmock/gmock.h>

namespace quillbar {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using Content = BoardPlaceholder::Content;
using LastLoad = MarketBoardView::LastLoad;

/// What a board shows while its data are missing or old.
struct MarketBoardDataTest : MarketBoardFixture {};

// The warning's text

TEST(MarketBoardTextTest, dataAreStaleAfterAMinuteOrAFailure) {
    EXPECT_FALSE(MarketBoardView::isStale(Seconds(59), LastLoad::succeeded));
    EXPECT_FALSE(MarketBoardView::isStale(Seconds(60), LastLoad::succeeded));
    EXPECT_TRUE(MarketBoardView::isStale(Seconds(61), LastLoad::succeeded));
    EXPECT_FALSE(MarketBoardView::isStale(std::nullopt, LastLoad::succeeded));
    EXPECT_TRUE(MarketBoardView::isStale(Seconds(1), LastLoad::failed));
    EXPECT_TRUE(MarketBoardView::isStale(std::nullopt, LastLoad::failed));
}

TEST(MarketBoardTextTest, theWarningTellsOfWholeMinutes) {
    const auto text = [](double age, LastLoad lastLoad) {
        return MarketBoardView::staleText(Seconds(age), lastLoad).toStdString();
    };
    EXPECT_EQ(text(61, LastLoad::succeeded), "已停止刷新,数据为1 分钟前的");
    EXPECT_EQ(text(59, LastLoad::succeeded), "已停止刷新,数据为刚才的");
    EXPECT_EQ(text(59.9, LastLoad::failed), "刷新失败,数据为刚才的");
    EXPECT_EQ(text(60, LastLoad::failed), "刷新失败,数据为1 分钟前的");
    EXPECT_EQ(text(185, LastLoad::failed), "刷新失败,数据为3 分钟前的");
    EXPECT_EQ(text(7199, LastLoad::succeeded), "已停止刷新,数据为119 分钟前的");
    EXPECT_EQ(text(-5, LastLoad::failed), "刷新失败,数据为刚才的");
    EXPECT_EQ(MarketBoardView::staleText(std::nullopt, LastLoad::failed).toStdString(),
              "数据刷新失败");
}

// Without rows

TEST_F(MarketBoardDataTest, aSpinnerTurnsUntilTheFirstDataAreThere) {
    theMarketIsOfThree();
    TickerMap tickers{{symbolOf("BTC"), {110, 100}}, {symbolOf("ETH"), {120, 100}}};
    auto answer = api.ticker24hAllAnswers.held();
    startConnected(listOf({"XMR"}));
    make(RankingBoard::gainers);
    window->show();
    ASSERT_NE(placeholder(), nullptr);
    EXPECT_EQ(placeholder()->content(), Content::loading) << "from the first picture on";
    settle();
    EXPECT_TRUE(*market().isLoading());
    EXPECT_EQ(placeholder()->content(), Content::loading);
    const QWidget* const spinner = named(*view, QStringLiteral("正在加载行情"));
    ASSERT_NE(spinner, nullptr);
    EXPECT_EQ(spinner->mapTo(view, spinner->rect().center()).x(), view->rect().center().x());
    EXPECT_NEAR(spinner->mapTo(view, spinner->rect().center()).y(), view->rect().center().y(), 1);
    EXPECT_FALSE(rows->isVisible());
    EXPECT_EQ(named(*view, QStringLiteral("币种")), nullptr);
    EXPECT_EQ(warning(), "");
    answer.setValue(tickers);
    settle();
    EXPECT_EQ(placeholder(), nullptr);
    EXPECT_THAT(order(), ElementsAre("1 ETH", "2 BTC"));
}

TEST_F(MarketBoardDataTest, theMarketCapBoardWaitsForMarketCapsToo) {
    theMarketIsOfThree();
    auto answer = coinGecko.answers.held();
    open(RankingBoard::marketCap);
    EXPECT_FALSE(*market().isLoading());
    ASSERT_NE(placeholder(), nullptr);
    EXPECT_EQ(placeholder()->content(), Content::loading);
    answer.setValue({{"BTC", 1, 1.35e12, 110}});
    settle();
    EXPECT_THAT(order(), ElementsAre("1 BTC"));
}

TEST_F(MarketBoardDataTest, aFailureOffersToTryAgain) {
    theMarketIsOfThree();
    theExchangeFails();
    open(RankingBoard::gainers);
    ASSERT_NE(placeholder(), nullptr);
    EXPECT_EQ(placeholder()->content(), Content::failed);
    const QWidget* const text = named(*view, QStringLiteral("加载行情失败"));
    ASSERT_NE(text, nullptr);
    ASSERT_NE(retryButton(), nullptr);
    EXPECT_EQ(retryButton()->y(), text->geometry().bottom() + 1 + 6);
    EXPECT_EQ(warning(), "") << "there is nothing that could be stale";

    theMarketIsOfThree();
    auto answer = api.ticker24hAllAnswers.held();
    clickAt(*retryButton(), {10, 10});
    settle();
    EXPECT_EQ(placeholder()->content(), Content::loading);
    answer.setError(std::make_exception_ptr(BinanceError(503)));
    settle();
    EXPECT_EQ(placeholder()->content(), Content::failed);
    clickAt(*retryButton(), {10, 10});
    settle();
    EXPECT_EQ(placeholder(), nullptr);
    EXPECT_THAT(order(), ElementsAre("1 SOL", "2 ETH", "3 BTC"));
}

TEST_F(MarketBoardDataTest, tryingAgainAsksForMarketCapsOnTheirBoardAlone) {
    theExchangeFails();
    open(RankingBoard::gainers);
    ASSERT_NE(retryButton(), nullptr);
    retryButton()->click();
    settle();
    EXPECT_THAT(coinGecko.counts, IsEmpty());
    window->hide();
    coinGecko.answers.otherwiseError(BinanceError(500));
    view->setBoard(RankingBoard::marketCap);
    window->show();
    settle();
    EXPECT_THAT(coinGecko.counts, SizeIs(1));
    const int asked = api.ticker24hAllRequests;
    ASSERT_NE(retryButton(), nullptr);
    retryButton()->click();
    retryButton()->click();
    settle();
    EXPECT_THAT(coinGecko.counts, SizeIs(2));
    EXPECT_EQ(api.ticker24hAllRequests, asked + 1) << "a second click has nothing to add";
}

TEST_F(MarketBoardDataTest, marketCapsThatFailAreAFailureOfTheirBoardAlone) {
    theMarketIsOfThree();
    coinGecko.answers.otherwiseError(BinanceError(500));
    open(RankingBoard::marketCap);
    ASSERT_NE(placeholder(), nullptr);
    EXPECT_EQ(placeholder()->content(), Content::failed);
    view->setBoard(RankingBoard::gainers);
    EXPECT_EQ(placeholder(), nullptr);
    EXPECT_EQ(warning(), "");
}

TEST_F(MarketBoardDataTest, aMarketWithoutCoinsSaysSo) {
    open(RankingBoard::gainers);
    ASSERT_NE(placeholder(), nullptr);
    EXPECT_EQ(placeholder()->content(), Content::empty);
    EXPECT_NE(named(*view, QStringLiteral("暂无数据")), nullptr);
    EXPECT_EQ(retryButton(), nullptr);
}

TEST_F(MarketBoardDataTest, theButtonToTryAgainIsReachedByTheKeyboard) {
    theExchangeFails();
    open(RankingBoard::gainers);
    ASSERT_NE(retryButton(), nullptr);
    const int asked = api.ticker24hAllRequests;
    window->setFocus();
    QTest::keyClick(window.get(), Qt::Key_Tab);
    EXPECT_TRUE(retryButton()->hasFocus());
    press(Qt::Key_Return);
    settle();
    EXPECT_EQ(api.ticker24hAllRequests, asked + 1);
}

TEST_F(MarketBoardDataTest, tryingAgainByTheKeyboardKeepsTheFocusUntilThereAreRows) {
    theMarketIsOfThree();
    theExchangeFails();
    open(RankingBoard::gainers);
    auto* const elsewhere = new QLineEdit(window.get());
    elsewhere->show();
    ASSERT_NE(retryButton(), nullptr);
    QAbstractButton* const retry = retryButton();
    retry->setFocus(Qt::TabFocusReason);
    const QImage ring = pictureOf(*retry);
    const int asked = api.ticker24hAllRequests;

    theMarketIsOfThree();
    auto answer = api.ticker24hAllAnswers.held();
    press(Qt::Key_Return);
    settle();
    ASSERT_EQ(placeholder()->content(), Content::loading);
    EXPECT_EQ(QApplication::focusWidget(), placeholder());
    press(Qt::Key_Return);
    settle();
    EXPECT_EQ(api.ticker24hAllRequests, asked + 1);

    answer.setError(std::make_exception_ptr(BinanceError(503)));
    settle();
    ASSERT_EQ(placeholder()->content(), Content::failed);
    EXPECT_EQ(QApplication::focusWidget(), retry);
    EXPECT_EQ(pictureOf(*retry), ring);

    press(Qt::Key_Return);
    settle();
    ASSERT_EQ(placeholder(), nullptr);
    EXPECT_EQ(QApplication::focusWidget(), row("SOL"));
    press(Qt::Key_Down);
    EXPECT_EQ(rows->current(), symbolOf("ETH"));
}

TEST_F(MarketBoardDataTest, aFocusThatWentElsewhereMeanwhileStaysThere) {
    theMarketIsOfThree();
    theExchangeFails();
    open(RankingBoard::gainers);
    auto* const elsewhere = new QLineEdit(window.get());
    elsewhere->show();
    ASSERT_NE(retryButton(), nullptr);
    retryButton()->setFocus(Qt::TabFocusReason);
    theMarketIsOfThree();
    auto answer = api.ticker24hAllAnswers.held();
    press(Qt::Key_Return);
    settle();
    press(Qt::Key_Tab);
    EXPECT_TRUE(elsewhere->hasFocus()) << "it waits for nothing";
    answer.setError(std::make_exception_ptr(BinanceError(503)));
    settle();
    EXPECT_TRUE(elsewhere->hasFocus());
    ASSERT_NE(retryButton(), nullptr);
    retryButton()->click();
    settle();
    EXPECT_THAT(order(), ElementsAre("1 SOL", "2 ETH", "3 BTC"));
    EXPECT_TRUE(elsewhere->hasFocus());
}

TEST_F(MarketBoardDataTest, looksAtItsDataEveryFiveSeconds) {
    open(RankingBoard::gainers);
    EXPECT_EQ(lookInterval, 5000);
    EXPECT_TRUE(lookTimer()->isActive());
}

// Stale data

TEST_F(MarketBoardDataTest, dataThatGrowOldAreWarnedOfAndMinutesAreCounted) {
    openThree();
    theClockGoesOn(Seconds(59));
    EXPECT_EQ(warning(), "");
    theClockGoesOn(Seconds(2));
    EXPECT_EQ(warning(), "已停止刷新,数据为1 分钟前的");
    theClockGoesOn(Seconds(58));
    EXPECT_EQ(warning(), "已停止刷新,数据为1 分钟前的");
    theClockGoesOn(Seconds(1));
    EXPECT_EQ(warning(), "已停止刷新,数据为2 分钟前的");
    spinUntilIdle();
    const BannerRow* const banner = widgetsOf<BannerRow>(*view).front();
    EXPECT_EQ(banner->geometry(), QRect(0, 0, 400, 20));
    EXPECT_EQ(view->height(), 20 + 20 + 420);
    EXPECT_THAT(order(), ElementsAre("1 SOL", "2 ETH", "3 BTC"));
}

TEST_F(MarketBoardDataTest, aRefreshThatFailsIsWarnedOfAtOnceAndOneThatSucceedsEndsIt) {
    openThree();
    theExchangeFails();
    pass(Seconds(30));
    EXPECT_EQ(warning(), "刷新失败,数据为刚才的");
    EXPECT_EQ(view->staleText(), QStringLiteral("刷新失败,数据为刚才的"));
    theClockGoesOn(Seconds(155));
    EXPECT_EQ(warning(), "刷新失败,数据为3 分钟前的");
    theMarketIsOfThree();
    pass(Seconds(30));
    EXPECT_EQ(warning(), "");
}

TEST_F(MarketBoardDataTest, theBannerIsTintedInTheColourOfWarnings) {
    openThree();
    theExchangeFails();
    pass(Seconds(30));
    const QColor surface = ThemeColors::dark().surface;
    const QColor warningColor = ThemeColors::dark().warning;
    const QColor tint = pictureOf(*view).pixelColor(399, 1);
    EXPECT_NEAR(tint.red(), 0.9 * surface.red() + 0.1 * warningColor.red(), 2);
    EXPECT_NEAR(tint.green(), 0.9 * surface.green() + 0.1 * warningColor.green(), 2);
    EXPECT_NEAR(tint.blue(), 0.9 * surface.blue() + 0.1 * warningColor.blue(), 2);
}

TEST_F(MarketBoardDataTest, marketCapsThatCannotBeRefreshedAreWarnedOfOnceTheyAreOld) {
    theMarketIsOfThree();
    theMarketCapsAreOfTwo();
    open(RankingBoard::marketCap);
    coinGecko.answers.otherwiseError(BinanceError(429));
    passWhileLooking(Seconds(3600));
    EXPECT_TRUE(*marketCaps().loadFailed());
    EXPECT_EQ(marketCapWarning(), "") << "they are no more than an hour old";
    passWhileLooking(Seconds(30));
    EXPECT_EQ(marketCapWarning(), "市值刷新失败,数据为1 小时前的");
    EXPECT_EQ(warning(), "") << "the prices are fresh";
    const BannerRow* const banner = widgetsOf<BannerRow>(*view).at(1);
    EXPECT_EQ(banner->geometry(), QRect(0, 0, 400, 20));
    EXPECT_EQ(view->height(), 20 + 20 + 420);
    EXPECT_THAT(order(), ElementsAre("1 BTC", "2 ETH"));
    theMarketCapsAreOfTwo();
    passWhileLooking(Seconds(1800));
    EXPECT_EQ(marketCapWarning(), "");
    spinUntilIdle();
    EXPECT_EQ(view->height(), 20 + 420);
}

TEST_F(MarketBoardDataTest, marketCapsOfLastMonthAreWarnedOfUnderTheWarningOfPrices) {
    theMarketIsOfThree();
    MarketCapCache(folder.path(), [this] {
        return time.now() - Seconds(30 * 86400);
    }).save({{"BTC", 1, 1.35e12, 110}, {"ETH", 3, 4.2e11, 120}});
    auto answer = coinGecko.answers.held();
    open(RankingBoard::marketCap);
    EXPECT_EQ(marketCapWarning(), "市值已停止刷新,数据为30 天前的")
        << "their service has not answered yet";
    answer.setError(std::make_exception_ptr(BinanceError(503)));
    settle();
    EXPECT_EQ(marketCapWarning(), "市值刷新失败,数据为30 天前的");
    theExchangeFails();
    pass(Seconds(30));
    EXPECT_EQ(warning(), "刷新失败,数据为刚才的");
    EXPECT_EQ(marketCapWarning(), "市值刷新失败,数据为30 天前的");
    spinUntilIdle();
    EXPECT_EQ(widgetsOf<BannerRow>(*view).at(1)->y(), 20);
    view->setBoard(RankingBoard::volume);
    EXPECT_EQ(marketCapWarning(), "") << "no other board shows them";
}

TEST_F(MarketBoardDataTest, oldMarketCapsAreWarnedOfThoughNoRefreshHasFailed) {
    theMarketIsOfThree();
    theMarketCapsAreOfTwo();
    open(RankingBoard::marketCap);
    EXPECT_EQ(marketCapWarning(), "");
    theClockGoesOn(Seconds(2 * 3600));
    EXPECT_FALSE(*marketCaps().loadFailed());
    EXPECT_EQ(marketCapWarning(), "市值已停止刷新,数据为2 小时前的");
    theClockGoesOn(Seconds(-3 * 3600));
    EXPECT_FALSE(*marketCaps().loadFailed());
    EXPECT_EQ(marketCapWarning(), "市值已停止刷新,数据的时间晚于系统时钟");
}

}  // namespace
}  // namespace quillbar
