// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/tray/LabelFace.h"
#include "tests/support/TemporaryEnvironment.h"

#include <gtest/gtest.h>

#include <chrono>
#include <ctime>
#include <string>

namespace quillbar {

namespace {

using namespace std::chrono_literals;

// 2026-11-14T12:00:00Z
constexpr TimePoint kUpdate{Seconds(1794657600)};

LabelSnapshot bitcoin() {
    LabelSnapshot snapshot;
    snapshot.text = "BTC 67,234.50 ▲ 1.23%";
    snapshot.quote.coin = Coin{"BTCUSDT", "BTC"};
    snapshot.quote.ticker = Ticker{67234.5, 66417.56, 1.5e9};
    snapshot.quote.changePercent = 1.23;
    snapshot.quote.connection = ConnectionState::connected;
    snapshot.lastUpdate = kUpdate;
    snapshot.quote.freshness = PriceFreshness::live;
    return snapshot;
}

LabelFace after(Seconds age, const LabelSnapshot& snapshot = bitcoin()) {
    return LabelFace::of(snapshot, kUpdate + age);
}

QString firstLine(const LabelFace& face) {
    return face.details.section(u'\n', 0, 0);
}

struct LabelFaceTest : ::testing::Test {
    LabelFaceTest() { ::tzset(); }

