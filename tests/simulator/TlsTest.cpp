// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "simulator/CertificateAuthority.h"
#include "simulator/SimulatorThread.h"
#include "tests/qtsupport/SpinUntil.h"
#include "tests/simulator/Clients.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QNetworkProxy>
#include <QSslCertificate>
#include <QSslSocket>
#include <QTcpServer>
#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>
#include <string>

namespace quillbar::simulator {
namespace {

using ::testing::HasSubstr;
using ::testing::UnorderedElementsAre;

SimulatorOptions smallMarket() {
    SimulatorOptions options;
    options.symbolCount = 20;
    return options;
}

/// The errors a TLS client finds in the server's certificate; connecting to the host as named.
class TlsClient final {
public:
    TlsClient(const Simulator& simulator, const QString& host)
        : TlsClient(simulator, host, trusting(simulator)) {}
    TlsClient(const Simulator& simulator, const QString& host, const QSslConfiguration& tls) {
        m_socket.setProxy(QNetworkProxy::NoProxy);
        m_socket.setSslConfiguration(tls);
        QObject::connect(
            &m_socket, &QAbstractSocket::errorOccurred, &m_context, [this] { m_hasEnded = true; });
        m_socket.connectToHostEncrypted(QStringLiteral("127.0.0.1"), simulator.port(), host);
    }

    /// Waits for the outcome: whether the certificate was accepted.
    bool isAccepted() {
        EXPECT_TRUE(spinUntil([this] { return m_socket.isEncrypted() || m_hasEnded; }));
        return m_socket.isEncrypted() && m_socket.sslHandshakeErrors().isEmpty();
    }

    [[nodiscard]] bool hasError(QSslError::SslError error) const {
        const auto errors = m_socket.sslHandshakeErrors();
        return std::any_of(errors.begin(), errors.end(), [error](const QSslError& each) {
            return each.error() == error;
        });
    }

    QSslSocket& socket() { return m_socket; }

private:
    QSslSocket m_socket;
    QObject m_context;
    bool m_hasEnded = false;
};

std::string read(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll().toStdString();
}

void write(const QString& path, const std::string& text) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QByteArray::fromStdString(text));
}

template <typename Function>
std::string complaintOf(Function function) {
    try {
        function();
    } catch (const std::runtime_error& error) {
        return error.what();
    }
    return "none";
}

class TlsTest : public ::testing::Test {
public:
    Simulator simulator{smallMarket()};
};

TEST_F(TlsTest, TheValidCertificateHoldsForEveryNameOfLoopback) {
    for (const char* host : {"127.0.0.1", "localhost", "::1"}) {
        TlsClient client(simulator, QString::fromLatin1(host));
        EXPECT_TRUE(client.isAccepted()) << host;
    }
}

TEST_F(TlsTest, TheValidCertificateHoldsForNoOtherName) {
    TlsClient client(simulator, QStringLiteral("quillbar.example"));
    EXPECT_FALSE(client.isAccepted());
    EXPECT_TRUE(client.hasError(QSslError::HostNameMismatch));
}

TEST_F(TlsTest, AnExpiredCertificateIsRefusedUntilAValidOneIsBack) {
    simulator.faults().setCertificate(CertificateKind::expired);
    TlsClient refused(simulator, QStringLiteral("localhost"));
    EXPECT_FALSE(refused.isAccepted());
    EXPECT_TRUE(refused.hasError(QSslError::CertificateExpired));
    simulator.faults().setCertificate(CertificateKind::valid);
    TlsClient accepted(simulator, QStringLiteral("localhost"));
    EXPECT_TRUE(accepted.isAccepted());
}

TEST_F(TlsTest, ACertificateForAnotherHostIsRefused) {
    SimulatorOptions options = smallMarket();
    options.certificate = CertificateKind::wrongHost;
    const Simulator elsewhere(options);
    TlsClient client(elsewhere, QStringLiteral("localhost"));
    EXPECT_FALSE(client.isAccepted());
    EXPECT_TRUE(client.hasError(QSslError::HostNameMismatch));
}

