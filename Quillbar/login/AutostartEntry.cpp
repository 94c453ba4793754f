// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/login/AutostartEntry.h"

#include "Quillbar/login/DesktopEntry.h"
#include "QuillbarCore/runtime/AtomicFile.h"

#include <fmt/format.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <system_error>
#include <unistd.h>
#include <utility>
#include <vector>

namespace quillbar {

namespace {

/// Far more than any desktop entry has.
constexpr std::size_t kMaximumSize = std::size_t{1024} * 1024;

constexpr const char* kChecksumKey = "X-Quillbar-Checksum";

/// Who wrote an entry.
enum class Author { nobody, somebodyElse, oursEdited, ours };

/// The file at the place of the entry.
struct Found {
    /// `nobody` when nothing does.
    Author author = Author::nobody;
    /// Absent when desktops cannot read it.
    std::optional<DesktopEntry> entry = std::nullopt;
};

// FNV-1a, which is enough to notice an edit.
std::uint64_t checksum(std::string_view bytes) {
    constexpr std::uint64_t kOffset = 0xcbf29ce484222325;
    constexpr std::uint64_t kPrime = 0x100000001b3;
    std::uint64_t hash = kOffset;
    for (const char byte : bytes) {
        hash = (hash ^ static_cast<unsigned char>(byte)) * kPrime;
    }
    return hash;
}

std::string signature(std::string_view bytes) {
    return fmt::format("{}={:016x}\n", kChecksumKey, checksum(bytes));
}

std::string withSignature(std::string_view bytes) {
    return fmt::format("{}{}", bytes, signature(bytes));
}

Author authorOf(std::string_view bytes, const DesktopEntry& entry) {
    if (!entry.has(kChecksumKey)) {
        return Author::somebodyElse;
    }
    const std::size_t length = signature({}).size();
    const std::string_view before = bytes.substr(0, bytes.size() - std::min(length, bytes.size()));
    return bytes.substr(before.size()) == signature(before) ? Author::ours : Author::oursEdited;
}

Found look(const std::filesystem::path& path) {
    std::error_code error;
    if (std::filesystem::symlink_status(path, error).type()
        == std::filesystem::file_type::not_found) {
        return {};
    }
    try {
        const std::string bytes = AtomicFile::read(path, kMaximumSize);
        if (auto entry = DesktopEntry::parse(bytes)) {
            const Author author = authorOf(bytes, *entry);
            return {.author = author, .entry = std::move(entry)};
        }
    } catch (const FileError&) {
        // It is no entry, so it is not ours.
    }
    return {.author = Author::somebodyElse};
}

bool isAmong(const std::vector<std::string>& names, const std::vector<std::string>& all) {
    return std::any_of(names.begin(), names.end(), [&all](const std::string& name) {
        return std::find(all.begin(), all.end(), name) != all.end();
    });
}

bool isHidden(const DesktopEntry& entry) {
    return entry.boolean("Hidden", false);
}

// Two of the conditions that desktops know name a file of the user's configuration. The others ask
// for settings that only the desktop itself can read, and count as met.
bool isConditionMet(const DesktopEntry& entry, const LoginSession& session) {
    const std::string condition = entry.text("AutostartCondition").value_or("");
    const std::size_t blank = condition.find(' ');
    const std::size_t start = condition.find_first_not_of(" /", blank);
    if (start == std::string::npos) {
        return true;
    }
    const std::string kind = condition.substr(0, blank);
    std::error_code error;
    const bool exists =
        !session.folder.empty()
        && std::filesystem::exists(session.folder.parent_path() / condition.substr(start), error);
    return (kind != "if-exists" || exists) && (kind != "unless-exists" || !exists);
}

bool isSwitchedOff(const DesktopEntry& entry, const LoginSession& session) {
    const std::vector<std::string>& desktops = session.desktops;
    return isHidden(entry)
           // Written by the session settings of GNOME, Cinnamon and others, and of MATE.
           || !entry.boolean("X-GNOME-Autostart-enabled", true)
           || !entry.boolean("X-MATE-Autostart-enabled", true)
           || (entry.has("OnlyShowIn") && !isAmong(entry.list("OnlyShowIn"), desktops))
           || isAmong(entry.list("NotShowIn"), desktops) || !isConditionMet(entry, session);
}

bool isExecutable(const std::filesystem::path& path) {
    std::error_code error;
    return std::filesystem::is_regular_file(path, error) && ::access(path.c_str(), X_OK) == 0;
}

// Whether a program that an entry names can be started.
bool isThere(const std::string& program, std::string_view searchPath) {
    if (program.find('/') != std::string::npos) {
        return program.starts_with('/') && isExecutable(program);
    }
    while (!searchPath.empty()) {
        const std::size_t end = searchPath.find(':');
        const std::filesystem::path folder(searchPath.substr(0, end));
        if (folder.is_absolute() && isExecutable(folder / program)) {
            return true;
        }
        searchPath.remove_prefix(end == std::string_view::npos ? searchPath.size() : end + 1);
    }
    return false;
}

LoginItemStatus statusOf(const Found& found, const LoginSession& session) {
    if (!found.entry) {
        return found.author == Author::nobody ? LoginItemStatus::notRegistered
                                              : LoginItemStatus::notFound;
    }
    const DesktopEntry& entry = *found.entry;
    if (found.author == Author::ours && isHidden(entry)) {
        // Written here, against an entry of the system's.
        return LoginItemStatus::notRegistered;
    }
    if (isSwitchedOff(entry, session)) {
        return LoginItemStatus::requiresApproval;
    }
    const auto program = entry.program();
    const auto tried = entry.text("TryExec");
    const bool canStart = entry.text("Type") == "Application" && program
                          && isThere(*program, session.searchPath)
                          && (!tried || isThere(*tried, session.searchPath));
    return canStart ? LoginItemStatus::enabled : LoginItemStatus::notFound;
}

/// Whether an entry starts the program, or keeps the system's from doing so.
enum class Effect { starts, hides };

// A start at login shows no window, and toggles none of an application that runs, which a restored
// session may have started before: hence its argument, and no DBusActivatable, as an activation
// opens the panel. StartupNotify keeps desktops from waiting for a window.
//
// An entry that hides names the program too, for settings that switch it on again.
std::string entryOf(const std::optional<std::string>& exec, Effect effect) {
    return withSignature(
        fmt::format("[Desktop Entry]\n"
                    "Type=Application\n"
                    "Version=1.4\n"
                    "Name=Quillbar\n"
                    "Name[zh_CN]=Quillbar\n"
                    "Comment=Live cryptocurrency prices in the status area\n"
                    "Comment[zh_CN]=在状态栏里显示加密货币的实时价格\n"
                    "{}"
                    "Icon=io.github.quillbar.Quillbar\n"
                    "Terminal=false\n"
                    "StartupNotify=false\n"
                    "X-GNOME-Autostart-enabled=true\n"
                    "{}",
                    exec ? fmt::format("Exec={} --background\n", *exec) : "",
                    effect == Effect::hides ? "Hidden=true\n" : ""));
}

std::optional<std::string> execOf(const LoginSession& session) {
    return session.program.empty() ? std::nullopt : DesktopEntry::execOf(session.program);
}

}  // namespace

AutostartEntry::AutostartEntry(LoginSession session, FileOperations& operations)
    : m_session(std::move(session))
    , m_operations(operations)
    , m_path(m_session.folder.empty() ? std::filesystem::path() : m_session.folder / kFileName) {}

LoginItemStatus AutostartEntry::status() const {
    const Found found = look(m_path);
    if (found.author == Author::nobody && isStartedBySystem()) {
        return LoginItemStatus::enabled;
    }
    return statusOf(found, m_session);
}

void AutostartEntry::registerItem() {
    const Found found = look(m_path);
    switch (found.author) {
    case Author::nobody:
        if (isStartedBySystem()) {
            return;
        }
        break;
    case Author::ours:
        break;
    case Author::oursEdited:
    case Author::somebodyElse:
        if (statusOf(found, m_session) == LoginItemStatus::notFound) {
            throw LoginItemError(
                fmt::format("{} is not as Quillbar wrote it, and starts nothing", m_path.string()));
        }
        return;
    }
    const auto exec = execOf(m_session);
    if (!exec) {
        throw LoginItemError(
            fmt::format("a desktop entry cannot name the program {}",
                        m_session.program.empty() ? "of an unknown path" : m_session.program));
    }
    write(entryOf(exec, Effect::starts));
}

void AutostartEntry::unregisterItem() {
    const Found found = look(m_path);
    if (found.author == Author::somebodyElse) {
        throw LoginItemError(fmt::format("{} was not written by Quillbar", m_path.string()));
    }
    if (isStartedBySystem()) {
        if (found.author != Author::oursEdited) {
            write(entryOf(execOf(m_session), Effect::hides));
        } else if (statusOf(found, m_session) == LoginItemStatus::enabled) {
            throw LoginItemError(
                fmt::format("{} is not as Quillbar wrote it, and without it an entry of the system "
                            "would start the program",
                            m_path.string()));
        }
    } else if (found.author != Author::nobody) {
        remove();
    }
}

bool AutostartEntry::isStartedBySystem() const {
    for (const std::filesystem::path& folder : m_session.systemFolders) {
        const Found found = look(folder / kFileName);
        if (found.author != Author::nobody) {
            return statusOf(found, m_session) == LoginItemStatus::enabled;
        }
    }
    return false;
}

void AutostartEntry::remove() {
    if (m_operations.remove(m_path.string()) == 0 || errno == ENOENT) {
        return;
    }
    const char* const reason = ::strerrordesc_np(errno);
    throw LoginItemError(fmt::format(
        "cannot remove {}: {}", m_path.string(), reason == nullptr ? "unknown error" : reason));
}

void AutostartEntry::write(std::string_view bytes) {
    if (m_path.empty()) {
        throw LoginItemError("the user has no folder of configuration files");
    }
    try {
        AtomicFile::write(m_path, bytes, m_operations);
    } catch (const FileError& error) {
        throw LoginItemError(error.what());
    }
}

}  // namespace quillbar
