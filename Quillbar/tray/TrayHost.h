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
    /// Whether the host looks at the label that is sent as text.
    enum class Label { shown, ignored } label = Label::shown;
    /// What the host takes the picture beside a text from.
    enum class Icon { pixmap, themeName } icon = Icon::pixmap;
    /// Which of the pictures the host shows: the one for its size, or always the largest, made smaller.
    enum class Picks { fitting, largest } picks = Picks::fitting;
    /// Whether the coordinates of a click are those of the screen.
    enum class ClickPosition { onScreen, unusable } clickPosition = ClickPosition::onScreen;
    /// Which of a tooltip's two texts are shown.
    enum class Tooltip { titleAndText, titleAlone } tooltip = Tooltip::titleAndText;
    /// Whether the bar is known to be dark whatever the desktop's colours.
    enum class Bar { asDesktop, alwaysDark } bar = Bar::asDesktop;

    [[nodiscard]] bool operator==(const TrayHost&) const = default;

    /// The host whose watcher's process goes by the name `comm`, as /proc tells it (the first 15
    /// characters); the square that every host can show when the name is not known. Pure.
    [[nodiscard]] static TrayHost ofProcess(std::string_view comm);
};

}  // namespace quillbar
