// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>
#include <sys/types.h>

namespace quillbar {

/// As write(2), but never waits for whoever reads a pipe, a socket or a terminal: takes what there
/// is room for, and fails with EAGAIN when there is none. The descriptor's own flags stay as they
/// are: it may be shared with the shell that started the program. A file on a disk is written to as
/// always. May be called from any thread.
[[nodiscard]] ssize_t writeUnblocked(int descriptor, std::string_view bytes) noexcept;

}  // namespace quillbar
