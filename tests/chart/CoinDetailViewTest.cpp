// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/exchange/URLError.h"
#include "QuillbarCore/runtime/Cancelled.h"
#include "tests/chart/CoinDetailFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quillbar {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

using KlinesRequest = FakeBinanceAPI::KlinesRequest;

using CoinDetailViewTest = CoinDetailFixture;

TEST_F(CoinDetailViewTest, asksForADayWhenItIsShownAndNotBefore) {
    executor.run();
    EXPECT_THAT(api.klinesRequests, IsEmpty());
    theExchangeHas({100, 110});
    show();
    EXPECT_THAT(api.klinesRequests, ElementsAre(KlinesRequest{"BTCUSDT", "5m", 288}));
    EXPECT_EQ(seen(), "+chart");
    EXPECT_EQ(chart().candles(), candles({100, 110}));
}

TEST_F(CoinDetailViewTest, showsASpinnerUntilTheFirstCandles) {
    const auto held = api.klinesAnswers.held();
    view->show();
    // At once, before anything of a task runs.
    EXPECT_EQ(seen(), "spinner");
    executor.run();
    EXPECT_EQ(seen(), "spinner");
    EXPECT_TRUE(view->isLoading());
    answer(held, {100, 110});
    EXPECT_EQ(seen(), "+chart");
    EXPECT_FALSE(view->isLoading());
}

TEST_F(CoinDetailViewTest, asksForTheRangeThatIsChosen) {
    show();
    choose(ChartRange::week);
    // For one that is chosen already, nothing.
    choose(ChartRange::week);
    choose(ChartRange::month);
    EXPECT_THAT(api.klinesRequests,
                ElementsAre(KlinesRequest{"BTCUSDT", "5m", 288},
                            KlinesRequest{"BTCUSDT", "1h", 168},
                            KlinesRequest{"BTCUSDT", "4h", 180}));
    EXPECT_EQ(view->range(), ChartRange::month);
}

TEST_F(CoinDetailViewTest, showsTheRangeChosenLastWhateverTheOrderOfTheAnswers) {
    const auto day = api.klinesAnswers.held();
    const auto week = api.klinesAnswers.held();
    const auto month = api.klinesAnswers.held();
    show();
    choose(ChartRange::week);
    choose(ChartRange::month);
    answer(month, {300, 310});
    answer(week, {200, 210});
    answer(day, {100, 110});
    EXPECT_EQ(chart().candles(), candles({300, 310}));
    EXPECT_EQ(seen(), "+chart");
}

TEST_F(CoinDetailViewTest, givesUpWaitingForOneRangeWhenAnotherIsChosen) {
    const auto day = api.klinesAnswers.held();
    const auto week = api.klinesAnswers.held();
    show();
    EXPECT_EQ(api.klinesAnswers.waitingCount(), 1U);
    choose(ChartRange::week);
    EXPECT_EQ(api.klinesAnswers.waitingCount(), 1U);
    EXPECT_TRUE(view->isLoading()) << "the end of the one is not that of the other";
    EXPECT_EQ(seen(), "spinner");
    answer(week, {200, 210});
    EXPECT_EQ(api.klinesAnswers.waitingCount(), 0U);
    EXPECT_EQ(seen(), "+chart");
}

TEST_F(CoinDetailViewTest, isSilentAboutALoadThatIsCancelledFromOutside) {
    api.klinesAnswers.error(Cancelled());
    show();
    EXPECT_FALSE(view->loadFailed());
    EXPECT_FALSE(view->isLoading());
    EXPECT_EQ(seen(), "暂无数据");
}

TEST_F(CoinDetailViewTest, dropsAnAnswerThatCameJustBeforeAnotherRangeWasChosen) {
    const auto day = api.klinesAnswers.held();
    const auto week = api.klinesAnswers.held();
    show();
    day.setValue(candles({100, 110}));
    // Not yet taken in.
    QTest::mouseClick(button(kWeek), Qt::LeftButton);
    executor.run();
    EXPECT_EQ(seen(), "spinner");
    EXPECT_THAT(view->candles(), IsEmpty());
    answer(week, {200, 210});
    EXPECT_EQ(chart().candles(), candles({200, 210}));
}

