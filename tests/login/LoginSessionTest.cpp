// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/login/LoginSession.h"
#include "tests/support/FakeEnvironment.h"
#include "tests/support/TemporaryEnvironment.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <optional>

namespace quillbar {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(LoginSessionTest, isAsTheEnvironmentDescribesIt) {
    const LoginSession session =
        LoginSession::of(environmentOf({{"XDG_CONFIG_DIRS", "/a:relative::/b"},
                                        {"XDG_CURRENT_DESKTOP", "ubuntu:GNOME"},
                                        {"PATH", "/x:/y"}}),
                         "/home/me/.config",
                         "/opt/quillbar");
    EXPECT_EQ(session.folder, "/home/me/.config/autostart");
    EXPECT_THAT(session.systemFolders, ElementsAre("/a/autostart", "/b/autostart"));
    EXPECT_THAT(session.desktops, ElementsAre("ubuntu", "GNOME"));
    EXPECT_EQ(session.searchPath, "/x:/y");
    EXPECT_EQ(session.program, "/opt/quillbar");
}

TEST(LoginSessionTest, hasTheUsualFoldersOfASilentEnvironment) {
    for (const auto& variables :
         {environmentOf({}), environmentOf({{"XDG_CONFIG_DIRS", ""}, {"PATH", ""}})}) {
        const LoginSession session = LoginSession::of(variables, "/c", "");
        EXPECT_THAT(session.systemFolders, ElementsAre("/etc/xdg/autostart"));
        EXPECT_THAT(session.desktops, IsEmpty());
        EXPECT_EQ(session.searchPath, "/usr/local/bin:/usr/bin:/bin");
    }
}

TEST(LoginSessionTest, hasNoFolderOfAUserWithoutConfigurationFiles) {
    const LoginSession session = LoginSession::of(environmentOf({}), std::nullopt, "/opt/quillbar");
    EXPECT_TRUE(session.folder.empty());
    EXPECT_THAT(session.systemFolders, ElementsAre("/etc/xdg/autostart"));
    EXPECT_EQ(session.program, "/opt/quillbar");
}

TEST(LoginSessionTest, ofAProcessStartsTheFileThatRuns) {
    const TemporaryEnvironment config("XDG_CONFIG_HOME", "/config");
    const LoginSession session =
        LoginSession::ofProcess(environmentOf({{"XDG_CURRENT_DESKTOP", "KDE"}}));
    EXPECT_TRUE(std::filesystem::equivalent(session.program, "/proc/self/exe"));
    EXPECT_EQ(session.folder, "/config/autostart");
    EXPECT_THAT(session.desktops, ElementsAre("KDE"));
}

}  // namespace
}  // namespace quillbar
