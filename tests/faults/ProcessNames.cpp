// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/faults/ProcessNames.h"

#include <arpa/inet.h>
#include <atomic>
#include <netdb.h>
#include <netinet/in.h>
#include <string_view>

namespace quillbar {

namespace {

std::atomic<bool> isLocalhostKnown = true;

/// An answer and what it points to, in one piece of memory.
struct Entry {
    addrinfo info;
    sockaddr_in address;
};

bool isAddressOrKnown(const char* name, in_addr& address) {
    if (::inet_pton(AF_INET, name, &address) == 1) {
        return true;
    }
    address.s_addr = htonl(INADDR_LOOPBACK);
    return isLocalhostKnown && std::string_view(name) == "localhost";
}

}  // namespace

void ProcessNames::setKnown(bool isKnown) {
    isLocalhostKnown = isKnown;
}

}  // namespace quillbar

// In the place of the C library's, for everybody in the process.

extern "C" {

int getaddrinfo(const char* name,
                const char* /*service*/,
                const addrinfo* /*req*/,
                addrinfo** pai) {
    using quillbar::Entry;
    in_addr address{};
    if (name == nullptr || !quillbar::isAddressOrKnown(name, address)) {
        return EAI_NONAME;
    }
    auto* const entry = new Entry{};
    entry->address.sin_family = AF_INET;
    entry->address.sin_addr = address;
    entry->info.ai_family = AF_INET;
    entry->info.ai_socktype = SOCK_STREAM;
    entry->info.ai_addrlen = sizeof entry->address;
    entry->info.ai_addr = reinterpret_cast<sockaddr*>(&entry->address);
    *pai = &entry->info;
    return 0;
}

void freeaddrinfo(addrinfo* ai) noexcept {
    // Its first member.
    delete reinterpret_cast<quillbar::Entry*>(ai);
}

}  // extern "C"
