// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/tray/PixelText.h"
#include "tests/qtsupport/Ink.h"

#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace quillbar {

namespace {

using PixelText::Digits;

/// What is drawn of a text, in a picture as wide as the text says and with a pixel more on every
/// side, which stays empty.
std::string drawn(const QString& text, Digits digits = Digits::wide) {
    const int width = PixelText::width(text, digits).value_or(0);
    constexpr int kWhole = PixelText::kHeight + PixelText::kCountDepth;
    QImage image(width + 2, kWhole + 2, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setPen(Qt::white);
    PixelText::draw(painter, QPoint(1, 1), text, digits);
    painter.end();
    EXPECT_TRUE(QRect(1, 1, width, kWhole).contains(boundsOfInk(image)));
    return inkOf(image, QRect(1, 1, width, boundsOfInk(image).bottom()));
}

TEST(PixelTextTest, drawsEveryDigitFourPixelsWideAndOneApart) {
    EXPECT_EQ(drawn(QStringLiteral("0123456789")),
              drawing({
                  ".##....#...##...##.....#.####..##..####..##...##.",
                  "#..#..##..#..#.#..#...##.#....#..#....#.#..#.#..#",
                  "#..#...#.....#....#..#.#.#....#.......#.#..#.#..#",
                  "#..#...#.....#..##..#..#.###..###....#...##..#..#",
                  "#..#...#....#.....#.####....#.#..#...#..#..#..###",
                  "#..#...#...#......#....#....#.#..#..#...#..#....#",
                  "#..#...#..#....#..#....#.#..#.#..#..#...#..#.#..#",
                  ".##...###.####..##.....#..##...##...#....##...##.",
              }));
}

TEST(PixelTextTest, drawsNarrowDigitsThreePixelsWide) {
    EXPECT_EQ(drawn(QStringLiteral("0123456789"), Digits::narrow),
              drawing({
                  ".#...#...#..##....#.###..#..###..#...#.",
                  "#.#.##..#.#...#..##.#...#.....#.#.#.#.#",
                  "#.#..#....#...#.#.#.#...#.....#.#.#.#.#",
                  "#.#..#....#..#..#.#.##..##...#...#..#.#",
                  "#.#..#...#....#.###...#.#.#..#..#.#..##",
                  "#.#..#...#....#...#...#.#.#..#..#.#...#",
                  "#.#..#..#.....#...#...#.#.#..#..#.#...#",
                  ".#..###.###.##....#.##...#...#...#...#.",
              }));
}

TEST(PixelTextTest, drawsACountOfZerosSmallAndLow) {
    EXPECT_EQ(drawn(QStringLiteral("₀₁₂₃₄₅₆₇₈₉")),
              drawing({
                  ".......................................",
                  ".......................................",
                  ".......................................",
                  ".......................................",
                  "###..#..###.###.#.#.###.###.###.###.###",
                  "#.#.##....#...#.#.#.#...#.....#.#.#.#.#",
                  "#.#..#..###.###.###.###.###..#..###.###",
                  "#.#..#..#.....#...#...#.#.#..#..#.#...#",
                  "###.###.###.###...#.###.###..#..###.###",
              }));
}

TEST(PixelTextTest, closesThePointOfATinyPriceUp) {
    EXPECT_EQ(drawn(QStringLiteral("0.0₄18"), Digits::narrow),
              drawing({
                  ".#....#.......#...#.",
                  "#.#..#.#.....##..#.#",
                  "#.#..#.#......#..#.#",
                  "#.#..#.#......#...#.",
                  "#.#..#.#.#.#..#..#.#",
                  "#.#..#.#.#.#..#..#.#",
                  "#.#..#.#.###..#..#.#",
                  ".#....#....#.###..#.",
                  "...#.......#........",
              }));
    EXPECT_EQ(PixelText::width(QStringLiteral("0.05"), Digits::narrow),
              PixelText::width(QStringLiteral("1.25"), Digits::narrow));
}

TEST(PixelTextTest, drawsTheSignsOfAChange) {
    EXPECT_EQ(drawn(QStringLiteral(".+-%")),
              drawing({
                  "..........##.#",
                  "..........##.#",
                  "............#.",
                  "...#........#.",
                  "..###.###..#..",
                  "...#.......#..",
                  "..........#.##",
                  "#.........#.##",
              }));
}

TEST(PixelTextTest, drawsTheUnits) {
    EXPECT_EQ(drawn(QStringLiteral("kMBT")),
              drawing({
                  "#...#...#.###..###",
                  "#...##.##.#..#..#.",
                  "#.#.#.#.#.#..#..#.",
                  "#.#.#.#.#.###...#.",
                  "##..#...#.#..#..#.",
                  "##..#...#.#..#..#.",
                  "#.#.#...#.#..#..#.",
                  "#.#.#...#.###...#.",
              }));
}

TEST(PixelTextTest, drawsWhatStandsForANumber) {
    EXPECT_EQ(drawn(QStringLiteral(">—…")),
              drawing({
                  "...............",
                  "...............",
                  "#..............",
                  ".#.............",
                  "..#.#####......",
                  ".#.............",
                  "#..............",
                  "..........#.#.#",
              }));
}

TEST(PixelTextTest, fitsWhatAStatusItemSaysIntoItsSquareWithAPixelOnEitherSide) {
    constexpr int kSpace = 20;
    for (const char* const text : {"67.2k", "-9.8%", "+12%", "672k", "9877", "2.34T", "0.0%"}) {
        EXPECT_EQ(PixelText::fitting(QString::fromUtf8(text), kSpace), Digits::wide) << text;
    }
    for (const char* const text :
         {".1235", "9.876", "987.7", "1.02M", "34.6B", ">999T", "+99k%", "0.0₄18", "0.0₁₀6"}) {
        EXPECT_EQ(PixelText::fitting(QString::fromUtf8(text), kSpace), Digits::narrow) << text;
    }
    EXPECT_EQ(PixelText::fitting(QStringLiteral("123456"), kSpace), std::nullopt);
}

TEST(PixelTextTest, knowsNoLettersOfCoinsAndLeavesThemOut) {
    for (const Digits digits : {Digits::wide, Digits::narrow}) {
        EXPECT_EQ(PixelText::width(QStringLiteral("ETH"), digits), std::nullopt);
        EXPECT_EQ(PixelText::width(QStringLiteral("1E"), digits), std::nullopt);
        EXPECT_EQ(PixelText::width(QString(), digits), 0);
    }
    EXPECT_EQ(PixelText::fitting(QStringLiteral("ETH"), 100), std::nullopt);
    QImage image(9, PixelText::kHeight, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    PixelText::draw(painter, QPoint(), QStringLiteral("1E1"), Digits::wide);
    painter.end();
    EXPECT_EQ(inkOf(image), drawn(QStringLiteral("11")));
}

}  // namespace

}  // namespace quillbar
