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
    EXPECT_EQ(StartPages::unwritten(0x700000, segments, kPage),
              (std::vector<Mapping>{{0x700000, 0x702000}, {0x703000, 0x707000}}));
}

TEST(StartPagesTest, areWholePages) {
    const std::array segments{segment(PT_LOAD, PF_R, 0x10, 0x2ff0),
                              segment(PT_LOAD, PF_R, 0x3010, 0x1fe0),
                              segment(PT_LOAD, PF_R, 0x6000, 0xfff)};
    EXPECT_EQ(StartPages::unwritten(0, segments, kPage), (std::vector<Mapping>{{0x1000, 0x3000}}));
}

TEST(StartPagesTest, areNotThoseOfOtherTables) {
    const std::array segments{segment(PT_NOTE, PF_R, 0, 0x2000),
                              segment(PT_GNU_RELRO, PF_R, 0x3000, 0x2000)};
    EXPECT_TRUE(StartPages::unwritten(0, segments, kPage).empty());
}

/// An object whose dynamic section says this.
std::vector<Mapping> unwrittenWith(std::array<ElfW(Dyn), 2> dynamic) {
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast)
    const auto base = reinterpret_cast<std::uintptr_t>(dynamic.data());
    const std::array segments{segment(PT_LOAD, PF_R | PF_X, 0, 0x4000),
                              segment(PT_DYNAMIC, PF_R | PF_W, 0, sizeof dynamic)};
    return StartPages::unwritten(base, segments, kPage);
}

TEST(StartPagesTest, areNotThoseToWhichTheLoaderHasWritten) {
    ElfW(Dyn) other{};
    other.d_tag = DT_FLAGS;
    other.d_un.d_val = DF_BIND_NOW;
    ElfW(Dyn) tag{};
    tag.d_tag = DT_TEXTREL;
    ElfW(Dyn) flag = other;
    flag.d_un.d_val |= DF_TEXTREL;
    EXPECT_EQ(unwrittenWith({other, {}}).size(), 1U);
    EXPECT_TRUE(unwrittenWith({other, tag}).empty());
    EXPECT_TRUE(unwrittenWith({flag, {}}).empty());
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

TEST(StartPagesTest, areNotResidentOnceReleased) {
    const long before = residentOfFiles();
    StartPages::release();
    // What runs here is mapped again at once.
    EXPECT_LT(residentOfFiles(), before * 3 / 4);
}

}  // namespace

}  // namespace quillbar
