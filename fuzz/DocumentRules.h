// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "fuzz/FuzzTarget.h"
#include "fuzz/StrictJSON.h"
#include "QuillbarCore/model/DocumentError.h"

#include <optional>
#include <string>
#include <string_view>

namespace quillbar {

/// What stands after a byte order mark, which some editors write and our documents may have.
[[nodiscard]] inline std::string_view withoutByteOrderMark(std::string_view text) {
    constexpr std::string_view kMark = "\xEF\xBB\xBF";
    return text.starts_with(kMark) ? text.substr(kMark.size()) : text;
}

/// Requires that a text which was understood is JSON.
inline void requireJSON(std::string_view text) {
    const JSONVerdict verdict = judgeJSON(withoutByteOrderMark(text));
    require(verdict.isJSON || verdict.isBeyondLimits, "what is not JSON is refused");
}

/// Decodes a stored document as its store does and checks the rules of both documents: what is not
/// JSON is refused, and what was understood is the same after it was saved and loaded again.
/// Absent when the text is refused.
template <class Kind>
std::optional<typename Kind::Document> requireSoundDocument(std::string_view text) {
    std::optional<typename Kind::Document> document;
    try {
        document = Kind::decode(text);
    } catch (const DocumentError&) {
        return std::nullopt;
    }
    requireJSON(text);
    const std::string saved = Kind::encode(*document);
    require(judgeJSON(saved).isJSON, "a saved document is JSON");
    require(Kind::decode(saved) == *document, "a document is the same after saving and loading");
    return document;
}

}  // namespace quillbar
