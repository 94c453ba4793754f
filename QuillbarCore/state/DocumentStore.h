// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/runtime/AtomicFile.h"
#include "QuillbarCore/runtime/FileOperations.h"
#include "QuillbarCore/runtime/Logger.h"
#include "QuillbarCore/runtime/OutsideText.h"
#include "QuillbarCore/state/DocumentFile.h"

#include <cstdint>
#include <exception>
#include <filesystem>
#include <string>
#include <string_view>

namespace quillbar {

/// One of the user's documents, a small JSON file in the application's folder. For the main thread,
/// which it blocks while it reads or writes. A movable value.
///
/// `Kind` describes the document:
///
///     using Document = …;  // with schemaVersion and kCurrentSchemaVersion
///     static constexpr std::string_view kFileName, kLogCategory;
///     static const Document& defaultDocument();
///     static Document decode(std::string_view text);   // throws DocumentError
///     static std::string encode(const Document&);      // throws DocumentError
///     static void logUnreadable(const Logger&, std::string_view reason);
///     static void logUnknownVersion(const Logger&, std::int64_t version);
template <class Kind>
class DocumentStore final {
public:
    using Document = typename Kind::Document;

    /// `directory` is the application's folder; it need not exist. `operations` outlives the store.
    explicit DocumentStore(const std::filesystem::path& directory,
                           FileOperations& operations = FileOperations::system())
        : m_file(directory / Kind::kFileName, operations) {}

    [[nodiscard]] const std::filesystem::path& path() const noexcept { return m_file.path(); }

    /// The stored document. Never fails: returns the default, and logs one line, when there is no
    /// file (as at the first start), when it cannot be read or decoded, and when it is of another
    /// version. The file stays as it is. A decoded document of the current version is not checked
    /// further.
    [[nodiscard]] Document load() {
        try {
            const std::string text = m_file.read();
            Document document = Kind::decode(text);
            if (document.schemaVersion != Document::kCurrentSchemaVersion) {
                Kind::logUnknownVersion(m_logger, document.schemaVersion);
                return Kind::defaultDocument();
            }
            m_file.markUnderstood();
            return document;
        } catch (const std::exception& error) {
            // The error may quote a damaged file at length.
            Kind::logUnreadable(m_logger, OutsideText::shortened(error.what()));
            return Kind::defaultDocument();
        }
    }

    /// Replaces the file at once, making the folder where it is missing. A file that this store has
    /// not understood is kept beside it first (`DocumentFile::replace`). By default the bytes
    /// survive a power cut, as the user's own edits must.
    ///
    /// Throws `FileError` when the file cannot be kept or written, `DocumentError` when the
    /// document holds a text that is not UTF-8. The file is then as it was.
    void save(const Document& document,
              AtomicFile::Durability durability = AtomicFile::Durability::powerCut) {
        const std::string text = Kind::encode(document);
        m_file.replace(text, durability);
    }

private:
    DocumentFile m_file;
    Logger m_logger{Kind::kLogCategory};
};

}  // namespace quillbar
