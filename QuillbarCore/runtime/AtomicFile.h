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
    /// `code` is an errno value; 0 if no system call failed.
    FileError(const std::string& text, int code)
        : std::runtime_error(text)
        , m_code(code) {}

    [[nodiscard]] int code() const noexcept { return m_code; }

private:
    int m_code;
};

/// Reads and replaces whole files. Keeps no state; blocks the caller.
namespace AtomicFile {

/// The size limit of `read`, in bytes. Our own files are much smaller.
inline constexpr std::size_t kMaximumSize = std::size_t{16} * 1024 * 1024;

/// The file's bytes. Throws `FileError` when the path cannot be opened or read, is not a regular
/// file (a folder, a pipe), or holds more than `maximumSize` bytes.
[[nodiscard]] std::string read(const std::filesystem::path& path,
                               std::size_t maximumSize = kMaximumSize);

/// What the bytes of a written file survive.
enum class Durability {
    /// The end of the process and a power cut: the bytes are on the disk when the write returns,
    /// which takes milliseconds.
    powerCut,
    /// The end of the process, but not a power cut soon after, which may leave any bytes in the
    /// file. Does not wait for the disk. For data that can be fetched again or are not worth the
    /// wait, and whose damage is noticed when they are read.
    process,
};

/// No write takes this long: an older temporary file was left by a process that was killed.
inline constexpr std::chrono::minutes kAbandonedAge{1};

/// Replaces the file. A reader, or a crash at any moment, finds either the old bytes or the new
/// ones, never a mixture. Of two writes at the same time the later one stays. Missing folders are
/// made with mode 0700; the file gets mode 0600. If the path is a symbolic link, the link stays and
/// its target is replaced, or made if it does not exist.
///
/// Throws `FileError` when a folder cannot be made, the bytes cannot be written or symbolic links
/// form a circle. The old file is then whole, and no temporary file is left. One case is different:
/// if only synchronising the folder fails, the new bytes are in place, but a power cut may lose
/// them.
///
/// A process that is killed while it writes may leave a temporary file beside the file. Nothing
/// reads it. The next write of the same file that waits for the disk and succeeds removes the
/// temporary files that are more than `kAbandonedAge` older or younger than the new bytes.
void write(const std::filesystem::path& path,
           std::string_view bytes,
           FileOperations& operations = FileOperations::system(),
           Durability durability = Durability::powerCut);

}  // namespace AtomicFile

}  // namespace quillbar
