// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

namespace quillbar {

/// The value of a decimal text by strtod in the C locale, as the exchange's numbers are defined;
/// the judge of `decimalNumber`. Absent for what must be refused.
[[nodiscard]] std::optional<double> naiveNumber(const std::string& text);

}  // namespace quillbar