TEST_F(CoinDetailViewTest, dropsAFailureThatCameJustBeforeAnotherRangeWasChosen) {
    const auto day = api.klinesAnswers.held();
    const auto week = api.klinesAnswers.held();
    show();
    day.setError(std::make_exception_ptr(BinanceError(500)));
    QTest::mouseClick(button(kWeek), Qt::LeftButton);
    executor.run();
    EXPECT_FALSE(view->loadFailed());
    EXPECT_EQ(seen(), "spinner");
}

TEST_F(CoinDetailViewTest, saysThatTheFirstLoadFailedAndTriesAgain) {
    theExchangeFails();
    show();
    EXPECT_EQ(seen(), "加载走势失败+button");
    EXPECT_TRUE(view->loadFailed());
    const auto held = api.klinesAnswers.held();
    // At once.
    QTest::mouseClick(button(kRetry), Qt::LeftButton);
    EXPECT_EQ(seen(), "spinner");
    EXPECT_FALSE(view->loadFailed());
    executor.run();
    EXPECT_EQ(seen(), "spinner");
    answer(held, {100, 110});
    EXPECT_EQ(seen(), "+chart");
}

TEST_F(CoinDetailViewTest, triesAgainByTheKeyboard) {
    theExchangeFails();
    show();
    theExchangeHas({100, 110});
    QTest::keyClick(button(kRetry), Qt::Key_Return);
    executor.run();
    EXPECT_EQ(seen(), "+chart");
}

TEST_F(CoinDetailViewTest, tellsOfFailuresOfTheTransportToo) {
    api.klinesAnswers.error(URLError(URLError::Code::timedOut, "timed out"));
    show();
    EXPECT_EQ(seen(), "加载走势失败+button");
}

TEST_F(CoinDetailViewTest, isSilentAboutACancelledRequest) {
    api.klinesAnswers.error(URLError(URLError::Code::cancelled, "cancelled"));
    show();
    EXPECT_FALSE(view->loadFailed());
    EXPECT_FALSE(view->isLoading());
    EXPECT_EQ(seen(), "暂无数据");
}

TEST_F(CoinDetailViewTest, saysThatThereIsNothing) {
    theExchangeHas({});
    show();
    EXPECT_EQ(seen(), "暂无数据");
    EXPECT_FALSE(hasSummaryLine());
}

TEST_F(CoinDetailViewTest, keepsTheCandlesWhenAnotherRangeFails) {
    theExchangeHas({100, 110});
    show();
    theExchangeFails();
    choose(ChartRange::week);
    EXPECT_EQ(seen(), "加载走势失败+button+faint chart");
    EXPECT_TRUE(hasSummaryLine());
    EXPECT_LT(strengthOfSummaryLine(), 100) << "its figures are not the week's";
    EXPECT_EQ(view->candles(), candles({100, 110}));
    theExchangeHas({200, 210});
    retry();
    EXPECT_EQ(seen(), "+chart");
    EXPECT_GT(strengthOfSummaryLine(), 200);
    EXPECT_EQ(view->candles(), candles({200, 210}));
}

TEST_F(CoinDetailViewTest, showsThatTheCandlesAreStillThoseOfAnotherRange) {
    theExchangeHas({100, 110});
    show();
    const auto held = api.klinesAnswers.held();
    choose(ChartRange::week);
    EXPECT_EQ(seen(), "spinner+faint chart");
    EXPECT_EQ(chart().accessibleName(), QStringLiteral("BTC 走势图，1D"));
    answer(held, {200, 210});
    EXPECT_EQ(seen(), "+chart");
    EXPECT_EQ(chart().accessibleName(), QStringLiteral("BTC 走势图，1W"));
}

