// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QImage>
#include <QRect>

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <string>
#include <string_view>

namespace quillbar {

/// Pictures as drawings in text, so that a test can show what it expects: a line for each row of
/// pixels, from the top.

/// A drawing from its lines.
inline std::string drawing(std::initializer_list<std::string_view> lines) {
    std::string whole;
    for (const std::string_view line : lines) {
        whole.append(line).append("\n");
    }
    return whole;
}

/// A part of a picture: # where a pixel is opaque for more than half.
inline std::string inkOf(const QImage& image, const QRect& part) {
    std::string whole;
    for (int y = part.top(); y <= part.bottom(); ++y) {
        for (int x = part.left(); x <= part.right(); ++x) {
            whole += image.pixelColor(x, y).alpha() > 127 ? '#' : '.';
        }
        whole += '\n';
    }
    return whole;
}
inline std::string inkOf(const QImage& image) {
    return inkOf(image, image.rect());
}

/// The smallest rectangle outside which every pixel has the colour of the ground. Empty when there
/// is nothing else.
inline QRect boundsOfInk(const QImage& image, const QColor& ground = Qt::transparent) {
    QRect bounds;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y) != ground) {
                bounds = bounds.united(QRect(x, y, 1, 1));
            }
        }
    }
    return bounds;
}

/// The greatest difference between two pictures of one size in any channel of any pixel; 255 for
/// pictures of different sizes.
inline int difference(const QImage& one, const QImage& other) {
    if (one.size() != other.size()) {
        return 255;
    }
    int greatest = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            const QColor a = one.pixelColor(x, y);
            const QColor b = other.pixelColor(x, y);
            greatest = std::max({greatest,
                                 std::abs(a.red() - b.red()),
                                 std::abs(a.green() - b.green()),
                                 std::abs(a.blue() - b.blue()),
                                 std::abs(a.alpha() - b.alpha())});
        }
    }
    return greatest;
}

}  // namespace quillbar
