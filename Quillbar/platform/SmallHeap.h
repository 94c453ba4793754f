// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

/// A heap for a program that rarely needs much and runs for days.
namespace quillbar::SmallHeap {

/// Makes the allocator give freed memory back to the system: large blocks at once, and all threads
/// share one heap, so that no thread keeps memory that another could use. Without it, the first
/// large answer of a service raises the allocator's own limits for good. Call it before the program
/// starts a thread. With another allocator than glibc's it does nothing.
void use();

/// Less free memory than this, in bytes, is not worth a system call.
inline constexpr std::size_t kWorthwhile = std::size_t{1024} * 1024;

/// Gives back the free pages between the blocks that are in use. The allocator does so by itself
/// only at the heap's end, and a board that loads leaves 8 MB of small blocks free below it.
/// Returns whether the system got something; false where too little is free, and with another
/// allocator than glibc's. Takes about a millisecond, in which no thread can allocate. For any
/// thread.
bool giveBack();

}  // namespace quillbar::SmallHeap
