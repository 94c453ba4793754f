// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/window/PanelPlacement.h"

#include <algorithm>

namespace quillbar::PanelPlacement {

namespace {

// Where something of `length` begins so that it is inside [first, last].
int inside(int wanted, int length, int first, int last) {
    return std::max(first, std::min(wanted, last + 1 - length));
}

int besidePointer(int pointer, int length, int middleOfScreen) {
    return pointer < middleOfScreen ? pointer + kPointerOffset + kGap
                                    : pointer - kPointerOffset - kGap - length;
}

}  // namespace

QRect rectangle(QPoint anchor, QSize wanted, QRect screen, QRect workArea) {
    const QRect room = workArea.adjusted(kGap, kGap, -kGap, -kGap);
    const QSize size = wanted.boundedTo(room.size());
    int x = anchor.x() - size.width() / 2;
    int y = 0;
    if (anchor.y() < workArea.top()) {
        y = room.top();
    } else if (anchor.y() > workArea.bottom()) {
        y = room.bottom() + 1 - size.height();
    } else if (anchor.x() < workArea.left()) {
        x = room.left();
        y = anchor.y() - size.height() / 2;
    } else if (anchor.x() > workArea.right()) {
        x = room.right() + 1 - size.width();
        y = anchor.y() - size.height() / 2;
    } else {
        y = besidePointer(anchor.y(), size.height(), screen.center().y());
    }
    x = inside(x, size.width(), room.left(), room.right());
    y = inside(y, size.height(), room.top(), room.bottom());
    return {QPoint(x, y), size};
}

QRect rectangleWithoutAnchor(QSize wanted, QRect screen, QRect workArea) {
    if (workArea.top() > screen.top()) {
        return rectangle({workArea.right(), screen.top()}, wanted, screen, workArea);
    }
    if (workArea.bottom() < screen.bottom()) {
        return rectangle({workArea.right(), screen.bottom()}, wanted, screen, workArea);
    }
    if (workArea.left() > screen.left()) {
        return rectangle({screen.left(), workArea.bottom()}, wanted, screen, workArea);
    }
    if (workArea.right() < screen.right()) {
        return rectangle({screen.right(), workArea.bottom()}, wanted, screen, workArea);
    }
    QRect centred(QPoint(), wanted.boundedTo(workArea.size()));
    centred.moveCenter(workArea.center());
    return centred;
}

}  // namespace quillbar::PanelPlacement
