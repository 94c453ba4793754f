// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/state/Language.h"

#include "QuillbarCore/model/RawValue.h"

namespace quillbar {

std::string_view rawValue(Language language) {
    switch (language) {
    case Language::chinese:
        return "zh";
    case Language::english:
        return "en";
    case Language::desktop:
        break;
    }
    return "desktop";
}

std::optional<Language> languageFromRawValue(std::string_view rawText) {
    return valueWithRawText(rawText, kAllLanguages);
}

}  // namespace quillbar
