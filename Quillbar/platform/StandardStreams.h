// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

/// The program's standard streams, whatever the one who starts it has done to them.
namespace quillbar::StandardStreams {

/// Puts something that cannot be written to in the place of each of the descriptors 0 to 2 that is
/// closed. Without it the next file or socket that is opened would take that place, and be printed
/// into. The first thing in `main`.
void hold() noexcept;

/// Writes the whole text to standard output, waiting for whoever reads it. False when it cannot be
/// written. For a program that does nothing else.
[[nodiscard]] bool print(std::string_view text) noexcept;

/// Writes "PROGRAM: TEXT" to standard error as one line, whatever control characters the text holds.
/// Loses it when it cannot be written at once.
void complain(std::string_view program, std::string_view text);

}  // namespace quillbar::StandardStreams
