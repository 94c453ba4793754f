// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/runtime/AtomicFile.h"
#include "QuillbarCore/runtime/FileOperations.h"

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace quillbar {

/// The file behind a `DocumentStore`. It is replaced as a whole, and only after its old bytes were
/// understood or kept in another file.
class DocumentFile final {
public:
    /// The most bytes of a document that is read. A watchlist of ten thousand coins has half a
    /// megabyte.
    static constexpr std::size_t kMaximumSize = std::size_t{4} * 1024 * 1024;
    /// The most bytes of a file that is kept by copying it when it cannot be understood.
    static constexpr std::size_t kMaximumKeptSize = std::size_t{256} * 1024 * 1024;

    /// `operations` outlives the file.
    explicit DocumentFile(std::filesystem::path path,
                          FileOperations& operations = FileOperations::system());

    [[nodiscard]] const std::filesystem::path& path() const noexcept { return m_path; }

    /// The file's bytes. Throws `FileError` when there is none, or it cannot be read, or is greater
    /// than any document (`kMaximumSize`).
    [[nodiscard]] std::string read() const;

    /// Says that the bytes that were read have been understood: `replace` need not keep them.
    void markUnderstood() noexcept { m_mayBeReplaced = true; }

    /// Replaces the file as `AtomicFile::write` does. If the old bytes were not understood, the
    /// first call keeps them beside the file, as NAME.bak, so that a list that this program cannot
    /// read (damaged, or written by a later version) is not lost. Kept files are never overwritten:
    /// if NAME.bak holds other bytes, NAME.bak.1 is taken, and so on. A kept file survives a power
    /// cut, whatever the durability of the new bytes.
    ///
    /// A file that cannot be copied, because it cannot be read (another user's file, a folder, a
    /// circle of links) or is larger than `kMaximumKeptSize`, is moved to that name.
    ///
    /// Throws `FileError`. The file is then as it was before (but see `AtomicFile::write`): a file
    /// that cannot be kept is not replaced, and one that was moved is moved back.
    void replace(std::string_view bytes,
                 AtomicFile::Durability durability = AtomicFile::Durability::powerCut);

private:
    /// Keeps the old file. Returns where it was moved to; absent if it was not moved.
    [[nodiscard]] std::optional<std::filesystem::path> keep() const;
    /// The first name for a kept file that is free, or whose file already holds these bytes.
    [[nodiscard]] std::filesystem::path keptName(std::optional<std::string_view> bytes) const;

    std::filesystem::path m_path;
    FileOperations* m_operations;
    bool m_mayBeReplaced = false;
};

}  // namespace quillbar
