// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <string_view>

/// Makes texts from outside, such as a base asset in a file, safe to be shown. The rule is
/// `OutsideText::oneLine`; this is its result for a view.
namespace quillbar::OneLineText {

/// The UTF-8 text on one line: a space for each control character and each end of a line, and
/// without the invisible characters that say how others are to be written, such as in which
/// direction. Pure.
[[nodiscard]] QString of(std::string_view text);

}  // namespace quillbar::OneLineText
