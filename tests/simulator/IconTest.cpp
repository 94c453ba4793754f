// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "simulator/Coins.h"
#include "simulator/Icon.h"

#include <QByteArray>
#include <QColor>
#include <QImage>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <set>
#include <string>

namespace quillbar::simulator {
namespace {

constexpr int kSize = 64;

QImage iconOf(const std::string& asset) {
    const std::string png = makeIcon(asset);
    return QImage::fromData(QByteArray::fromStdString(png), "PNG")
        .convertToFormat(QImage::Format_ARGB32);
}

/// Where something else than the disc is drawn inside the ring.
std::string markOf(const QImage& icon) {
    // Between the ring and the mark.
    const QRgb disc = icon.pixel(kSize / 2, kSize / 8 + 2);
    std::string mark;
    for (int y = 12; y < kSize - 12; ++y) {
        for (int x = 12; x < kSize - 12; ++x) {
            mark += icon.pixel(x, y) == disc ? ' ' : '#';
        }
    }
    return mark;
}

// The data of the first chunk of that type.
std::string chunkData(const std::string& png, const std::string& type) {
    const std::size_t at = png.find(type);
    EXPECT_NE(at, std::string::npos);
    std::size_t length = 0;
    for (std::size_t i = at - 4; i < at; ++i) {
        length = length * 256 + static_cast<unsigned char>(png[i]);
    }
    return png.substr(at + 4, length);
}

TEST(IconTest, isAWholePng) {
    const std::string png = makeIcon("BTC");
    EXPECT_EQ(png.substr(0, 8), "\x89PNG\r\n\x1A\n");
    EXPECT_EQ(png.substr(png.size() - 12), (std::string{"\0\0\0\0IEND\xAE\x42\x60\x82", 12}));
    const std::string stream = chunkData(png, "IDAT");
    // Qt wants the length of what comes out ahead of a zlib stream, and checks its checksum.
    const QByteArray pixels =
        qUncompress(QByteArray::fromStdString(std::string{"\0\0\x10\x40", 4} + stream));
    ASSERT_EQ(pixels.size(), kSize * (kSize + 1));
    const auto colours = chunkData(png, "PLTE").size() / 3;
    EXPECT_EQ(chunkData(png, "tRNS").size(), colours);
    EXPECT_LT(static_cast<std::size_t>(*std::max_element(pixels.begin(), pixels.end())), colours);
}

TEST(IconTest, isADiscOnNothing) {
    const QImage icon = iconOf("BTC");
    ASSERT_EQ(icon.size(), QSize(kSize, kSize));
    EXPECT_EQ(qAlpha(icon.pixel(0, 0)), 0);
    EXPECT_EQ(qAlpha(icon.pixel(kSize - 1, kSize - 1)), 0);
    EXPECT_EQ(qAlpha(icon.pixel(kSize / 2, kSize / 2)), 255);
    EXPECT_EQ(qAlpha(icon.pixel(kSize / 2, 1)), 255);
}

TEST(IconTest, hasARingInTheDisc) {
    const QImage icon = iconOf("BTC");
    const QRgb disc = icon.pixel(2, kSize / 2);
    EXPECT_EQ(disc, qRgb(0xF7, 0x93, 0x1A)) << "the colour the coin is known by";
    EXPECT_NE(icon.pixel(5, kSize / 2), disc);
    EXPECT_EQ(icon.pixel(9, kSize / 2), disc);
}

TEST(IconTest, hasTheFirstLetterOfTheTicker) {
    std::set<std::string> marks;
    for (char letter = 'A'; letter <= 'Z'; ++letter) {
        const QImage icon = iconOf(std::string{letter} + "QX");
        const std::string mark = markOf(icon);
        EXPECT_GT(std::count(mark.begin(), mark.end(), '#'), 100) << letter;
        EXPECT_TRUE(marks.insert(mark).second) << letter << " looks like another letter";
        EXPECT_EQ(markOf(iconOf(std::string{letter} + "OTHER")), mark);
    }
    EXPECT_EQ(markOf(iconOf("1INCH")), markOf(iconOf("INJ")));
    EXPECT_EQ(markOf(iconOf("1000SATS")), markOf(iconOf("SOL")));
}

TEST(IconTest, hasALozengeWithoutALetter) {
    const std::string lozenge = markOf(iconOf("\u5e01\u5b89\u4eba\u751f"));
    EXPECT_GT(std::count(lozenge.begin(), lozenge.end(), '#'), 100);
    EXPECT_EQ(markOf(iconOf("42")), lozenge);
}

TEST(IconTest, canBeReadInEveryColour) {
    for (const KnownCoin& coin : knownCoins()) {
        const QColor disc = iconOf(coin.asset).pixelColor(2, kSize / 2);
        const auto linear = [](double channel) {
            return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
        };
        const double luminance = 0.2126 * linear(disc.redF()) + 0.7152 * linear(disc.greenF())
                                 + 0.0722 * linear(disc.blueF());
        EXPECT_GE(1.05 / (luminance + 0.05), 2) << coin.asset;
    }
}

TEST(IconTest, isTheSameForTheSameTicker) {
    EXPECT_EQ(makeIcon("BTC"), makeIcon("BTC"));
    EXPECT_NE(makeIcon("BTC"), makeIcon("BTX"));
    EXPECT_NE(makeIcon("ETH"), makeIcon("BTC"));
}

}  // namespace
}  // namespace quillbar::simulator
