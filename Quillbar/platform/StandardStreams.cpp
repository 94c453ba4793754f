// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/platform/StandardStreams.h"

#include "QuillbarCore/runtime/OutsideText.h"
#include "QuillbarCore/runtime/UnblockedWrite.h"

#include <fmt/format.h>

#include <cerrno>
#include <fcntl.h>
#include <string>
#include <unistd.h>

namespace quillbar::StandardStreams {

void hold() noexcept {
    for (int descriptor = STDIN_FILENO; descriptor <= STDERR_FILENO; ++descriptor) {
        if (::fcntl(descriptor, F_GETFD) == -1) {
            // Takes the lowest number that is free, which is this one. For reading alone, so that a
            // write fails as it would have.
            [[maybe_unused]] const int taken = ::open("/dev/null", O_RDONLY);
        }
    }
}

bool print(std::string_view text) noexcept {
    while (!text.empty()) {
        const ssize_t written = ::write(STDOUT_FILENO, text.data(), text.size());
        if (written >= 0) {
            text.remove_prefix(static_cast<std::size_t>(written));
        } else if (errno != EINTR) {
            return false;
        }
    }
    return true;
}

void complain(std::string_view program, std::string_view text) {
    const std::string line = fmt::format("{}: {}\n", program, OutsideText::oneLine(text));
    [[maybe_unused]] const auto written = writeUnblocked(STDERR_FILENO, line);
}

}  // namespace quillbar::StandardStreams
