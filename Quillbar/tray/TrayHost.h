// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace quillbar {

/// The form in which a host shows the label best.
enum class LabelForm {
    /// As text, in the host's own font and colours, beside a small symbol.
    text,
    /// The whole text as one picture.
    widePicture,
    /// Two short lines in a square.
    square,
};

/// What is known of a program that shows status items.
struct TrayHost final {
    LabelForm form = LabelForm::square;
    /// Whether the host reads the label as a text.
    enum class Label { shown, ignored } label = Label::shown;
    /// Where the host takes the picture beside a text from.
    enum class Icon { pixmap, themeName } icon = Icon::pixmap;
    /// Which of the pictures the host shows: the one for its size, or always the largest, made
    /// smaller.
    enum class Picks { fitting, largest } picks = Picks::fitting;
    /// Whether the host reports clicks in coordinates of the screen.
    enum class ClickPosition { onScreen, unusable } clickPosition = ClickPosition::onScreen;
    /// What the host shows under the pointer: both texts of the item's tooltip, one of them, or the
    /// title of an item that has no tooltip.
    enum class Tooltip { titleAndText, titleAlone, itemTitle } tooltip = Tooltip::titleAndText;
    /// What the host shows for an empty tooltip: nothing, or one that it makes of the item's title
    /// and description.
    enum class EmptyTooltip { nothing, names } emptyTooltip = EmptyTooltip::nothing;
    /// The sign with which the host reports a turn of the wheel upwards.
    enum class WheelUp { positive, negative } wheelUp = WheelUp::positive;
    /// Whether the bar is known to be dark.
    enum class Bar { unknown, dark } bar = Bar::unknown;

    [[nodiscard]] bool operator==(const TrayHost&) const = default;

    /// The host whose watcher's process has the name `comm`, as in /proc (the first 15 characters).
    /// For an unknown name, a host with the square, which every host can show. Pure.
    [[nodiscard]] static TrayHost ofProcess(std::string_view comm);
};

}  // namespace quillbar
