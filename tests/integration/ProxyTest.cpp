// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/platform/ProxyFactory.h"
#include "QuillbarCore/exchange/URLSessionWebSocket.h"
#include "tests/integration/Fetching.h"
#include "tests/integration/LittleProxy.h"
#include "tests/integration/StreamReader.h"
#include "tests/integration/TestExchange.h"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quillbar {
namespace {

using simulator::CertificateKind;
using simulator::SimulatorOptions;
using testing::AnyOf;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

// The name in the certificate, which nothing but the proxy can take to the exchange.
constexpr const char* kExchangeName = "elsewhere.example";

// An exchange that can be reached through a proxy alone.
class ProxyTest : public testing::Test {
protected:
    void TearDown() override { QNetworkProxyFactory::setApplicationProxyFactory(nullptr); }

    static SimulatorOptions named() {
        SimulatorOptions options;
        options.certificate = CertificateKind::wrongHost;
        return options;
    }

    static void setProxy(const char* variable, const std::string& url) {
        QProcessEnvironment environment;
        environment.insert(QString::fromLatin1(variable), QString::fromStdString(url));
        QNetworkProxyFactory::setApplicationProxyFactory(new ProxyFactory(environment));
    }

    std::string address() { return fmt::format("{}:{}", kExchangeName, m_exchange->port()); }

    void fetchAndStream() {
        const HTTPResponse response =
            Fetching().get("https://" + address() + "/api/v3/klines?symbol=BTCUSDT&interval=5m");
        EXPECT_EQ(response.status, 200);
        EXPECT_THAT(response.body, StartsWith("[["));

        EventLoop loop;
        URLSessionWebSocket socket;
        StreamReader reader(
            loop, socket.connect("wss://" + address() + "/stream?streams=btcusdt@miniTicker"));
        ASSERT_TRUE(spinUntil([&] { return m_exchange->openStreams() == 1 || reader.isEnded; }));
        m_exchange->tick();
        EXPECT_TRUE(reader.receives(1)) << reader.errorText;
    }

    TestExchange m_exchange{Trust::trusted, named()};
};

TEST_F(ProxyTest, carriesRequestsAndTheStreamByHttpConnect) {
    for (const char* const variable : {"https_proxy", "HTTPS_PROXY", "all_proxy", "ALL_PROXY"}) {
        SCOPED_TRACE(variable);
        LittleProxy proxy(m_exchange->port());
        setProxy(variable, proxy.url("http"));
        fetchAndStream();
        EXPECT_THAT(proxy.wishes, ElementsAre("connect " + address(), "connect " + address()));
    }
}

TEST_F(ProxyTest, carriesRequestsAndTheStreamBySocks5AndLetsItResolveTheName) {
    for (const char* const variable : {"https_proxy", "all_proxy"}) {
        for (const char* const scheme : {"socks5", "socks5h"}) {
            SCOPED_TRACE(fmt::format("{} {}", variable, scheme));
            LittleProxy proxy(m_exchange->port());
            setProxy(variable, proxy.url(scheme));
            fetchAndStream();
            EXPECT_THAT(proxy.wishes, ElementsAre("socks5 " + address(), "socks5 " + address()));
        }
    }
}

TEST_F(ProxyTest, givesTheProxyItsPassword) {
    for (const char* const scheme : {"http", "socks5"}) {
        SCOPED_TRACE(scheme);
        LittleProxy proxy(m_exchange->port(), LittleProxy::Access::withPassword);
        setProxy("https_proxy",
                 fmt::format("{}://user:pass%3Aword@127.0.0.1:{}", scheme, proxy.port()));
        fetchAndStream();
        EXPECT_EQ(proxy.wishes.size(), 2U);
    }
}

TEST_F(ProxyTest, failsWhenTheProxyTurnsItAway) {
    LittleProxy proxy(m_exchange->port(), LittleProxy::Access::withPassword);
    setProxy("https_proxy", proxy.url("http"));
    EXPECT_EQ(Fetching().failure("https://" + address() + "/"), URLError::Code::proxyFailed);
    EventLoop loop;
    URLSessionWebSocket socket;
    StreamReader reader(loop, socket.connect("wss://" + address() + "/stream"));
    ASSERT_TRUE(reader.ends());
    EXPECT_EQ(reader.error, URLError::Code::proxyFailed);
    EXPECT_GE(proxy.refusals, 2);
}

TEST_F(ProxyTest, failsWhereNoProxyListens) {
    std::string gone;
    {
        const LittleProxy proxy(0);
        gone = proxy.url("http");
    }
    setProxy("https_proxy", gone);
    // Qt 6.4 does not say that it was the proxy that refused.
    EXPECT_THAT(Fetching().failure("https://" + address() + "/"),
                AnyOf(URLError::Code::proxyFailed, URLError::Code::cannotConnect));
    EventLoop loop;
    URLSessionWebSocket socket;
    StreamReader reader(loop, socket.connect("wss://" + address() + "/stream"));
    ASSERT_TRUE(reader.ends());
    EXPECT_EQ(reader.error, URLError::Code::proxyFailed);
}

TEST_F(ProxyTest, refusesAWrongCertificateBehindAProxyToo) {
    LittleProxy proxy(m_exchange->port());
    setProxy("https_proxy", proxy.url("http"));
    m_exchange.faults().setCertificate(CertificateKind::valid);
    EXPECT_EQ(Fetching().failure("https://" + address() + "/"),
              URLError::Code::secureConnectionFailed);
}

TEST_F(ProxyTest, leavesLoopbackAlone) {
    LittleProxy proxy(m_exchange->port());
    setProxy("all_proxy", proxy.url("http"));
    m_exchange.faults().setCertificate(CertificateKind::valid);
    EXPECT_EQ(Fetching().get(m_exchange.klinesUrl()).status, 200);
    EXPECT_THAT(proxy.wishes, IsEmpty());
}

}  // namespace
}  // namespace quillbar
