// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/login/AutostartEntry.h"
#include "Quillbar/login/DesktopEntry.h"
#include "tests/runtime/HookedFileOperations.h"
#include "tests/support/Files.h"
#include "tests/support/TemporaryFolder.h"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <sys/stat.h>

namespace quillbar {
namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;
using Status = LoginItemStatus;

/// A home folder, a system's folder and a program, all in a folder of the test's own.
struct AutostartEntryTest : ::testing::Test {
    AutostartEntryTest() {
        installProgram(session.program);
        installProgram(folder.path() / "bin/quillbar");
    }

    static void installProgram(const std::filesystem::path& path) {
        writeContents(path, "#!/bin/sh\n");
        std::filesystem::permissions(path, std::filesystem::perms::owner_all);
    }
    /// What the entry does is asked of a new one each time, as another start of the program would.
    [[nodiscard]] AutostartEntry entry() { return AutostartEntry(session, operations); }
    [[nodiscard]] Status status() { return entry().status(); }
    void registerItem() { entry().registerItem(); }
    void unregisterItem() { entry().unregisterItem(); }

    /// What the action fails with; empty when it succeeds.
    [[nodiscard]] static std::string failureOf(const std::function<void()>& action) {
        try {
            action();
        } catch (const LoginItemError& error) {
            return error.what();
        }
        return {};
    }
    [[nodiscard]] std::string registerFailure() {
        return failureOf([this] { registerItem(); });
    }
    [[nodiscard]] std::string unregisterFailure() {
        return failureOf([this] { unregisterItem(); });
    }

    /// Somebody's entry of these lines, which starts the program of the session.
    [[nodiscard]] std::string foreign(std::string_view lines = "") const {
        return fmt::format("[Desktop Entry]\nType=Application\nName=Mine\nExec=\"{}\"\n{}",
                           session.program,
                           lines);
    }
    void theUserHas(std::string_view text) const { writeContents(file, text); }
    void theSystemHas(std::string_view text) const {
        writeContents(session.systemFolders.at(0) / AutostartEntry::kFileName, text);
    }
    /// As the settings of a desktop edit an entry: a line of the group more.
    void theDesktopAdds(std::string_view line) const {
        theUserHas(fmt::format("{}{}\n", contentsOf(file), line));
    }
    [[nodiscard]] bool isThere() const {
        return std::filesystem::exists(std::filesystem::symlink_status(file));
    }

