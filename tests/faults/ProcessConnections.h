// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cstddef>

/// How often the process has tried to connect somewhere over TCP, in its own time
/// (`ProcessTime`). It takes the place of the C library's `connect` in every program that links it.
/// For the main thread; the attempts of every thread count.
namespace quillbar::ProcessConnections {

/// The most attempts within any span of this length since the last `forget`.
[[nodiscard]] std::size_t mostWithin(std::chrono::seconds span);

void forget();

}  // namespace quillbar::ProcessConnections
