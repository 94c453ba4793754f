// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/tray/PixelText.h"

#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <set>
#include <string>

namespace quillbar {

namespace {

/// The drawn text, a # for each pixel of ink.
std::string drawn(const QString& text) {
    constexpr int kRoom = 40;
    QImage image(kRoom, PixelText::kHeight, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setPen(Qt::white);
    PixelText::draw(painter, QPoint(0, 0), text);
    painter.end();
    std::string ink;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            ink += image.pixelColor(x, y) == QColor(Qt::white) ? '#' : '.';
        }
        ink += '\n';
    }
    return ink;
}

TEST(PixelText, fitsWhatAStatusItemSaysIntoItsSquare) {
    constexpr int kSquare = 22;
    for (const char* const text :
         {"67.2k", ".1235", "9.876", "987.7", "1.02M", "12.3µ", "-9.8%", "+12%"}) {
        EXPECT_LE(PixelText::width(QString::fromUtf8(text)), kSquare) << text;
    }
}

TEST(PixelText, givesEveryDigitTheSameWidthAndAnotherLook) {
    std::set<std::string> looks;
    for (char16_t digit = u'0'; digit <= u'9'; ++digit) {
        EXPECT_EQ(PixelText::width(QString(QChar(digit))), 4);
        looks.insert(drawn(QString(QChar(digit))));
    }
    EXPECT_EQ(looks.size(), 10U);
}

TEST(PixelText, drawsAsWideAsItSays) {
    for (const char* const text : {"1.02M", "+88%"}) {
        const std::string ink = drawn(QString::fromUtf8(text));
        std::size_t last = 0;
        for (std::size_t start = 0; start < ink.size(); start = ink.find('\n', start) + 1) {
            const std::string row = ink.substr(start, ink.find('\n', start) - start);
            last = std::max(last, row.rfind('#') == std::string::npos ? 0 : row.rfind('#') + 1);
        }
        EXPECT_EQ(static_cast<int>(last), PixelText::width(QString::fromUtf8(text)));
    }
}

TEST(PixelText, knowsNoLettersOfCoins) {
    EXPECT_EQ(PixelText::width(QStringLiteral("ETH")), std::nullopt);
    EXPECT_EQ(PixelText::width(QString()), 0);
    EXPECT_EQ(drawn(QStringLiteral("E1")), drawn(QStringLiteral("1")));
}

}  // namespace

}  // namespace quillbar
