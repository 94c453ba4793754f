// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

/// The program's standard streams, in whatever state they are at its start.
namespace quillbar::StandardStreams {

/// Opens each of the descriptors 0 to 2 that is closed, so that writing to it fails. Otherwise the
/// next file or socket that is opened would get that number, and the program would print into it.
/// Call it first in `main`.
void hold() noexcept;

/// Writes the whole text to standard output, and waits for the reader. Returns false when it cannot
/// be written. For a program that does nothing else meanwhile.
[[nodiscard]] bool print(std::string_view text) noexcept;

/// Writes "PROGRAM: TEXT" to standard error as one line, whatever control characters the text
/// holds. Loses it when it cannot be written at once.
void complain(std::string_view program, std::string_view text);

}  // namespace quillbar::StandardStreams
