// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/platform/StartPages.h"

#include <QFile>
#include <QIODevice>
#include <QString>

#include <algorithm>
#include <array>
#include <sys/mman.h>
#include <unistd.h>

namespace quillbar::StartPages {

namespace {

// What /proc/PID/pagemap says of a page.
using PageEntry = std::uint64_t;
constexpr PageEntry kPresent = PageEntry{1} << 63;
constexpr PageEntry kSwapped = PageEntry{1} << 62;
constexpr PageEntry kOfFile = PageEntry{1} << 61;

bool isOwn(PageEntry page) {
    return (page & (kPresent | kSwapped)) != 0 && (page & kOfFile) == 0;
}

/// Where the pages of this process come from.
class PageMap final {
public:
    PageMap()
        : m_file(QStringLiteral("/proc/self/pagemap")) {
        m_file.open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    }

    /// Whether none of the pages is the process's own; false also where the system does not tell.
    [[nodiscard]] bool isOfFile(const Mapping& mapping, std::size_t pageSize) {
        const std::size_t first = mapping.begin / pageSize * sizeof(PageEntry);
        // Qt complains of seeking in a file that is not open.
        if (!m_file.isOpen() || !m_file.seek(static_cast<qint64>(first))) {
            return false;
        }
        std::size_t left = (mapping.end - mapping.begin) / pageSize;
        while (left > 0) {
            const std::size_t count = std::min(left, m_entries.size());
            const std::size_t bytes = count * sizeof(PageEntry);
            const auto wanted = static_cast<qint64>(bytes);
            // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): bytes of the same
            if (m_file.read(reinterpret_cast<char*>(m_entries.data()), wanted) != wanted
                || std::any_of(m_entries.begin(), m_entries.begin() + count, isOwn)) {
                return false;
            }
            left -= count;
        }
        return true;
    }

private:
    QFile m_file;
    std::array<PageEntry, 1024> m_entries{};
};

int releaseObject(dl_phdr_info* object, std::size_t /*size*/, void* pageMap) {
    const auto pageSize = static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
    for (const Mapping& mapping :
         unwritable(object->dlpi_addr, {object->dlpi_phdr, object->dlpi_phnum}, pageSize)) {
        if (static_cast<PageMap*>(pageMap)->isOfFile(mapping, pageSize)) {
            // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast, performance-no-int-to-ptr)
            auto* const begin = reinterpret_cast<void*>(mapping.begin);
            ::madvise(begin, mapping.end - mapping.begin, MADV_DONTNEED);
        }
    }
    return 0;
}

}  // namespace

std::vector<Mapping> unwritable(std::uintptr_t base,
                                std::span<const ElfW(Phdr)> segments,
                                std::size_t pageSize) {
    std::vector<Mapping> mappings;
    for (const auto& segment : segments) {
        const bool canBeWritten = (segment.p_flags & PF_W) != 0;
        const std::uintptr_t first = base + segment.p_vaddr;
        const std::uintptr_t begin = (first + pageSize - 1) / pageSize * pageSize;
        const std::uintptr_t end = (first + segment.p_memsz) / pageSize * pageSize;
        if (segment.p_type == PT_LOAD && !canBeWritten && begin < end) {
            mappings.push_back({begin, end});
        }
    }
    return mappings;
}

void release() {
    PageMap pageMap;
    ::dl_iterate_phdr(&releaseObject, &pageMap);
}

}  // namespace quillbar::StartPages
