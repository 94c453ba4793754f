// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/tray/ClickAnchor.h"

namespace quillbar {

QPoint logicalPosition(QPoint native, QPoint origin, double ratio) {
    return origin + (native - origin) / ratio;
}

std::optional<QPoint> clickAnchor(QPoint reported,
                                  bool reportedInBar,
                                  QPoint pointer,
                                  PointerPosition trust,
                                  TrayHost::ClickPosition host) {
    // Some hosts report the item's corner, which is far from the pointer if the item is wide.
    constexpr int kFar = 200;
    const bool isReportUsable = host == TrayHost::ClickPosition::onScreen;
    if (trust == PointerPosition::outdated) {
        return isReportUsable ? std::optional(reported) : std::nullopt;
    }
    if (!isReportUsable) {
        return pointer;
    }
    const bool isFar = (pointer - reported).manhattanLength() > kFar;
    return isFar && reportedInBar ? reported : pointer;
}

}  // namespace quillbar
