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

/// The file behind a `DocumentStore`: bytes that are replaced at once, and never before what stood
/// there is known to be of no further use or has been kept.
class DocumentFile final {
public:
    /// The greatest document that is read. A watchlist of ten thousand coins has half a megabyte.
    static constexpr std::size_t kMaximumSize = std::size_t{4} * 1024 * 1024;
    /// The greatest file that is kept by copying it when it cannot be understood.
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

    /// Replaces the file as `AtomicFile::write` does. The first time, unless what it held has been
    /// understood, its bytes are first kept beside it, as NAME.bak: a list that this program cannot
    /// read (damaged, or written by a later version) is not lost. What was kept earlier is never
    /// overwritten: when NAME.bak holds other bytes, NAME.bak.1 is taken, and so on. What is kept
    /// outlasts a power cut, whatever the durability of the new bytes.
    ///
    /// What cannot be copied, because it cannot be read (another user's file, a folder, a circle of
    /// links) or is over `kMaximumKeptSize`, is kept by moving it to that name.
    ///
    /// Throws `FileError`; the file is then as it was before (but see `AtomicFile::write`): one that
    /// cannot be kept at all is not replaced, and one that was moved is moved back.
    void replace(std::string_view bytes,
                 AtomicFile::Durability durability = AtomicFile::Durability::powerCut);

private:
    /// Where it was moved, when it was.
    [[nodiscard]] std::optional<std::filesystem::path> keep() const;
    /// The first name to keep a file under that is free, or that holds these bytes already.
    [[nodiscard]] std::filesystem::path keptName(std::optional<std::string_view> bytes) const;

    std::filesystem::path m_path;
    FileOperations* m_operations;
    bool m_mayBeReplaced = false;
};

}  // namespace quillbar
