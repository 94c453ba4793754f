// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <optional>
#include <string>

/// Where the application keeps its files, and where desktops look for theirs.
namespace quillbar::AppDirectories {

/// The user's folders, as the system names them; absent where it names none.
struct UserFolders final {
    /// XDG_DATA_HOME.
    std::optional<std::string> dataHome = std::nullopt;
    /// HOME.
    std::optional<std::string> home = std::nullopt;
    /// The home folder of the user's entry in the system's user database.
    std::optional<std::string> databaseHome = std::nullopt;
    /// XDG_CONFIG_HOME.
    std::optional<std::string> configHome = std::nullopt;
};

/// The application's own folder, "Quillbar": in XDG_DATA_HOME, or else in .local/share of HOME, or
/// else in .local/share of the home folder of the user database. A folder that is absent, empty or
/// not absolute is skipped. The folder is not created.
///
/// Without any of the three there is nowhere to keep the user's list: ends the process with
/// abort(), after a line on stderr.
[[nodiscard]] std::filesystem::path applicationSupport(const UserFolders& folders);

/// The same, from the process's environment and the system's user database. For the main thread.
[[nodiscard]] std::filesystem::path applicationSupport();

/// The same, but absent where `applicationSupport` would end the process: for what can do without
/// the folder, such as a help text. For the main thread.
[[nodiscard]] std::optional<std::filesystem::path> applicationSupportIfAny();

/// The user's folder of configuration files: XDG_CONFIG_HOME, or else .config of the home folder,
/// which is found as for `applicationSupport`. Absent without any of them: the application can do
/// without this folder. The folder is not created.
[[nodiscard]] std::optional<std::filesystem::path> configurationHome(const UserFolders& folders);

/// The same, from the process's environment and the system's user database. For the main thread.
[[nodiscard]] std::optional<std::filesystem::path> configurationHome();

}  // namespace quillbar::AppDirectories
