// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/label/LabelLine.h"
#include "tests/support/TemporaryEnvironment.h"

#include <gtest/gtest.h>

#include <ctime>
#include <nlohmann/json.hpp>
#include <string>
#include <utility>
#include <vector>

namespace quillbar {

namespace {

using Labels = std::vector<LabelSnapshot>;

LabelSnapshot priced(const std::string& baseAsset, double percent) {
    LabelSnapshot label;
    label.quote.coin = Coin{baseAsset + "USDT", baseAsset};
    label.quote.ticker = Ticker{1234.5, 1200, 1.5e9};
    label.quote.changePercent = percent;
    label.quote.connection = ConnectionState::connected;
    label.quote.freshness = PriceFreshness::live;
    label.text = label.quote.text();
    label.lastUpdate = TimePoint(Seconds(1794657600.25));
    return label;
}

LabelSnapshot unpriced(const std::string& baseAsset) {
    LabelSnapshot label;
    label.text = baseAsset;
    label.quote.coin = Coin{baseAsset + "USDT", baseAsset};
    label.quote.connection = ConnectionState::connected;
    label.lastUpdate = TimePoint(Seconds(1794657600.25));
    return label;
}

LabelSnapshot silent(const std::string& baseAsset) {
    LabelSnapshot label = priced(baseAsset, 1);
    label.quote.freshness = PriceFreshness::none;
    label.text = baseAsset;
    return label;
}

nlohmann::json joined(const Labels& labels, LabelFormat format) {
    const std::string line = labelLines(labels, format);
    EXPECT_EQ(line.find('\n'), std::string::npos);
    return nlohmann::json::parse(line);
}

TEST(JoinedLabel, hasALineForEachCoinAsText) {
    EXPECT_EQ(labelLines({priced("ETH", 1.5), unpriced("S\nOL")}, LabelFormat::text),
              "ETH 1,234.50 ▲ 1.50%\nS OL");
}

TEST(JoinedLabel, isThatOfASingleCoinByItself) {
    for (const LabelFormat format : {LabelFormat::text, LabelFormat::json, LabelFormat::waybar}) {
        const LabelSnapshot label = priced("ETH", 1.5);
        EXPECT_EQ(labelLines({label}, format), labelLine(label, format));
    }
}

TEST(JoinedLabel, holdsTheObjectOfEachCoinAsJSON) {
    const Labels labels{priced("ETH", 1.5), priced("S\u202eOL", -2)};
    const nlohmann::json line = joined(labels, LabelFormat::json);
    EXPECT_EQ(line.size(), 3U);
    EXPECT_EQ(line["text"], "ETH 1,234.50 ▲ 1.50%  SOL 1,234.50 ▼ 2.00%");
    EXPECT_EQ(line["stale"], false);
    ASSERT_EQ(line["coins"].size(), 2U);
    for (std::size_t index = 0; index < labels.size(); ++index) {
        EXPECT_EQ(line["coins"][index],
                  nlohmann::json::parse(labelLine(labels[index], LabelFormat::json)));
    }
    EXPECT_EQ(joined({priced("ETH", 1), silent("SOL")}, LabelFormat::json)["stale"], true);
}

TEST(JoinedLabel, tellsEachCoinAndTheConnectionOnceInTheTooltip) {
    const TemporaryEnvironment zone("TZ", "Asia/Shanghai");
    ::tzset();
    const nlohmann::json line =
        joined({priced("E<H", 1.5), unpriced("X"), priced("SOL", -2)}, LabelFormat::waybar);
    EXPECT_EQ(line["text"], "E&lt;H 1,234.50 ▲ 1.50%  X  SOL 1,234.50 ▼ 2.00%");
    EXPECT_EQ(line["tooltip"],
              "E&lt;HUSDT 1,234.50\n24 小时涨跌 +1.50%\n成交额 15.00亿\n\n"
              "SOLUSDT 1,234.50\n24 小时涨跌 -2.00%\n成交额 15.00亿\n\n"
              "更新于 20:00:00\n已连接");
}

TEST(JoinedLabel, neverCallsASilentConnectionSound) {
    const std::string tooltip =
        joined({unpriced("X"), silent("SOL"), silent("ETH")}, LabelFormat::waybar)["tooltip"];
    EXPECT_EQ(tooltip.substr(tooltip.rfind('\n')), "\n连接没有数据");
}

TEST(JoinedLabel, hasTheClassOfAllCoinsOrElseIsStaleOrMixed) {
    const std::vector<std::pair<Labels, std::string>> expected{
        {{priced("A", 1), priced("B", 2)}, "up"},
        {{priced("A", -1), priced("B", -2)}, "down"},
        {{priced("A", 0), priced("B", 0)}, "flat"},
        {{silent("A"), unpriced("B")}, "stale"},
        {{priced("A", 1), silent("B")}, "stale"},
        {{silent("A"), priced("B", -1)}, "stale"},
        {{priced("A", 1), priced("B", -1)}, "mixed"},
        {{priced("A", 1), priced("B", 1), priced("C", 0)}, "mixed"},
    };
    for (const auto& [labels, name] : expected) {
        EXPECT_EQ(joined(labels, LabelFormat::waybar)["class"], name);
    }
}

}  // namespace

}  // namespace quillbar
