// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <string_view>

/// Texts from outside, such as a base asset in a file that the user may edit, made fit to be shown.
namespace quillbar::OneLineText {

/// The UTF-8 text on one line: a space for each control character and each end of a line, and
/// without the invisible characters that say how others are to be written, such as in which
/// direction. Pure.
[[nodiscard]] QString of(std::string_view text);

}  // namespace quillbar::OneLineText
