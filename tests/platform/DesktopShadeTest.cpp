// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/platform/DesktopShade.h"
#include "tests/qtsupport/FakeSettingsPortal.h"
#include "tests/qtsupport/PrivateBus.h"
#include "tests/qtsupport/SpinUntil.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QUuid>

#include <gmock/gmock.h>

#include <optional>
#include <vector>

namespace quillbar {

namespace {

using ::testing::ElementsAre;

constexpr uint kNoPreference = 0;
constexpr uint kDark = 1;
constexpr uint kLight = 2;
const QString kGroup = QStringLiteral("org.freedesktop.appearance");
const QString kKey = QStringLiteral("color-scheme");

struct DesktopShadeTest : ::testing::Test {
    /// Follows a portal that starts with this scheme, until it has answered.
    void follow(uint scheme) {
        portal.emplace(daemon.address(), scheme);
        shade.emplace(bus, [this](ShadePreference told) { shades.push_back(told); });
        EXPECT_TRUE(spinUntil([this] { return !shades.empty(); }));
    }
    void TearDown() override {
        shade.reset();
        portal.reset();
        QDBusConnection::disconnectFromBus(bus.name());
    }

    PrivateBus daemon;
    QDBusConnection bus =
        QDBusConnection::connectToBus(daemon.address(), QUuid::createUuid().toString());
    std::optional<FakeSettingsPortal> portal;
    std::optional<DesktopShade> shade;
    std::vector<ShadePreference> shades;
};

TEST_F(DesktopShadeTest, isWhatThePortalSays) {
    follow(kDark);
    EXPECT_THAT(shades, ElementsAre(ShadePreference::dark));
    EXPECT_EQ(portal->asked, QStringLiteral("org.freedesktop.appearance/color-scheme"));
}

TEST_F(DesktopShadeTest, isUnknownWithoutAPreference) {
    follow(kNoPreference);
    EXPECT_THAT(shades, ElementsAre(ShadePreference::unknown));
}

TEST_F(DesktopShadeTest, followsThePortal) {
    follow(kLight);
    portal->change(kGroup, kKey, kDark);
    EXPECT_TRUE(spinUntil([this] { return shades.size() > 1; }));
    EXPECT_THAT(shades, ElementsAre(ShadePreference::light, ShadePreference::dark));
}

TEST_F(DesktopShadeTest, asksAPortalThatComesLater) {
    shade.emplace(bus, [this](ShadePreference told) { shades.push_back(told); });
    // The question before has been answered: that there is no portal.
    bus.call(QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.DBus"),
                                            QStringLiteral("/org/freedesktop/DBus"),
                                            QStringLiteral("org.freedesktop.DBus"),
                                            QStringLiteral("GetId")));
    spinUntilIdle();
    portal.emplace(daemon.address(), kDark);
    EXPECT_TRUE(spinUntil([this] { return !shades.empty(); }));
    EXPECT_THAT(shades, ElementsAre(ShadePreference::dark));
}

TEST_F(DesktopShadeTest, asksThePortalThatTakesThePlaceOfAnother) {
    follow(kDark);
    portal.reset();
    portal.emplace(daemon.address(), kLight);
    EXPECT_TRUE(spinUntil([this] { return shades.size() > 1; }));
    EXPECT_THAT(shades, ElementsAre(ShadePreference::dark, ShadePreference::light));
}

TEST_F(DesktopShadeTest, ignoresOtherSettings) {
    follow(kLight);
    portal->change(kGroup, QStringLiteral("accent-color"), kDark);
    portal->change(QStringLiteral("org.gnome.desktop.interface"), kKey, kDark);
    portal->change(kGroup, kKey, kLight);
    EXPECT_TRUE(spinUntil([this] { return shades.size() > 1; }));
    EXPECT_THAT(shades, ElementsAre(ShadePreference::light, ShadePreference::light));
}

}  // namespace

}  // namespace quillbar
