// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/state/AppDirectories.h"
#include "tests/support/TemporaryEnvironment.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <optional>

namespace quillbar {
namespace {

using AppDirectories::applicationSupport;
using AppDirectories::configurationHome;
using std::nullopt;

TEST(AppDirectories, prefersTheDataHome) {
    EXPECT_EQ(applicationSupport({"/data", "/home/me", "/users/me"}), "/data/Quillbar");
}

TEST(AppDirectories, takesTheHomeFolderWithoutADataHome) {
    EXPECT_EQ(applicationSupport({nullopt, "/home/me", "/users/me"}),
              "/home/me/.local/share/Quillbar");
}

TEST(AppDirectories, takesTheUserDatabaseWithoutAHomeFolder) {
    EXPECT_EQ(applicationSupport({nullopt, nullopt, "/users/me"}),
              "/users/me/.local/share/Quillbar");
}

TEST(AppDirectories, skipsFoldersThatAreEmptyOrNotAbsolute) {
    EXPECT_EQ(applicationSupport({"", "/home/me", nullopt}), "/home/me/.local/share/Quillbar");
    EXPECT_EQ(applicationSupport({"data", "me", "/users/me"}), "/users/me/.local/share/Quillbar");
    EXPECT_EQ(applicationSupport({"~/data", "", "/users/me"}), "/users/me/.local/share/Quillbar");
}

TEST(AppDirectories, readsTheEnvironmentAndCreatesNothing) {
    const TemporaryFolder folder;
    const TemporaryEnvironment dataHome("XDG_DATA_HOME", folder.path() / "data");
    EXPECT_EQ(applicationSupport(), folder.path() / "data/Quillbar");
    EXPECT_EQ(AppDirectories::applicationSupportIfAny(), folder.path() / "data/Quillbar");
    EXPECT_FALSE(std::filesystem::exists(folder.path() / "data"));
}

TEST(AppDirectories, readsTheHomeFolderFromTheEnvironment) {
    const TemporaryEnvironment dataHome("XDG_DATA_HOME", nullopt);
    const TemporaryEnvironment home("HOME", "/home/me");
    EXPECT_EQ(applicationSupport(), "/home/me/.local/share/Quillbar");
}

TEST(AppDirectories, readsTheUserDatabaseLast) {
    const TemporaryEnvironment dataHome("XDG_DATA_HOME", nullopt);
    const TemporaryEnvironment home("HOME", nullopt);
    const std::filesystem::path folder = applicationSupport();
    EXPECT_TRUE(folder.is_absolute());
    EXPECT_EQ(folder.lexically_relative(folder.parent_path().parent_path().parent_path()),
              ".local/share/Quillbar");
}

TEST(AppDirectories, prefersTheConfigurationHome) {
    EXPECT_EQ(configurationHome({.home = "/home/me", .configHome = "/config"}), "/config");
    EXPECT_EQ(configurationHome({.home = "/home/me", .configHome = "config"}), "/home/me/.config");
    EXPECT_EQ(configurationHome({.databaseHome = "/users/me"}), "/users/me/.config");
}

TEST(AppDirectories, hasNoConfigurationHomeWithoutAnyFolder) {
    EXPECT_EQ(configurationHome({}), nullopt);
    EXPECT_EQ(configurationHome({.dataHome = "/data", .home = "me", .databaseHome = ""}), nullopt);
}

TEST(AppDirectories, readsTheConfigurationHomeFromTheEnvironment) {
    const TemporaryEnvironment home("HOME", "/home/me");
    const TemporaryEnvironment without("XDG_CONFIG_HOME", nullopt);
    EXPECT_EQ(configurationHome(), "/home/me/.config");
    const TemporaryEnvironment with("XDG_CONFIG_HOME", "/config");
    EXPECT_EQ(configurationHome(), "/config");
}

TEST(AppDirectoriesDeathTest, endsTheProcessWhenThereIsNowhereToKeepFiles) {
    EXPECT_DEATH(static_cast<void>(applicationSupport({nullopt, "home", ""})),
                 "no folder for the application's files: XDG_DATA_HOME and HOME are unset, and the "
                 "user is unknown");
}

}  // namespace
}  // namespace quillbar
