// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/instance/ApplicationService.h"
#include "Quillbar/instance/RunningApplication.h"
#include "tests/instance/BusFixture.h"

#include <functional>
#include <future>
#include <optional>

namespace quillbar {

namespace {

using RunningApplication::Outcome;
using std::chrono::milliseconds;

class RunningApplicationTest : public BusFixture {
protected:
    void start() {
        m_application.emplace(connect(), [this](ApplicationAction action, const auto& tokens) {
            m_action = action;
            ++m_count;
            m_tokens = tokens;
        });
        bool hasName = false;
        m_application->claim(
            [&](auto claim) { hasName = claim == ApplicationService::Claim::claimed; });
        ASSERT_TRUE(spinUntil([&] { return hasName; }));
    }

    /// Asks from a program of its own, while the application's events are handled.
    [[nodiscard]] Outcome ask(const std::function<Outcome()>& question) {
        auto outcome = std::async(std::launch::async, question);
        EXPECT_TRUE(spinUntil([&] { return m_action.has_value(); }));
        return outcome.get();
    }
    [[nodiscard]] Outcome ask(ApplicationAction action, const ActivationTokens& tokens = {}) {
        return ask([=, this] { return RunningApplication::activate(m_user, action, tokens); });
    }

    QDBusConnection m_user = connect();
    std::optional<ApplicationAction> m_action;
    int m_count = 0;
    ActivationTokens m_tokens;
    std::optional<ApplicationService> m_application;
};

TEST_F(RunningApplicationTest, isSeenByItsName) {
    EXPECT_FALSE(RunningApplication::isRunning(m_user));
    start();
    EXPECT_TRUE(RunningApplication::isRunning(m_user));
}

TEST_F(RunningApplicationTest, takesEveryActionAndTheTokens) {
    start();
    const ActivationTokens tokens{QStringLiteral("kwin-5"), QStringLiteral("host_TIME7")};
    for (const auto action :
         {ApplicationAction::togglePanel, ApplicationAction::showPanel, ApplicationAction::quit}) {
        m_action.reset();
        EXPECT_EQ(ask(action, tokens), Outcome::done);
        EXPECT_EQ(m_action, action);
        EXPECT_EQ(m_tokens, tokens);
    }
}

TEST_F(RunningApplicationTest, aPlainStartTogglesThePanel) {
    start();
    EXPECT_EQ(ask([this] { return RunningApplication::request(m_user, {}, {}); }), Outcome::done);
    EXPECT_EQ(m_action, ApplicationAction::togglePanel);
}

TEST_F(RunningApplicationTest, aStartForAnActionAsksForThat) {
    start();
    const AppOptions quit{.action = ApplicationAction::quit};
    EXPECT_EQ(ask([&] { return RunningApplication::request(m_user, quit, {}); }), Outcome::done);
    EXPECT_EQ(m_action, ApplicationAction::quit);
}

TEST_F(RunningApplicationTest, aStartInTheBackgroundAsksNothingOfIt) {
    const AppOptions background{.manner = StartManner::background};
    EXPECT_EQ(RunningApplication::request(m_user, background, {}), Outcome::notRunning);
    start();
    EXPECT_EQ(RunningApplication::request(m_user, background, {}), Outcome::done);
    // What was asked before this would have arrived before it.
    EXPECT_EQ(ask(ApplicationAction::showPanel), Outcome::done);
    EXPECT_EQ(m_action, ApplicationAction::showPanel);
    EXPECT_EQ(m_count, 1);
}

TEST_F(RunningApplicationTest, isNotStartedByAnAction) {
    EXPECT_EQ(RunningApplication::activate(m_user, ApplicationAction::showPanel, {}),
              Outcome::notRunning);
}

TEST_F(RunningApplicationTest, isNotThereWithoutABus) {
    const QDBusConnection nowhere(QStringLiteral("nowhere"));
    EXPECT_FALSE(RunningApplication::isRunning(nowhere));
    EXPECT_EQ(RunningApplication::activate(nowhere, ApplicationAction::showPanel, {}),
              Outcome::notRunning);
}

TEST_F(RunningApplicationTest, failsWhenItDoesNotAnswerInTime) {
    start();
    // Nobody handles its events meanwhile.
    EXPECT_EQ(
        RunningApplication::activate(m_user, ApplicationAction::showPanel, {}, milliseconds(50)),
        Outcome::failed);
}

TEST_F(RunningApplicationTest, isNotSeenThroughABusThatHangs) {
    start();
    hang(m_user);
    EXPECT_FALSE(RunningApplication::isRunning(m_user, milliseconds(50)));
}

}  // namespace

}  // namespace quillbar
