// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/state/AppearanceMode.h"
#include "QuillbarCore/state/ChangeColors.h"

#include <QColor>
#include <QEvent>

class QWidget;

namespace quillbar {

/// Whether the desktop, or the panel, is dark or light.
enum class ColorScheme { dark, light };

/// The colours of the panel when it is dark and when it is light. In both, gains are green and
/// losses red unless the user has chosen other colours for them.
struct ThemeColors final {
    ThemeColors() = delete;

    /// One colour for each role, in sRGB without premultiplied alpha. The translucent ones tint
    /// what is below them.
    struct Resolved final {
        QColor up;
        QColor down;
        QColor primaryText;
        QColor secondaryText;
        QColor tertiaryText;
        QColor separator;
        QColor rowAlternate;
        QColor rowHover;
        QColor accent;
        QColor warning;
        QColor surface;
        /// What failed, and what cannot be taken back: red, whatever colour losses have.
        QColor danger;

        [[nodiscard]] bool operator==(const Resolved&) const = default;
    };

    /// Each is made on first use, and is valid until the process ends.
    [[nodiscard]] static const Resolved& dark();
    [[nodiscard]] static const Resolved& light();
    [[nodiscard]] static const Resolved& of(ColorScheme scheme);

    /// The scheme's colours with gains and losses in those that the user has chosen. Pure.
    [[nodiscard]] static Resolved of(ColorScheme scheme, ChangeColors changeColors);
};

/// The colours and the size that views draw with.
struct Theme final {
    ThemeColors::Resolved colors;
    /// The text size as a factor, 1 for 100 %. Views read it by `TextScale`.
    double scale = 1;

    [[nodiscard]] bool operator==(const Theme&) const = default;
};

/// The scheme for the user's choice, on a desktop with the scheme `system`. Pure.
[[nodiscard]] ColorScheme resolvedScheme(AppearanceMode mode, ColorScheme system);

/// How a theme reaches the views: a view has the theme of its nearest ancestor that has one, or
/// else the dark one.
namespace ThemeKey {

/// The theme of a view. Valid until another theme is set on the same ancestor, so read it each time
/// it is used.
[[nodiscard]] const Theme& value(const QWidget& view);

/// Gives `root` and all widgets below it this theme. If it is another one, each of them gets an
/// event of the type `changeEvent` and is repainted.
void set(QWidget& root, const Theme& theme);

/// The type of the event that a widget gets when its theme has changed. Only widgets that keep
/// something made of colours need it; for lengths there is `TextScale::follow`.
[[nodiscard]] QEvent::Type changeEvent();

}  // namespace ThemeKey

}  // namespace quillbar
