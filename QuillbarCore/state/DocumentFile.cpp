// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/state/DocumentFile.h"

#include "QuillbarCore/runtime/AtomicFile.h"

#include <fmt/format.h>

#include <cerrno>
#include <optional>
#include <system_error>
#include <utility>

namespace quillbar {

namespace {

constexpr int kMaximumKeptFiles = 100;

/// The bytes of the file; absent when there is no file.
std::optional<std::string> readIfPresent(const std::filesystem::path& path) {
    try {
        return AtomicFile::read(path, DocumentFile::kMaximumKeptSize);
    } catch (const FileError& error) {
        if (error.code() == ENOENT || error.code() == ENOTDIR) {
            return std::nullopt;
        }
        throw;
    }
}

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
    return AtomicFile::read(m_path);
}

void DocumentFile::replace(std::string_view bytes) {
    if (!m_mayBeReplaced) {
        keep();
        m_mayBeReplaced = true;
    }
    AtomicFile::write(m_path, bytes, *m_operations);
}

void DocumentFile::keep() const {
    const std::optional<std::string> bytes = readIfPresent(m_path);
    if (!bytes) {
        return;
    }
    const std::filesystem::path firstName = m_path.string() + ".bak";
    std::filesystem::path name = firstName;
    for (int number = 1; isTaken(name); ++number) {
        if (holds(name, *bytes)) {
            return;
        }
        if (number == kMaximumKeptFiles) {
            throw FileError(fmt::format("cannot keep {}: too many files are kept", m_path.string()),
                            EEXIST);
        }
        name = fmt::format("{}.{}", firstName.string(), number);
    }
    AtomicFile::write(name, *bytes, *m_operations);
}

}  // namespace quillbar
