// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/login/LoginSession.h"

#include "QuillbarCore/state/AppDirectories.h"

#include <cstddef>
#include <optional>
#include <string_view>
#include <system_error>
#include <utility>

namespace quillbar {

namespace {

constexpr const char* kFolderName = "autostart";
// What the XDG Base Directory Specification says of a variable that is not set, or empty.
constexpr const char* kUsualSystemFolders = "/etc/xdg";
// What shells search without one.
constexpr const char* kUsualSearchPath = "/usr/local/bin:/usr/bin:/bin";

std::vector<std::string> split(std::string_view list) {
    std::vector<std::string> parts;
    while (!list.empty()) {
        const std::size_t end = list.find(':');
        if (end != 0) {
            parts.emplace_back(list.substr(0, end));
        }
        list.remove_prefix(end == std::string_view::npos ? list.size() : end + 1);
    }
    return parts;
}

std::string valueOf(const EnvironmentVariables& variables,
                    const char* name,
                    const char* otherwise) {
    const auto value = variables(name);
    return value && !value->empty() ? *value : otherwise;
}

}  // namespace

LoginSession LoginSession::of(const EnvironmentVariables& variables,
                              const std::optional<std::filesystem::path>& configurationHome,
                              std::string program) {
    LoginSession session{
        .folder = configurationHome ? *configurationHome / kFolderName : std::filesystem::path(),
        .systemFolders = {},
        .program = std::move(program),
        .searchPath = valueOf(variables, "PATH", kUsualSearchPath),
        .desktops = split(valueOf(variables, "XDG_CURRENT_DESKTOP", ""))};
    for (const std::string& folder :
         split(valueOf(variables, "XDG_CONFIG_DIRS", kUsualSystemFolders))) {
        if (folder.starts_with('/')) {
            session.systemFolders.push_back(std::filesystem::path(folder) / kFolderName);
        }
    }
    return session;
}

LoginSession LoginSession::ofProcess(const EnvironmentVariables& variables) {
    std::error_code error;
    const auto program = std::filesystem::read_symlink("/proc/self/exe", error);
    return of(
        variables, AppDirectories::configurationHome(), error ? std::string() : program.string());
}

}  // namespace quillbar
