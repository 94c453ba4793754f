// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/tray/BarShade.h"
#include "Quillbar/tray/LabelFace.h"
#include "Quillbar/tray/TrayHost.h"

#include <QImage>
#include <QString>

#include <array>

namespace quillbar {

/// The heights in pixels that pictures are sent in: hosts take the second on dense screens.
inline constexpr std::array kPictureHeights{22, 44};

/// What one picture of the status item shows. A plain value, cheap to make and to compare: pictures
/// that are equal come out alike, so draw only what differs from the last.
struct LabelPicture final {
    LabelForm form = LabelForm::square;
    BarShade shade = BarShade::unknown;
    /// The upper line of a square, or the whole text; a picture without one shows the
    /// application's mark.
    QString upper = {};
    /// The lower line of a square.
    QString lower = {};
    LabelDirection direction = LabelDirection::stale;

    [[nodiscard]] bool operator==(const LabelPicture&) const = default;

    /// What the face looks like in this form: beside a text that the host draws, the mark; on a
    /// square, the price over the change, the coin over an ellipsis while there is no price, the
    /// mark while nothing is pinned.
    [[nodiscard]] static LabelPicture of(const LabelFace& face, LabelForm form, BarShade shade);

    /// Draws the picture so many pixels high, which must be greater than 0; as wide as high, but for
    /// the whole text. Its width stays the same while the text changes in its digits and its
    /// direction alone. Needs a QGuiApplication; for the main thread.
    [[nodiscard]] QImage drawn(int height) const;
};

}  // namespace quillbar
