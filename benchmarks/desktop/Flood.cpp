// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "benchmarks/desktop/Moments.h"
#include "benchmarks/desktop/Roles.h"
#include "simulator/Bodies.h"
#include "simulator/Simulator.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTimer>

#include <fmt/core.h>

#include <charconv>
#include <chrono>
#include <cstddef>
#include <cstdio>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quillbar::benchmarks {

namespace {

constexpr int kListed = 5000;
constexpr std::chrono::milliseconds kSpacing{10};
constexpr std::string_view kLast =
    R"({"stream":"btcusdt@miniTicker","data":{"e":"24hrMiniTicker","E":4102444800000,)"
    R"("s":"BTCUSDT","c":"77777.77","o":"77000.00","h":"78000.00","l":"76000.00",)"
    R"("v":"1000.0","q":"77000000.0"}})";

/// Sends prices at an even rate, each coin its own in turn, and each other than the one before.
class Flood final {
public:
    Flood(simulator::Simulator& exchange, double perSecond)
        : m_exchange(exchange)
        , m_perSecond(perSecond)
        , m_market(1, kListed, exchange.market().now()) {
        for (const simulator::Listing& listing : m_market.listings()) {
            if (listing.quoteAsset == "USDT"
                && listing.status == simulator::ListingStatus::trading) {
                m_coins.push_back(&listing);
            }
        }
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { catchUp(); });
        m_timer.setTimerType(Qt::PreciseTimer);
        m_timer.start(kSpacing);
        m_elapsed.start();
    }

    /// Sends the one price that is known, and none of its coin from then on; the flood goes on.
    void sendLast() {
        m_coins.erase(m_coins.begin());
        m_next = 0;
        m_exchange.faults().sendText(kLast);
        sayMoment("last");
    }

private:
    void catchUp() {
        if (m_exchange.openStreams() == 0) {
            m_elapsed.restart();
            m_sent = 0;
            return;
        }
        const double seconds = static_cast<double>(m_elapsed.nsecsElapsed()) / 1e9;
        const auto due = static_cast<std::size_t>(seconds * m_perSecond);
        for (; m_sent < due; ++m_sent) {
            sendNext();
        }
        if (m_elapsed.elapsed() > 1000 * (m_toldSeconds + 1)) {
            ++m_toldSeconds;
            sayMoment("sent", std::to_string(m_sent));
        }
    }

    void sendNext() {
        if (m_next == 0) {
            m_market.step();
        }
        m_exchange.faults().sendText(
            simulator::Bodies::miniTickerFrame(m_market, *m_coins[m_next]));
        m_next = (m_next + 1) % m_coins.size();
    }

    simulator::Simulator& m_exchange;
    double m_perSecond;
    simulator::Market m_market;
    std::vector<const simulator::Listing*> m_coins;
    std::size_t m_next = 0;
    std::size_t m_sent = 0;
    qint64 m_toldSeconds = 0;
    QTimer m_timer;
    QElapsedTimer m_elapsed;
};

}  // namespace

int runFlood(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const std::string_view rate = argc > 2 ? argv[2] : "";
    double perSecond = 0;
    std::from_chars(rate.data(), rate.data() + rate.size(), perSecond);
    if (perSecond <= 0) {
        fmt::print(stderr, "flood: how many prices a second?\n");
        return 2;
    }
    simulator::SimulatorOptions options;
    options.symbolCount = kListed;
    simulator::Simulator exchange(options);
    Flood flood(exchange, perSecond);
    onLines([&flood](std::string_view line) {
        if (line == "last") {
            flood.sendLast();
        }
    });
    fmt::print("ca-file {}\nrest {}\nstream {}\nmarket-caps {}\nicons {}\nready\n",
               exchange.caFile(),
               exchange.restBase(),
               exchange.streamBase(),
               exchange.marketCapBase(),
               exchange.iconBase());
    std::fflush(stdout);
    return QCoreApplication::exec();
}

}  // namespace quillbar::benchmarks
