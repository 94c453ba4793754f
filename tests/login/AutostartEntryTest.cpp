// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/login/DesktopEntry.h"
#include "tests/login/AutostartFixture.h"

#include <gmock/gmock.h>

#include <cerrno>

namespace quillbar {
namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;
using Status = LoginItemStatus;

using AutostartEntryTest = AutostartFixture;

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
    EXPECT_EQ(written->text("Exec"), '"' + session.program + "\" --background")
        << "nothing opens at login";
    EXPECT_EQ(written->program(), session.program);
    EXPECT_EQ(written->text("Icon"), "io.github.quillbar.Quillbar");
    EXPECT_EQ(written->text("Terminal"), "false");
    EXPECT_EQ(written->text("StartupNotify"), "false");
    EXPECT_EQ(written->text("X-GNOME-Autostart-enabled"), "true");
    EXPECT_FALSE(written->has("DBusActivatable"));
    EXPECT_EQ(entryCount(session.folder), 1U);
}

TEST_F(AutostartEntryTest, registersAProgramOfAnyPath) {
    session.program = folder.path() / R"("of" $HOME;`x` 'a' 程序/quillbar)";
    installProgram(session.program);
    registerItem();
    EXPECT_EQ(status(), Status::enabled);
    EXPECT_EQ(DesktopEntry::parse(contentsOf(file))->program(), session.program);
}

TEST_F(AutostartEntryTest, cannotRegisterAProgramThatNoEntryCanName) {
    for (const std::string program :
         {"/opt/a=b/quillbar", "/opt/100%/quillbar", R"(/opt/a\b/quillbar)"}) {
        session.program = program;
        EXPECT_EQ(registerFailure(), "a desktop entry cannot name the program " + program);
    }
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

TEST_F(AutostartEntryTest, nothingIsRegisteredForAUserWithoutConfigurationFiles) {
    session.folder.clear();
    const std::filesystem::path previous = std::filesystem::current_path();
    std::filesystem::current_path(folder.path());
    const auto stray = folder.path() / AutostartEntry::kFileName;
    writeContents(stray, foreign());
    EXPECT_EQ(status(), Status::notRegistered) << "looks nowhere else";
    EXPECT_EQ(registerFailure(), "the user has no folder of configuration files");
    EXPECT_THAT(unregisterFailure(), IsEmpty());
    EXPECT_EQ(contentsOf(stray), foreign());
    EXPECT_TRUE(entry().path().empty());
    std::filesystem::current_path(previous);
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

TEST_F(AutostartEntryTest, namesAFailureThatTheSystemHasNoWordsFor) {
    registerItem();
    operations.before = [](std::size_t /*number*/, std::string_view /*name*/) { return 9999; };
    EXPECT_EQ(unregisterFailure(), fmt::format("cannot remove {}: unknown error", file.string()));
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

TEST_F(AutostartEntryTest, anEntryWhoseConditionIsNotMetNeedsApproval) {
    const auto marker = session.folder.parent_path() / "quillbar/marker";
    theUserHas(foreign("AutostartCondition=if-exists quillbar/marker"));
    EXPECT_EQ(status(), Status::requiresApproval);
    writeContents(marker, "");
    EXPECT_EQ(status(), Status::enabled);
    theUserHas(foreign("AutostartCondition=unless-exists  /quillbar/marker"));
    EXPECT_EQ(status(), Status::requiresApproval);
    std::filesystem::remove(marker);
    EXPECT_EQ(status(), Status::enabled);
}

TEST_F(AutostartEntryTest, aConditionThatOnlyTheDesktopCanJudgeCountsAsMet) {
    for (const std::string_view condition :
         {"", "if-exists", "unless-exists", "GSettings org.gnome.x y", "GNOME3 unless-session z"}) {
        theUserHas(foreign(fmt::format("AutostartCondition={}", condition)));
        EXPECT_EQ(status(), Status::enabled) << condition;
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

}  // namespace
}  // namespace quillbar
