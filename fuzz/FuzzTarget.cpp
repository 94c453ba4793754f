// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "fuzz/FuzzTarget.h"

#include <fmt/format.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace quillbar {

void require(bool holds, std::string_view rule) {
    if (!holds) {
        fmt::print(stderr, "fuzz: broken rule: {}\n", rule);
        std::abort();
    }
}

}  // namespace quillbar

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    quillbar::fuzz({reinterpret_cast<const char*>(data), size});
    return 0;
}
