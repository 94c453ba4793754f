// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "simulator/Simulator.h"
#include "tests/qtsupport/SpinUntil.h"
#include "tests/support/TemporaryFolder.h"

#include <QProcess>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <memory>

namespace quillbar {

namespace {

using simulator::Simulator;
using ::testing::HasSubstr;
using ::testing::MatchesRegex;
using ::testing::StartsWith;

constexpr const char* kPriceLine = "BTC [0-9,]+[.][0-9][0-9] (▲|▼|·)[ 0-9]+[.][0-9][0-9]%\n";

QString text(const std::string& utf8) {
    return QString::fromStdString(utf8);
}

/// The program as a user starts it, against a simulated exchange in the test's own event loop.
class LabelProgramTest : public ::testing::Test {
protected:
    LabelProgramTest() {
        m_environment.insert(QStringLiteral("QUILLBAR_REST_ENDPOINTS"), text(m_binance.restBase()));
        m_environment.insert(QStringLiteral("QUILLBAR_STREAM_ENDPOINTS"),
                             text(m_binance.streamBase()));
        m_environment.insert(QStringLiteral("QUILLBAR_MARKETCAP_ENDPOINT"),
                             text(m_binance.marketCapBase()));
        m_environment.insert(QStringLiteral("QUILLBAR_CA_FILE"), text(m_binance.caFile()));
        m_environment.insert(QStringLiteral("XDG_DATA_HOME"), text(m_folder.path().string()));
    }

    void TearDown() override {
        m_label.kill();
        m_label.waitForFinished();
    }

    void run(const QStringList& arguments) {
        start(QStringLiteral(QUILLBAR_LABEL_PROGRAM), arguments);
    }

    void start(const QString& program, const QStringList& arguments) {
        m_label.setProcessEnvironment(m_environment);
        m_label.start(program, arguments);
        ASSERT_TRUE(m_label.waitForStarted());
    }

    void collect() {
        m_output += m_label.readAllStandardOutput().toStdString();
        m_errors += m_label.readAllStandardError().toStdString();
    }

    [[nodiscard]] bool printsLine(const std::string& part) {
        return spinUntil([&] {
            collect();
            return m_output.find(part) != std::string::npos;
        });
    }

    /// The exit status; -1 when the program does not end or was ended by a signal.
    [[nodiscard]] int exitStatus() {
        const bool hasEnded = spinUntil([&] { return m_label.state() == QProcess::NotRunning; });
        collect();
        return hasEnded && m_label.exitStatus() == QProcess::NormalExit ? m_label.exitCode() : -1;
    }

    void theWatchlistIs(const std::string& json) const {
        const auto folder = m_folder.path() / "Quillbar";
        std::filesystem::create_directories(folder);
        std::ofstream(folder / "watchlist.json") << json;
    }

    Simulator m_binance{{.symbolCount = 100}};
    TemporaryFolder m_folder;
    QProcessEnvironment m_environment = QProcessEnvironment::systemEnvironment();
    QProcess m_label;
    std::string m_output;
    std::string m_errors;
};

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
        ::kill(static_cast<pid_t>(m_label.processId()), signal);
        EXPECT_EQ(exitStatus(), 0) << signal;
        EXPECT_TRUE(spinUntil([&] { return m_binance.openStreams() == 0; }));
    }
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
    EXPECT_EQ(m_errors, "quillbar-label: 未知的参数「--loud」,请看 --help\n");
    m_errors.clear();
    run({QStringLiteral("--boards"), QStringLiteral("--format=json")});
    EXPECT_EQ(exitStatus(), 2);
    EXPECT_EQ(m_output, "");
    EXPECT_EQ(m_errors, "quillbar-label: --boards 只能输出文本,不能与 --format 同用\n");
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
    EXPECT_THAT(m_errors, HasSubstr("/nowhere/ca.pem"));
}

TEST_F(LabelProgramTest, explainsItself) {
    run({QStringLiteral("--help")});
    EXPECT_EQ(exitStatus(), 0);
    EXPECT_THAT(m_output, StartsWith("用法:quillbar-label"));
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
