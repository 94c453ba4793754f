// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/widgets/SystemColorScheme.h"
#include "tests/qtsupport/FakeSettingsPortal.h"
#include "tests/qtsupport/PrivateBus.h"
#include "tests/qtsupport/SpinUntil.h"

#include <QApplication>
#include <QDBusConnection>
#include <QPalette>
#include <QUuid>

#include <gtest/gtest.h>

#include <optional>

namespace quillbar {
namespace {

constexpr uint kNoPreference = 0;
constexpr uint kDark = 1;
constexpr uint kLight = 2;

/// A desktop with a palette and, if a test says so, a settings portal.
struct SystemColorSchemeTest : testing::Test {
    void TearDown() override { QApplication::setPalette(before); }

    static void thePaletteIs(ColorScheme scheme) {
        const bool isDark = scheme == ColorScheme::dark;
        QPalette palette;
        palette.setColor(QPalette::Window, isDark ? Qt::black : Qt::white);
        palette.setColor(QPalette::WindowText, isDark ? Qt::white : Qt::black);
        QApplication::setPalette(palette);
        spinUntilIdle();
    }

    QPalette before = QApplication::palette();
};

TEST_F(SystemColorSchemeTest, isThatOfThePaletteWithoutABus) {
    thePaletteIs(ColorScheme::dark);
    const SystemColorScheme dark(std::nullopt);
    EXPECT_EQ(*dark.scheme(), ColorScheme::dark);
    thePaletteIs(ColorScheme::light);
    const SystemColorScheme light(std::nullopt);
    EXPECT_EQ(*light.scheme(), ColorScheme::light);
}

TEST_F(SystemColorSchemeTest, followsThePaletteWithoutABus) {
    thePaletteIs(ColorScheme::light);
    const SystemColorScheme system(std::nullopt);
    thePaletteIs(ColorScheme::dark);
    EXPECT_EQ(*system.scheme(), ColorScheme::dark);
    thePaletteIs(ColorScheme::light);
    EXPECT_EQ(*system.scheme(), ColorScheme::light);
}

/// The same with a portal on a bus of its own.
struct PortalColorSchemeTest : SystemColorSchemeTest {
    void TearDown() override {
        QDBusConnection::disconnectFromBus(bus.name());
        SystemColorSchemeTest::TearDown();
    }

    PrivateBus daemon;
    QDBusConnection bus =
        QDBusConnection::connectToBus(daemon.address(), QUuid::createUuid().toString());
};

TEST_F(PortalColorSchemeTest, thePortalDecidesOverThePalette) {
    for (const ColorScheme scheme : {ColorScheme::dark, ColorScheme::light}) {
        const ColorScheme other =
            scheme == ColorScheme::dark ? ColorScheme::light : ColorScheme::dark;
        thePaletteIs(other);
        const FakeSettingsPortal portal(daemon.address(),
                                        scheme == ColorScheme::dark ? kDark : kLight);
        const SystemColorScheme system(bus);
        EXPECT_EQ(*system.scheme(), other) << "nothing waits for the portal";
        EXPECT_TRUE(spinUntil([&] { return *system.scheme() == scheme; }));
        thePaletteIs(scheme);
        thePaletteIs(other);
        EXPECT_EQ(*system.scheme(), scheme);
    }
}

TEST_F(PortalColorSchemeTest, thePaletteDecidesWhereThePortalHasNoPreference) {
    thePaletteIs(ColorScheme::light);
    FakeSettingsPortal portal(daemon.address(), kDark);
    const SystemColorScheme system(bus);
    ASSERT_TRUE(spinUntil([&] { return *system.scheme() == ColorScheme::dark; }));
    portal.change(QStringLiteral("org.freedesktop.appearance"),
                  QStringLiteral("color-scheme"),
                  kNoPreference);
    EXPECT_TRUE(spinUntil([&] { return *system.scheme() == ColorScheme::light; }));
    thePaletteIs(ColorScheme::dark);
    EXPECT_EQ(*system.scheme(), ColorScheme::dark);
}

}  // namespace
}  // namespace quillbar
