// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/tray/ClickAnchor.h"

namespace quillbar {

QPoint logicalPosition(QPoint native, QPoint origin, double ratio) {
    return origin + (native - origin) / ratio;
}

QPoint clickAnchor(QPoint reported,
                   bool reportedInBar,
                   QPoint pointer,
                   PointerPosition trust,
                   TrayHost::ClickPosition host) {
    // Some hosts report the item's corner, which may be as far away as a wide item is long.
    constexpr int kFar = 200;
    if (host == TrayHost::ClickPosition::unusable) {
        return pointer;
    }
    if (trust == PointerPosition::outdated) {
        return reported;
    }
    const bool isFar = (pointer - reported).manhattanLength() > kFar;
    return isFar && reportedInBar ? reported : pointer;
}

}  // namespace quillbar
