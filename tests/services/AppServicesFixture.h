// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/services/AppServices.h"
#include "QuillbarCore/runtime/Executor.h"
#include "QuillbarCore/runtime/Worker.h"
#include "simulator/Simulator.h"
#include "tests/services/HeldSleeper.h"
#include "tests/support/CapturedLog.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace quillbar {

/// The whole composition, with the production transports, against simulated exchanges in the same
/// event loop. Time stands still but for what the test lets pass.
class AppServicesFixture : public ::testing::Test {
protected:
    AppServicesFixture();
    void TearDown() override;

    /// An authority that the process trusts, for every simulator of the test.
    static void SetUpTestSuite();
    static void TearDownTestSuite();

    /// One more exchange. Manual, valid and on TLS unless told otherwise.
    simulator::Simulator& exchange(
        simulator::CertificateKind certificate = simulator::CertificateKind::valid);

    /// Builds the services over these exchanges, in this order, and starts them.
    void start(const std::vector<simulator::Simulator*>& exchanges);

    /// What the services take for the time of day.
    [[nodiscard]] Clock wallClock() const;
    /// Lets both clocks go on; nobody wakes.
    void letPass(Seconds span) { m_passed += span; }
    /// Sets the wall clock back.
    void setClockBack(Seconds span) { m_setBack += span; }
    /// Ends the watchdog's sleep.
    bool wakeWatchdog();
    /// Ends the wait for a new connection's first price.
    bool endPriceWatch();
    /// Ends the stream's wait before its next attempt.
    bool endBackOff();
    /// The stream's waits so far, in seconds.
    [[nodiscard]] std::vector<double> backOffs() const;

    [[nodiscard]] const AppState& state() const { return m_services->appState(); }
    [[nodiscard]] const std::string& label() const { return *state().menuBarText(); }
    [[nodiscard]] bool hasPrice() const;
    /// Makes the exchange move, and tells whether the price that follows is on the label.
    [[nodiscard]] bool nextPriceArrives(simulator::Simulator& exchange);
    /// Waits until a stream stands.
    [[nodiscard]] bool isStreaming(simulator::Simulator& exchange);
    /// Waits until a stream stands and the first requests have been answered, so that what comes
    /// next comes from the stream.
    [[nodiscard]] bool isSettled(simulator::Simulator& exchange);
    /// How many requests reached an exchange on a path.
    [[nodiscard]] static int requestCount(simulator::Simulator& exchange, std::string_view path);

    CapturedLog m_log;
    TemporaryFolder m_folder;
    std::unique_ptr<Executor> m_executor;
    std::unique_ptr<Worker> m_worker;
    HeldSleeper m_sleeper;
    // One beginning for all services of a test, so that the time between two starts does not count.
    Seconds m_bootBegin;
    TimePoint m_wallBegin;
    Seconds m_passed{};
    Seconds m_setBack{};
    std::vector<std::unique_ptr<simulator::Simulator>> m_exchanges;
    std::unique_ptr<AppServices> m_services;
};

}  // namespace quillbar
