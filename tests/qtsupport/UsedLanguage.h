// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/platform/TextLanguage.h"

namespace quillbar {

/// Has the texts in a language as long as it lives; Chinese is back afterwards, as every other test
/// expects it.
class UsedLanguage final {
public:
    explicit UsedLanguage(TextLanguage language) { TextLanguages::use(language); }
    UsedLanguage(const UsedLanguage&) = delete;
    UsedLanguage& operator=(const UsedLanguage&) = delete;
    UsedLanguage(UsedLanguage&&) = delete;
    UsedLanguage& operator=(UsedLanguage&&) = delete;
    ~UsedLanguage() { TextLanguages::use(TextLanguage::chinese); }
};

}  // namespace quillbar
