// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>
#include <sys/types.h>

namespace quillbar {

/// Like write(2), but never waits for the reader of a pipe, a socket or a terminal: writes what
/// there is room for, and fails with EAGAIN when there is none. Does not change the descriptor's
/// flags, because it may be shared with the shell that started the program. A file on a disk is
/// written as usual. May be called from any thread.
[[nodiscard]] ssize_t writeUnblocked(int descriptor, std::string_view bytes) noexcept;

}  // namespace quillbar
