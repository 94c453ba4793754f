// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

namespace quillbar {

/// Ends the process with this status. Call it at the end of `main`, when all objects but the
/// application itself have been destroyed. Destroying a QCoreApplication waits for the threads that
/// look up host names, for half a minute if the resolver does not answer.
///
/// Under a sanitizer it returns the status instead, because leaks are found only at a normal end.
[[nodiscard]] int leave(int status);

}  // namespace quillbar