TEST_F(CoinDetailViewTest, stopsWhenItIsHiddenAndLoadsAgainWhenShown) {
    const auto held = api.klinesAnswers.held();
    show();
    view->hide();
    executor.run();
    EXPECT_EQ(api.klinesAnswers.waitingCount(), 0U);
    EXPECT_FALSE(view->isLoading());
    theExchangeHas({100, 110});
    show();
    EXPECT_EQ(seen(), "+chart");
    EXPECT_THAT(api.klinesRequests, SizeIs(2));
}

TEST_F(CoinDetailViewTest, refreshesWhatIsShownWithoutASpinner) {
    theExchangeHas({100, 110});
    show();
    view->hide();
    time.advance(Seconds(300));
    const auto held = api.klinesAnswers.held();
    show();
    EXPECT_EQ(seen(), "+chart");
    answer(held, {100, 120});
    EXPECT_EQ(chart().candles(), candles({100, 120}));
}

TEST_F(CoinDetailViewTest, mayGoWhileItLoads) {
    const auto held = api.klinesAnswers.held();
    show();
    view.reset();
    answer(held, {100, 110});
    EXPECT_EQ(api.klinesAnswers.waitingCount(), 0U);
}

TEST_F(CoinDetailViewTest, sumsTheRangeUp) {
    theExchangeHas({66'800, 68'000, 67'234.5});
    show();
    EXPECT_EQ(summary(),
              "一天，起始 66,800.00，最新 67,234.50，区间 +0.65%，高 68,000.00，低 66,800.00");
    EXPECT_TRUE(hasSummaryLine());
}

TEST_F(CoinDetailViewTest, showsNoChangeFromAFirstOpenOfNothing) {
    theExchangeHas({0, 5});
    show();
    EXPECT_EQ(summary(), "一天，起始 0，最新 5.00，高 5.00，低 0");
    const QImage without = picture().copy(0, 34, 400, 24);
    theExchangeHas({0.5, 5});
    choose(ChartRange::week);
    // The change comes first.
    EXPECT_NE(picture().copy(0, 34, 400, 24), without);
    EXPECT_EQ(summary(), "一周，起始 0.5，最新 5.00，区间 +900.00%，高 5.00，低 0.5");
}

TEST_F(CoinDetailViewTest, choosesRangesByTheArrowKeys) {
    theExchangeHas({100, 110});
    show();
    showActive(*view);
    auto* const day = button(kDay);
    auto* const week = button(kWeek);
    day->setFocus(Qt::TabFocusReason);
    QTest::keyClick(day, Qt::Key_Right);
    executor.run();
    EXPECT_EQ(view->range(), ChartRange::week);
    EXPECT_TRUE(week->isChecked());
    EXPECT_TRUE(week->hasFocus());
    QTest::keyClick(week, Qt::Key_Left);
    executor.run();
    EXPECT_EQ(view->range(), ChartRange::day);
}

TEST_F(CoinDetailViewTest, stopsTheTabKeyOnceAtTheRangesAndThenAtTheChart) {
    theExchangeHas({100, 110});
    theExchangeHas({200, 210});
    show();
    showActive(*view);
    choose(ChartRange::week);
    button(kWeek)->setFocus(Qt::TabFocusReason);
    QTest::keyClick(view->focusWidget(), Qt::Key_Tab);
    EXPECT_TRUE(chart().hasFocus());
    QTest::keyClick(&chart(), Qt::Key_Backtab);
    EXPECT_TRUE(button(kWeek)->hasFocus());
}

TEST_F(CoinDetailViewTest, followsTheTheme) {
    theExchangeHas({});
    show();
    ThemeKey::set(*view, {.colors = ThemeColors::light()});
    EXPECT_EQ(view->findChild<QLabel*>()->palette().color(QPalette::WindowText),
              ThemeColors::light().secondaryText);
}

TEST_F(CoinDetailViewTest, isNamedAfterItsCoin) {
    EXPECT_EQ(view->accessibleName(), QStringLiteral("BTC 走势"));
    EXPECT_EQ(view->coin(), coinOf("BTC"));
}

}  // namespace
}  // namespace quillbar
