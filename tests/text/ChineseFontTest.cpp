// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/text/ChineseFont.h"

#include <gtest/gtest.h>

namespace quillbar {

namespace {

TEST(ChineseFontTest, isAmongTheInstalledFonts) {
    EXPECT_TRUE(ChineseFont::isInstalled());
}

}  // namespace

}  // namespace quillbar
