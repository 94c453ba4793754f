// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <sys/types.h>

namespace quillbar {

/// The system calls behind `AtomicFile`, one function each, so that a test can make any of them
/// fail. Each returns what its system call returns and sets errno as it does.
class FileOperations {
public:
    FileOperations() = default;
    FileOperations(const FileOperations&) = delete;
    FileOperations& operator=(const FileOperations&) = delete;
    FileOperations(FileOperations&&) = delete;
    FileOperations& operator=(FileOperations&&) = delete;
    virtual ~FileOperations() = default;

    /// mkdir(2).
    virtual int makeDirectory(const std::string& path, mode_t mode);
    /// mkostemp(3): replaces the last six characters of `pathTemplate`; mode 0600.
    virtual int openTemporary(std::string& pathTemplate);
    /// open(2) of a folder, for reading.
    virtual int openDirectory(const std::string& path);
    /// write(2).
    virtual ssize_t write(int descriptor, const char* data, std::size_t size);
    /// fsync(2).
    virtual int synchronise(int descriptor);
    /// close(2).
    virtual int close(int descriptor);
    /// rename(2).
    virtual int rename(const std::string& from, const std::string& to);
    /// unlink(2).
    virtual int remove(const std::string& path);

    /// The real system's.
    [[nodiscard]] static FileOperations& system();
};

}  // namespace quillbar
