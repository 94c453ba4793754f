// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/platform/StartPages.h"

#include <QByteArray>
#include <QFile>
#include <QIODevice>
#include <QString>

#include <algorithm>
#include <sys/mman.h>
#include <unistd.h>

namespace quillbar::StartPages {

namespace {

template <class Pointed>
Pointed* pointerTo(std::uintptr_t address) {
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast, performance-no-int-to-ptr)
    return reinterpret_cast<Pointed*>(address);
}

bool hasTextRelocations(std::uintptr_t base, std::span<const ElfW(Phdr)> segments) {
    const auto dynamic = std::find_if(segments.begin(), segments.end(), [](const auto& segment) {
        return segment.p_type == PT_DYNAMIC;
    });
    if (dynamic == segments.end()) {
        return false;
    }
    const std::span entries(pointerTo<const ElfW(Dyn)>(base + dynamic->p_vaddr),
                            dynamic->p_memsz / sizeof(ElfW(Dyn)));
    return std::any_of(entries.begin(), entries.end(), [](const ElfW(Dyn) & entry) {
        return entry.d_tag == DT_TEXTREL
               || (entry.d_tag == DT_FLAGS && (entry.d_un.d_val & DF_TEXTREL) != 0);
    });
}

bool isDebugged() {
    QFile file(QStringLiteral("/proc/self/status"));
    return !file.open(QIODevice::ReadOnly) || !file.readAll().contains("\nTracerPid:\t0\n");
}

int releaseObject(dl_phdr_info* object, std::size_t /*size*/, void* /*unused*/) {
    const auto pageSize = static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
    for (const auto& [begin, end] :
         unwritten(object->dlpi_addr, {object->dlpi_phdr, object->dlpi_phnum}, pageSize)) {
        ::madvise(pointerTo<void>(begin), end - begin, MADV_DONTNEED);
    }
    return 0;
}

}  // namespace

std::vector<Mapping> unwritten(std::uintptr_t base,
                               std::span<const ElfW(Phdr)> segments,
                               std::size_t pageSize) {
    std::vector<Mapping> mappings;
    if (hasTextRelocations(base, segments)) {
        return mappings;
    }
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
    if (!isDebugged()) {
        ::dl_iterate_phdr(&releaseObject, nullptr);
    }
}

}  // namespace quillbar::StartPages
