// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/platform/StartPages.h"

#include <QByteArray>
#include <QFile>
#include <QIODevice>
#include <QString>

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace quillbar {

namespace {

using StartPages::Mapping;

/// What the kernel says of a mapping.
std::string entry(std::string_view heading, std::string_view own) {
    return std::string(heading) + "\nSize:                 16 kB\nRss:                  16 kB\n"
           + "Anonymous:      " + std::string(own) + "\nVmFlags: rd ex mr mw me sd\n";
}

TEST(StartPagesTest, areThoseOfFilesThatNobodyWroteTo) {
    const std::string smaps =
        entry("1000-5000 r-xp 00000000 fe:00 77         /usr/lib/a b.so", "       0 kB")
        + entry("5000-6000 r--p 00004000 fe:00 77         /usr/lib/a b.so", "       0 kB");
    EXPECT_EQ(StartPages::clean(smaps), (std::vector<Mapping>{{0x1000, 0x5000}, {0x5000, 0x6000}}));
}

TEST(StartPagesTest, areNotThoseThatHoldARelocation) {
    EXPECT_TRUE(
        StartPages::clean(entry("1000-5000 r--p 0 fe:00 77    /usr/lib/a.so", "       4 kB"))
            .empty());
}

TEST(StartPagesTest, areNotThoseThatMayBeWritten) {
    EXPECT_TRUE(
        StartPages::clean(entry("1000-5000 rw-p 0 fe:00 77    /usr/lib/a.so", "       0 kB"))
            .empty());
}

TEST(StartPagesTest, areNotThoseWithoutAFile) {
    EXPECT_TRUE(StartPages::clean(entry("1000-5000 r--p 00000000 00:00 0 ", "       0 kB")
                                  + entry("1000-5000 r-xp 00000000 00:00 0   [vdso]", "   0 kB"))
                    .empty());
}

TEST(StartPagesTest, passOverWhatIsNotUnderstood) {
    EXPECT_TRUE(StartPages::clean("").empty());
    EXPECT_TRUE(StartPages::clean("Anonymous: 0 kB\n1000-zz r-xp\n-\nAnonymous: 0 kB").empty());
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