    TemporaryFolder folder;
    HookedFileOperations operations;
    LoginSession session{
        .folder = folder.path() / "config/autostart",
        .systemFolders = {folder.path() / "xdg/autostart", folder.path() / "xdg2/autostart"},
        .program = folder.path() / "my programs/quillbar",
        .searchPath = "relative:" + (folder.path() / "bin").string(),
        .desktops = {"ubuntu", "GNOME"}};
    std::filesystem::path file = session.folder / "io.github.quillbar.Quillbar.desktop";
};

// Registering.

TEST_F(AutostartEntryTest, nothingIsRegisteredAtFirst) {
    EXPECT_EQ(status(), Status::notRegistered);
    EXPECT_FALSE(std::filesystem::exists(session.folder));
}

TEST_F(AutostartEntryTest, registersTheProgram) {
    registerItem();
    EXPECT_EQ(status(), Status::enabled);
    EXPECT_EQ(entry().path(), file);
    const auto written = DesktopEntry::parse(contentsOf(file));
    ASSERT_TRUE(written);
    EXPECT_EQ(written->text("Type"), "Application");
    EXPECT_EQ(written->text("Name"), "Quillbar");
    EXPECT_EQ(written->text("Name[zh_CN]"), "Quillbar");
    EXPECT_EQ(written->text("Comment"), "Live cryptocurrency prices in the status area");
    EXPECT_EQ(written->text("Comment[zh_CN]"), "在状态栏里显示加密货币的实时价格");
    EXPECT_EQ(written->text("Exec"), '"' + session.program + '"');
    EXPECT_EQ(written->text("Icon"), "io.github.quillbar.Quillbar");
    EXPECT_EQ(written->text("Terminal"), "false");
    EXPECT_EQ(written->text("StartupNotify"), "false");
    EXPECT_EQ(written->text("X-GNOME-Autostart-enabled"), "true");
    EXPECT_FALSE(written->has("DBusActivatable"));
    EXPECT_EQ(entryCount(session.folder), 1U);
}

TEST_F(AutostartEntryTest, registersAProgramOfAnyPath) {
    session.program = folder.path() / R"(100% "of" $HOME\`x` 'a' 程序/quillbar)";
    installProgram(session.program);
    registerItem();
    EXPECT_EQ(status(), Status::enabled);
    EXPECT_EQ(DesktopEntry::parse(contentsOf(file))->program(), session.program);
}

TEST_F(AutostartEntryTest, cannotRegisterAProgramThatNoEntryCanName) {
    session.program = "/opt/a=b/quillbar";
    EXPECT_EQ(registerFailure(), "a desktop entry cannot name the program /opt/a=b/quillbar");
    session.program = "";
    EXPECT_EQ(registerFailure(), "a desktop entry cannot name the program of an unknown path");
    EXPECT_FALSE(isThere());
}

TEST_F(AutostartEntryTest, registersTwiceWithTheSameResult) {
    registerItem();
    const std::string once = contentsOf(file);
    registerItem();
    EXPECT_EQ(contentsOf(file), once);
}

TEST_F(AutostartEntryTest, failsWhenTheEntryCannotBeWritten) {
    operations.before = [](std::size_t /*number*/, std::string_view name) {
        return name == "write" ? ENOSPC : 0;
    };
    EXPECT_EQ(registerFailure(),
              fmt::format("cannot write {}: No space left on device", file.string()));
    EXPECT_EQ(status(), Status::notRegistered);
    EXPECT_EQ(entryCount(session.folder), 0U);
}

TEST_F(AutostartEntryTest, failsWhenTheFolderCannotBeMade) {
    writeContents(session.folder.parent_path(), "a file");
    EXPECT_EQ(status(), Status::notRegistered);
    EXPECT_THAT(registerFailure(), HasSubstr("Not a directory"));
}

// Unregistering.

TEST_F(AutostartEntryTest, unregistersTheProgram) {
    registerItem();
    unregisterItem();
    EXPECT_EQ(status(), Status::notRegistered);
    EXPECT_FALSE(isThere());
}

TEST_F(AutostartEntryTest, unregistersWhatIsNotThere) {
    unregisterItem();
    EXPECT_EQ(status(), Status::notRegistered);
    EXPECT_FALSE(std::filesystem::exists(session.folder));
}

TEST_F(AutostartEntryTest, failsWhenTheEntryCannotBeRemoved) {
    registerItem();
    operations.before = [](std::size_t /*number*/, std::string_view name) {
        return name == "remove" ? EROFS : 0;
    };
    EXPECT_EQ(unregisterFailure(),
              fmt::format("cannot remove {}: Read-only file system", file.string()));
    EXPECT_EQ(status(), Status::enabled);
}

TEST_F(AutostartEntryTest, anEntryThatGoesJustThenIsUnregistered) {
    registerItem();
    operations.before = [](std::size_t /*number*/, std::string_view /*name*/) { return ENOENT; };
    EXPECT_THAT(unregisterFailure(), IsEmpty());
}

// A program that is gone.

TEST_F(AutostartEntryTest, anEntryWhoseProgramIsGoneIsNotFound) {
    registerItem();
    std::filesystem::remove(session.program);
    EXPECT_EQ(status(), Status::notFound);
    writeContents(session.program, "not executable");
    EXPECT_EQ(status(), Status::notFound);
    std::filesystem::remove(session.program);
    std::filesystem::create_directory(session.program);
    EXPECT_EQ(status(), Status::notFound);
}

TEST_F(AutostartEntryTest, anEntryOfOursIsBroughtUpToDate) {
    registerItem();
    std::filesystem::remove(session.program);
    session.program = folder.path() / "elsewhere/quillbar";
    installProgram(session.program);
    EXPECT_EQ(status(), Status::notFound);
    registerItem();
    EXPECT_EQ(status(), Status::enabled);
    EXPECT_EQ(DesktopEntry::parse(contentsOf(file))->program(), session.program);
}

TEST_F(AutostartEntryTest, anEditedEntryThatStartsNothingIsNotReplaced) {
    registerItem();
    theDesktopAdds("Exec=/gone/quillbar --mine");
    const std::string edited = contentsOf(file);
    EXPECT_EQ(status(), Status::notFound);
    EXPECT_EQ(registerFailure(),
              fmt::format("{} is not as Quillbar wrote it, and starts nothing", file.string()));
    EXPECT_EQ(contentsOf(file), edited);
}

TEST_F(AutostartEntryTest, programsWithoutAPathAreLookedUp) {
    theUserHas(foreign("Exec=quillbar --show\n"));
    EXPECT_EQ(status(), Status::enabled);
    theUserHas(foreign("Exec=bin/quillbar\n"));
    EXPECT_EQ(status(), Status::notFound);
    theUserHas(foreign("Exec=another\n"));
    EXPECT_EQ(status(), Status::notFound);
}

TEST_F(AutostartEntryTest, whatItTriesMustBeThereToo) {
    theUserHas(foreign("TryExec=quillbar\n"));
    EXPECT_EQ(status(), Status::enabled);
    theUserHas(foreign("TryExec=/gone/quillbar\n"));
    EXPECT_EQ(status(), Status::notFound);
}

TEST_F(AutostartEntryTest, anEntryThatIsNoApplicationStartsNothing) {
    theUserHas(foreign("Type=Link\n"));
    EXPECT_EQ(status(), Status::notFound);
    theUserHas("[Desktop Entry]\nType=Application\n");
    EXPECT_EQ(status(), Status::notFound);
}

// Switched off by the desktop's settings.

TEST_F(AutostartEntryTest, anEntryThatIsSwitchedOffNeedsApproval) {
    for (const std::string_view line : {"Hidden=true",
                                        "X-GNOME-Autostart-enabled=false",
                                        "X-MATE-Autostart-enabled=false",
                                        "OnlyShowIn=KDE;XFCE;",
                                        "OnlyShowIn=",
                                        "NotShowIn=KDE;GNOME;"}) {
        theUserHas(foreign(line));
        EXPECT_EQ(status(), Status::requiresApproval) << line;
    }
}

TEST_F(AutostartEntryTest, anEntryForThisDesktopIsOn) {
    for (const std::string_view line : {"Hidden=false",
                                        "X-GNOME-Autostart-enabled=true",
                                        "OnlyShowIn=GNOME;",
                                        "NotShowIn=KDE;",
                                        "NotShowIn="}) {
        theUserHas(foreign(line));
        EXPECT_EQ(status(), Status::enabled) << line;
    }
}

TEST_F(AutostartEntryTest, whatTheDesktopSwitchedOffStaysOff) {
    registerItem();
    theDesktopAdds("Hidden=true");
    const std::string edited = contentsOf(file);
    EXPECT_EQ(status(), Status::requiresApproval);
    registerItem();
    EXPECT_EQ(status(), Status::requiresApproval);
    EXPECT_EQ(contentsOf(file), edited);
}

TEST_F(AutostartEntryTest, whatTheDesktopSwitchedOnAgainCanBeUnregistered) {
    registerItem();
    theDesktopAdds("Hidden=false");
    EXPECT_EQ(status(), Status::enabled);
    unregisterItem();
    EXPECT_EQ(status(), Status::notRegistered);
    EXPECT_FALSE(isThere());
}

// Entries that somebody else wrote.

TEST_F(AutostartEntryTest, aForeignEntryThatStartsTheProgramIsLeftAlone) {
    theUserHas(foreign());
    EXPECT_EQ(status(), Status::enabled);
    registerItem();
    EXPECT_EQ(contentsOf(file), foreign());
    EXPECT_EQ(unregisterFailure(), fmt::format("{} was not written by Quillbar", file.string()));
    EXPECT_EQ(contentsOf(file), foreign());
}

TEST_F(AutostartEntryTest, whatIsNoEntryIsLeftAlone) {
    for (const std::string_view text : {"", "no entry", "[Desktop Entry]\nbroken"}) {
        theUserHas(text);
        EXPECT_EQ(status(), Status::notFound) << text;
        EXPECT_THAT(registerFailure(), HasSubstr("is not as Quillbar wrote it"));
        EXPECT_THAT(unregisterFailure(), HasSubstr("was not written by Quillbar"));
        EXPECT_EQ(contentsOf(file), text);
    }
}

TEST_F(AutostartEntryTest, aFolderInItsPlaceIsLeftAlone) {
    std::filesystem::create_directories(file / "inside");
    EXPECT_EQ(status(), Status::notFound);
    EXPECT_THAT(registerFailure(), HasSubstr("is not as Quillbar wrote it"));
    EXPECT_THAT(unregisterFailure(), HasSubstr("was not written by Quillbar"));
    EXPECT_TRUE(std::filesystem::is_directory(file / "inside"));
}

TEST_F(AutostartEntryTest, aPipeInItsPlaceIsNotWaitedFor) {
    std::filesystem::create_directories(session.folder);
    ASSERT_EQ(::mkfifo(file.c_str(), 0600), 0);
    EXPECT_EQ(status(), Status::notFound);
    EXPECT_THAT(registerFailure(), HasSubstr("is not as Quillbar wrote it"));
}

TEST_F(AutostartEntryTest, aHugeFileIsNotRead) {
    theUserHas(foreign());
    std::filesystem::resize_file(file, std::uintmax_t{50} * 1024 * 1024);
    EXPECT_EQ(status(), Status::notFound);
    EXPECT_THAT(unregisterFailure(), HasSubstr("was not written by Quillbar"));
}

// Symbolic links, as people have who keep their configuration elsewhere.

TEST_F(AutostartEntryTest, followsALinkToAnEntry) {
    const auto target = folder.path() / "dotfiles/entry";
    writeContents(target, foreign());
    std::filesystem::create_directories(session.folder);
    std::filesystem::create_symlink(target, file);
    EXPECT_EQ(status(), Status::enabled);
    writeContents(target, foreign("Hidden=true\n"));
    EXPECT_EQ(status(), Status::requiresApproval);
}

TEST_F(AutostartEntryTest, updatesAnEntryOfOursBehindALinkAndRemovesTheLink) {
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

TEST_F(AutostartEntryTest, aLinkToNowhereIsLeftAlone) {
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

TEST_F(AutostartEntryTest, anEntryOfTheSystemStartsTheProgramToo) {
    theSystemHas(foreign());
    EXPECT_EQ(status(), Status::enabled);
    registerItem();
    EXPECT_FALSE(isThere());
}

TEST_F(AutostartEntryTest, theUsersEntryOverrulesTheSystems) {
    theSystemHas(foreign());
    theUserHas(foreign("Hidden=true\n"));
    EXPECT_EQ(status(), Status::requiresApproval);
    theSystemHas(foreign("Hidden=true\n"));
    theUserHas(foreign());
    EXPECT_EQ(status(), Status::enabled);
}

TEST_F(AutostartEntryTest, hidesAnEntryOfTheSystemAndShowsItAgain) {
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

TEST_F(AutostartEntryTest, theEarlierFolderOfTheSystemHolds) {
    theSystemHas(foreign("Hidden=true\n"));
    writeContents(session.systemFolders.at(1) / AutostartEntry::kFileName, foreign());
    EXPECT_EQ(status(), Status::notRegistered);
    std::filesystem::remove(session.systemFolders.at(0) / AutostartEntry::kFileName);
    EXPECT_EQ(status(), Status::enabled);
}

TEST_F(AutostartEntryTest, anEntryOfTheSystemThatStartsNothingCountsAsNone) {
    theSystemHas("[Desktop Entry]\nType=Application\nExec=/gone/quillbar\n");
    EXPECT_EQ(status(), Status::notRegistered);
    registerItem();
    EXPECT_EQ(status(), Status::enabled);
}

}  // namespace
}  // namespace quillbar
