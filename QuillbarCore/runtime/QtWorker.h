// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/runtime/Worker.h"

#include <memory>

namespace quillbar {

/// A worker with one thread, which runs the jobs one after another in the order given, and ends
/// soon after the last. Destroying the worker drops the waiting jobs and waits for the running one.
[[nodiscard]] std::unique_ptr<Worker> makeQtWorker();

}  // namespace quillbar
