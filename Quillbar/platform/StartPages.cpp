// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/platform/StartPages.h"

#include <QByteArray>
#include <QFile>
#include <QIODevice>

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <optional>
#include <string_view>
#include <sys/mman.h>
#include <system_error>

namespace quillbar::StartPages {

namespace {

// What ends at the separator, which is taken off the text too.
std::string_view take(std::string_view& text, char separator) {
    const std::string_view taken = text.substr(0, text.find(separator));
    text.remove_prefix(std::min(taken.size() + 1, text.size()));
    return taken;
}

std::optional<std::uintptr_t> address(std::string_view text) {
    constexpr int kHexadecimal = 16;
    std::uintptr_t value = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value, kHexadecimal);
    return error == std::errc{} && stop == end ? std::optional(value) : std::nullopt;
}

struct Heading final {
    Mapping mapping;
    bool isCandidate = false;
};

// "55d0c0-55d0d0 r-xp 00000000 fe:00 1234    /usr/bin/program"
std::optional<Heading> headingOf(std::string_view line) {
    const auto begin = address(take(line, '-'));
    const auto end = address(take(line, ' '));
    if (!begin || !end) {
        return std::nullopt;
    }
    const std::string_view rights = take(line, ' ');
    take(line, ' ');
    take(line, ' ');
    const std::string_view inode = take(line, ' ');
    return Heading{{*begin, *end}, rights.starts_with("r-") && inode != "0"};
}

bool saysNothingOwn(std::string_view line) {
    return take(line, ':') == "Anonymous" && line.ends_with(" 0 kB");
}

}  // namespace

std::vector<Mapping> clean(std::string_view smaps) {
    std::vector<Mapping> mappings;
    Heading current;
    while (!smaps.empty()) {
        const std::string_view line = take(smaps, '\n');
        if (const auto heading = headingOf(line)) {
            current = *heading;
        } else if (current.isCandidate && saysNothingOwn(line)) {
            mappings.push_back(current.mapping);
        }
    }
    return mappings;
}

void release() {
    QFile file(QStringLiteral("/proc/self/smaps"));
    if (!file.open(QIODevice::ReadOnly)) {
        return;
    }
    const QByteArray text = file.readAll();
    for (const auto& [begin, end] :
         clean({text.constData(), static_cast<std::size_t>(text.size())})) {
        // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast, performance-no-int-to-ptr)
        ::madvise(reinterpret_cast<void*>(begin), end - begin, MADV_DONTNEED);
    }
}

}  // namespace quillbar::StartPages
