// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include <fmt/core.h>

#include <cstdio>
#include <netdb.h>
#include <poll.h>
#include <unistd.h>

// A library to be loaded before all others: names are looked up for QUILLBAR_LOOKUP_MILLISECONDS,
// and in vain. Says so on standard error, for who waits for that to begin.
extern "C" int getaddrinfo(const char* name,
                           const char* /*service*/,
                           const addrinfo* /*hints*/,
                           addrinfo** /*result*/) {
    fmt::print(stderr, "looking up {}\n", name == nullptr ? "nothing" : name);
    int silence[2];
    if (::pipe(silence) == 0) {
        pollfd waiting{.fd = silence[0], .events = POLLIN, .revents = 0};
        ::poll(&waiting, 1, QUILLBAR_LOOKUP_MILLISECONDS);
    }
    return EAI_AGAIN;
}
