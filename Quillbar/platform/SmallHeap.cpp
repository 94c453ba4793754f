// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/platform/SmallHeap.h"

#include <malloc.h>

namespace quillbar::SmallHeap {

void use() {
    constexpr int kLargeBlock = 256 * 1024;
    constexpr int kKeptAtTheEnd = 128 * 1024;
    // Setting a limit also ends its growth with the largest block freed so far.
    ::mallopt(M_MMAP_THRESHOLD, kLargeBlock);
    ::mallopt(M_TRIM_THRESHOLD, kKeptAtTheEnd);
    ::mallopt(M_ARENA_MAX, 1);
}

bool giveBack() {
    // Memory that was given back before counts as free too, except at the end of the heap. So a
    // second call in a row finds as much, but costs almost nothing.
    return ::mallinfo2().fordblks >= kWorthwhile && ::malloc_trim(0) != 0;
}

}  // namespace quillbar::SmallHeap