TEST_F(TlsTest, AnotherSimulatorsAuthorityIsNotTrusted) {
    const Simulator other(smallMarket());
    QNetworkAccessManager manager;
    manager.setProxy(QNetworkProxy::NoProxy);
    QNetworkRequest request(QUrl(QString::fromStdString(simulator.restBase() + "/exchangeInfo")));
    request.setSslConfiguration(trusting(other));
    const Answer answer = HttpClient::finished(manager.get(request));
    EXPECT_EQ(answer.error, QNetworkReply::SslHandshakeFailedError);
    ASSERT_TRUE(spinUntil([this] { return simulator.abandonedConnections() > 0; }));
    EXPECT_TRUE(simulator.requests().empty());
}

TEST_F(TlsTest, AGreetingIsNeverAnswered) {
    simulator.faults().setHandshake(Handshake::silentTls);
    TlsClient client(simulator, QStringLiteral("localhost"));
    ASSERT_TRUE(spinUntil([this] { return simulator.openConnections() == 1; }));
    spinUntilIdle();
    EXPECT_EQ(client.socket().state(), QAbstractSocket::ConnectedState);
    EXPECT_FALSE(client.socket().isEncrypted());
    client.socket().abort();
    ASSERT_TRUE(spinUntil([this] { return simulator.openConnections() == 0; }));
    EXPECT_EQ(simulator.abandonedConnections(), 0) << "it was the simulator that kept silent";
    simulator.faults().setHandshake(Handshake::normal);
    TlsClient next(simulator, QStringLiteral("localhost"));
    EXPECT_TRUE(next.isAccepted());
}

TEST_F(TlsTest, TheAuthoritysFileHoldsItsCertificateAndGoesWithTheSimulator) {
    QString file;
    {
        const Simulator brief(smallMarket());
        file = QString::fromStdString(brief.caFile());
        EXPECT_EQ(read(file), brief.caCertificatePem());
        EXPECT_THAT(brief.caCertificatePem(), HasSubstr("BEGIN CERTIFICATE"));
    }
    EXPECT_FALSE(QFileInfo::exists(file));
}

TEST_F(TlsTest, TwoSimulatorsHaveTwoAuthorities) {
    const Simulator other(smallMarket());
    EXPECT_NE(simulator.caCertificatePem(), other.caCertificatePem());
}

TEST_F(TlsTest, ATakenPortIsExplained) {
    SimulatorOptions options = smallMarket();
    options.port = simulator.port();
    EXPECT_THAT(complaintOf([&options] { const Simulator second(options); }),
                HasSubstr("cannot listen on 127.0.0.1 port " + std::to_string(simulator.port())));
}

TEST_F(TlsTest, OptionsOutOfRangeAreExplained) {
    SimulatorOptions options;
    options.symbolCount = 0;
    EXPECT_EQ(complaintOf([&options] { const Simulator none(options); }),
              "the number of symbols must be from 1 to 100000");
    options.symbolCount = 1;
    options.speed = 0;
    EXPECT_EQ(complaintOf([&options] { const Simulator still(options); }),
              "the speed must be above 0 and at most 1000");
}

class CertificateAuthorityTest : public ::testing::Test {
protected:
    QString path() { return m_folder.filePath(QStringLiteral("ca.pem")); }
    QString keyPath() { return path() + QStringLiteral(".key"); }
    std::string complaint() {
        return complaintOf([this] { const CertificateAuthority made(path().toStdString()); });
    }

private:
    QTemporaryDir m_folder;
};

TEST_F(CertificateAuthorityTest, IsWrittenWithItsKeyForTheOwnerAlone) {
    const CertificateAuthority authority(path().toStdString());
    EXPECT_EQ(read(path()), authority.certificatePem());
    EXPECT_THAT(read(keyPath()), HasSubstr("PRIVATE KEY"));
    EXPECT_EQ(QFileInfo(keyPath()).permissions() & ~(QFile::ReadUser | QFile::WriteUser),
              QFile::ReadOwner | QFile::WriteOwner);
}

TEST_F(CertificateAuthorityTest, IsUsedAgain) {
    const CertificateAuthority first(path().toStdString());
    const std::string key = read(keyPath());
    EXPECT_EQ(CertificateAuthority(path().toStdString()).certificatePem(), first.certificatePem());
    EXPECT_EQ(read(keyPath()), key);
}

TEST_F(CertificateAuthorityTest, AClientOfTheFirstSimulatorTrustsTheSecond) {
    SimulatorOptions options = smallMarket();
    options.caFile = path().toStdString();
    QSslConfiguration tls;
    {
        const Simulator first(options);
        tls = trusting(first);
        EXPECT_EQ(first.caFile(), options.caFile);
    }
    const Simulator second(options);
    TlsClient client(second, QStringLiteral("localhost"), tls);
    EXPECT_TRUE(client.isAccepted());
}