    const TemporaryEnvironment zone{"TZ", "Asia/Shanghai"};
};

TEST_F(LabelFaceTest, ofALivePriceSaysItLongAndShort) {
    const LabelFace face = after(1s);
    EXPECT_EQ(face.text, QStringLiteral("BTC 67,234.50 ▲ 1.23%"));
    EXPECT_EQ(face.change, QStringLiteral("▲ 1.23%"));
    EXPECT_EQ(face.symbol, QStringLiteral("BTC"));
    EXPECT_EQ(face.shortPrice, QStringLiteral("67.2k"));
    EXPECT_EQ(face.shortChange, QStringLiteral("+1.2%"));
    EXPECT_EQ(face.direction, LabelDirection::up);
    EXPECT_EQ(face.details, QStringLiteral("刚刚更新\n已连接"));
}

TEST_F(LabelFaceTest, keepsRoomForOtherDigitsAnotherDirectionAndOneDigitMore) {
    const QString guide = QStringLiteral("BTC 88,888.88 ▲88.88%");
    for (const double percent : {1.23, -0.5, 0.0, 12.34}) {
        LabelSnapshot snapshot = bitcoin();
        snapshot.quote.changePercent = percent;
        snapshot.text = snapshot.quote.text();
        EXPECT_EQ(after(1s, snapshot).guide(), guide) << percent;
    }
    LabelFace coinAlone;
    coinAlone.text = QStringLiteral("1INCH");
    EXPECT_EQ(coinAlone.guide(), QStringLiteral("8INCH"));
}

TEST_F(LabelFaceTest, pointsWhereTheChangeGoes) {
    LabelSnapshot snapshot = bitcoin();
    snapshot.quote.changePercent = -0.5;
    EXPECT_EQ(after(1s, snapshot).direction, LabelDirection::down);
    snapshot.quote.changePercent = 0;
    EXPECT_EQ(after(1s, snapshot).direction, LabelDirection::flat);
    snapshot.quote.changePercent = std::nullopt;
    EXPECT_EQ(after(1s, snapshot).direction, LabelDirection::flat);
    EXPECT_EQ(after(1s, snapshot).shortChange, QString());
    EXPECT_EQ(after(1s, snapshot).change, QString());
}

TEST_F(LabelFaceTest, ofAStaleCoinShowsNoPrice) {
    LabelSnapshot snapshot = bitcoin();
    snapshot.text = "BTC";
    snapshot.quote.freshness = PriceFreshness::none;
    const LabelFace face = after(1s, snapshot);
    EXPECT_EQ(face.symbol, QStringLiteral("BTC"));
    EXPECT_EQ(face.shortPrice, QString());
    EXPECT_EQ(face.shortChange, QString());
    EXPECT_EQ(face.change, QString());
    EXPECT_EQ(face.direction, LabelDirection::stale);
}

TEST_F(LabelFaceTest, keepsThePriceOfAStreamThatIsDown) {
    LabelSnapshot snapshot = bitcoin();
    snapshot.quote.freshness = PriceFreshness::stale;
    const LabelFace face = after(1s, snapshot);
    EXPECT_EQ(face.shortPrice, QStringLiteral("67.2k"));
    EXPECT_EQ(face.change, QStringLiteral("▲ 1.23%"));
    EXPECT_EQ(face.direction, LabelDirection::stale);
}

TEST_F(LabelFaceTest, hasNoChangeThatIsLongerThanTheText) {
    LabelSnapshot snapshot = bitcoin();
    snapshot.quote.changePercent = 1e60;
    snapshot.text = snapshot.quote.text();
    const LabelFace face = after(1s, snapshot);
    EXPECT_EQ(face.text.size(), 64);
    EXPECT_EQ(face.change, QString());
}

TEST_F(LabelFaceTest, ofNothingPinnedIsTheApplicationsName) {
    const LabelFace face = LabelFace::of(LabelSnapshot{.text = "Quillbar"}, kUpdate);
    EXPECT_EQ(face.text, QStringLiteral("Quillbar"));
    EXPECT_EQ(face.symbol, QString());
    EXPECT_EQ(face.details, QStringLiteral("右键任一币种，固定到菜单栏\n尚无数据\n未连接"));
    EXPECT_EQ(firstLine(after(1s)), QStringLiteral("刚刚更新")) << "a coin is pinned";
}

TEST_F(LabelFaceTest, neverHasAnEmptyText) {
    EXPECT_EQ(LabelFace::of(LabelSnapshot{.text = ""}, kUpdate).text, QStringLiteral("Quillbar"));
    EXPECT_EQ(LabelFace::of(LabelSnapshot{.text = " \n"}, kUpdate).text,
              QStringLiteral("Quillbar"));
}

TEST_F(LabelFaceTest, isOneLineWhateverTheBaseAsset) {
    EXPECT_EQ(LabelFace::of(LabelSnapshot{.text = "B\nT\rC"}, kUpdate).text,
              QStringLiteral("B T C"));
}

TEST_F(LabelFaceTest, staysShortWhateverTheBaseAsset) {
    const std::string longAsset(10'000, 'A');
    LabelSnapshot snapshot = bitcoin();
    snapshot.text = longAsset + " 67,234.50 ▲ 1.23%";
    snapshot.quote.coin = Coin{longAsset + "USDT", longAsset};
    const LabelFace face = after(1s, snapshot);
    EXPECT_EQ(face.text.size(), 64);
    EXPECT_TRUE(face.text.startsWith(QStringLiteral("AAAA")));
    EXPECT_TRUE(face.text.endsWith(QStringLiteral("A 67,234.50 ▲ 1.23%")));
    EXPECT_EQ(face.symbol, QString(32, u'A') + u'…' + QString(31, u'A'));
}

TEST_F(LabelFaceTest, shortensATextOfSixtyFiveButNotOneOfSixtyFour) {
    const auto text = [](std::size_t length) {
        return LabelFace::of(LabelSnapshot{.text = std::string(length, 'A')}, kUpdate).text;
    };
    EXPECT_EQ(text(64), QString(64, u'A'));
    EXPECT_EQ(text(65), QString(32, u'A') + u'…' + QString(31, u'A'));
}

TEST_F(LabelFaceTest, cutsNoCharacterInTwo) {
    std::string text = "A";
    for (int i = 0; i < 40; ++i) {
        text += "😀";
    }
    const QString whole = LabelFace::of(LabelSnapshot{.text = text}, kUpdate).text;
    EXPECT_EQ(whole,
              u'A' + QStringLiteral("😀").repeated(15) + u'…' + QStringLiteral("😀").repeated(15));
}

TEST_F(LabelFaceTest, staysTheSameForAMinute) {
    EXPECT_EQ(after(0s), after(59.9s));
    EXPECT_EQ(after(60s), after(119.9s));
    EXPECT_NE(after(119.9s), after(120s));
}

TEST_F(LabelFaceTest, countsTheAgeInMinutesHoursAndDays) {
    EXPECT_EQ(firstLine(after(-5s)), QStringLiteral("刚刚更新"));
    EXPECT_EQ(firstLine(after(60s)), QStringLiteral("1 分钟前更新（20:00:00）"));
    EXPECT_EQ(firstLine(after(59min)), QStringLiteral("59 分钟前更新（20:00:00）"));
    EXPECT_EQ(firstLine(after(60min)), QStringLiteral("1 小时前更新（20:00:00）"));
    EXPECT_EQ(firstLine(after(23h)), QStringLiteral("23 小时前更新（20:00:00）"));
    EXPECT_EQ(firstLine(after(50h)), QStringLiteral("2 天前更新（2026-11-14 20:00:00）"));
}

TEST_F(LabelFaceTest, neverCallsASilentConnectionSound) {
    EXPECT_EQ(after(59s).details, QStringLiteral("刚刚更新\n已连接"));
    EXPECT_EQ(after(12min).details, QStringLiteral("12 分钟前更新（20:00:00）\n连接没有数据"));
    LabelSnapshot unpinned = bitcoin();
    unpinned.quote.coin.reset();
    unpinned.quote.ticker.reset();
    EXPECT_FALSE(after(12min, unpinned).details.contains(QStringLiteral("已连接")));
    LabelSnapshot down = bitcoin();
    down.quote.connection = ConnectionState::waitingRetry;
    EXPECT_EQ(after(12min, down).details,
              QStringLiteral("12 分钟前更新（20:00:00）\n连接中断，等待重试"));
}

TEST_F(LabelFaceTest, tellsTheAgeOfThePinnedPriceWhereOthersAreYounger) {
    LabelSnapshot snapshot = bitcoin();
    snapshot.coinUpdate = kUpdate - 59s;
    EXPECT_EQ(after(1s, snapshot).details, QStringLiteral("刚刚更新\n已连接"));
    snapshot.coinUpdate = kUpdate - 12min;
    EXPECT_EQ(after(1s, snapshot).details,
              QStringLiteral("BTC 的价格 12 分钟前更新（19:48:00）\n其他行情 刚刚更新\n已连接"));
    EXPECT_EQ(after(5min, snapshot).details,
              QStringLiteral("BTC 的价格 17 分钟前更新（19:48:00）\n"
                             "其他行情 5 分钟前更新（20:00:00）\n连接没有数据"));
    snapshot.coinUpdate = kUpdate;
    EXPECT_EQ(firstLine(after(5min, snapshot)), QStringLiteral("5 分钟前更新（20:00:00）"));
}

TEST_F(LabelFaceTest, saysThatThePinnedCoinHasNoPriceWhereOthersHave) {
    LabelSnapshot snapshot = bitcoin();
    snapshot.text = "BTC";
    snapshot.quote.ticker.reset();
    EXPECT_EQ(after(1s, snapshot).details,
              QStringLiteral("BTC 的价格 尚无数据\n其他行情 刚刚更新\n已连接"));
}

TEST_F(LabelFaceTest, saysWhatTheConnectionDoesAndWhatIsWrong) {
    LabelSnapshot snapshot = bitcoin();
    snapshot.quote.connection = ConnectionState::waitingRetry;
    snapshot.lastError = "无法保存";
    EXPECT_EQ(after(1s, snapshot).details,
              QStringLiteral("刚刚更新\n连接中断，等待重试\n无法保存"));
}

TEST_F(LabelFaceTest, saysWhyTheConnectionIsDown) {
    LabelSnapshot snapshot = bitcoin();
    snapshot.quote.connection = ConnectionState::waitingRetry;
    snapshot.failure = "代理不可用";
    EXPECT_EQ(after(1s, snapshot).details,
              QStringLiteral("刚刚更新\n连接中断，等待重试\n代理不可用"));
    snapshot.lastError = "无法保存";
    EXPECT_EQ(after(1s, snapshot).details,
              QStringLiteral("刚刚更新\n连接中断，等待重试\n代理不可用\n无法保存"));
}

TEST_F(LabelFaceTest, doesNotCallAConnectionMadeThatHasDeliveredNothingSinceAFailure) {
    LabelSnapshot snapshot = bitcoin();
    snapshot.failure = "连接超时";
    EXPECT_EQ(after(1s, snapshot).details, QStringLiteral("刚刚更新\n正在连接\n连接超时"));
    snapshot.failure.reset();
    EXPECT_EQ(after(1s, snapshot).details, QStringLiteral("刚刚更新\n已连接"));
}

TEST_F(LabelFaceTest, theColorsOfChangesAreTheUsersAndChangeNothingElse) {
    LabelFace face = LabelFace::of(bitcoin(), kUpdate, ChangeColors::redUp);
    EXPECT_EQ(face.changeColors, ChangeColors::redUp);
    EXPECT_NE(face, after(0s));
    face.changeColors = ChangeColors::greenUp;
    EXPECT_EQ(face, after(0s));
}

TEST_F(LabelFaceTest, keepsAFailureOnItsLine) {
    LabelSnapshot snapshot = bitcoin();
    snapshot.failure = "A\nB\tC";
    EXPECT_EQ(after(1s, snapshot).details, QStringLiteral("刚刚更新\n正在连接\nA B C"));
}

}  // namespace

}  // namespace quillbar
