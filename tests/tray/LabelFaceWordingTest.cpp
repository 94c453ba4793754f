// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/labelstate/ConnectionName.h"
#include "Quillbar/tray/LabelFace.h"

#include <QRegularExpression>

#include <gtest/gtest.h>

#include <string>

namespace quillbar {

namespace {

constexpr TimePoint kUpdate{Seconds(1794657600)};

LabelSnapshot bitcoin() {
    LabelSnapshot snapshot;
    snapshot.text = "BTC 67,234.50 ▲ 1.23%";
    snapshot.quote.coin = Coin{"BTCUSDT", "BTC"};
    snapshot.quote.ticker = Ticker{67234.5, 66417.56, 1.5e9};
    snapshot.quote.changePercent = 1.23;
    snapshot.quote.connection = ConnectionState::connected;
    snapshot.quote.freshness = PriceFreshness::live;
    snapshot.lastUpdate = kUpdate;
    return snapshot;
}

LabelFace worded(const LabelPreferences& label, const LabelSnapshot& snapshot = bitcoin()) {
    return LabelFace::of(snapshot, kUpdate, ChangeColors::greenUp, label);
}

LabelFace own(const std::string& text, const LabelSnapshot& snapshot = bitcoin()) {
    return worded({.wording = LabelWording::custom, .ownTemplate = text}, snapshot);
}

TEST(LabelFaceWording, ofAFirstStartChangesNothing) {
    EXPECT_EQ(worded({}), LabelFace::of(bitcoin(), kUpdate));
    EXPECT_EQ(worded({}).label(), worded({}).text);
}

TEST(LabelFaceWording, leavesTheWholeTextToTheTooltip) {
    const LabelFace face = worded({.wording = LabelWording::price});
    EXPECT_EQ(face.text, QStringLiteral("BTC 67,234.50 ▲ 1.23%"));
    EXPECT_EQ(face.label(), QStringLiteral("67,234.50"));
    EXPECT_EQ(face.symbol, QStringLiteral("BTC"));
}

TEST(LabelFaceWording, hasAColorOnlyForAChange) {
    EXPECT_EQ(worded({.wording = LabelWording::change}).direction, LabelDirection::up);
    EXPECT_EQ(worded({.wording = LabelWording::change}).change, QStringLiteral("▲ 1.23%"));
    for (const LabelWording wording :
         {LabelWording::symbolPrice, LabelWording::price, LabelWording::symbol}) {
        EXPECT_EQ(worded({.wording = wording}).direction, LabelDirection::flat);
        EXPECT_EQ(worded({.wording = wording}).change, QString());
    }
}

TEST(LabelFaceWording, isPaleWhileThePriceIsNotLive) {
    LabelSnapshot stale = bitcoin();
    stale.quote.freshness = PriceFreshness::stale;
    EXPECT_EQ(worded({.wording = LabelWording::price}, stale).direction, LabelDirection::stale);
    EXPECT_EQ(worded({.wording = LabelWording::price}, stale).label(), QStringLiteral("67,234.50"));
}

TEST(LabelFaceWording, namesTheCoinWhereThereIsNoPrice) {
    LabelSnapshot old = bitcoin();
    old.quote.freshness = PriceFreshness::none;
    old.text = "BTC";
    EXPECT_EQ(worded({.wording = LabelWording::price}, old).label(), QStringLiteral("BTC"));
    EXPECT_EQ(worded({.wording = LabelWording::price}, old), LabelFace::of(old, kUpdate));
}

TEST(LabelFaceWording, isOneLineOfAtMostSixtyFourCharacters) {
    EXPECT_EQ(own("{price}\nnow").label(), QStringLiteral("67,234.50 now"));
    const LabelFace longest = own("{price:99} {arrow} {change}");
    EXPECT_EQ(longest.label().size(), 64);
    EXPECT_EQ(longest.change, QStringLiteral("▲ 1.23%"));
    EXPECT_EQ(own("{price} {change:99}").change, QString()) << "it is cut within the change";
}

TEST(LabelFaceWording, ofATemplateThatWritesNothingIsTheWholeText) {
    EXPECT_EQ(own("\t").label(), own("\t").text);
    EXPECT_EQ(own("{").label(), own("{").text);
}

TEST(LabelFaceWording, keepsRoomForOtherDigitsAndTheOtherDirection) {
    const auto guide = [](const char* text, double percent) {
        LabelSnapshot snapshot = bitcoin();
        snapshot.quote.changePercent = percent;
        return own(text, snapshot).guide().toStdString();
    };
    EXPECT_EQ(worded({.wording = LabelWording::price}).guide(), QStringLiteral("88,888.88"));
    for (const double percent : {1.23, -4.56, 0.0}) {
        EXPECT_EQ(guide("{price} {arrow} {change}", percent), "88,888.88 ▲88.88%");
        EXPECT_EQ(guide("{price} {change} {arrow}", percent), "88,888.88 8.88%8▲");
    }
    EXPECT_EQ(guide("{price} {change}", 1.23), guide("{price} {change}", -4.56));
}

TEST(LabelFaceRow, isOfThePinnedCoinAndThoseBesideIt) {
    LabelSnapshot snapshot = bitcoin();
    PinnedQuote ether = snapshot.quote;
    ether.coin = Coin{"ETHUSDT", "ETH"};
    ether.changePercent = -0.5;
    PinnedQuote old = ether;
    old.coin = Coin{"SOLUSDT", "SOL"};
    old.freshness = PriceFreshness::none;
    snapshot.beside = {ether, old};
    EXPECT_EQ(worded({}, snapshot).row,
              QStringLiteral("BTC 67,234.50 ▲ 1.23%  ETH 67,234.50 ▼ 0.50%  SOL"));
    EXPECT_EQ(worded({}, snapshot).rowGuide,
              QStringLiteral("BTC 88,888.88 ▲88.88%  ETH 88,888.88 ▲88.88%  SOL"));
    EXPECT_EQ(worded({.wording = LabelWording::price}, snapshot).row,
              QStringLiteral("67,234.50  67,234.50  SOL"));
    EXPECT_EQ(worded({}, snapshot).label(), worded({}).label());
    EXPECT_EQ(worded({}, snapshot).beside,
              (std::vector<LabelFace::Beside>{
                  {QStringLiteral("ETH 67,234.50 ▼ 0.50%"),
                   QStringLiteral("▼ 0.50%"),
                   LabelDirection::down},
                  {QStringLiteral("SOL"), QString(), LabelDirection::stale}}));
    EXPECT_EQ(worded({}, snapshot.hidden()).row, QString());
}

TEST(LabelFaceDiscreet, saysNothingOfTheCoin) {
    LabelSnapshot snapshot = bitcoin();
    snapshot.failure = "服务器返回 503";
    const LabelFace face = worded({.wording = LabelWording::price}, snapshot.hidden());
    LabelFace expected;
    expected.isDiscreet = true;
    expected.details = QStringLiteral("数字已隐藏\n正在连接");
    EXPECT_EQ(face, expected);
    EXPECT_EQ(face.label(), QStringLiteral("Quillbar"));
    EXPECT_FALSE(face.details.contains(QRegularExpression(QStringLiteral("[0-9]"))));
}

TEST(LabelFaceDiscreet, callsNoConnectionSoundOverWhichNothingComes) {
    EXPECT_EQ(worded({}, bitcoin().hidden()).details, QStringLiteral("数字已隐藏\n已连接"));
    EXPECT_EQ(LabelFace::of(bitcoin().hidden(), kUpdate + Seconds(600)).details,
              QStringLiteral("数字已隐藏\n") + QString::fromStdString(silentConnectionName()));
}

TEST(LabelFaceDiscreet, stillTellsOfAnEditThatWasNotSaved) {
    LabelSnapshot snapshot = bitcoin();
    snapshot.lastError = "设置未能保存到磁盘";
    EXPECT_EQ(worded({}, snapshot.hidden()).details,
              QStringLiteral("数字已隐藏\n已连接\n设置未能保存到磁盘"));
}

}  // namespace

}  // namespace quillbar
