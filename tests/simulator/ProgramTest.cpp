// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "simulator/CommandLine.h"
#include "tests/qtsupport/SpinUntil.h"

#include <QFile>
#include <QNetworkProxy>
#include <QProcess>
#include <QSslCertificate>
#include <QSslConfiguration>
#include <QSslSocket>
#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <map>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace quillbar::simulator {
namespace {

using ::testing::HasSubstr;
using ::testing::MatchesRegex;

std::string complaintOf(const std::vector<std::string>& arguments) {
    try {
        const CommandLine ignored = parseCommandLine(arguments);
    } catch (const std::invalid_argument& error) {
        return error.what();
    }
    return "none";
}

TEST(CommandLineTest, DefaultsToAMovingMarketOverTls) {
    const CommandLine commandLine = parseCommandLine({});
    EXPECT_TRUE(commandLine.text.empty());
    EXPECT_EQ(commandLine.options.ticking, Ticking::automatic);
    EXPECT_EQ(commandLine.options.transport, Transport::tls);
    EXPECT_EQ(commandLine.options.port, 0);
    EXPECT_EQ(commandLine.options.symbolCount, 2000);
}

TEST(CommandLineTest, TakesValuesAfterASpaceOrAnEqualsSign) {
    const SimulatorOptions options = parseCommandLine({"--port",
                                                       "8443",
                                                       "--control-port=8444",
                                                       "--plain",
                                                       "--ca-file=/a=b",
                                                       "--certificate",
                                                       "wrong-host",
                                                       "--seed=18446744073709551615",
                                                       "--symbols",
                                                       "12",
                                                       "--speed=2.5",
                                                       "--start-time",
                                                       "1700000000123"})
                                         .options;
    EXPECT_EQ(options.port, 8443);
    EXPECT_EQ(options.controlPort, 8444);
    EXPECT_EQ(options.transport, Transport::plain);
    EXPECT_EQ(options.caFile, "/a=b");
    EXPECT_EQ(options.certificate, CertificateKind::wrongHost);
    EXPECT_EQ(options.seed, UINT64_MAX);
    EXPECT_EQ(options.symbolCount, 12);
    EXPECT_EQ(options.speed, 2.5);
    EXPECT_EQ(options.startTime->time_since_epoch().count(), 1700000000123);
    EXPECT_EQ(parseCommandLine({"--certificate", "expired"}).options.certificate,
              CertificateKind::expired);
}

TEST(CommandLineTest, ExplainsWhatIsWrong) {
    EXPECT_EQ(complaintOf({"--fast"}), "unknown argument \"--fast\"");
    EXPECT_EQ(complaintOf({"extra"}), "unknown argument \"extra\"");
    EXPECT_EQ(complaintOf({"--port"}), "--port needs a value");
    EXPECT_EQ(complaintOf({"--port", "65536"}),
              "--port must be a number from 0 to 65535, not \"65536\"");
    EXPECT_EQ(complaintOf({"--control-port=-1"}),
              "--control-port must be a number from 0 to 65535, not \"-1\"");
    EXPECT_EQ(complaintOf({"--symbols=0"}),
              "--symbols must be a number from 1 to 100000, not \"0\"");
    EXPECT_EQ(complaintOf({"--speed=nan"}),
              "--speed must be a number from 0.001 to 1000, not \"nan\"");
    EXPECT_EQ(complaintOf({"--speed=1,5"}),
              "--speed must be a number from 0.001 to 1000, not \"1,5\"");
    EXPECT_EQ(complaintOf({"--seed=-1"}), "--seed must be a whole number, not \"-1\"");
    EXPECT_EQ(complaintOf({"--start-time=now"}),
              "--start-time must be milliseconds since 1970, not \"now\"");
    EXPECT_EQ(complaintOf({"--certificate=none"}),
              "--certificate must be valid, expired or wrong-host, not \"none\"");
    EXPECT_EQ(complaintOf({"--ca-file="}), "--ca-file must be a path, not \"\"");
}

TEST(CommandLineTest, HelpNamesEveryOptionAndFault) {
    const std::string help = parseCommandLine({"--help"}).text;
    for (const char* word : {"--port",           "--control-port",   "--plain",
                             "--ca-file",        "--certificate",    "--seed",
                             "--symbols",        "--speed",          "--start-time",
                             "--help",           "--version",        "  /requests\n",
                             "  /release\n",     "  /voice\n",       "  /handshake\n",
                             "  /end-streams\n", "  /certificate\n", "  /refuse\n",
                             "  /burst\n",       "  /ping\n",        "  /server-shutdown\n",
                             "  /clear\n"}) {
        EXPECT_THAT(help, HasSubstr(word));
    }
    EXPECT_THAT(parseCommandLine({"--version"}).text, MatchesRegex("quillbar-simulator [0-9.]+\n"));
}

/// The program itself, running.
class Program final {
public:
    explicit Program(const QStringList& arguments) {
        m_process.start(QStringLiteral(QUILLBAR_SIMULATOR_PROGRAM), arguments);
    }
    ~Program() {
        m_process.kill();
        m_process.waitForFinished();
    }
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;
    Program(Program&&) = delete;
    Program& operator=(Program&&) = delete;

    /// Waits for "ready"; the words of its lines by the first of each.
    std::map<std::string, std::string> addresses() {
        EXPECT_TRUE(spinUntil([this] {
            m_output += m_process.readAllStandardOutput().toStdString();
            return m_output.ends_with("\nready\n") || m_process.state() == QProcess::NotRunning;
        }));
        std::map<std::string, std::string> addresses;
        std::istringstream lines(m_output);
        for (std::string line; std::getline(lines, line);) {
            const std::size_t space = std::min(line.find(' '), line.size());
            addresses[line.substr(0, space)] = line.substr(std::min(space + 1, line.size()));
        }
        return addresses;
    }

