// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/desktop/PanelPixels.h"

#include <algorithm>
#include <cstdlib>

namespace quillbar {

namespace {

constexpr int kVisibleDifference = 40;
constexpr int kStrongColor = 100;

}  // namespace

bool hasStrongColor(const QImage& image) {
    for (int x = 0; x < image.width(); ++x) {
        for (int y = 0; y < image.height(); ++y) {
            if (image.pixelColor(x, y).hsvSaturation() > kStrongColor) {
                return true;
            }
        }
    }
    return false;
}

int writtenWidth(const QImage& image, const QRect& area, int bare) {
    int first = area.right() + 1;
    int last = area.left() - 1;
    for (int x = area.left(); x <= area.right(); ++x) {
        for (int y = area.top(); y <= area.bottom(); ++y) {
            if (std::abs(image.pixelColor(x, y).lightness() - bare) > kVisibleDifference) {
                first = std::min(first, x);
                last = x;
            }
        }
    }
    return last - first + 1;
}

}  // namespace quillbar
