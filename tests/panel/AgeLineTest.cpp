// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/panel/AgeLine.h"
#include "Quillbar/panel/ConnectionBanner.h"
#include "tests/panel/PanelFixture.h"

#include <QAccessible>
#include <QTimer>

namespace quillbar {

namespace {

struct AgeLineTest : PanelFixture {
    AgeLineTest() { startConnected(listOf({"BTC", "ETH"})); }

    void showLive() {
        price("BTC", 65000);
        show();
    }
    [[nodiscard]] const AgeLine& line() const { return *widgetsOf<AgeLine>(*panel).at(0); }
    [[nodiscard]] const ConnectionBanner& banner() const {
        return *widgetsOf<ConnectionBanner>(*panel).at(0);
    }
    [[nodiscard]] QTimer& timer() const {
        return *panel->findChild<QTimer*>(QStringLiteral("age"));
    }
    /// The exchange stays silent for as long, and the line looks at the time.
    void staySilent(Seconds span) {
        time.setClock(time.now() + span);
        QMetaObject::invokeMethod(&timer(), "timeout");
    }
};

TEST_F(AgeLineTest, countsTheMinutesOfASilentStream) {
    showLive();
    staySilent(Seconds{60});
    EXPECT_FALSE(line().isVisible()) << "prices are fresh for a minute";
    staySilent(Seconds{1});
    EXPECT_TRUE(line().isVisible());
    EXPECT_EQ(line().text(), QStringLiteral("行情已 1 分钟没有更新"));
    staySilent(Seconds{11.0 * 60});
    EXPECT_EQ(line().text(), QStringLiteral("行情已 12 分钟没有更新"));
    price("ETH", 3000);
    EXPECT_FALSE(line().isVisible());
}

TEST_F(AgeLineTest, leavesEveryOtherStateOfTheConnectionToTheBanner) {
    showLive();
    staySilent(Seconds{180});
    ASSERT_TRUE(line().isVisible());
    for (const ConnectionState other : {ConnectionState::disconnected,
                                        ConnectionState::connecting,
                                        ConnectionState::waitingRetry}) {
        tell(other);
        EXPECT_TRUE(banner().isVisible());
        EXPECT_FALSE(line().isVisible());
        tell(ConnectionState::connected);
        EXPECT_FALSE(banner().isVisible());
        EXPECT_TRUE(line().isVisible()) << "no price has come with the connection yet";
    }
    price("BTC", 65001);
    EXPECT_FALSE(line().isVisible());
}

TEST_F(AgeLineTest, countsByAClockThatWasSetBack) {
    price("BTC", 65000);
    time.advance(Seconds{300});
    time.setClock(time.now() - Seconds{8.0 * 3600});
    show();
    EXPECT_EQ(line().text(), QStringLiteral("行情已 5 分钟没有更新"));
}

TEST_F(AgeLineTest, saysNothingOfPricesThatHaveNeverCome) {
    time.setClock(time.now() + Seconds{3600});
    ASSERT_TRUE(state->isDataStale());
    EXPECT_EQ(AgeLine::textAt(*state, time.now()), std::nullopt);
}

TEST_F(AgeLineTest, countsNoLessThanAMinute) {
    price("BTC", 65000);
    time.advance(Seconds{60.5});
    time.setClock(time.now() - Seconds{0.9});
    show();
    EXPECT_EQ(line().text(), QStringLiteral("行情已 1 分钟没有更新"));
}

TEST_F(AgeLineTest, saysNothingOverAListWithoutPrices) {
    showLive();
    staySilent(Seconds{180});
    run(state->remove("ETHUSDT"));
    EXPECT_TRUE(line().isVisible());
    run(state->remove("BTCUSDT"));
    EXPECT_FALSE(line().isVisible()) << "the list is empty";
    run(state->add(coinOf("SOL")));
    EXPECT_FALSE(line().isVisible()) << "the coin has just come";
}

TEST_F(AgeLineTest, isOfTheWatchlistAlone) {
    theExchangeHas({"BTC"});
    showLive();
    staySilent(Seconds{120});
    ASSERT_TRUE(line().isVisible());
    click(QStringLiteral("涨幅"));
    EXPECT_FALSE(line().isVisible()) << "a board tells the age of its own prices";
    click(QStringLiteral("自选"));
    EXPECT_TRUE(line().isVisible());
}

TEST_F(AgeLineTest, isRightBeforeThePanelOpens) {
    showLive();
    const int height = panel->sizeHint().height();
    panel->hide();
    EXPECT_TRUE(timer().isActive());
    EXPECT_EQ(timer().interval(), 5000);
    staySilent(Seconds{240});
    EXPECT_FALSE(line().isHidden());
    EXPECT_EQ(line().text(), QStringLiteral("行情已 4 分钟没有更新"));
    EXPECT_GE(panel->sizeHint().height(), height + line().height()) << "it has its room already";
    price("BTC", 65001);
    EXPECT_TRUE(line().isHidden());
    EXPECT_EQ(panel->sizeHint().height(), height);
}

TEST_F(AgeLineTest, looksAtTheTimeWhenThePanelOpens) {
    showLive();
    panel->hide();
    time.setClock(time.now() + Seconds{240});
    panel->show();
    EXPECT_TRUE(line().isVisible());
}

TEST_F(AgeLineTest, looksAtTheTimeOnlyWhileTheWatchlistIsChosen) {
    theExchangeHas({"BTC"});
    showLive();
    click(QStringLiteral("涨幅"));
    EXPECT_FALSE(timer().isActive());
    panel->hide();
    panel->show();
    EXPECT_FALSE(timer().isActive());
    time.setClock(time.now() + Seconds{240});
    click(QStringLiteral("自选"));
    EXPECT_TRUE(timer().isActive());
    EXPECT_TRUE(line().isVisible()) << "at once";
}

TEST_F(AgeLineTest, standsWhereTheBannerDoes) {
    showLive();
    tell(ConnectionState::waitingRetry);
    panel->resize(panel->sizeHint());
    spinUntilIdle();
    const QRect place = banner().geometry();
    tell(ConnectionState::connected);
    staySilent(Seconds{120});
    spinUntilIdle();
    EXPECT_EQ(line().geometry(), place);
    EXPECT_EQ(line().height(), 20);
}

TEST_F(AgeLineTest, isReadAloudWhenItAppears) {
    showLive();
    staySilent(Seconds{120});
    const QAccessibleInterface* const told =
        QAccessible::queryAccessibleInterface(widgetsOf<AgeLine>(*panel).at(0));
    ASSERT_NE(told, nullptr);
    EXPECT_EQ(told->role(), QAccessible::Notification);
    EXPECT_EQ(told->text(QAccessible::Name), QStringLiteral("行情已 2 分钟没有更新"));
}

}  // namespace

}  // namespace quillbar
