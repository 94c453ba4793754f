// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/window/PanelPlacement.h"

#include "Quillbar/widgets/MovedInside.h"

#include <algorithm>

namespace quillbar::PanelPlacement {

namespace {

int besidePointer(int pointer, int length, int middleOfScreen) {
    return pointer < middleOfScreen ? pointer + kPointerOffset + kGap
                                    : pointer - kPointerOffset - kGap - length;
}

// The area for the panel: at a distance from the edges of the work area, except from the edge at
// the anchor's bar.
QRect roomBeside(QPoint anchor, QRect workArea) {
    QRect room = workArea.adjusted(kGap, kGap, -kGap, -kGap);
    if (anchor.y() < workArea.top()) {
        room.setTop(workArea.top());
    } else if (anchor.y() > workArea.bottom()) {
        room.setBottom(workArea.bottom());
    } else if (anchor.x() < workArea.left()) {
        room.setLeft(workArea.left());
    } else if (anchor.x() > workArea.right()) {
        room.setRight(workArea.right());
    }
    return room;
}

}  // namespace

QRect rectangle(QPoint anchor, QSize wanted, QRect screen, QRect workArea) {
    const QRect room = roomBeside(anchor, workArea);
    const QSize size = wanted.boundedTo(room.size());
    const int x = anchor.x() - size.width() / 2;
    const int y = workArea.contains(anchor)
                      ? besidePointer(anchor.y(), size.height(), screen.center().y())
                      : anchor.y() - size.height() / 2;
    return movedInside({QPoint(x, y), size}, room);
}

QRect withoutBar(QRect workArea, QRect screen, QRect bar) {
    const bool isFlat = bar.width() > bar.height();
    if (isFlat && bar.height() < screen.height() / 2) {
        if (bar.top() <= screen.top()) {
            workArea.setTop(std::max(workArea.top(), bar.bottom() + 1));
        } else if (bar.bottom() >= screen.bottom()) {
            workArea.setBottom(std::min(workArea.bottom(), bar.top() - 1));
        }
    } else if (!isFlat && bar.width() < screen.width() / 2) {
        if (bar.left() <= screen.left()) {
            workArea.setLeft(std::max(workArea.left(), bar.right() + 1));
        } else if (bar.right() >= screen.right()) {
            workArea.setRight(std::min(workArea.right(), bar.left() - 1));
        }
    }
    return workArea;
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

QRect rectangleAt(QPoint topLeft, QSize wanted, QRect workArea) {
    return movedInside({topLeft, wanted}, workArea);
}

}  // namespace quillbar::PanelPlacement
