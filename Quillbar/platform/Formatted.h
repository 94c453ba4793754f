// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <fmt/core.h>

#include <string>

namespace quillbar {

/// A translated text with its fields in braces filled in by fmt. For texts whose values are bytes
/// from outside, such as arguments and paths: these need not be UTF-8, and pass unchanged. Throws
/// `fmt::format_error` when the pattern has other fields than its source. Callable from any thread.
template <class... Values>
[[nodiscard]] std::string formatted(const QString& pattern, const Values&... values) {
    return fmt::vformat(pattern.toStdString(), fmt::make_format_args(values...));
}

}  // namespace quillbar
