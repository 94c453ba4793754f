// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/state/ChangeColors.h"

#include <QColor>

namespace quillbar {

/// The two colours of rising and falling prices. The only place where they are decided: the panel's
/// themes and the pictures of the status item take them from here.
struct ChangePalette final {
    /// What the colours stand on.
    enum class Ground {
        darkPanel,
        lightPanel,
        /// The dark ground of the item's pictures.
        statusArea,
    };

    QColor up;
    QColor down;

    [[nodiscard]] bool operator==(const ChangePalette&) const = default;

    /// The user's choice of colours, in the shades that this ground needs. Pure.
    [[nodiscard]] static ChangePalette of(ChangeColors colors, Ground ground);
};

}  // namespace quillbar
