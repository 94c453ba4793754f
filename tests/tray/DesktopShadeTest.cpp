// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/tray/DesktopShade.h"
#include "tests/qtsupport/PrivateBus.h"
#include "tests/qtsupport/SpinUntil.h"
#include "tests/tray/FakeSettingsPortal.h"
#include "tests/tray/StatusItemFixture.h"

#include <QDBusConnection>
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

struct DesktopShadeTest : StatusItemFixture {
    /// Follows a portal that starts with this scheme, until it has answered.
    void follow(uint scheme) {
        portal.emplace(daemon.address(), scheme);
        shade.emplace(*bus, [this](BarShade told) { shades.push_back(told); });
        EXPECT_TRUE(spinUntil([this] { return !shades.empty(); }));
    }
    void TearDown() override {
        shade.reset();
        portal.reset();
    }

    std::optional<FakeSettingsPortal> portal;
    std::optional<DesktopShade> shade;
    std::vector<BarShade> shades;
};

TEST_F(DesktopShadeTest, isWhatThePortalSays) {
    follow(kDark);
    EXPECT_THAT(shades, ElementsAre(BarShade::dark));
    EXPECT_EQ(portal->asked, QStringLiteral("org.freedesktop.appearance/color-scheme"));
}

TEST_F(DesktopShadeTest, isUnknownWithoutAPreference) {
    follow(kNoPreference);
    EXPECT_THAT(shades, ElementsAre(BarShade::unknown));
}

TEST_F(DesktopShadeTest, followsThePortal) {
    follow(kLight);
    portal->change(kGroup, kKey, kDark);
    EXPECT_TRUE(spinUntil([this] { return shades.size() > 1; }));
    EXPECT_THAT(shades, ElementsAre(BarShade::light, BarShade::dark));
}

TEST_F(DesktopShadeTest, ignoresOtherSettings) {
    follow(kLight);
    portal->change(kGroup, QStringLiteral("accent-color"), kDark);
    portal->change(QStringLiteral("org.gnome.desktop.interface"), kKey, kDark);
    portal->change(kGroup, kKey, kLight);
    EXPECT_TRUE(spinUntil([this] { return shades.size() > 1; }));
    EXPECT_THAT(shades, ElementsAre(BarShade::light, BarShade::light));
}

TEST_F(DesktopShadeTest, givesTheStatusItemItsColours) {
    portal.emplace(daemon.address(), kLight);
    startAt("some-panel");
    const auto expected = [](BarShade bar) {
        return StatusImage::of(LabelPicture::of(face(), LabelForm::square, bar).drawn(22));
    };
    EXPECT_TRUE(spinUntil([&] { return host->icon()[0] == expected(BarShade::light); }));
    portal->change(kGroup, kKey, kDark);
    EXPECT_TRUE(spinUntil([&] { return host->icon()[0] == expected(BarShade::dark); }));
}

}  // namespace

}  // namespace quillbar