    /// Waits for the end; the exit status, or -1 for an end by a signal.
    int exitStatus() {
        EXPECT_TRUE(spinUntil([this] { return m_process.state() == QProcess::NotRunning; }));
        return m_process.exitStatus() == QProcess::NormalExit ? m_process.exitCode() : -1;
    }

    QProcess& process() { return m_process; }
    void send(int signal) { ::kill(static_cast<pid_t>(m_process.processId()), signal); }

private:
    QProcess m_process;
    std::string m_output;
};

/// Whether a TLS client that trusts the file gets through to the port.
bool isTrusted(const std::string& caFile, const std::string& port) {
    QSslSocket socket;
    socket.setProxy(QNetworkProxy::NoProxy);
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    configuration.setCaCertificates(QSslCertificate::fromPath(QString::fromStdString(caFile)));
    socket.setSslConfiguration(configuration);
    socket.connectToHostEncrypted(QStringLiteral("127.0.0.1"),
                                  QString::fromStdString(port).toUShort());
    return socket.waitForEncrypted(20'000);
}

std::string portOf(const std::string& address) {
    const std::size_t colon = address.rfind(':');
    return address.substr(colon + 1);
}

TEST(ProgramTest, PrintsItsAddressesAndEndsOnTerm) {
    Program program({QStringLiteral("--symbols=20")});
    auto addresses = program.addresses();
    const std::string port = portOf(addresses["stream"]);
    EXPECT_EQ(addresses["rest"], "https://127.0.0.1:" + port + "/api/v3");
    EXPECT_EQ(addresses["stream"], "wss://127.0.0.1:" + port);
    EXPECT_EQ(addresses["market-caps"], "https://127.0.0.1:" + port + "/coingecko/api/v3");
    EXPECT_EQ(addresses["icons"], "https://127.0.0.1:" + port + "/icons");
    EXPECT_TRUE(addresses["control"].starts_with("http://127.0.0.1:"));
    EXPECT_NE(portOf(addresses["control"]), port);
    EXPECT_TRUE(isTrusted(addresses["ca-file"], port));
    program.send(SIGTERM);
    EXPECT_EQ(program.exitStatus(), 0);
    EXPECT_FALSE(QFile::exists(QString::fromStdString(addresses["ca-file"])));
}

TEST(ProgramTest, EndsOnInterrupt) {
    Program program({QStringLiteral("--plain"), QStringLiteral("--symbols=20")});
    auto addresses = program.addresses();
    EXPECT_FALSE(addresses.contains("ca-file"));
    EXPECT_THAT(addresses["rest"], HasSubstr("http://"));
    program.send(SIGINT);
    EXPECT_EQ(program.exitStatus(), 0);
}

TEST(ProgramTest, ComesBackAfterAKillOnItsPortWithTheAuthorityClientsTrust) {
    const QTemporaryDir folder;
    const QString caFile = folder.filePath(QStringLiteral("ca.pem"));
    QStringList arguments{QStringLiteral("--symbols=20"), QStringLiteral("--ca-file"), caFile};
    std::string port;
    std::string control;
    {
        Program program(arguments);
        auto addresses = program.addresses();
        port = portOf(addresses["stream"]);
        control = portOf(addresses["control"]);
        ASSERT_TRUE(isTrusted(caFile.toStdString(), port));
        QFile::copy(caFile, caFile + QStringLiteral(".first"));
        program.send(SIGKILL);
        EXPECT_EQ(program.exitStatus(), -1);
    }
    arguments << QStringLiteral("--port") << QString::fromStdString(port)
              << QStringLiteral("--control-port") << QString::fromStdString(control);
    Program again(arguments);
    auto addresses = again.addresses();
    EXPECT_EQ(portOf(addresses["stream"]), port);
    EXPECT_EQ(portOf(addresses["control"]), control);
    EXPECT_TRUE(isTrusted(caFile.toStdString() + ".first", port));
}

TEST(ProgramTest, ComplainsInOneLineAndExitsWithTwo) {
    Program program({QStringLiteral("--speed=fast")});
    EXPECT_EQ(program.exitStatus(), 2);
    EXPECT_EQ(program.process().readAllStandardError().toStdString(),
              "quillbar-simulator: --speed must be a number from 0.001 to 1000, not \"fast\"\n");
    EXPECT_TRUE(program.process().readAllStandardOutput().isEmpty());
}

TEST(ProgramTest, ATakenPortIsOneLineToo) {
    Program first({QStringLiteral("--plain"), QStringLiteral("--symbols=20")});
    const QString port = QString::fromStdString(portOf(first.addresses()["stream"]));
    Program second({QStringLiteral("--plain"), QStringLiteral("--port"), port});
    EXPECT_EQ(second.exitStatus(), 2);
    EXPECT_THAT(
        second.process().readAllStandardError().toStdString(),
        MatchesRegex("quillbar-simulator: cannot listen on 127.0.0.1 port [0-9]+: [^\n]+\n"));
}

TEST(ProgramTest, HelpAndVersionArePrinted) {
    Program program({QStringLiteral("--version")});
    EXPECT_EQ(program.exitStatus(), 0);
    EXPECT_THAT(program.process().readAllStandardOutput().toStdString(),
                MatchesRegex("quillbar-simulator [0-9.]+\n"));
}

}  // namespace
}  // namespace quillbar::simulator
