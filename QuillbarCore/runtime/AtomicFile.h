// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/runtime/FileOperations.h"

#include <chrono>
#include <cstddef>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>

namespace quillbar {

/// A file that could not be read or written. `what()` names the operation, the path and the reason.
class FileError final : public std::runtime_error {
public:
    /// `code` is an errno value, or 0 where the reason is not the system's.
    FileError(const std::string& text, int code)
        : std::runtime_error(text)
        , m_code(code) {}

    [[nodiscard]] int code() const noexcept { return m_code; }

private:
    int m_code;
};

/// Whole files, read and replaced at once. Stateless but for its system calls; blocks the caller.
namespace AtomicFile {

/// No document of ours comes near this; what does is not ours.
inline constexpr std::size_t kMaximumSize = std::size_t{16} * 1024 * 1024;

/// The file's bytes. Throws `FileError` when the path cannot be opened or read, is not a regular
/// file (a folder, a pipe), or holds more than `maximumSize` bytes.
[[nodiscard]] std::string read(const std::filesystem::path& path,
                               std::size_t maximumSize = kMaximumSize);

/// What the bytes of a written file outlast.
enum class Durability {
    /// A power cut as well: they are on the disk when the write returns, which takes milliseconds.
    powerCut,
    /// The process, but not a power cut soon after, which may leave any bytes under the file's name.
    /// Waits for no disk. For what can be had again or is not worth the wait, and is recognised when
    /// it is damaged.
    process,
};

/// A temporary file of another process that writes at this moment is never so old.
inline constexpr std::chrono::minutes kAbandonedAge{1};

/// Replaces the file: a reader, or a crash at any moment, finds the old bytes or the new ones, never
/// a mixture; so do two that write at the same time, of which the later one stays. Missing folders
/// are made, mode 0700; the file has mode 0600. A symbolic link keeps pointing where it does, and the
/// file behind it is replaced, or made where it points in vain.
///
/// Throws `FileError` when a folder cannot be made, the bytes cannot be written or symbolic links
/// form a circle; the old file is then whole, and no temporary file is left. One that is thrown
/// because the folder could not be synchronised after the file was put in place leaves the new bytes
/// readable, but perhaps not after a power cut. A process that is killed while it writes may leave a
/// temporary file beside the file, which nothing reads; the next write of the same file that waits for
/// the disk and succeeds takes those away that are more than `kAbandonedAge` older or younger than the
/// new bytes.
void write(const std::filesystem::path& path,
           std::string_view bytes,
           FileOperations& operations = FileOperations::system(),
           Durability durability = Durability::powerCut);

}  // namespace AtomicFile

}  // namespace quillbar
