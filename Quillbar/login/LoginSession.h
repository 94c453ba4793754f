// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/platform/Environment.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace quillbar {

/// What decides in the user's session which programs are started at login. A plain value.
struct LoginSession final {
    /// Where the user's own entries are; empty when the user has no configuration files.
    std::filesystem::path folder;
    /// Where the system's entries are; of two with the same name, the one in the earlier folder
    /// holds, and the user's before all.
    std::vector<std::filesystem::path> systemFolders;
    /// The program to start, an absolute path; empty when it is not known.
    std::string program;
    /// Where desktops look up programs without a path: folders, separated by colons.
    std::string searchPath;
    /// The names by which entries call the desktop that runs.
    std::vector<std::string> desktops;

    /// The session that the environment describes, for this program and this folder of the user's
    /// configuration, if there is one. Pure.
    [[nodiscard]] static LoginSession of(
        const EnvironmentVariables& variables,
        const std::optional<std::filesystem::path>& configurationHome,
        std::string program);

    /// The session of these variables, and the program of this process. The program is the file
    /// that runs, wherever it lies: an installed one, or one in a folder where it was built. Take
    /// it at the start: once the file has been replaced by another version, the system no longer
    /// tells its name as it was. For the main thread.
    [[nodiscard]] static LoginSession ofProcess(const EnvironmentVariables& variables);
};

}  // namespace quillbar
