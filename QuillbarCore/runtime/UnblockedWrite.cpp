// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/runtime/UnblockedWrite.h"

#include <fmt/format.h>

#include <array>
#include <cerrno>
#include <climits>
#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

namespace quillbar {

namespace {

// Opens the pipe or terminal a second time, because O_NONBLOCK would hold for every process that
// shares the first descriptor. Returns -1 when it may not be opened, or has no reader.
int openedAgain(int descriptor) noexcept {
    std::array<char, 32> path{};
    fmt::format_to_n(path.data(), path.size() - 1, "/proc/self/fd/{}", descriptor);
    return ::open(path.data(), O_WRONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
}

}  // namespace

ssize_t writeUnblocked(int descriptor, std::string_view bytes) noexcept {
    struct stat status {};
    if (::fstat(descriptor, &status) != 0) {
        return -1;
    }
    if (S_ISSOCK(status.st_mode)) {
        return ::send(descriptor, bytes.data(), bytes.size(), MSG_DONTWAIT | MSG_NOSIGNAL);
    }
    if (S_ISFIFO(status.st_mode) || ::isatty(descriptor) == 1) {
        const int again = openedAgain(descriptor);
        if (again >= 0) {
            const ssize_t written = ::write(again, bytes.data(), bytes.size());
            const int reason = errno;
            ::close(again);
            errno = reason;
            return written;
        }
        pollfd ready{.fd = descriptor, .events = POLLOUT, .revents = 0};
        if (::poll(&ready, 1, 0) == 0) {
            errno = EAGAIN;
            return -1;
        }
        // A pipe that is ready takes this many bytes without waiting.
        bytes = bytes.substr(0, PIPE_BUF);
    }
    return ::write(descriptor, bytes.data(), bytes.size());
}

}  // namespace quillbar
