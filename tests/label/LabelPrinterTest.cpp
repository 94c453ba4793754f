// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/label/LabelPrinter.h"
#include "Quillbar/labelstate/StateLabelSource.h"
#include "tests/qtsupport/UsedLanguage.h"
#include "tests/state/AppStateFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quillbar {

namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

using Lines = std::vector<std::string>;

class LabelPrinterTest : public AppStateFixture {
protected:
    void printLabel(LabelOptions options) {
        // The printer ends before its labels do.
        m_printer.reset();
        m_source = std::make_unique<StateLabelSource>(*state, m_isStarted);
        m_labels = std::make_unique<PinnedLabel>(*m_source);
        print(*m_labels, std::move(options));
    }
    void print(PrintedLabels& labels, LabelOptions options) {
        m_printer = std::make_unique<LabelPrinter>(
            labels,
            executor,
            time.sleeper(),
            std::move(options),
            LabelPrinter::Output{.print =
                                     [this](std::string_view lines) {
                                         m_lines.emplace_back(lines);
                                         return m_hasReader;
                                     },
                                 .complain = [](const std::string& text) { ADD_FAILURE() << text; },
                                 .finish = [this](int status) { m_statuses.push_back(status); }});
        m_printer->start();
        executor.run();
    }

    void printOnce(LabelFormat format = LabelFormat::text) {
        printLabel({LabelMode::once, format});
    }
    void printWorded(const std::string& text, LabelMode mode, LabelFormat format) {
        printLabel({mode, format, std::get<LabelTemplate>(LabelTemplate::parse(text))});
    }
    void follow(LabelFormat format = LabelFormat::text) { printLabel({LabelMode::follow, format}); }

    Lines m_lines;
    std::vector<int> m_statuses;
    bool m_hasReader = true;
    Observed<bool> m_isStarted;
    std::unique_ptr<StateLabelSource> m_source;
    std::unique_ptr<PinnedLabel> m_labels;
    std::unique_ptr<LabelPrinter> m_printer;
};

TEST_F(LabelPrinterTest, onceWaitsForThePriceAndSucceeds) {
    startConnected(listOf({"BTC"}));
    printOnce();
    EXPECT_THAT(m_lines, IsEmpty());
    time.advance(Seconds(14.9));
    EXPECT_THAT(m_lines, IsEmpty());
    price("BTC", 101.23);
    EXPECT_THAT(m_lines, ElementsAre("BTC 101.23 ▲ 1.23%"));
    EXPECT_THAT(m_statuses, ElementsAre(0));
}

TEST_F(LabelPrinterTest, followingPrintsAgainInAnotherLanguageWhatHasWords) {
    startConnected(listOf({"BTC"}));
    price("BTC", 101);
    for (const LabelFormat format : {LabelFormat::waybar, LabelFormat::text}) {
        m_lines.clear();
        follow(format);
        ASSERT_EQ(m_lines.size(), 1U);
        const UsedLanguage english(TextLanguage::english);
        m_isStarted.set(!*m_isStarted);
        executor.run();
        EXPECT_EQ(m_lines.size(), format == LabelFormat::text ? 1U : 2U);
    }
    EXPECT_THAT(m_statuses, IsEmpty());
}

TEST_F(LabelPrinterTest, onceSucceedsWithoutAPriceWhereTheNumbersAreHidden) {
    startConnected(listOf({"BTC"}));
    const Observed<Preferences> preferences(Preferences{}.settingLabel({.isDiscreet = true}));
    StateLabelSource source(*state, m_isStarted, &preferences);
    PinnedLabel labels(source);
    print(labels, {LabelMode::once, LabelFormat::text});
    EXPECT_THAT(m_lines, ElementsAre("Quillbar"));
    EXPECT_THAT(m_statuses, ElementsAre(0));
    m_printer.reset();
}

TEST_F(LabelPrinterTest, oncePrintsOneLineWhateverFollows) {
    startConnected(listOf({"BTC"}));
    printOnce();
    price("BTC", 101);
    time.advance(Seconds(5));
    price("BTC", 102);
    time.advance(Seconds(60));
    EXPECT_THAT(m_lines, ElementsAre("BTC 101.00 ▲ 1.00%"));
    EXPECT_THAT(m_statuses, ElementsAre(0));
}

TEST_F(LabelPrinterTest, oncePrintsWhatThereIsAtOnce) {
    startConnected(listOf({"BTC"}));
    price("BTC", 101);
    printOnce();
    EXPECT_THAT(m_lines, ElementsAre("BTC 101.00 ▲ 1.00%"));
}

TEST_F(LabelPrinterTest, onceGivesUpAfterFifteenSecondsWithWhatTheLabelShows) {
    startConnected(listOf({"BTC"}));
    printOnce();
    time.advance(Seconds(15));
    EXPECT_THAT(m_lines, ElementsAre("BTC"));
    EXPECT_THAT(m_statuses, ElementsAre(3));
    price("BTC", 101);
    EXPECT_EQ(m_lines.size(), 1U);
}

TEST_F(LabelPrinterTest, onceDoesNotWaitWithoutAPinnedCoin) {
    startConnected(listOf({}));
    printOnce();
    EXPECT_THAT(m_lines, ElementsAre("Quillbar"));
    EXPECT_THAT(m_statuses, ElementsAre(3));
}

TEST_F(LabelPrinterTest, onceWaitsForTheDaysOpenBesideThePrice) {
    theBasisIsToday();
    startConnected(listOf({"BTC"}));
    printOnce();
    price("BTC", 101);
    EXPECT_THAT(m_lines, IsEmpty());
    theOpenIs(50);
    time.advance(Seconds(60));
    EXPECT_THAT(m_statuses, ElementsAre(0));
}

