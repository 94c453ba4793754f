// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/platform/SmallHeap.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <fstream>
#include <malloc.h>
#include <memory>
#include <string>
#include <vector>

namespace quillbar {

namespace {

using Block = std::array<char, std::size_t{16} * 1024>;

/// What this process has written, in bytes.
std::size_t ownBytes() {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with("RssAnon:")) {
            return std::stoul(line.substr(line.find(':') + 1)) * 1024;
        }
    }
    ADD_FAILURE() << "the kernel does not tell";
    return 0;
}

/// Blocks of which the last keeps all others from the heap's end.
std::vector<std::unique_ptr<Block>> blocks(std::size_t bytes) {
    std::vector<std::unique_ptr<Block>> made(bytes / sizeof(Block));
    std::generate(made.begin(), made.end(), [] {
        auto block = std::make_unique<Block>();
        block->fill('a');
        return block;
    });
    return made;
}

TEST(SmallHeapTest, givesBackWhatIsFreeBetweenBlocks) {
    constexpr std::size_t kBytes = 8 * SmallHeap::kWorthwhile;
    const std::size_t usedBefore = ::mallinfo2().uordblks;
    auto made = blocks(kBytes);
    // A sanitizer brings an allocator of its own. Meanwhile a thread that an earlier test left to
    // the network's session may give something back.
    const bool isGlibcs = ::mallinfo2().uordblks >= usedBefore + kBytes / 2;
    made.erase(made.begin(), made.end() - 1);
    const std::size_t before = ownBytes();
    EXPECT_EQ(SmallHeap::giveBack(), isGlibcs);
    if (isGlibcs) {
        EXPECT_LT(ownBytes() + kBytes / 2, before);
    }
    EXPECT_EQ(made.back()->front(), 'a');
}

}  // namespace

}  // namespace quillbar
