// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

namespace quillbar {

/// Ends the process with this status. For the end of `main`'s work, when every object but the
/// application itself has been destroyed in order: destroying a QCoreApplication waits for the
/// threads that look names up, which a resolver that does not answer holds for half a minute.
///
/// Under a sanitizer, which looks for leaks at the orderly end alone, it returns the status instead.
[[nodiscard]] int leave(int status);

}  // namespace quillbar
