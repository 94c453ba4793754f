// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/qtsupport/FakeSettingsPortal.h"
#include "tests/tray/StatusItemFixture.h"

#include <gtest/gtest.h>

namespace quillbar {
namespace {

constexpr uint kDark = 1;
constexpr uint kLight = 2;

struct StatusItemGroundTest : StatusItemFixture {
    [[nodiscard]] bool isDrawnOn(LabelForm form, PictureGround ground) {
        return host->icon()[0] == StatusImage::of(LabelPicture::of(face(), form, ground).drawn(22));
    }
};

TEST_F(StatusItemGroundTest, isItsOwnWhateverTheDesktopWantsOfApplications) {
    FakeSettingsPortal portal(daemon.address(), kLight);
    startAt("kded5");
    settle();
    EXPECT_TRUE(isDrawnOn(LabelForm::square, PictureGround::own));
    for (const uint scheme : {kDark, kLight}) {
        portal.change(
            QStringLiteral("org.freedesktop.appearance"), QStringLiteral("color-scheme"), scheme);
        settle();
        EXPECT_TRUE(isDrawnOn(LabelForm::square, PictureGround::own)) << scheme;
    }
    EXPECT_EQ(portal.asked, QString());
}

TEST_F(StatusItemGroundTest, isTheBarThatIsKnownToBeDark) {
    startAt("gnome-shell");
    EXPECT_TRUE(isDrawnOn(LabelForm::text, PictureGround::darkBar));
}

}  // namespace
}  // namespace quillbar
