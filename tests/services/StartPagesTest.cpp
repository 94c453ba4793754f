// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/platform/StartPages.h"

#include <QByteArray>
#include <QFile>
#include <QIODevice>
#include <QString>

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <sys/mman.h>
#include <vector>

namespace quillbar {

namespace {

using StartPages::Mapping;

constexpr std::size_t kPage = 0x1000;

ElfW(Phdr) segment(unsigned type, unsigned rights, std::uintptr_t begin, std::size_t size) {
    ElfW(Phdr) made{};
    made.p_type = type;
    made.p_flags = rights;
    made.p_vaddr = begin;
    made.p_memsz = size;
    return made;
}

TEST(StartPagesTest, areThoseOfSegmentsThatNobodyMayWrite) {
    const std::array segments{segment(PT_LOAD, PF_R, 0, 0x2000),
                              segment(PT_LOAD, PF_R | PF_X, 0x3000, 0x4000),
                              segment(PT_LOAD, PF_R | PF_W, 0x8000, 0x3000)};
    EXPECT_EQ(StartPages::unwritable(0x700000, segments, kPage),
              (std::vector<Mapping>{{0x700000, 0x702000}, {0x703000, 0x707000}}));
}

TEST(StartPagesTest, areWholePages) {
    const std::array segments{segment(PT_LOAD, PF_R, 0x10, 0x2ff0),
                              segment(PT_LOAD, PF_R, 0x3010, 0x1fe0),
                              segment(PT_LOAD, PF_R, 0x6000, 0xfff)};
    EXPECT_EQ(StartPages::unwritable(0, segments, kPage), (std::vector<Mapping>{{0x1000, 0x3000}}));
}

TEST(StartPagesTest, areNotThoseOfOtherTables) {
    const std::array segments{segment(PT_NOTE, PF_R, 0, 0x2000),
                              segment(PT_GNU_RELRO, PF_R, 0x3000, 0x2000)};
    EXPECT_TRUE(StartPages::unwritable(0, segments, kPage).empty());
}

/// KiB of files that this process has in memory.
long residentOfFiles() {
    QFile file(QStringLiteral("/proc/self/status"));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    for (const QByteArray& line : file.readAll().split('\n')) {
        if (line.startsWith("RssFile:")) {
            return line.mid(8).trimmed().split(' ').first().toLong();
        }
    }
    ADD_FAILURE() << "the kernel does not tell";
    return 0;
}

/// Reads every such page of an object, also what a sanitizer keeps between the variables.
[[gnu::no_sanitize_address]] int readObject(dl_phdr_info* object,
                                            std::size_t /*size*/,
                                            void* /*unused*/) {
    for (const auto& [begin, end] : StartPages::unwritable(
             object->dlpi_addr, {object->dlpi_phdr, object->dlpi_phnum}, kPage)) {
        for (std::uintptr_t page = begin; page < end; page += kPage) {
            // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast, performance-no-int-to-ptr)
            static_cast<void>(*reinterpret_cast<const volatile char*>(page));
        }
    }
    return 0;
}

TEST(StartPagesTest, areNotResidentOnceReleased) {
    ::dl_iterate_phdr(&readObject, nullptr);
    const long before = residentOfFiles();
    StartPages::release();
    // What runs here is mapped again at once.
    EXPECT_LT(residentOfFiles(), before * 3 / 4);
}

/// A page of a segment that nobody may write.
alignas(kPage) constexpr std::array<char, kPage> kConstant{'a'};

TEST(StartPagesTest, keepTheirValueWhereSomebodyHasWrittenAllTheSame) {
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-const-cast): as a debugger does
    auto* const page = const_cast<char*>(kConstant.data());
    volatile char* const first = page;
    ASSERT_EQ(::mprotect(page, kPage, PROT_READ | PROT_WRITE), 0);
    *first = 'b';
    ASSERT_EQ(::mprotect(page, kPage, PROT_READ), 0);
    StartPages::release();
    EXPECT_EQ(*first, 'b');
}

}  // namespace

}  // namespace quillbar
