// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/runtime/Task.h"
#include "QuillbarCore/runtime/Time.h"

#include <functional>

namespace quillbar {

/// Suspends the awaiting task for a span of time, on a monotonic clock; throws `Cancelled` when the
/// task is cancelled. Every timed component takes one at construction.
using Sleeper = std::function<Task<void>(Seconds)>;

}  // namespace quillbar
