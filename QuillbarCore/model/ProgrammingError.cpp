// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/model/ProgrammingError.h"

#include "QuillbarCore/runtime/UnblockedWrite.h"

#include <fmt/core.h>

#include <cstdlib>
#include <string>
#include <unistd.h>

namespace quillbar {

void programmingError(std::string_view what) {
    const std::string line = fmt::format("quillbar: programming error: {}\n", what);
    // End the process whether or not the line was written.
    [[maybe_unused]] const auto written = writeUnblocked(STDERR_FILENO, line);
    std::abort();
}

}  // namespace quillbar