TEST_F(LabelPrinterTest, onceDoesWithoutTheDaysOpenWhenTheFirstRequestsHaveFailed) {
    theBasisIsToday();
    startConnected(listOf({"BTC"}));
    printOnce();
    price("BTC", 101);
    EXPECT_THAT(m_lines, IsEmpty());
    m_isStarted.set(true);
    EXPECT_THAT(m_lines, ElementsAre("BTC 101.00 —"));
    EXPECT_THAT(m_statuses, ElementsAre(0));
}

TEST_F(LabelPrinterTest, followsTheTextAndNothingElse) {
    startConnected(listOf({"BTC"}));
    follow();
    EXPECT_THAT(m_lines, ElementsAre("BTC"));
    price("BTC", 101);
    time.advance(Seconds(1));
    price("BTC", 101);
    tell(ConnectionState::waitingRetry);
    EXPECT_THAT(m_lines, ElementsAre("BTC", "BTC 101.00 ▲ 1.00%"));
    time.advance(Seconds(1));
    price("BTC", 99);
    EXPECT_THAT(m_lines, ElementsAre("BTC", "BTC 101.00 ▲ 1.00%", "BTC 99.00 ▼ 1.00%"));
    EXPECT_THAT(m_statuses, IsEmpty());
}

TEST_F(LabelPrinterTest, followsASilentStreamToTheBaseAsset) {
    startConnected(listOf({"BTC"}));
    price("BTC", 101);
    follow();
    time.advance(Seconds(90));
    EXPECT_THAT(m_lines, ElementsAre("BTC 101.00 ▲ 1.00%", "BTC"));
}

TEST_F(LabelPrinterTest, followsTheConnectionWhereTheFormatShowsIt) {
    startConnected(listOf({"BTC"}));
    price("BTC", 101);
    follow(LabelFormat::waybar);
    tell(ConnectionState::waitingRetry);
    ASSERT_EQ(m_lines.size(), 2U);
    EXPECT_THAT(m_lines[0], ::testing::HasSubstr("\"class\":\"up\""));
    EXPECT_THAT(m_lines[1], ::testing::HasSubstr("\"class\":\"stale\""));
}

TEST_F(LabelPrinterTest, followsThePinToAnotherCoin) {
    startConnected(listOf({"BTC", "ETH"}));
    price("ETH", 200);
    follow();
    state->pin("ETHUSDT");
    EXPECT_THAT(m_lines, ElementsAre("BTC", "ETH 200.00 ▲100.00%"));
}

TEST_F(LabelPrinterTest, onceWordsTheTextOfEachFormat) {
    startConnected(listOf({"BTC"}));
    price("BTC", 101.23);
    printWorded("{price:.0} {symbol} <{change}>", LabelMode::once, LabelFormat::text);
    printWorded("{price:.0} {symbol} <{change}>", LabelMode::once, LabelFormat::json);
    printWorded("{price:.0} {symbol} <{change}>", LabelMode::once, LabelFormat::waybar);
    ASSERT_EQ(m_lines.size(), 3U);
    EXPECT_EQ(m_lines[0], "101 BTC <+1.23%>");
    EXPECT_THAT(m_lines[1], HasSubstr(R"("text":"101 BTC <+1.23%>","symbol":"BTCUSDT")"));
    EXPECT_THAT(m_lines[2], HasSubstr(R"("text":"101 BTC &lt;+1.23%&gt;")"));
}

TEST_F(LabelPrinterTest, onceWordsTheTextOnWhichItGivesUp) {
    startConnected(listOf({"BTC"}));
    printWorded("{symbol:>6} {price}", LabelMode::once, LabelFormat::text);
    time.advance(Seconds(15));
    EXPECT_THAT(m_lines, ElementsAre("BTC"));
    EXPECT_THAT(m_statuses, ElementsAre(3));
}

TEST_F(LabelPrinterTest, followsTheWordedTextAndNothingElse) {
    startConnected(listOf({"BTC"}));
    printWorded("{price:.0}\n{symbol}", LabelMode::follow, LabelFormat::text);
    price("BTC", 101);
    time.advance(Seconds(1));
    price("BTC", 101.2);
    time.advance(Seconds(1));
    price("BTC", 102);
    time.advance(Seconds(90));
    EXPECT_THAT(m_lines, ElementsAre("BTC", "101 BTC", "102 BTC", "BTC"));
}

TEST_F(LabelPrinterTest, onceFailsWhenItsLineCannotBeWritten) {
    m_hasReader = false;
    startConnected(listOf({"BTC"}));
    price("BTC", 101);
    printOnce();
    EXPECT_THAT(m_statuses, ElementsAre(4));
}

TEST_F(LabelPrinterTest, onceFailsWhenEvenWhatTheLabelShowsCannotBeWritten) {
    m_hasReader = false;
    startConnected(listOf({"BTC"}));
    printOnce();
    time.advance(Seconds(15));
    EXPECT_THAT(m_statuses, ElementsAre(4));
}

TEST_F(LabelPrinterTest, stopsWhenNobodyReads) {
    startConnected(listOf({"BTC"}));
    follow();
    m_hasReader = false;
    price("BTC", 101);
    time.advance(Seconds(1));
    price("BTC", 102);
    EXPECT_EQ(m_lines.size(), 2U);
    EXPECT_THAT(m_statuses, ElementsAre(0));
}

}  // namespace

}  // namespace quillbar
