// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/tray/LabelFace.h"
#include "Quillbar/tray/TrayHost.h"
#include "QuillbarCore/state/ChangeColors.h"

#include <QImage>
#include <QString>

#include <array>
#include <vector>

namespace quillbar {

/// The heights in pixels of each picture that is sent. Hosts take the second one on dense screens.
inline constexpr std::array kPictureHeights{22, 44};
/// The heights of a square for hosts that take the one that fits their bar.
inline constexpr std::array kSquareHeights{22, 24, 32, 44, 48};

/// The background of a picture. Hosts never recolour a picture, and do not say how their bar looks.
/// Nor does the desktop's choice of dark or light: bars have themes of their own.
enum class PictureGround {
    /// The bar, which is known to be dark.
    darkBar,
    /// A dark background in the picture, so that it can be read on every bar.
    own,
};

/// The upper line of a square that has a price: what the wording says, or the coin.
enum class SquareTop { price, name };

/// What one picture of the status item shows. A plain value, cheap to make and to compare: equal
/// pictures look the same, so draw one only if it differs from the last.
struct LabelPicture final {
    LabelForm form = LabelForm::square;
    PictureGround ground = PictureGround::own;
    /// The upper line of a square, or the whole text.
    QString upper = {};
    /// The lower line of a square, or the change at the end of the whole text, in the colour of the
    /// direction. A line without the other stands in the middle of the square; without both, the
    /// picture is the application's mark.
    QString lower = {};
    LabelDirection direction = LabelDirection::stale;
    ChangeColors changeColors = ChangeColors::greenUp;
    /// The coins behind the whole text, each with a change in the colour of its own direction.
    std::vector<LabelFace::Beside> beside = {};
    /// Whether it says that there is something to see in the panel: as a frame around texts, or as
    /// a dot in the mark's free corner. No text is covered.
    bool isMarked = false;

    [[nodiscard]] bool operator==(const LabelPicture&) const = default;

    /// The picture of the face in this form. Beside a text that the host draws, and while the
    /// numbers are hidden, it is the mark. A square has the price or the coin over the change, the
    /// coin over an ellipsis while there is no price, or the mark while nothing is pinned.
    ///
    /// Where the user's wording leaves something out, so does the square: coin and price make the
    /// coin over the price, and a single one stands alone. A wording without any is the mark.
    [[nodiscard]] static LabelPicture of(const LabelFace& face,
                                         LabelForm form,
                                         PictureGround ground,
                                         SquareTop top = SquareTop::price);

    /// Draws the picture with this height in pixels, which is greater than 0. It is as wide as
    /// high, except the whole text. The width of that does not change while only the digits and the
    /// direction of the text change and the change stays below 100 percent. The lines of a square
    /// leave one column free at both sides. Needs a QGuiApplication; for the main thread.
    [[nodiscard]] QImage drawn(int height) const;
};

}  // namespace quillbar
