// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/state/DocumentFile.h"

#include <fmt/format.h>

#include <cerrno>
#include <optional>
#include <system_error>
#include <utility>

namespace quillbar {

namespace {

constexpr int kMaximumKeptFiles = 100;

bool isTaken(const std::filesystem::path& path) {
    std::error_code error;
    return std::filesystem::symlink_status(path, error).type()
           != std::filesystem::file_type::not_found;
}

bool holds(const std::filesystem::path& path, std::string_view bytes) {
    try {
        return AtomicFile::read(path, bytes.size()) == bytes;
    } catch (const FileError&) {
        return false;
    }
}

}  // namespace

DocumentFile::DocumentFile(std::filesystem::path path, FileOperations& operations)
    : m_path(std::move(path))
    , m_operations(&operations) {}

std::string DocumentFile::read() const {
    return AtomicFile::read(m_path, kMaximumSize);
}

void DocumentFile::replace(std::string_view bytes, AtomicFile::Durability durability) {
    std::optional<std::filesystem::path> moved;
    if (!m_mayBeReplaced) {
        moved = keep();
        m_mayBeReplaced = true;
    }
    try {
        AtomicFile::write(m_path, bytes, *m_operations, durability);
    } catch (const FileError&) {
        if (moved && !isTaken(m_path) && m_operations->rename(*moved, m_path) == 0) {
            m_mayBeReplaced = false;
        }
        throw;
    }
}

std::optional<std::filesystem::path> DocumentFile::keep() const {
    std::string bytes;
    try {
        bytes = AtomicFile::read(m_path, kMaximumKeptSize);
    } catch (const FileError& error) {
        if (error.code() == ENOENT || error.code() == ENOTDIR) {
            return std::nullopt;
        }
        const std::filesystem::path name = keptName(std::nullopt);
        if (m_operations->rename(m_path, name) != 0) {
            throw;
        }
        return name;
    }
    const std::filesystem::path name = keptName(bytes);
    if (!isTaken(name)) {
        AtomicFile::write(name, bytes, *m_operations);
    }
    return std::nullopt;
}

std::filesystem::path DocumentFile::keptName(std::optional<std::string_view> bytes) const {
    const std::filesystem::path firstName = m_path.string() + ".bak";
    std::filesystem::path name = firstName;
    for (int number = 1; isTaken(name) && !(bytes && holds(name, *bytes)); ++number) {
        if (number == kMaximumKeptFiles) {
            throw FileError(fmt::format("cannot keep {}: too many files are kept", m_path.string()),
                            EEXIST);
        }
        name = fmt::format("{}.{}", firstName.string(), number);
    }
    return name;
}

}  // namespace quillbar
