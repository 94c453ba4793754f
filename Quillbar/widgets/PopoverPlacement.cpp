// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/widgets/PopoverPlacement.h"

#include "Quillbar/widgets/MovedInside.h"

#include <QPoint>

#include <cmath>

namespace quillbar::PopoverPlacement {

QRect rectangle(QRect anchor, QSize wanted, QRect workArea) {
    const QSize size = wanted.boundedTo(workArea.size());
    const int below = anchor.bottom() + 1 + kGap;
    const int above = anchor.top() - kGap - size.height();
    const bool hasRoomBelow = below + size.height() <= workArea.bottom() + 1;
    const int y = hasRoomBelow || above < workArea.top() ? below : above;
    return movedInside({QPoint(anchor.right() + 1 - size.width(), y), size}, workArea);
}

int wholeInPixels(int width, double scale) {
    // As many as are needed for scales in eighths.
    constexpr int kMostTried = 8;
    constexpr double kTolerance = 1e-6;
    for (int wider = width; wider < width + kMostTried; ++wider) {
        const double pixels = wider * scale;
        if (std::abs(pixels - std::round(pixels)) < kTolerance) {
            return wider;
        }
    }
    return width;
}

}  // namespace quillbar::PopoverPlacement
