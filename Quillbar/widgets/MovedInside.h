// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

#include <algorithm>

namespace quillbar {

/// `wanted`, made smaller where it is larger than `area`, and then moved only as far as it must be
/// to lie inside `area`. Both in the same units. Pure.
[[nodiscard]] inline QRect movedInside(QRect wanted, QRect area) {
    const QSize size = wanted.size().boundedTo(area.size());
    const int left = std::min(wanted.left(), area.right() + 1 - size.width());
    const int top = std::min(wanted.top(), area.bottom() + 1 - size.height());
    return {QPoint(std::max(area.left(), left), std::max(area.top(), top)), size};
}

}  // namespace quillbar
