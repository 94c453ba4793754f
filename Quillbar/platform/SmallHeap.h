// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

/// A heap for a program that rarely needs much and runs for days.
namespace quillbar::SmallHeap {

/// Gives what is freed back to the system: large blocks at once, and all threads take from one
/// heap, so that none keeps what another could use. Without it, the first large answer of a service
/// raises the allocator's own limits for good. To be called before the program starts a thread; with
/// another allocator than glibc's, nothing happens.
void use();

}  // namespace quillbar::SmallHeap
