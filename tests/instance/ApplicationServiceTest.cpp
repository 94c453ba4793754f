// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/instance/ApplicationService.h"
#include "tests/instance/BusFixture.h"
#include "tests/qtsupport/BusGarbage.h"
#include "tests/support/CapturedLog.h"

#include <QDBusError>
#include <QDBusPendingCallWatcher>

#include <gmock/gmock.h>

#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace quillbar {

namespace {

using std::chrono::milliseconds;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;
using Claim = ApplicationService::Claim;

/// An instance of the application, which notes what is asked of it.
struct Instance final {
    explicit Instance(const QDBusConnection& bus)
        : service(bus, [this](ApplicationAction action, const ActivationTokens& given) {
            actions.push_back(action);
            tokens = given;
        }) {}

    void claim(milliseconds patience = ApplicationService::kPatience) {
        service.claim([this](Claim claim) { outcome = claim; }, patience);
    }
    [[nodiscard]] std::optional<Claim> claimed() {
        claim();
        EXPECT_TRUE(spinUntil([this] { return outcome.has_value(); }));
        return outcome;
    }

    std::vector<ApplicationAction> actions;
    ActivationTokens tokens;
    std::optional<Claim> outcome;
    ApplicationService service;
};

class ApplicationServiceTest : public BusFixture {
protected:
    /// Calls the application as a desktop does, and waits for the reply.
    void call(const char* method,
              const QVariantList& arguments,
              const QString& service = applicationName()) {
        QDBusMessage message = QDBusMessage::createMethodCall(
            service,
            applicationPath(),
            QString::fromLatin1(ApplicationNames::kApplicationInterface),
            QString::fromLatin1(method));
        message.setArguments(arguments);
        // Its signal is what wakes the loop.
        const QDBusPendingCallWatcher pending(m_desktop.asyncCall(message));
        ASSERT_TRUE(spinUntil([&] { return pending.isFinished(); }));
        ASSERT_FALSE(pending.isError()) << pending.error().message().toStdString();
    }

    void act(const char* action, const QVariantMap& platformData = {}) {
        call("ActivateAction",
             {QString::fromLatin1(action), QVariant(QVariantList()), platformData});
    }

