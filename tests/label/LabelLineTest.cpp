// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/label/LabelLine.h"
#include "tests/qtsupport/UsedLanguage.h"
#include "tests/support/TemporaryEnvironment.h"

#include <gtest/gtest.h>

#include <ctime>
#include <nlohmann/json.hpp>

namespace quillbar {

namespace {

LabelSnapshot bitcoin() {
    LabelSnapshot snapshot;
    snapshot.text = "BTC 67,234.50 ▲ 1.23%";
    snapshot.quote.coin = Coin{"BTCUSDT", "BTC"};
    snapshot.quote.ticker = Ticker{67234.5, 66417.56, 1.5e9};
    snapshot.quote.changePercent = 1.23;
    snapshot.quote.connection = ConnectionState::connected;
    snapshot.lastUpdate = TimePoint(Seconds(1794657600.25));
    snapshot.quote.freshness = PriceFreshness::live;
    return snapshot;
}

nlohmann::json lineAsJSON(const LabelSnapshot& snapshot, LabelFormat format) {
    const std::string line = labelLine(snapshot, format);
    EXPECT_EQ(line.find('\n'), std::string::npos);
    return nlohmann::json::parse(line);
}

TEST(LabelLine, asTextIsTheMenuBarText) {
    EXPECT_EQ(labelLine(bitcoin(), LabelFormat::text), "BTC 67,234.50 ▲ 1.23%");
}

TEST(LabelLine, asWaybarIsInTheLanguageOfTheTexts) {
    const TemporaryEnvironment zone("TZ", "UTC");
    ::tzset();
    const UsedLanguage english(TextLanguage::english);
    EXPECT_EQ(lineAsJSON(bitcoin(), LabelFormat::waybar)["tooltip"],
              "BTCUSDT 67,234.50\nChange (24 hours) +1.23%\nVolume 1.50B\n"
              "Updated at 12:00:00\nConnected");
    EXPECT_EQ(labelLine(bitcoin(), LabelFormat::text), "BTC 67,234.50 ▲ 1.23%");
}

TEST(LabelLine, asTextStaysOneLineWhateverTheBaseAsset) {
    LabelSnapshot snapshot;
    snapshot.text = "B\nT\rC";
    EXPECT_EQ(labelLine(snapshot, LabelFormat::text), "B T C");
}

TEST(LabelLine, asTextCommandsNoTerminal) {
    LabelSnapshot snapshot;
    snapshot.text = "B\x1b[2JC\x7f";
    EXPECT_EQ(labelLine(snapshot, LabelFormat::text), "B [2JC ");
    snapshot.text = "\u202eB\u009b2JC";
    EXPECT_EQ(labelLine(snapshot, LabelFormat::text), "B 2JC");
}

TEST(LabelLine, asJSONCommandsNoTerminal) {
    LabelSnapshot snapshot;
    snapshot.text = "\u202eB\u009b2JC";
    snapshot.quote.coin = Coin{"B\u009bTUSDT", "BT"};
    snapshot.failure = "\u2066no\u2028";
    const nlohmann::json line = lineAsJSON(snapshot, LabelFormat::json);
    EXPECT_EQ(line["text"], "B 2JC");
    EXPECT_EQ(line["symbol"], "B TUSDT");
    EXPECT_EQ(line["failure"], "no ");
}

TEST(LabelLine, forWaybarCommandsNoTerminalAndTurnsNothingAround) {
    LabelSnapshot snapshot = bitcoin();
    snapshot.text = "\u202eBTC\n1";
    snapshot.quote.coin = Coin{"BTC\u009b\nUSDT", "BTC"};
    const nlohmann::json line = lineAsJSON(snapshot, LabelFormat::waybar);
    EXPECT_EQ(line["text"], "BTC 1");
    EXPECT_TRUE(line["tooltip"].get<std::string>().starts_with("BTC  USDT 67,234.50\n"));
}

TEST(LabelLine, asJSONCarriesEveryFieldInItsOrder) {
    EXPECT_EQ(labelLine(bitcoin(), LabelFormat::json),
              "{\"text\":\"BTC 67,234.50 ▲ 1.23%\",\"symbol\":\"BTCUSDT\",\"price\":67234.5,"
              "\"changePercent\":1.23,\"basis\":\"rolling24h\",\"connection\":\"connected\","
              "\"lastUpdate\":\"2026-11-14T12:00:00.250Z\",\"stale\":false,\"failure\":null}");
}

TEST(LabelLine, asJSONHasNullForWhatIsNotKnown) {
    LabelSnapshot snapshot;
    snapshot.text = "Quillbar";
    EXPECT_EQ(labelLine(snapshot, LabelFormat::json),
              "{\"text\":\"Quillbar\",\"symbol\":null,\"price\":null,\"changePercent\":null,"
              "\"basis\":\"rolling24h\",\"connection\":\"disconnected\",\"lastUpdate\":null,"
              "\"stale\":true,\"failure\":null}");
}

TEST(LabelLine, asJSONNamesEveryConnectionAndBasis) {
    LabelSnapshot snapshot = bitcoin();
    snapshot.quote.basis = ChangeBasis::today;
    EXPECT_EQ(lineAsJSON(snapshot, LabelFormat::json)["basis"], "today");
    const std::vector<std::pair<ConnectionState, std::string>> names{
        {ConnectionState::disconnected, "disconnected"},
        {ConnectionState::connecting, "connecting"},
        {ConnectionState::connected, "connected"},
        {ConnectionState::waitingRetry, "waitingRetry"},
    };
    for (const auto& [connection, name] : names) {
        snapshot.quote.connection = connection;
        EXPECT_EQ(lineAsJSON(snapshot, LabelFormat::json)["connection"], name);
    }
}

TEST(LabelLine, asJSONSurvivesABaseAssetThatIsNotUTF8) {
    LabelSnapshot snapshot;
    snapshot.text = "B\xff";
    EXPECT_EQ(lineAsJSON(snapshot, LabelFormat::json)["text"], "B\uFFFD");
}

TEST(LabelLine, forWaybarHasTextTooltipAndClass) {
    const TemporaryEnvironment zone("TZ", "Asia/Shanghai");
    ::tzset();
    const auto line = lineAsJSON(bitcoin(), LabelFormat::waybar);
    EXPECT_EQ(line.size(), 3U);
    EXPECT_EQ(line["text"], "BTC 67,234.50 ▲ 1.23%");
    EXPECT_EQ(line["tooltip"],
              "BTCUSDT 67,234.50\n24 小时涨跌 +1.23%\n成交额 15.00亿\n更新于 20:00:00\n已连接");
    EXPECT_EQ(line["class"], "up");
}

TEST(LabelLine, forWaybarFollowsTheSignOfTheChange) {
    LabelSnapshot snapshot = bitcoin();
    snapshot.quote.changePercent = -0.01;
    EXPECT_EQ(lineAsJSON(snapshot, LabelFormat::waybar)["class"], "down");
    snapshot.quote.changePercent = 0;
    EXPECT_EQ(lineAsJSON(snapshot, LabelFormat::waybar)["class"], "flat");
    snapshot.quote.changePercent = std::nullopt;
    EXPECT_EQ(lineAsJSON(snapshot, LabelFormat::waybar)["class"], "flat");
}

TEST(LabelLine, forWaybarIsStaleWhateverTheChange) {
    LabelSnapshot snapshot = bitcoin();
    snapshot.quote.freshness = PriceFreshness::stale;
    EXPECT_EQ(lineAsJSON(snapshot, LabelFormat::waybar)["class"], "stale");
}

TEST(LabelLine, forWaybarWithoutAPriceTellsTheConnection) {
    LabelSnapshot snapshot;
    snapshot.text = "BTC";
    snapshot.quote.coin = Coin{"BTCUSDT", "BTC"};
    snapshot.quote.connection = ConnectionState::waitingRetry;
    EXPECT_EQ(lineAsJSON(snapshot, LabelFormat::waybar)["tooltip"], "连接中断，等待重试");
}

TEST(LabelLine, forWaybarNeverCallsASilentConnectionSound) {
    LabelSnapshot snapshot = bitcoin();
    snapshot.text = "BTC";
    for (const auto freshness : {PriceFreshness::stale, PriceFreshness::none}) {
        snapshot.quote.freshness = freshness;
        const std::string tooltip = lineAsJSON(snapshot, LabelFormat::waybar)["tooltip"];
        EXPECT_EQ(tooltip.substr(tooltip.rfind('\n')), "\n连接没有数据");
        EXPECT_EQ(tooltip.find("已连接"), std::string::npos);
    }
}

TEST(LabelLine, forWaybarSaysWhyTheConnectionIsDown) {
    LabelSnapshot snapshot;
    snapshot.text = "BTC";
    snapshot.quote.connection = ConnectionState::waitingRetry;
    snapshot.failure = "服务器返回 451";
    EXPECT_EQ(lineAsJSON(snapshot, LabelFormat::waybar)["tooltip"],
              "连接中断，等待重试\n服务器返回 451");
    snapshot.quote.connection = ConnectionState::connected;
    EXPECT_EQ(lineAsJSON(snapshot, LabelFormat::waybar)["tooltip"], "正在连接\n服务器返回 451");
    snapshot.failure.reset();
    EXPECT_EQ(lineAsJSON(snapshot, LabelFormat::waybar)["tooltip"], "已连接");
}

TEST(LabelLine, forWaybarTrustsNoFailureThatAnotherProgramTells) {
    LabelSnapshot snapshot;
    snapshot.text = "BTC";
    snapshot.failure = "<b>\nA\xff";
    EXPECT_EQ(lineAsJSON(snapshot, LabelFormat::waybar)["tooltip"], "未连接\n&lt;b&gt; A\uFFFD");
}

TEST(LabelLine, asJSONSaysWhyTheConnectionIsDown) {
    LabelSnapshot snapshot;
    snapshot.failure = "连接超时";
    EXPECT_EQ(lineAsJSON(snapshot, LabelFormat::json)["failure"], "连接超时");
}

TEST(LabelLine, forWaybarEscapesItsMarkup) {
    LabelSnapshot snapshot;
    snapshot.text = "A<&>B";
    EXPECT_EQ(lineAsJSON(snapshot, LabelFormat::waybar)["text"], "A&lt;&amp;&gt;B");
}

TEST(LabelLine, isWorthPrintingAgainWhenTheTextChanges) {
    LabelSnapshot changed = bitcoin();
    changed.text = "BTC 67,234.51 ▲ 1.23%";
    for (const LabelFormat format : {LabelFormat::text, LabelFormat::json, LabelFormat::waybar}) {
        EXPECT_TRUE(differsVisibly(bitcoin(), changed, format));
        EXPECT_FALSE(differsVisibly(bitcoin(), bitcoin(), format));
    }
}

TEST(LabelLine, isWorthPrintingAgainForItsConnectionOnlyWhereTheFormatShowsIt) {
    LabelSnapshot waiting = bitcoin();
    waiting.quote.connection = ConnectionState::waitingRetry;
    LabelSnapshot stale = bitcoin();
    stale.quote.freshness = PriceFreshness::stale;
    LabelSnapshot failed = bitcoin();
    failed.failure = "连接超时";
    for (const LabelSnapshot& changed : {waiting, stale, failed}) {
        EXPECT_FALSE(differsVisibly(bitcoin(), changed, LabelFormat::text));
        EXPECT_TRUE(differsVisibly(bitcoin(), changed, LabelFormat::json));
        EXPECT_TRUE(differsVisibly(bitcoin(), changed, LabelFormat::waybar));
    }
}

TEST(LabelLine, isNotWorthPrintingAgainForItsAgeAlone) {
    LabelSnapshot later = bitcoin();
    later.lastUpdate = *later.lastUpdate + Seconds(1);
    EXPECT_FALSE(differsVisibly(bitcoin(), later, LabelFormat::json));
}

}  // namespace

}  // namespace quillbar
