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

/// What is drawn of a text, in a picture as wide as the text says and with a pixel more on every
/// side, which stays empty.
std::string drawn(const QString& text) {
    const int width = PixelText::width(text).value_or(0);
    QImage image(width + 2, PixelText::kHeight + 2, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setPen(Qt::white);
    PixelText::draw(painter, QPoint(1, 1), text);
    painter.end();
    EXPECT_TRUE(QRect(1, 1, width, PixelText::kHeight).contains(boundsOfInk(image)));
    return inkOf(image, QRect(1, 1, width, PixelText::kHeight));
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

TEST(PixelTextTest, drawsTheSignsOfAChange) {
    EXPECT_EQ(drawn(QStringLiteral(".+-%")),
              drawing({
                  "..........##..#",
                  "..........##..#",
                  ".............#.",
                  "...#........#..",
                  "..###.###...#..",
                  "...#.......#...",
                  "..........#..##",
                  "#.........#..##",
              }));
}

TEST(PixelTextTest, drawsTheUnitsAboveOne) {
    EXPECT_EQ(drawn(QStringLiteral("kMBT")),
              drawing({
                  "#....#...#.###..#####",
                  "#....##.##.#..#...#..",
                  "#..#.#.#.#.#..#...#..",
                  "#.#..#.#.#.###....#..",
                  "##...#...#.#..#...#..",
                  "##...#...#.#..#...#..",
                  "#.#..#...#.#..#...#..",
                  "#..#.#...#.###....#..",
              }));
}

TEST(PixelTextTest, drawsTheUnitsBelowOne) {
    EXPECT_EQ(drawn(QStringLiteral("nµ")),
              drawing({
                  ".........",
                  ".........",
                  "###..#..#",
                  "#..#.#..#",
                  "#..#.#..#",
                  "#..#.###.",
                  "#..#.#...",
                  "#..#.#...",
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

TEST(PixelTextTest, fitsWhatAStatusItemSaysIntoItsSquare) {
    constexpr int kSquare = 22;
    for (const char* const text :
         {"67.2k", ".1235", "9.876", "987.7", "1.02M", "12.3µ", "-9.8%", "+12%"}) {
        EXPECT_LE(PixelText::width(QString::fromUtf8(text)), kSquare) << text;
    }
}

TEST(PixelTextTest, knowsNoLettersOfCoinsAndLeavesThemOut) {
    EXPECT_EQ(PixelText::width(QStringLiteral("ETH")), std::nullopt);
    EXPECT_EQ(PixelText::width(QStringLiteral("1E")), std::nullopt);
    EXPECT_EQ(PixelText::width(QString()), 0);
    QImage image(9, PixelText::kHeight, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    PixelText::draw(painter, QPoint(), QStringLiteral("1E1"));
    painter.end();
    EXPECT_EQ(inkOf(image), drawn(QStringLiteral("11")));
}

}  // namespace

}  // namespace quillbar
