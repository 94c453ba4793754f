// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/state/PreferencesStore.h"
#include "tests/label/LabelProgramFixture.h"
#include "tests/qtsupport/SpinUntil.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>

namespace quillbar {

namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::MatchesRegex;
using ::testing::StartsWith;

constexpr const char* kPriceLine = "BTC [0-9,]+[.][0-9][0-9] (▲|▼|·)[ 0-9]+[.][0-9][0-9]%\n";

class LabelProgramTest : public LabelProgramFixture {};

TEST_F(LabelProgramTest, printsAPriceOnce) {
    run({});
    EXPECT_EQ(exitStatus(), 0);
    EXPECT_THAT(m_output, MatchesRegex(kPriceLine));
}

TEST_F(LabelProgramTest, printsEveryFormat) {
    run({QStringLiteral("--format"), QStringLiteral("json")});
    EXPECT_EQ(exitStatus(), 0);
    EXPECT_THAT(m_output, HasSubstr(R"("symbol":"BTCUSDT","price":)"));
    m_output.clear();
    run({QStringLiteral("--format=waybar")});
    EXPECT_EQ(exitStatus(), 0);
    EXPECT_THAT(m_output, HasSubstr(R"("tooltip":"BTCUSDT )"));
}

TEST_F(LabelProgramTest, answersInTheLanguageThatIsStored) {
    run({QStringLiteral("--help")});
    EXPECT_EQ(exitStatus(), 0);
    EXPECT_THAT(m_output, StartsWith("用法：quillbar-label "));
    m_output.clear();
    PreferencesStore(m_folder.path() / "Quillbar")
        .save(Preferences{}.settingLanguage(Language::english));
    run({QStringLiteral("--help")});
    EXPECT_EQ(exitStatus(), 0);
    EXPECT_THAT(m_output, StartsWith("Usage: quillbar-label "));
}

TEST_F(LabelProgramTest, printsAPriceInTheUsersWording) {
    run({QStringLiteral("--template"), QStringLiteral("{{{symbol:<5}}} {price:>9.0}")});
    EXPECT_EQ(exitStatus(), 0);
    EXPECT_THAT(m_output, MatchesRegex("[{]BTC  [}]    67,[0-9]{3}\n"));
}

TEST_F(LabelProgramTest, printsTheCoinsThatItIsAskedFor) {
    theWatchlistIs(R"({"schemaVersion":1,"coins":[]})");
    run({QStringLiteral("--symbol=sol"),
         QStringLiteral("--symbol"),
         QStringLiteral("ETH/USDT"),
         QStringLiteral("--template={symbol} {price}")});
    EXPECT_EQ(exitStatus(), 0);
    EXPECT_THAT(m_output, MatchesRegex("SOL [0-9,.]+\nETH [0-9,.]+\n"));
}

TEST_F(LabelProgramTest, followsTheCoinsThatItIsAskedForOverOneStream) {
    run({QStringLiteral("--follow"),
         QStringLiteral("--format=waybar"),
         QStringLiteral("--symbol=SOL"),
         QStringLiteral("--symbol=ETH")});
    ASSERT_TRUE(printsLine(R"({"text":"SOL  ETH",)"));
    EXPECT_TRUE(printsLine(R"("tooltip":"SOLUSDT )"));
    EXPECT_TRUE(spinUntil([&] { return m_binance.openStreams() == 1; }));
    EXPECT_EQ(m_label.state(), QProcess::Running);
}

TEST_F(LabelProgramTest, refusesCoinsThatTheExchangeDoesNotHave) {
    for (const char* const mode : {"--once", "--follow"}) {
        m_errors.clear();
        run({QString::fromLatin1(mode),
             QStringLiteral("--symbol=ETH"),
             QStringLiteral("--symbol=nocoin")});
        EXPECT_EQ(exitStatus(), 2);
        EXPECT_THAT(m_errors, HasSubstr("quillbar-label: 交易所没有币种「NOCOIN」\n"));
    }
}

TEST_F(LabelProgramTest, refusesASingleCoinThatTheExchangeDoesNotHave) {
    run({QStringLiteral("--symbol=nocoin")});
    EXPECT_EQ(exitStatus(), 2);
    EXPECT_EQ(m_output, "");
    EXPECT_THAT(m_errors, HasSubstr("quillbar-label: 交易所没有币种「NOCOIN」\n"));
}

TEST_F(LabelProgramTest, tellsInItsStatusThatNoPriceCanCome) {
    theWatchlistIs(R"({"schemaVersion":1,"coins":[]})");
    run({QStringLiteral("--once")});
    EXPECT_EQ(exitStatus(), 3);
    EXPECT_EQ(m_output, "Quillbar\n");
}

TEST_F(LabelProgramTest, followsThePriceAndFlushesEachLine) {
    run({QStringLiteral("--follow")});
    ASSERT_TRUE(printsLine("BTC\n"));
    EXPECT_TRUE(printsLine("BTC 67,"));
    ASSERT_TRUE(spinUntil([&] { return m_binance.openStreams() == 1; }));
    EXPECT_EQ(m_label.state(), QProcess::Running);
}

TEST_F(LabelProgramTest, endsAtOnceAndCleanlyOnASignal) {
    for (const int signal : {SIGINT, SIGTERM}) {
        m_output.clear();
        run({QStringLiteral("--follow")});
        ASSERT_TRUE(printsLine("BTC 67,"));
        ASSERT_TRUE(spinUntil([&] { return m_binance.openStreams() == 1; }));
        send(signal);
        EXPECT_EQ(exitStatus(kAtOnce), 0) << signal;
        EXPECT_TRUE(spinUntil([&] { return m_binance.openStreams() == 0; }));
    }
    EXPECT_THAT(m_binance.closeCodes(), ElementsAre(1001, 1001));
}

TEST_F(LabelProgramTest, endsWhenItsReaderGoesWithoutAnotherLineToWrite) {
    // The market stands still, so nothing follows the two lines that head waits for.
    start(QStringLiteral("bash"),
          {QStringLiteral("-c"),
           QStringLiteral("set -o pipefail; \"$0\" --follow | head -n 2"),
           QStringLiteral(QUILLBAR_LABEL_PROGRAM)});
    EXPECT_EQ(exitStatus(), 0);
    EXPECT_THAT(m_output, StartsWith("BTC\nBTC 67,"));
}

TEST_F(LabelProgramTest, survivesTheExchangesEndAndReturn) {
    run({QStringLiteral("--follow")});
    ASSERT_TRUE(printsLine("BTC 67,"));
    ASSERT_TRUE(spinUntil([&] { return m_binance.openStreams() == 1; }));
    m_binance.faults().refuseConnections(simulator::OpenConnections::drop);
    ASSERT_TRUE(spinUntil([&] {
        collect();
        return m_errors.find("PriceStream") != std::string::npos;
    }));
    m_binance.faults().listenAgain();
    // Its first retry comes after about a second.
    EXPECT_TRUE(spinUntil([&] { return m_binance.openStreams() == 1; }));
    EXPECT_EQ(m_label.state(), QProcess::Running);
}

TEST_F(LabelProgramTest, printsTheBoards) {
    run({QStringLiteral("--boards")});
    EXPECT_EQ(exitStatus(), 0);
    for (const char* const name : {"涨幅\n", "\n跌幅\n", "\n成交额\n", "\n市值\n  1  BTC"}) {
        EXPECT_THAT(m_output, HasSubstr(name));
    }
    EXPECT_EQ(m_binance.streamsAccepted(), 0);
}

TEST_F(LabelProgramTest, refusesWrongOptionsInOneLine) {
    run({QStringLiteral("--loud")});
    EXPECT_EQ(exitStatus(), 2);
    EXPECT_EQ(m_output, "");
    EXPECT_EQ(m_errors, "quillbar-label: 未知的参数「--loud」，请看 --help\n");
    m_errors.clear();
    run({QStringLiteral("--template={prize}")});
    EXPECT_EQ(exitStatus(), 2);
    EXPECT_EQ(m_output, "");
    EXPECT_THAT(m_errors, StartsWith("quillbar-label: --template 的第 2 个字符：未知的字段"));
    m_errors.clear();
    run({QStringLiteral("--boards"), QStringLiteral("--format=json")});
    EXPECT_EQ(exitStatus(), 2);
    EXPECT_EQ(m_output, "");
    EXPECT_EQ(m_errors, "quillbar-label: --boards 只能输出文本，不能与 --format 同用\n");
}

TEST_F(LabelProgramTest, refusesAMalformedOverrideInOneLine) {
    m_environment.insert(QStringLiteral("QUILLBAR_REST_ENDPOINTS"),
                         QStringLiteral("http://exchange.test"));
    run({});
    EXPECT_EQ(exitStatus(), 2);
    EXPECT_EQ(m_errors,
              "quillbar-label: QUILLBAR_REST_ENDPOINTS:「http://exchange.test」"
              "只有本机地址可以使用 http://\n");
}

TEST_F(LabelProgramTest, refusesAnAuthorityFileItCannotRead) {
    m_environment.insert(QStringLiteral("QUILLBAR_CA_FILE"), QStringLiteral("/nowhere/ca.pem"));
    run({});
    EXPECT_EQ(exitStatus(), 2);
    EXPECT_EQ(m_errors, "quillbar-label: QUILLBAR_CA_FILE:「/nowhere/ca.pem」不存在\n");
}

TEST_F(LabelProgramTest, saysWhatIsWrongInOneLineWhateverItQuotes) {
    run({QStringLiteral("--lo\nud\x1B[2J\u009B2J\u202E")});
    EXPECT_EQ(exitStatus(), 2);
    EXPECT_EQ(m_errors, "quillbar-label: 未知的参数「--lo ud [2J 2J」，请看 --help\n");
    m_errors.clear();
    run({QStringLiteral("--format=js\r\non")});
    EXPECT_EQ(exitStatus(), 2);
    EXPECT_EQ(m_errors, "quillbar-label: 未知的格式「js  on」，可用 text、json 或 waybar\n");
    m_errors.clear();
    m_environment.insert(QStringLiteral("QUILLBAR_CA_FILE"), QStringLiteral("/no\nwhere"));
    run({});
    EXPECT_EQ(exitStatus(), 2);
    EXPECT_EQ(m_errors, "quillbar-label: QUILLBAR_CA_FILE:「/no where」不存在\n");
}

TEST_F(LabelProgramTest, explainsItself) {
    run({QStringLiteral("--help")});
    EXPECT_EQ(exitStatus(), 0);
    EXPECT_THAT(m_output, StartsWith("用法：quillbar-label"));
    m_output.clear();
    run({QStringLiteral("--version")});
    EXPECT_EQ(exitStatus(), 0);
    EXPECT_EQ(m_output, "quillbar-label " QUILLBAR_VERSION "\n");
}

TEST_F(LabelProgramTest, startsWithADamagedWatchlistAndKeepsIt) {
    theWatchlistIs(R"({"schemaVersion":1,"coins":[{)");
    run({});
    EXPECT_EQ(exitStatus(), 0);
    EXPECT_THAT(m_output, MatchesRegex(kPriceLine));
    EXPECT_THAT(m_errors, HasSubstr("WatchlistStore default: load watchlist failed ("));
    EXPECT_TRUE(std::filesystem::exists(m_folder.path() / "Quillbar" / "watchlist.json"));
}

}  // namespace

}  // namespace quillbar
