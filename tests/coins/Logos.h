// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QBuffer>
#include <QByteArray>
#include <QColor>
#include <QImage>
#include <QSize>

#include <string>

namespace quillbar {

/// The bytes of an image's file.
inline std::string encoded(const QImage& image, const char* format) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format);
    return bytes.toStdString();
}

inline std::string pngOf(const QImage& image) {
    return encoded(image, "PNG");
}

/// The file of a logo all of one colour.
inline std::string logo(const QColor& color, QSize size = {64, 64}) {
    QImage image(size, QImage::Format_ARGB32);
    image.fill(color);
    return pngOf(image);
}

/// The small file of a logo of any size.
inline std::string blankLogo(QSize size) {
    QImage image(size, QImage::Format_Mono);
    image.fill(0);
    return pngOf(image);
}

}  // namespace quillbar
