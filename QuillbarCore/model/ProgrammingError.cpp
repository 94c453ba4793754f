// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/model/ProgrammingError.h"

#include <fmt/core.h>

#include <cstdio>
#include <cstdlib>

namespace quillbar {

void programmingError(std::string_view what) {
    fmt::print(stderr, "quillbar: programming error: {}\n", what);
    std::abort();
}

}  // namespace quillbar
