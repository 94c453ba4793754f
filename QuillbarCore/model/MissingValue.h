// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace quillbar {

/// What is shown wherever a number is missing: an em dash.
inline constexpr std::string_view kMissingValueText = "—";

}  // namespace quillbar
