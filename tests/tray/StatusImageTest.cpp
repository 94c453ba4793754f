// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/tray/StatusImage.h"

#include <QColor>
#include <QImage>

#include <gtest/gtest.h>

namespace quillbar {

namespace {

TEST(StatusImageTest, isItsPixelsRowByRowWithTheOpacityFirst) {
    QImage image(2, 3, QImage::Format_ARGB32);
    image.setPixelColor(0, 0, QColor(0x01, 0x02, 0x03, 0xFF));
    image.setPixelColor(1, 0, QColor(0x11, 0x12, 0x13, 0x80));
    image.setPixelColor(0, 1, QColor(0x21, 0x22, 0x23, 0x40));
    image.setPixelColor(1, 1, QColor(0x31, 0x32, 0x33, 0x20));
    image.setPixelColor(0, 2, QColor(0x41, 0x42, 0x43, 0x10));
    image.setPixelColor(1, 2, QColor(0x51, 0x52, 0x53, 0x08));
    const StatusImage sent = StatusImage::of(image);
    EXPECT_EQ(sent.width, 2);
    EXPECT_EQ(sent.height, 3);
    EXPECT_EQ(sent.data.toHex(),
              QByteArray("ff010203"
                         "80111213"
                         "40212223"
                         "20313233"
                         "10414243"
                         "08515253"));
}

TEST(StatusImageTest, tellsColoursThatAreNotMultipliedByTheOpacity) {
    QImage image(1, 1, QImage::Format_ARGB32_Premultiplied);
    image.fill(QColor(255, 0, 0, 128));
    EXPECT_EQ(StatusImage::of(image).data.toHex(), QByteArray("80ff0000"));
}

}  // namespace

}  // namespace quillbar