    QDBusConnection m_desktop = connect();
};

TEST_F(ApplicationServiceTest, theFirstInstanceHasTheName) {
    Instance first(connect());
    EXPECT_EQ(first.claimed(), Claim::claimed);
    EXPECT_EQ(m_desktop.interface()->serviceOwner(applicationName()).value().isEmpty(), false);
}

TEST_F(ApplicationServiceTest, theSecondInstanceLearnsOfTheFirst) {
    Instance first(connect());
    Instance second(connect());
    ASSERT_EQ(first.claimed(), Claim::claimed);
    EXPECT_EQ(second.claimed(), Claim::alreadyRunning);
}

TEST_F(ApplicationServiceTest, theSecondInstanceDoesNotWaitForTheName) {
    auto first = std::make_unique<Instance>(connect());
    Instance second(connect());
    ASSERT_EQ(first->claimed(), Claim::claimed);
    ASSERT_EQ(second.claimed(), Claim::alreadyRunning);
    first.reset();
    EXPECT_TRUE(spinUntil(
        [&] { return !m_desktop.interface()->isServiceRegistered(applicationName()).value(); }));
    second.outcome.reset();
    EXPECT_EQ(second.claimed(), Claim::claimed);
}

TEST_F(ApplicationServiceTest, withoutABusNothingIsClaimed) {
    Instance lonely{QDBusConnection(QStringLiteral("nowhere"))};
    lonely.claim();
    EXPECT_EQ(lonely.outcome, std::nullopt);
    EXPECT_TRUE(spinUntil([&] { return lonely.outcome == Claim::noBus; }));
}

TEST_F(ApplicationServiceTest, aBusThatHangsCostsItsPatience) {
    Instance lonely(connect());
    hang(m_desktop);
    lonely.claim(milliseconds(50));
    EXPECT_TRUE(spinUntil([&] { return lonely.outcome == Claim::noBus; }));
}

TEST_F(ApplicationServiceTest, anInstanceThatIsGoneTellsNothing) {
    std::optional<Claim> outcome;
    {
        ApplicationService gone(connect(), [](auto, const auto&) {});
        gone.claim([&](Claim claim) { outcome = claim; });
    }
    Instance other(connect());
    ASSERT_TRUE(other.claimed().has_value());
    spinUntilIdle();
    EXPECT_EQ(outcome, std::nullopt);
}

TEST_F(ApplicationServiceTest, startingItAgainTogglesThePanel) {
    Instance application(connect());
    ASSERT_EQ(application.claimed(), Claim::claimed);
    call("Activate", {QVariantMap()});
    EXPECT_THAT(application.actions, ElementsAre(ApplicationAction::togglePanel));
    EXPECT_EQ(application.tokens, ActivationTokens{});
}

TEST_F(ApplicationServiceTest, whatIsAskedBeforeTheOutcomeIsToldRightBehindIt) {
    const QDBusConnection bus = connect();
    Instance application(bus);
    // By the connection's own name, as the other one has not been claimed.
    call("Activate", {QVariantMap()}, bus.baseService());
    EXPECT_THAT(application.actions, IsEmpty());
    ASSERT_EQ(application.claimed(), Claim::claimed);
    EXPECT_THAT(application.actions, ElementsAre(ApplicationAction::togglePanel));
    act("show-panel");
    EXPECT_THAT(application.actions,
                ElementsAre(ApplicationAction::togglePanel, ApplicationAction::showPanel));
}

TEST_F(ApplicationServiceTest, everyActionHasItsName) {
    Instance application(connect());
    ASSERT_EQ(application.claimed(), Claim::claimed);
    act("toggle-panel");
    act("show-panel");
    act("show-preferences");
    act("quit");
    EXPECT_THAT(application.actions,
                ElementsAre(ApplicationAction::togglePanel,
                            ApplicationAction::showPanel,
                            ApplicationAction::showPreferences,
                            ApplicationAction::quit));
}

TEST_F(ApplicationServiceTest, openingFilesShowsThePanel) {
    Instance application(connect());
    ASSERT_EQ(application.claimed(), Claim::claimed);
    call("Open", {QStringList{QStringLiteral("file:///etc/hosts")}, QVariantMap()});
    EXPECT_THAT(application.actions, ElementsAre(ApplicationAction::showPanel));
}

TEST_F(ApplicationServiceTest, theTokensAreHandedOn) {
    Instance application(connect());
    ASSERT_EQ(application.claimed(), Claim::claimed);
    const QVariantMap platformData{
        {QStringLiteral("activation-token"), QStringLiteral("kwin-5")},
        {QStringLiteral("desktop-startup-id"), QStringLiteral("host_TIME7")}};
    const ActivationTokens tokens{QStringLiteral("kwin-5"), QStringLiteral("host_TIME7")};
    call("Activate", {platformData});
    EXPECT_EQ(application.tokens, tokens);
    application.tokens = {};
    act("show-panel", platformData);
    EXPECT_EQ(application.tokens, tokens);
}

TEST_F(ApplicationServiceTest, tokensThatAreNoTextsAreNone) {
    Instance application(connect());
    ASSERT_EQ(application.claimed(), Claim::claimed);
    act("show-panel",
        {{QStringLiteral("activation-token"), 5},
         {QStringLiteral("desktop-startup-id"), QStringList{QStringLiteral("a")}}});
    EXPECT_EQ(application.tokens, ActivationTokens{});
    EXPECT_EQ(application.actions.size(), 1U);
}

TEST_F(ApplicationServiceTest, refusesArgumentsOfTheWrongTypes) {
    Instance application(connect());
    ASSERT_EQ(application.claimed(), Claim::claimed);
    BusGarbage garbage(connect(), applicationName(), applicationPath());
    EXPECT_EQ(garbage.methods().size(), 4U) << "three of the application, one of the label";
    garbage.callWithWrongTypes();
    EXPECT_THAT(application.actions, IsEmpty());
    act("show-panel");
    EXPECT_THAT(application.actions, ElementsAre(ApplicationAction::showPanel));
}

TEST_F(ApplicationServiceTest, answersWhateverArgumentsOfTheRightTypesHold) {
    const CapturedLog log;
    Instance application(connect());
    ASSERT_EQ(application.claimed(), Claim::claimed);
    BusGarbage(connect(), applicationName(), applicationPath()).callWithRightTypes();
    EXPECT_THAT(application.actions, Not(Contains(ApplicationAction::quit)));
    act("quit");
    EXPECT_EQ(application.actions.back(), ApplicationAction::quit);
}

TEST_F(ApplicationServiceTest, anUnknownActionIsLoggedAndLeftAlone) {
    const CapturedLog log;
    Instance application(connect());
    ASSERT_EQ(application.claimed(), Claim::claimed);
    act("dance");
    EXPECT_THAT(application.actions, IsEmpty());
    EXPECT_THAT(log.lines("Application"),
                ElementsAre("Application|error|ignoring the unknown action \"dance\""));
}

TEST_F(ApplicationServiceTest, aLongNameOfAnActionIsCutInTheLog) {
    const CapturedLog log;
    Instance application(connect());
    ASSERT_EQ(application.claimed(), Claim::claimed);
    act(std::string(100'000, 'a').c_str());
    EXPECT_THAT(log.lines("Application"),
                ElementsAre("Application|error|ignoring the unknown action \""
                            + std::string(64, 'a') + "…\""));
}

}  // namespace

}  // namespace quillbar
