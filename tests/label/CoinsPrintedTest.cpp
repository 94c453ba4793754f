// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/label/LabelPrinter.h"
#include "tests/manual/ManualExecutor.h"
#include "tests/manual/ManualTime.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quillbar {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

using Lines = std::vector<std::string>;

/// Labels that are what they are set to.
class FakeLabels final : public PrintedLabels {
public:
    explicit FakeLabels(const std::vector<std::string>& names) {
        for (const std::string& name : names) {
            LabelSnapshot label;
            label.quote.coin = Coin{name + "USDT", name};
            label.text = name;
            m_labels.push_back(label);
        }
    }

    [[nodiscard]] std::vector<LabelSnapshot> snapshots() const override { return m_labels; }
    [[nodiscard]] bool isStarted() const override { return m_isStarted; }
    [[nodiscard]] std::vector<std::string> unknownCoins() const override { return m_unknown; }
    void observe(std::function<void()> onChange) override { m_onChange = std::move(onChange); }

    void price(std::size_t index, double price, std::optional<double> percent) {
        PinnedQuote& quote = m_labels.at(index).quote;
        quote.ticker = Ticker{price, 100};
        quote.changePercent = percent;
        quote.freshness = PriceFreshness::live;
        m_labels.at(index).text = quote.text();
        m_onChange();
    }
    void begun() {
        m_isStarted = true;
        m_onChange();
    }
    void knowsAll() { m_unknown.clear(); }
    void doesNotKnow(std::vector<std::string> names) {
        m_unknown = std::move(names);
        m_onChange();
    }

private:
    std::vector<LabelSnapshot> m_labels;
    std::vector<std::string> m_unknown;
    bool m_isStarted = false;
    std::function<void()> m_onChange;
};

/// The printer over the labels of ETH and SOL.
class CoinsPrintedTest : public ::testing::Test {
protected:
    void print(LabelOptions options) {
        m_printer.emplace(
            m_labels,
            m_executor,
            m_time.sleeper(),
            std::move(options),
            LabelPrinter::Output{
                .print =
                    [this](std::string_view lines) {
                        m_lines.emplace_back(lines);
                        return true;
                    },
                .complain = [this](const std::string& text) { m_complaints.push_back(text); },
                .finish = [this](int status) { m_statuses.push_back(status); }});
        m_printer->start();
        m_executor.run();
    }

    ManualExecutor m_executor;
    ManualTime m_time{m_executor};
    FakeLabels m_labels{{"ETH", "SOL"}};
    Lines m_lines;
    Lines m_complaints;
    std::vector<int> m_statuses;
    std::optional<LabelPrinter> m_printer;
};

TEST_F(CoinsPrintedTest, onceWaitForThePriceOfEach) {
    print({.mode = LabelMode::once});
    m_labels.price(1, 50, 2);
    EXPECT_THAT(m_lines, IsEmpty());
    m_labels.price(0, 101, 1);
    EXPECT_THAT(m_lines, ElementsAre("ETH 101.00 ▲ 1.00%\nSOL 50.00 ▲ 2.00%"));
    EXPECT_THAT(m_statuses, ElementsAre(0));
}

TEST_F(CoinsPrintedTest, onceWaitForTheChangeOfEachUntilTheFirstRequestsAreOver) {
    print({.mode = LabelMode::once});
    m_labels.price(0, 101, 1);
    m_labels.price(1, 50, std::nullopt);
    EXPECT_THAT(m_lines, IsEmpty());
    m_labels.begun();
    EXPECT_THAT(m_lines, ElementsAre("ETH 101.00 ▲ 1.00%\nSOL 50.00 —"));
    EXPECT_THAT(m_statuses, ElementsAre(0));
}

TEST_F(CoinsPrintedTest, onceTellInTheStatusThatOneHasNoPrice) {
    print({.mode = LabelMode::once});
    m_labels.price(0, 101, 1);
    m_labels.begun();
    EXPECT_THAT(m_lines, IsEmpty());
    m_time.advance(Seconds(15));
    EXPECT_THAT(m_lines, ElementsAre("ETH 101.00 ▲ 1.00%\nSOL"));
    EXPECT_THAT(m_statuses, ElementsAre(3));
}

TEST_F(CoinsPrintedTest, followEachOfThemTogether) {
    print({.mode = LabelMode::follow});
    m_labels.price(1, 50, 2);
    m_labels.price(1, 50, 2);
    m_labels.price(0, 101, 1);
    EXPECT_THAT(
        m_lines,
        ElementsAre("ETH\nSOL", "ETH\nSOL 50.00 ▲ 2.00%", "ETH 101.00 ▲ 1.00%\nSOL 50.00 ▲ 2.00%"));
    EXPECT_THAT(m_statuses, IsEmpty());
}

TEST_F(CoinsPrintedTest, haveOneWording) {
    print({.mode = LabelMode::follow,
           .format = LabelFormat::waybar,
           .labelTemplate = std::get<LabelTemplate>(LabelTemplate::parse("{symbol}={price:.0}"))});
    m_labels.price(0, 101, 1);
    m_labels.price(1, 50, 2);
    ASSERT_EQ(m_lines.size(), 3U);
    EXPECT_THAT(m_lines.back(), ::testing::StartsWith(R"({"text":"ETH=101  SOL=50",)"));
}

TEST_F(CoinsPrintedTest, endWithAComplaintOfThoseThatTheExchangeDoesNotKnow) {
    for (const LabelMode mode : {LabelMode::once, LabelMode::follow}) {
        m_labels.knowsAll();
        print({.mode = mode});
        m_lines.clear();
        m_labels.doesNotKnow({"ETH", "SOL"});
        m_labels.price(0, 101, 1);
        EXPECT_THAT(m_lines, IsEmpty());
    }
    EXPECT_THAT(m_complaints,
                ElementsAre("交易所没有币种「ETH」、「SOL」", "交易所没有币种「ETH」、「SOL」"));
    EXPECT_THAT(m_statuses, ElementsAre(2, 2));
}

}  // namespace

}  // namespace quillbar
