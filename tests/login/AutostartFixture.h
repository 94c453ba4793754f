// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/login/AutostartEntry.h"
#include "tests/runtime/HookedFileOperations.h"
#include "tests/support/Files.h"
#include "tests/support/TemporaryFolder.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

namespace quillbar {

/// A home folder, a system's folder and a program, all in a folder of the test's own.
struct AutostartFixture : ::testing::Test {
    AutostartFixture() {
        installProgram(session.program);
        installProgram(folder.path() / "bin/quillbar");
    }

    static void installProgram(const std::filesystem::path& path) {
        writeContents(path, "#!/bin/sh\n");
        std::filesystem::permissions(path, std::filesystem::perms::owner_all);
    }
    /// What the entry does is asked of a new one each time, as another start of the program would.
    [[nodiscard]] AutostartEntry entry() { return AutostartEntry(session, operations); }
    [[nodiscard]] LoginItemStatus status() { return entry().status(); }
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
    /// As settings edit a line that is there.
    void theDesktopReplaces(std::string_view line, std::string_view other) const {
        std::string text = contentsOf(file);
        const std::size_t place = text.find(line);
        ASSERT_NE(place, std::string::npos) << text;
        theUserHas(text.replace(place, line.size(), other));
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

}  // namespace quillbar
