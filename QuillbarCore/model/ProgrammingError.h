// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace quillbar {

/// Ends the process with abort(), after one line on stderr that says what was wrong. For a broken
/// contract that no caller can handle; never for an error of a user, a file or the network.
[[noreturn]] void programmingError(std::string_view what);

}  // namespace quillbar
