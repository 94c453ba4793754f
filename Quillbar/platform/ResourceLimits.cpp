// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/platform/ResourceLimits.h"

#include "Quillbar/platform/Formatted.h"
#include "Quillbar/platform/Translated.h"

#include <algorithm>
#include <csignal>
#include <cstddef>
#include <pthread.h>
#include <sys/resource.h>

namespace quillbar::ResourceLimits {

namespace {

/// Raises the limit to `wanted` if it is lower and may be raised, and returns what it is then.
rlim_t atLeast(__rlimit_resource resource, rlim_t wanted) {
    rlimit limit{};
    if (::getrlimit(resource, &limit) != 0 || limit.rlim_cur >= wanted) {
        return wanted;
    }
    const rlim_t before = limit.rlim_cur;
    limit.rlim_cur = std::min(wanted, limit.rlim_max);
    return ::setrlimit(resource, &limit) == 0 ? limit.rlim_cur : before;
}

/// The C library takes the size of a thread's stack from the limit at the program's start: raising
/// the limit afterwards changes the first thread's alone.
void giveThreadsTheirStack() {
    pthread_attr_t attributes{};
    if (::pthread_getattr_default_np(&attributes) != 0) {
        return;
    }
    std::size_t size = 0;
    if (::pthread_attr_getstacksize(&attributes, &size) == 0 && size < kStack
        && ::pthread_attr_setstacksize(&attributes, kStack) == 0) {
        ::pthread_setattr_default_np(&attributes);
    }
    ::pthread_attr_destroy(&attributes);
}

}  // namespace

std::optional<std::string> prepare() {
    // A write then fails with an error, as every other failure does.
    std::signal(SIGXFSZ, SIG_IGN);
    if (const rlim_t files = atLeast(RLIMIT_NOFILE, kFiles); files < kFiles) {
        return formatted(translated("platform", "可以打开的文件太少：ulimit -n 为 {}，至少需要 {}"),
                         files,
                         kFiles);
    }
    if (const rlim_t stack = atLeast(RLIMIT_STACK, kStack); stack < kStack) {
        return formatted(translated("platform", "栈空间太小：ulimit -s 为 {}，至少需要 {}"),
                         stack / 1024,
                         kStack / 1024);
    }
    giveThreadsTheirStack();
    return std::nullopt;
}

}  // namespace quillbar::ResourceLimits
