// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace quillbar {

/// What the C library's printf makes of one number in the C locale, whatever the process's locale
/// is: the judge of the texts that must match it. The format takes one double.
[[nodiscard]] std::string printfText(const char* format, double value);

}  // namespace quillbar
