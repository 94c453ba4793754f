// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/runtime/TaskScope.h"
#include "tests/chart/CoinDetailFixture.h"
#include "tests/qtsupport/SpinUntil.h"

#include <QEvent>
#include <QLocale>
#include <QMouseEvent>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <utility>

namespace quillbar {
namespace {

using ::testing::SizeIs;

/// How often a widget is shown or hidden.
struct Changes final : QObject {
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        shownOrHidden += event->type() == QEvent::Show || event->type() == QEvent::Hide ? 1 : 0;
        return false;
    }
    int shownOrHidden = 0;
};

/// A chart that stays open.
struct CoinDetailReloadTest : CoinDetailFixture {
    void showCandles() {
        view->setLocale(QLocale(QLocale::Chinese, QLocale::China));
        theExchangeHas({100, 110});
        show();
    }
    Task<void> later(Seconds span, std::function<void()> act) {
        Task<void> sleep = time.sleeper()(span);
        co_await std::move(sleep);
        act();
    }
    void pointAt(double x) const {
        const QPointF place(x, 70);
        QMouseEvent event(QEvent::MouseMove,
                          place,
                          chart().mapToGlobal(place),
                          Qt::NoButton,
                          Qt::NoButton,
                          Qt::NoModifier);
        QCoreApplication::sendEvent(&chart(), &event);
    }
};

TEST_F(CoinDetailReloadTest, isLoadedAnewWhenItsCandlesAreNoLongerFresh) {
    showCandles();
    theExchangeHas({100, 120});
    time.advance(Seconds(299));
    EXPECT_THAT(api.klinesRequests, SizeIs(1));
    time.advance(Seconds(1));
    EXPECT_THAT(api.klinesRequests, SizeIs(2));
    EXPECT_EQ(chart().candles(), candles({100, 120}));
    theExchangeHas({100, 130});
    time.advance(Seconds(300));
    EXPECT_EQ(chart().candles(), candles({100, 130}));
    EXPECT_THAT(api.klinesRequests, SizeIs(3));
}

TEST_F(CoinDetailReloadTest, countsFromWhenTheCandlesWereFetched) {
    showCandles();
    view->hide();
    time.advance(Seconds(200));
    show();
    EXPECT_THAT(api.klinesRequests, SizeIs(1)) << "they are fresh still";
    time.advance(Seconds(99));
    EXPECT_THAT(api.klinesRequests, SizeIs(1));
    time.advance(Seconds(1));
    EXPECT_THAT(api.klinesRequests, SizeIs(2));
}

TEST_F(CoinDetailReloadTest, leavesTheViewToARangeThatIsChosenAtThatMoment) {
    showCandles();
    theExchangeHas({200, 210});
    TaskScope user(executor);
    user.spawn(later(Seconds(1), [this] { QTest::mouseClick(button(kWeek), Qt::LeftButton); }));
    executor.run();
    // Both sleeps are over before either goes on, as after a night.
    time.jump(Seconds(300));
    ASSERT_THAT(api.klinesRequests, SizeIs(2));
    EXPECT_EQ(api.klinesRequests.back(), (FakeBinanceAPI::KlinesRequest{"BTCUSDT", "1h", 168}));
    EXPECT_EQ(chart().candles(), candles({200, 210}));
}

TEST_F(CoinDetailReloadTest, waitsAsLongAsTheRangeIsFresh) {
    showCandles();
    theExchangeHas({200, 210});
    choose(ChartRange::week);
    time.advance(Seconds(1799));
    EXPECT_THAT(api.klinesRequests, SizeIs(2));
    time.advance(Seconds(1));
    ASSERT_THAT(api.klinesRequests, SizeIs(3));
    EXPECT_EQ(api.klinesRequests.back(), (FakeBinanceAPI::KlinesRequest{"BTCUSDT", "1h", 168}));
}

TEST_F(CoinDetailReloadTest, showsTheOldCandlesUntilTheNewOnesAreThere) {
    showCandles();
    const auto held = api.klinesAnswers.held();
    const QImage before = picture();
    Changes changes;
    for (QWidget* const each : view->findChildren<QWidget*>()) {
        each->installEventFilter(&changes);
    }
    time.advance(Seconds(300));
    spinUntilIdle();
    EXPECT_TRUE(view->isLoading());
    EXPECT_EQ(seen(), "+chart");
    EXPECT_EQ(picture(), before);
    answer(held, {100, 120});
    EXPECT_EQ(seen(), "+chart");
    EXPECT_NE(picture(), before);
    EXPECT_EQ(changes.shownOrHidden, 0);
}

TEST_F(CoinDetailReloadTest, keepsTheOldCandlesWhenItFailsAndTriesAgainInAMinute) {
    showCandles();
    theExchangeFails();
    time.advance(Seconds(300));
    EXPECT_EQ(seen(), "加载走势失败+button+chart");
    EXPECT_EQ(chart().candles(), candles({100, 110}));
    const auto held = api.klinesAnswers.held();
    time.advance(Seconds(59));
    EXPECT_THAT(api.klinesRequests, SizeIs(2));
    time.advance(Seconds(1));
    EXPECT_THAT(api.klinesRequests, SizeIs(3));
    EXPECT_EQ(seen(), "加载走势失败+button+chart") << "nothing blinks";
    answer(held, {100, 120});
    EXPECT_EQ(seen(), "+chart");
    EXPECT_EQ(chart().candles(), candles({100, 120}));
}

TEST_F(CoinDetailReloadTest, leavesAFirstFailureToTheUser) {
    theExchangeFails();
    show();
    time.advance(Seconds(7200));
    EXPECT_THAT(api.klinesRequests, SizeIs(1));
    EXPECT_EQ(seen(), "加载走势失败+button");
}

TEST_F(CoinDetailReloadTest, leavesTheFailureOfAnotherRangeToTheUser) {
    showCandles();
    theExchangeFails();
    choose(ChartRange::week);
    time.advance(Seconds(7200));
    EXPECT_THAT(api.klinesRequests, SizeIs(2));
    EXPECT_EQ(seen(), "加载走势失败+button+faint chart");
}

TEST_F(CoinDetailReloadTest, waitsForNothingWhileItIsHidden) {
    showCandles();
    const std::size_t others = time.sleepingCount();
    view->hide();
    executor.run();
    EXPECT_EQ(time.sleepingCount() + 1, others);
    time.advance(Seconds(7200));
    EXPECT_THAT(api.klinesRequests, SizeIs(1));
}

TEST_F(CoinDetailReloadTest, neverAsksInAHurryWhenTheClockIsSetBack) {
    showCandles();
    time.setClock(time.now() - Seconds(86'400));
    time.advance(Seconds(900));
    EXPECT_THAT(api.klinesRequests, SizeIs(1));
    EXPECT_THAT(time.requested, SizeIs(16)) << "it looks once a minute";
}

TEST_F(CoinDetailReloadTest, waitsASecondForAClockThatGoesSlower) {
    showCandles();
    time.setClock(time.now() - Seconds(0.001));
    time.advance(Seconds(300));
    EXPECT_THAT(api.klinesRequests, SizeIs(1));
    EXPECT_EQ(time.requested.back(), 1);
    time.advance(Seconds(1));
    EXPECT_THAT(api.klinesRequests, SizeIs(2));
}

TEST_F(CoinDetailReloadTest, isLoadedWithinAMinuteAfterTheMachineHasSlept) {
    showCandles();
    // The sleeper has stood still meanwhile.
    time.setClock(time.now() + Seconds(3600));
    time.advance(Seconds(60));
    EXPECT_THAT(api.klinesRequests, SizeIs(2));
}

TEST_F(CoinDetailReloadTest, keepsTheCrosshairWhereThePointerIs) {
    showCandles();
    pointAt(370);
    EXPECT_EQ(chart().reading(), QStringLiteral("11/14 11:00  110.00  +10.00%"));
    theExchangeHas({100, 110, 120});
    time.advance(Seconds(300));
    EXPECT_EQ(chart().reading(), QStringLiteral("11/14 12:00  120.00  +20.00%"));
}

TEST_F(CoinDetailReloadTest, keepsTheCandleThatTheKeysHaveReached) {
    showCandles();
    QTest::keyClick(&chart(), Qt::Key_Home);
    QTest::keyClick(&chart(), Qt::Key_Right);
    EXPECT_EQ(chart().reading(), QStringLiteral("11/14 11:00  110.00  +10.00%"));
    // The first candle goes, and one comes at the end.
    std::vector<Candle> next = candles({100, 110, 120});
    next.erase(next.begin());
    api.klinesAnswers.value(next);
    time.advance(Seconds(300));
    EXPECT_EQ(chart().reading(), QStringLiteral("11/14 11:00  110.00  +10.00%"));
    QTest::keyClick(&chart(), Qt::Key_Right);
    EXPECT_EQ(chart().reading(), QStringLiteral("11/14 12:00  120.00  +20.00%"));
}

}  // namespace
}  // namespace quillbar
