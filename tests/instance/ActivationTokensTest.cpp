// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/instance/ActivationTokens.h"
#include "tests/support/FakeEnvironment.h"

#include <gtest/gtest.h>

namespace quillbar {

namespace {

TEST(ActivationTokensTest, comeFromTheEnvironmentOfTheStart) {
    EXPECT_EQ(ActivationTokens::fromEnvironment(environmentOf(
                  {{"XDG_ACTIVATION_TOKEN", "kwin-5"}, {"DESKTOP_STARTUP_ID", "host_TIME7"}})),
              (ActivationTokens{QStringLiteral("kwin-5"), QStringLiteral("host_TIME7")}));
    EXPECT_EQ(ActivationTokens::fromEnvironment(environmentOf({})), ActivationTokens{});
}

TEST(ActivationTokensTest, surviveThePlatformData) {
    const ActivationTokens both{QStringLiteral("kwin-5"), QStringLiteral("host_TIME7")};
    EXPECT_EQ(ActivationTokens::fromPlatformData(both.platformData()), both);
}

TEST(ActivationTokensTest, haveNoEntryWhenThereIsNone) {
    EXPECT_TRUE(ActivationTokens{}.platformData().isEmpty());
    EXPECT_EQ((ActivationTokens{QString(), QStringLiteral("host_TIME7")}).platformData().keys(),
              QStringList{QStringLiteral("desktop-startup-id")});
}

}  // namespace

}  // namespace quillbar
