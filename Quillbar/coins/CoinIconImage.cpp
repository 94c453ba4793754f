// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/coins/CoinIconImage.h"

#include <QBuffer>
#include <QByteArray>
#include <QImageReader>
#include <QRect>
#include <QSize>

#include <algorithm>
#include <cstdint>

namespace quillbar::CoinIconImage {

namespace {

// Qt's reader has the same limit: greater sizes overflow.
bool isModest(const QSize& size) {
    return !size.isEmpty()
           && std::int64_t{size.width()} * std::int64_t{size.height()} <= kMostPixels;
}

QImage squareMiddle(const QImage& image) {
    const int side = std::min(image.width(), image.height());
    return image.copy((image.width() - side) / 2, (image.height() - side) / 2, side, side);
}

}  // namespace

QImage decoded(std::string_view png) {
    QByteArray bytes = QByteArray::fromRawData(png.data(), static_cast<qsizetype>(png.size()));
    QBuffer buffer(&bytes);
    QImageReader reader(&buffer, "png");
    if (!isModest(reader.size())) {
        return {};
    }
    const QImage image = reader.read();
    if (image.isNull()) {
        return {};
    }
    QImage square = squareMiddle(image).convertToFormat(QImage::Format_ARGB32_Premultiplied);
    if (square.width() <= kSide) {
        return square;
    }
    return square.scaled(kSide, kSide, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

}  // namespace quillbar::CoinIconImage
