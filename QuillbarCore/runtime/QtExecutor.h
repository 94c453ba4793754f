// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/runtime/Executor.h"

#include <memory>

namespace quillbar {

/// An executor on the event loop of the thread that makes it: each turn of the loop resumes one
/// coroutine, so that sockets, timers and windows are served in between. Needs a QCoreApplication
/// as long as it lives. Posted functions that have not run when it is destroyed never run.
[[nodiscard]] std::unique_ptr<Executor> makeQtExecutor();

}  // namespace quillbar
