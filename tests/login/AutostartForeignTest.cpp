// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/login/DesktopEntry.h"
#include "tests/login/AutostartFixture.h"

#include <gmock/gmock.h>

#include <cstdint>
#include <sys/stat.h>

namespace quillbar {
namespace {

using ::testing::HasSubstr;
using Status = LoginItemStatus;

using AutostartForeignTest = AutostartFixture;

// Entries that somebody else wrote.

TEST_F(AutostartForeignTest, aForeignEntryThatStartsTheProgramIsLeftAlone) {
    theUserHas(foreign());
    EXPECT_EQ(status(), Status::enabled);
    registerItem();
    EXPECT_EQ(contentsOf(file), foreign());
    EXPECT_EQ(unregisterFailure(), fmt::format("{} was not written by Quillbar", file.string()));
    EXPECT_EQ(contentsOf(file), foreign());
}

TEST_F(AutostartForeignTest, whatIsNoEntryIsLeftAlone) {
    for (const std::string_view text : {"", "no entry", "[Desktop Entry]\nbroken"}) {
        theUserHas(text);
        EXPECT_EQ(status(), Status::notFound) << text;
        EXPECT_THAT(registerFailure(), HasSubstr("is not as Quillbar wrote it"));
        EXPECT_THAT(unregisterFailure(), HasSubstr("was not written by Quillbar"));
        EXPECT_EQ(contentsOf(file), text);
    }
}

TEST_F(AutostartForeignTest, aFolderInItsPlaceIsLeftAlone) {
    std::filesystem::create_directories(file / "inside");
    EXPECT_EQ(status(), Status::notFound);
    EXPECT_THAT(registerFailure(), HasSubstr("is not as Quillbar wrote it"));
    EXPECT_THAT(unregisterFailure(), HasSubstr("was not written by Quillbar"));
    EXPECT_TRUE(std::filesystem::is_directory(file / "inside"));
}

TEST_F(AutostartForeignTest, aPipeInItsPlaceIsNotWaitedFor) {
    std::filesystem::create_directories(session.folder);
    ASSERT_EQ(::mkfifo(file.c_str(), 0600), 0);
    EXPECT_EQ(status(), Status::notFound);
    EXPECT_THAT(registerFailure(), HasSubstr("is not as Quillbar wrote it"));
}

TEST_F(AutostartForeignTest, aHugeFileIsNotRead) {
    theUserHas(foreign());
    std::filesystem::resize_file(file, std::uintmax_t{50} * 1024 * 1024);
    EXPECT_EQ(status(), Status::notFound);
    EXPECT_THAT(unregisterFailure(), HasSubstr("was not written by Quillbar"));
}

// Symbolic links, as people have who keep their configuration elsewhere.

TEST_F(AutostartForeignTest, followsALinkToAnEntry) {
    const auto target = folder.path() / "dotfiles/entry";
    writeContents(target, foreign());
    std::filesystem::create_directories(session.folder);
    std::filesystem::create_symlink(target, file);
    EXPECT_EQ(status(), Status::enabled);
    writeContents(target, foreign("Hidden=true\n"));
    EXPECT_EQ(status(), Status::requiresApproval);
}

TEST_F(AutostartForeignTest, updatesAnEntryOfOursBehindALinkAndRemovesTheLink) {
    const auto target = folder.path() / "dotfiles/entry";
    registerItem();
    std::filesystem::create_directories(target.parent_path());
    std::filesystem::rename(file, target);
    std::filesystem::create_symlink(target, file);
    session.program = folder.path() / "elsewhere/quillbar";
    installProgram(session.program);
    registerItem();
    EXPECT_TRUE(std::filesystem::is_symlink(file));
    EXPECT_EQ(DesktopEntry::parse(contentsOf(target))->program(), session.program);
    unregisterItem();
    EXPECT_FALSE(isThere());
    EXPECT_TRUE(std::filesystem::exists(target));
}

TEST_F(AutostartForeignTest, aLinkToNowhereIsLeftAlone) {
    std::filesystem::create_directories(session.folder);
    for (const std::filesystem::path& target : {folder.path() / "gone", file}) {
        std::filesystem::remove(file);
        std::filesystem::create_symlink(target, file);
        EXPECT_EQ(status(), Status::notFound) << target;
        EXPECT_THAT(registerFailure(), HasSubstr("is not as Quillbar wrote it"));
        EXPECT_TRUE(std::filesystem::is_symlink(file));
    }
    EXPECT_FALSE(std::filesystem::exists(folder.path() / "gone"));
}

// Entries of the system.

TEST_F(AutostartForeignTest, anEntryOfTheSystemStartsTheProgramToo) {
    theSystemHas(foreign());
    EXPECT_EQ(status(), Status::enabled);
    registerItem();
    EXPECT_FALSE(isThere());
}

TEST_F(AutostartForeignTest, anEntryOfTheSystemCannotBeHiddenFromAUserWithoutConfigurationFiles) {
    theSystemHas(foreign());
    session.folder.clear();
    EXPECT_EQ(status(), Status::enabled);
    registerItem();
    EXPECT_EQ(unregisterFailure(), "the user has no folder of configuration files");
    EXPECT_EQ(status(), Status::enabled);
}

TEST_F(AutostartForeignTest, aConditionOnAFileIsNotMetByAUserWithoutConfigurationFiles) {
    session.folder.clear();
    theSystemHas(foreign("AutostartCondition=if-exists ../../../../../../../../../etc/passwd"));
    EXPECT_EQ(status(), Status::notRegistered);
    theSystemHas(foreign("AutostartCondition=unless-exists x"));
    EXPECT_EQ(status(), Status::enabled);
}

TEST_F(AutostartForeignTest, theUsersEntryOverrulesTheSystems) {
    theSystemHas(foreign());
    theUserHas(foreign("Hidden=true\n"));
    EXPECT_EQ(status(), Status::requiresApproval);
    theSystemHas(foreign("Hidden=true\n"));
    theUserHas(foreign());
    EXPECT_EQ(status(), Status::enabled);
}

TEST_F(AutostartForeignTest, hidesAnEntryOfTheSystemAndShowsItAgain) {
    theSystemHas(foreign());
    unregisterItem();
    EXPECT_EQ(status(), Status::notRegistered);
    EXPECT_EQ(DesktopEntry::parse(contentsOf(file))->text("Hidden"), "true");
    registerItem();
    EXPECT_EQ(status(), Status::enabled);
    EXPECT_FALSE(DesktopEntry::parse(contentsOf(file))->has("Hidden"));
    unregisterItem();
    EXPECT_EQ(status(), Status::notRegistered);
}

TEST_F(AutostartForeignTest, whatItHidIsOnWhenTheDesktopSwitchesItOn) {
    theSystemHas(foreign());
    unregisterItem();
    theDesktopReplaces("Hidden=true", "Hidden=false");
    EXPECT_EQ(status(), Status::enabled);
    EXPECT_EQ(DesktopEntry::parse(contentsOf(file))->program(), session.program);
    const std::string edited = contentsOf(file);
    registerItem();
    EXPECT_EQ(contentsOf(file), edited);
}

TEST_F(AutostartForeignTest, hidesAnEntryOfTheSystemFromAProgramThatNoEntryCanName) {
    theSystemHas(foreign());
    session.program = "";
    unregisterItem();
    EXPECT_EQ(status(), Status::notRegistered);
    EXPECT_FALSE(DesktopEntry::parse(contentsOf(file))->has("Exec"));
}

TEST_F(AutostartForeignTest, noEditIsReplacedToHideAnEntryOfTheSystem) {
    registerItem();
    theSystemHas(foreign());
    theDesktopAdds("X-Mine=true");
    const std::string edited = contentsOf(file);
    EXPECT_EQ(
        unregisterFailure(),
        fmt::format(
            "{} is not as Quillbar wrote it, and without it an entry of the system would start "
            "the program",
            file.string()));
    EXPECT_EQ(contentsOf(file), edited);
    EXPECT_EQ(status(), Status::enabled);
}

TEST_F(AutostartForeignTest, noEditIsReplacedBehindALink) {
    const auto target = folder.path() / "dotfiles/entry";
    registerItem();
    theSystemHas(foreign());
    theDesktopAdds("X-Mine=true");
    const std::string edited = contentsOf(file);
    std::filesystem::create_directories(target.parent_path());
    std::filesystem::rename(file, target);
    std::filesystem::create_symlink(target, file);
    EXPECT_THAT(unregisterFailure(), HasSubstr("is not as Quillbar wrote it"));
    EXPECT_TRUE(std::filesystem::is_symlink(file));
    EXPECT_EQ(contentsOf(target), edited);
}

TEST_F(AutostartForeignTest, anEditThatSwitchedItOffHidesAnEntryOfTheSystemAsItIs) {
    registerItem();
    theSystemHas(foreign());
    theDesktopAdds("Hidden=true");
    const std::string edited = contentsOf(file);
    unregisterItem();
    EXPECT_EQ(contentsOf(file), edited);
    EXPECT_EQ(status(), Status::requiresApproval);
}

TEST_F(AutostartForeignTest, theEarlierFolderOfTheSystemHolds) {
    theSystemHas(foreign("Hidden=true\n"));
    writeContents(session.systemFolders.at(1) / AutostartEntry::kFileName, foreign());
    EXPECT_EQ(status(), Status::notRegistered);
    std::filesystem::remove(session.systemFolders.at(0) / AutostartEntry::kFileName);
    EXPECT_EQ(status(), Status::enabled);
}

TEST_F(AutostartForeignTest, anEntryOfTheSystemThatStartsNothingCountsAsNone) {
    theSystemHas("[Desktop Entry]\nType=Application\nExec=/gone/quillbar\n");
    EXPECT_EQ(status(), Status::notRegistered);
    registerItem();
    EXPECT_EQ(status(), Status::enabled);
}

}  // namespace
}  // namespace quillbar
