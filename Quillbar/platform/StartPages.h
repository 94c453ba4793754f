// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <link.h>
#include <span>
#include <vector>

/// The pages that a start leaves behind. Starting maps most of the program and its libraries
/// (relocations, tables of symbols, code that runs once), and they would stay resident for as long
/// as the program lives, although little of it runs again.
namespace quillbar::StartPages {

/// A stretch of addresses.
struct Mapping final {
    std::uintptr_t begin = 0;
    std::uintptr_t end = 0;

    [[nodiscard]] bool operator==(const Mapping&) const = default;
};

/// The whole pages of those segments of an object, loaded at `base`, that nobody may write. Pure.
[[nodiscard]] std::vector<Mapping> unwritable(std::uintptr_t base,
                                              std::span<const ElfW(Phdr)> segments,
                                              std::size_t pageSize);

/// Gives these pages of the program and its libraries back to the system. What is used again is
/// mapped anew from the page cache, at the price of a few hundred short faults, once. A segment
/// that holds a page of the process's own, as a relocation or a debugger leaves it, is left as it
/// is, so nothing changes its value unless another thread writes to such a segment at that moment.
/// Other mapped files keep their pages: a thread may just be putting something else in the place of
/// one. For any thread; no object is unloaded meanwhile. Where the system refuses, nothing happens.
void release();

}  // namespace quillbar::StartPages
