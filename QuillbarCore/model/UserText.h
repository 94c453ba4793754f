// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

namespace quillbar {

/// Marks a literal of the core as a text that users read, and returns it. The tools of the
/// translators find it by the name of this function, and the application looks its translation up
/// by the text itself. `context` is "core".
[[nodiscard]] constexpr const char* userText(const char* /*context*/, const char* text) {
    return text;
}

}  // namespace quillbar
