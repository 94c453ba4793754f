// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

/// The pages that a start leaves behind. Starting maps most of the program and its libraries
/// (relocations, tables of symbols, code that runs once), and they would stay resident for as long as
/// the program lives, although little of it runs again.
namespace quillbar::StartPages {

/// A stretch of addresses.
struct Mapping final {
    std::uintptr_t begin = 0;
    std::uintptr_t end = 0;

    [[nodiscard]] bool operator==(const Mapping&) const = default;
};

/// The mappings of files that can be read but not written, and that hold no page of the process's
/// own (as a relocation or a debugger leaves them), from what /proc/PID/smaps says. Lines that are
/// not understood are passed over. Pure.
[[nodiscard]] std::vector<Mapping> clean(std::string_view smaps);

/// Gives the clean mappings of this process back. What is used again is mapped anew from the page
/// cache, at the price of a few hundred short faults, once; nothing changes its value. For any
/// thread. Where the system refuses, nothing happens.
void release();

}  // namespace quillbar::StartPages
