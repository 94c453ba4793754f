// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/faults/ProcessConnections.h"

#include "tests/faults/ProcessTime.h"

#include <algorithm>
#include <mutex>
#include <netinet/in.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <unistd.h>
#include <vector>

namespace quillbar {

namespace {

std::mutex lock;

std::vector<ProcessTime::Span>& attempts() {
    // Never destroyed: threads may outlive the statics.
    static auto& all = *new std::vector<ProcessTime::Span>;
    return all;
}

void note() {
    const std::lock_guard guard(lock);
    attempts().push_back(ProcessTime::elapsed());
}

}  // namespace

std::size_t ProcessConnections::mostWithin(std::chrono::seconds span) {
    const std::lock_guard guard(lock);
    const auto& all = attempts();
    std::size_t most = 0;
    auto first = all.begin();
    for (auto last = all.begin(); last != all.end(); ++last) {
        while (*last - *first >= span) {
            ++first;
        }
        most = std::max(most, static_cast<std::size_t>(last - first) + 1);
    }
    return most;
}

void ProcessConnections::forget() {
    const std::lock_guard guard(lock);
    attempts().clear();
}

}  // namespace quillbar

// In the place of the C library's, for everybody in the process.

extern "C" int connect(int fd, const sockaddr* addr, socklen_t len) {
    if (addr->sa_family == AF_INET || addr->sa_family == AF_INET6) {
        quillbar::note();
    }
    return static_cast<int>(::syscall(SYS_connect, fd, addr, len));
}
