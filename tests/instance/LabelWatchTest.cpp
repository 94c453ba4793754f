// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/instance/ApplicationService.h"
#include "Quillbar/instance/LabelService.h"
#include "Quillbar/instance/LabelWatch.h"
#include "tests/instance/BusFixture.h"
#include "tests/instance/FakeApplication.h"
#include "tests/instance/FakeLabelSource.h"

#include <QDBusVirtualObject>

#include <memory>
#include <optional>
#include <string>

namespace quillbar {

namespace {

using std::chrono::milliseconds;

/// An application that answers a number of times, and then no more.
class Answering final : public QDBusVirtualObject {
public:
    explicit Answering(int times)
        : m_left(times) {}

    [[nodiscard]] QString introspect(const QString& /*path*/) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override {
        if (m_left > 0) {
            --m_left;
            bus.send(message.createReply(labelMessage(pricedReport("101.00"))));
        }
        return true;
    }

private:
    int m_left;
};

class LabelWatchTest : public BusFixture {
protected:
    void watch(LabelWatch::Timing timing = {}) {
        m_watch.emplace(
            m_reader, [this] { ++m_changes; }, timing);
    }
    [[nodiscard]] bool resolves() {
        return spinUntil([this] { return m_watch->isResolved(); });
    }
    [[nodiscard]] bool shows(const std::string& text) {
        return spinUntil(
            [&] { return m_watch->report() && m_watch->report()->label.text == text; });
    }
    [[nodiscard]] bool showsNothing() {
        return spinUntil([this] { return m_watch->isResolved() && !m_watch->report(); });
    }

    QDBusConnection m_reader = connect();
    QDBusConnection m_other = connect();
    std::optional<LabelWatch> m_watch;
    int m_changes = 0;
};

TEST_F(LabelWatchTest, withoutAnApplicationThereIsNoLabel) {
    watch();
    EXPECT_FALSE(m_watch->isResolved());
    ASSERT_TRUE(resolves());
    EXPECT_EQ(m_watch->report(), std::nullopt);
    EXPECT_EQ(m_changes, 1);
}

TEST_F(LabelWatchTest, readsTheLabelOfTheApplicationThatRuns) {
    const FakeApplication application(m_other);
    watch();
    ASSERT_TRUE(resolves());
    EXPECT_EQ(m_watch->report(), pricedReport("101.00"));
}

TEST_F(LabelWatchTest, followsTheLabel) {
    FakeApplication application(m_other);
    watch();
    ASSERT_TRUE(shows("BTC 101.00"));
    application.source.set(pricedReport("102.00"));
    EXPECT_TRUE(shows("BTC 102.00"));
}

TEST_F(LabelWatchTest, seesTheApplicationComeAndGoAndComeAgain) {
    watch();
    ASSERT_TRUE(showsNothing());
    auto application = std::make_unique<FakeApplication>(m_other);
    EXPECT_TRUE(shows("BTC 101.00"));
    application.reset();
    EXPECT_TRUE(showsNothing());
    application = std::make_unique<FakeApplication>(connect());
    EXPECT_TRUE(shows("BTC 101.00"));
}

TEST_F(LabelWatchTest, seesAnApplicationThatIsKilled) {
    const QString name = QStringLiteral("victim");
    Answering always(100);
    {
        QDBusConnection victim = QDBusConnection::connectToBus(m_bus.address(), name);
        victim.registerVirtualObject(applicationPath(), &always);
        ASSERT_TRUE(victim.registerService(applicationName()));
        watch();
        ASSERT_TRUE(shows("BTC 101.00"));
    }
    // The last that holds it: the connection breaks without a word.
    QDBusConnection::disconnectFromBus(name);
    EXPECT_TRUE(showsNothing());
}

TEST_F(LabelWatchTest, anApplicationWithoutALabelGivesItLater) {
    ASSERT_TRUE(m_other.registerService(applicationName()));
    watch();
    ASSERT_TRUE(showsNothing());
    ApplicationService service(m_other, [](auto, const auto&) {});
    FakeLabelSource source;
    const LabelService label(service.label(), source);
    EXPECT_TRUE(shows("BTC 101.00"));
}

TEST_F(LabelWatchTest, anApplicationThatHangsFromTheStartHasNoLabel) {
    Answering silent(0);
    m_other.registerVirtualObject(applicationPath(), &silent);
    ASSERT_TRUE(m_other.registerService(applicationName()));
    watch({.patience = milliseconds(50), .interval = std::chrono::seconds(20)});
    ASSERT_TRUE(resolves());
    EXPECT_EQ(m_watch->report(), std::nullopt);
}

TEST_F(LabelWatchTest, anApplicationThatBeginsToHangLosesItsLabel) {
    Answering once(1);
    m_other.registerVirtualObject(applicationPath(), &once);
    ASSERT_TRUE(m_other.registerService(applicationName()));
    watch({.patience = milliseconds(200), .interval = milliseconds(1)});
    ASSERT_TRUE(shows("BTC 101.00"));
    EXPECT_TRUE(showsNothing());
}

TEST_F(LabelWatchTest, anApplicationThatIsOnlySilentKeepsItsLabel) {
    Answering often(5);
    m_other.registerVirtualObject(applicationPath(), &often);
    ASSERT_TRUE(m_other.registerService(applicationName()));
    watch({.patience = milliseconds(200), .interval = milliseconds(1)});
    ASSERT_TRUE(shows("BTC 101.00"));
    ASSERT_TRUE(showsNothing());
    // Four answers in between changed nothing.
    EXPECT_EQ(m_changes, 2);
}

TEST_F(LabelWatchTest, believesNobodyElse) {
    FakeApplication application(m_other);
    watch();
    ASSERT_TRUE(shows("BTC 101.00"));
    QDBusConnection impostor = connect();
    QDBusMessage signal =
        QDBusMessage::createSignal(applicationPath(),
                                   QString::fromLatin1(ApplicationNames::kLabelInterface),
                                   QStringLiteral("Changed"));
    signal << labelMessage(pricedReport("1.00"));
    impostor.send(signal);
    // The bus keeps the order of what it has taken.
    ASSERT_TRUE(impostor.interface()->isServiceRegistered(applicationName()).value());
    application.source.set(pricedReport("102.00"));
    ASSERT_TRUE(shows("BTC 102.00"));
    EXPECT_EQ(m_changes, 2);
}

TEST_F(LabelWatchTest, aBusThatHangsHasNoLabel) {
    hang(m_other);
    watch({.patience = milliseconds(50), .interval = std::chrono::seconds(20)});
    ASSERT_TRUE(resolves());
    EXPECT_EQ(m_watch->report(), std::nullopt);
}

}  // namespace

}  // namespace quillbar
