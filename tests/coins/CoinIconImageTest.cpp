// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/coins/CoinIconImage.h"
#include "tests/coins/Logos.h"

#include <gtest/gtest.h>

#include <string>

namespace quillbar {
namespace {

TEST(CoinIconImageTest, keepsAsManyPixelsAsTheLargestIconNeeds) {
    const QImage image = CoinIconImage::decoded(logo(Qt::red, {256, 256}));
    EXPECT_EQ(image.size(), QSize(CoinIconImage::kSide, CoinIconImage::kSide));
    EXPECT_EQ(image.pixelColor(0, 63), QColor(Qt::red));
}

TEST(CoinIconImageTest, keepsASmallLogoAsItIs) {
    EXPECT_EQ(CoinIconImage::decoded(logo(Qt::red, {20, 20})).size(), QSize(20, 20));
}

TEST(CoinIconImageTest, takesTheMiddleOfAnOblong) {
    QImage flag(90, 30, QImage::Format_ARGB32);
    flag.fill(Qt::red);
    for (int y = 0; y < flag.height(); ++y) {
        for (int x = 30; x < 60; ++x) {
            flag.setPixelColor(x, y, Qt::green);
        }
    }
    const QImage image = CoinIconImage::decoded(pngOf(flag));
    EXPECT_EQ(image.size(), QSize(30, 30));
    EXPECT_EQ(image.pixelColor(0, 15), QColor(Qt::green));
    EXPECT_EQ(image.pixelColor(29, 15), QColor(Qt::green));
}

TEST(CoinIconImageTest, keepsTransparency) {
    EXPECT_EQ(CoinIconImage::decoded(logo(Qt::transparent, {100, 100})).pixelColor(5, 5).alpha(),
              0);
}

TEST(CoinIconImageTest, refusesWhatIsNoPicture) {
    const std::string whole = logo(Qt::red, {20, 20});
    for (const std::string& bytes : {std::string(),
                                     std::string("\x89PNG"),
                                     std::string("\x89PNG and the rest"),
                                     whole.substr(0, 30)}) {
        EXPECT_TRUE(CoinIconImage::decoded(bytes).isNull()) << bytes.size();
    }
}

TEST(CoinIconImageTest, refusesAPictureOfAnotherFormat) {
    EXPECT_TRUE(
        CoinIconImage::decoded(encoded(QImage(8, 8, QImage::Format_RGB32), "BMP")).isNull());
}

TEST(CoinIconImageTest, refusesAPictureOfManyPixelsBeforeItTakesRoomForThem) {
    // All pixels are alike and have one bit each, so a large picture fits into a file of a few
    // hundred bytes.
    EXPECT_FALSE(CoinIconImage::decoded(blankLogo({2048, 2048})).isNull());
    EXPECT_TRUE(CoinIconImage::decoded(blankLogo({2049, 2048})).isNull());
    EXPECT_TRUE(CoinIconImage::decoded(blankLogo({65500, 100})).isNull());
}

TEST(CoinIconImageTest, refusesADimensionThatNoPictureHas) {
    std::string bytes = logo(Qt::red, {20, 20});
    // The width in the header, whose checksum then fails too.
    bytes.replace(16, 4, "\x7f\xff\xff\xff");
    EXPECT_TRUE(CoinIconImage::decoded(bytes).isNull());
}

}  // namespace
}  // namespace quillbar
