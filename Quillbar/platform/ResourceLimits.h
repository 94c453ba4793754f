// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>

/// The limits that the shell sets for the process (ulimit). A library that gets less than it needs
/// ends the process by a signal, without a message that a user could understand.
namespace quillbar::ResourceLimits {

/// What the programs need at least: open files, and bytes of stack for each thread. Both are more
/// than twice the measured need.
inline constexpr std::uint64_t kFiles = 64;
inline constexpr std::uint64_t kStack = std::uint64_t{256} * 1024;

/// Raises lower limits as far as the system allows it, and makes writing to a file that may not
/// grow fail as on a full disk. Returns a sentence for the user if a limit is still too low; absent
/// otherwise. Call it before there are threads.
[[nodiscard]] std::optional<std::string> prepare();

}  // namespace quillbar::ResourceLimits
