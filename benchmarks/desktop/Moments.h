// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <functional>
#include <string_view>

/// How the programs of this folder and the report talk: in lines, with the moments in them.
namespace quillbar::benchmarks {

/// Writes "WHAT NANOSECONDS" or "WHAT NANOSECONDS REST" on standard output at once. The moment is
/// that of the call on the clock that never steps, which all processes of a machine share.
void sayMoment(std::string_view what, std::string_view rest = {});

/// The processor time of the calling thread so far. Another program that is busy does not add to
/// it, as it adds to the time on the clock.
[[nodiscard]] std::chrono::nanoseconds processorTime();

/// Calls the handler with each line of standard input, from the event loop. Once a process; ends
/// the program at the end of the input.
void onLines(std::function<void(std::string_view line)> handler);

}  // namespace quillbar::benchmarks
