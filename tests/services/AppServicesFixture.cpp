// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/services/AppServicesFixture.h"

#include "Quillbar/platform/CertificateAuthorities.h"
#include "QuillbarCore/runtime/QtExecutor.h"
#include "QuillbarCore/runtime/QtWorker.h"
#include "tests/qtsupport/SpinUntil.h"

#include <algorithm>
#include <optional>

namespace quillbar {

namespace {

constexpr double kWatchdogSeconds = 30;
constexpr double kPriceWatchSeconds = 25;
constexpr double kLabelSecond = 1;

bool isWatchdog(double seconds) {
    return seconds == kWatchdogSeconds;
}

bool isPriceWatch(double seconds) {
    return seconds == kPriceWatchSeconds;
}

// The jitter makes no back-off of exactly a second.
bool isBackOff(double seconds) {
    return !isWatchdog(seconds) && !isPriceWatch(seconds) && seconds != kLabelSecond;
}

std::unique_ptr<TemporaryFolder> authorityFolder;

std::string authorityFile() {
    return (authorityFolder->path() / "authority.pem").string();
}

}  // namespace

AppServicesFixture::AppServicesFixture()
    : m_executor(makeQtExecutor())
    , m_worker(makeQtWorker())
    , m_bootBegin(bootClock()())
    , m_wallBegin(systemClock()()) {}

void AppServicesFixture::TearDown() {
    m_services.reset();
    m_worker.reset();
    spinUntilIdle();
}

void AppServicesFixture::SetUpTestSuite() {
    if (!authorityFolder) {
        authorityFolder = std::make_unique<TemporaryFolder>();
        const simulator::Simulator maker({.caFile = authorityFile(), .symbolCount = 1});
        ASSERT_EQ(trustAuthorities(authorityFile()), std::nullopt);
    }
}

void AppServicesFixture::TearDownTestSuite() {}

simulator::Simulator& AppServicesFixture::exchange(simulator::CertificateKind certificate) {
    simulator::SimulatorOptions options;
    options.certificate = certificate;
    options.caFile = authorityFile();
    options.symbolCount = 100;
    m_exchanges.push_back(std::make_unique<simulator::Simulator>(options));
    return *m_exchanges.back();
}

void AppServicesFixture::start(const std::vector<simulator::Simulator*>& exchanges) {
    ServiceEndpoints endpoints = ServiceEndpoints::production();
    endpoints.rest.clear();
    endpoints.stream.clear();
    for (const simulator::Simulator* const exchange : exchanges) {
        endpoints.rest.push_back(exchange->restBase());
        endpoints.stream.push_back(exchange->streamBase());
    }
    endpoints.marketCap = exchanges.front()->marketCapBase();
    endpoints.icon = exchanges.front()->iconBase();
    const MonotonicClock monotonic = [this] { return m_bootBegin + m_passed; };
    m_services = std::make_unique<AppServices>(ServicePlatform{.executor = *m_executor,
                                                               .worker = *m_worker,
                                                               .clock = wallClock(),
                                                               .monotonic = monotonic,
                                                               .sleeper = m_sleeper.sleeper(),
                                                               .calendar = Calendar::utc()},
                                               endpoints,
                                               m_folder.path());
    m_log.clear();
    m_services->start();
}

Clock AppServicesFixture::wallClock() const {
    return [this] { return m_wallBegin + m_passed - m_setBack; };
}

bool AppServicesFixture::wakeWatchdog() {
    return m_sleeper.wake(isWatchdog) == 1;
}

bool AppServicesFixture::endPriceWatch() {
    return m_sleeper.wake(isPriceWatch) > 0;
}

bool AppServicesFixture::endBackOff() {
    return m_sleeper.wake(isBackOff) == 1;
}

std::vector<double> AppServicesFixture::backOffs() const {
    return m_sleeper.requested(isBackOff);
}

bool AppServicesFixture::hasPrice() const {
    return label().starts_with("BTC ");
}

bool AppServicesFixture::nextPriceArrives(simulator::Simulator& exchange) {
    // The label follows the stream once a second.
    letPass(Seconds(1));
    const std::optional<TimePoint> before = *state().lastUpdate();
    exchange.tick();
    return spinUntil([&] { return *state().lastUpdate() != before && hasPrice(); });
}

bool AppServicesFixture::isStreaming(simulator::Simulator& exchange) {
    return spinUntil([&] { return exchange.openStreams() == 1; });
}

bool AppServicesFixture::isSettled(simulator::Simulator& exchange) {
    return isStreaming(exchange) && spinUntil([&] { return *m_services->isStarted(); });
}

int AppServicesFixture::requestCount(simulator::Simulator& exchange, std::string_view path) {
    const auto& requests = exchange.requests();
    return static_cast<int>(
        std::count_if(requests.begin(), requests.end(), [&](const auto& request) {
            return request.path == path;
        }));
}

}  // namespace quillbar