TEST_F(CertificateAuthorityTest, AnEmptyFileIsFilled) {
    write(path(), "");
    const CertificateAuthority authority(path().toStdString());
    EXPECT_EQ(read(path()), authority.certificatePem());
}

TEST_F(CertificateAuthorityTest, AForeignFileIsNeverWrittenOver) {
    write(path(), "somebody else's");
    EXPECT_EQ(complaint(),
              path().toStdString() + " exists but has no key beside it (" + keyPath().toStdString()
                  + ")");
    write(keyPath(), "not a key");
    EXPECT_EQ(complaint(),
              path().toStdString() + " and " + keyPath().toStdString()
                  + " do not hold an authority and its key");
    EXPECT_EQ(read(path()), "somebody else's");
}

TEST_F(CertificateAuthorityTest, AnotherAuthoritysKeyIsRefused) {
    const CertificateAuthority first(path().toStdString());
    QTemporaryDir elsewhere;
    const QString other = elsewhere.filePath(QStringLiteral("ca.pem"));
    const CertificateAuthority second(other.toStdString());
    write(keyPath(), read(other + QStringLiteral(".key")));
    EXPECT_THAT(complaint(), HasSubstr("do not hold an authority and its key"));
}

TEST_F(CertificateAuthorityTest, AServersCertificateIsNoAuthority) {
    const CertificateAndKey issued = CertificateAuthority().issue(CertificateKind::valid);
    write(path(), issued.certificate);
    write(keyPath(), issued.key);
    EXPECT_THAT(complaint(), HasSubstr("do not hold an authority and its key"));
}

TEST_F(CertificateAuthorityTest, AFolderThatIsMissingIsExplained) {
    const std::string nowhere = path().toStdString() + "/below/ca.pem";
    EXPECT_THAT(complaintOf([&nowhere] { const CertificateAuthority authority(nowhere); }),
                HasSubstr("cannot write " + nowhere));
}

TEST_F(CertificateAuthorityTest, IssuesForLoopbackOrForAnotherHost) {
    const CertificateAuthority authority;
    const auto namesOf = [&authority](CertificateKind kind) {
        const CertificateAndKey issued = authority.issue(kind);
        const auto certificates =
            QSslCertificate::fromData(QByteArray::fromStdString(issued.certificate));
        std::vector<std::string> names;
        for (const QString& name : certificates.at(0).subjectAlternativeNames()) {
            names.push_back(name.toStdString());
        }
        return names;
    };
    const auto loopback = UnorderedElementsAre("localhost", "127.0.0.1", "::1");
    EXPECT_THAT(namesOf(CertificateKind::valid), loopback);
    EXPECT_THAT(namesOf(CertificateKind::expired), loopback);
    EXPECT_THAT(namesOf(CertificateKind::wrongHost), UnorderedElementsAre("elsewhere.example"));
}

TEST(SimulatorThreadTest, AnswersAClientThatBlocksItsOwnThread) {
    SimulatorThread thread(smallMarket());
    std::uint16_t port = 0;
    QSslConfiguration tls;
    thread.call([&port, &tls](Simulator& simulator) {
        port = simulator.port();
        tls = trusting(simulator);
    });
    QSslSocket socket;
    socket.setProxy(QNetworkProxy::NoProxy);
    socket.setSslConfiguration(tls);
    socket.connectToHostEncrypted(QStringLiteral("127.0.0.1"), port);
    ASSERT_TRUE(socket.waitForEncrypted());
    socket.write("GET /icons/BTC.png HTTP/1.1\r\nConnection: close\r\n\r\n");
    ASSERT_TRUE(socket.waitForDisconnected());
    EXPECT_THAT(socket.readAll().toStdString(), HasSubstr("200 OK"));
    thread.call([](Simulator& simulator) { EXPECT_EQ(simulator.requests().size(), 1U); });
}

TEST(SimulatorThreadTest, PassesOnWhatIsThrown) {
    SimulatorOptions options = smallMarket();
    options.symbolCount = 0;
    EXPECT_THROW(SimulatorThread{options}, std::runtime_error);
    SimulatorThread thread(smallMarket());
    EXPECT_THROW(thread.call([](Simulator&) { throw std::logic_error("no"); }), std::logic_error);
}

}  // namespace
}  // namespace quillbar::simulator
