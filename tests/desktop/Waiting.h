// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <functional>

namespace quillbar {

/// Runs the event loop until the predicate holds; false when it does not within a minute. Asked
/// again and again, because other programs do not tell when they have changed what it looks at.
[[nodiscard]] bool eventually(const std::function<bool()>& predicate);

/// Lets the time go by; when not told otherwise, as much as a person leaves between two clicks that
/// are not a double click.
void pause(std::chrono::milliseconds duration = std::chrono::milliseconds{500});

}  // namespace quillbar
