// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/state/AppDirectories.h"

#include "QuillbarCore/model/ProgrammingError.h"

#include <cstddef>
#include <cstdlib>
#include <pwd.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace quillbar::AppDirectories {

namespace {

constexpr const char* kFolderName = "Quillbar";

std::optional<std::filesystem::path> absolutePath(const std::optional<std::string>& text) {
    if (!text || !text->starts_with('/')) {
        return std::nullopt;
    }
    return std::filesystem::path(*text);
}

std::optional<std::string> environmentVariable(const char* name) {
    const char* const value = std::getenv(name);
    return value == nullptr ? std::nullopt : std::optional<std::string>(value);
}

std::optional<std::string> databaseHome() {
    // More than the longest entry of any user database in use.
    std::vector<char> buffer(std::size_t{64} * 1024);
    passwd entry{};
    passwd* found = nullptr;
    ::getpwuid_r(::getuid(), &entry, buffer.data(), buffer.size(), &found);
    if (found == nullptr || found->pw_dir == nullptr) {
        return std::nullopt;
    }
    return found->pw_dir;
}

std::optional<std::filesystem::path> homeFolder(const UserFolders& folders) {
    const auto home = absolutePath(folders.home);
    return home ? home : absolutePath(folders.databaseHome);
}

std::optional<std::filesystem::path> supportIn(const UserFolders& folders) {
    if (const auto dataHome = absolutePath(folders.dataHome)) {
        return *dataHome / kFolderName;
    }
    if (const auto home = homeFolder(folders)) {
        return *home / ".local" / "share" / kFolderName;
    }
    return std::nullopt;
}

UserFolders foldersOfProcess() {
    return {.dataHome = environmentVariable("XDG_DATA_HOME"),
            .home = environmentVariable("HOME"),
            .databaseHome = databaseHome(),
            .configHome = environmentVariable("XDG_CONFIG_HOME")};
}

}  // namespace

std::filesystem::path applicationSupport(const UserFolders& folders) {
    if (auto folder = supportIn(folders)) {
        return *std::move(folder);
    }
    programmingError(
        "no folder for the application's files: XDG_DATA_HOME and HOME are unset, and the user is "
        "unknown");
}

std::filesystem::path applicationSupport() {
    return applicationSupport(foldersOfProcess());
}

std::optional<std::filesystem::path> applicationSupportIfAny() {
    return supportIn(foldersOfProcess());
}

std::optional<std::filesystem::path> configurationHome(const UserFolders& folders) {
    if (auto configHome = absolutePath(folders.configHome)) {
        return configHome;
    }
    const auto home = homeFolder(folders);
    return home ? std::optional(*home / ".config") : std::nullopt;
}

std::optional<std::filesystem::path> configurationHome() {
    return configurationHome(foldersOfProcess());
}

}  // namespace quillbar::AppDirectories
