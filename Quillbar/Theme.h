// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/state/AppearanceMode.h"

#include <QColor>
#include <QEvent>

class QWidget;

namespace quillbar {

/// Whether the desktop, or the panel, is dark or light.
enum class ColorScheme { dark, light };

/// The two palettes of the panel. Rising is green and falling red in both.
struct ThemeColors final {
    ThemeColors() = delete;

    /// One colour for each role. Straight sRGB; the translucent ones tint what lies beneath.
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

        [[nodiscard]] bool operator==(const Resolved&) const = default;
    };

    /// Each is built on first use; the reference is valid for the life of the process.
    [[nodiscard]] static const Resolved& dark();
    [[nodiscard]] static const Resolved& light();
    [[nodiscard]] static const Resolved& of(ColorScheme scheme);
};

/// What views draw with.
struct Theme final {
    ThemeColors::Resolved colors;

    [[nodiscard]] bool operator==(const Theme&) const = default;
};

/// The scheme that the user's choice gives on a desktop of scheme `system`. Pure.
[[nodiscard]] ColorScheme resolvedScheme(AppearanceMode mode, ColorScheme system);

/// How a theme reaches the views: the one set on the nearest ancestor holds, the dark one without.
namespace ThemeKey {

/// The theme of a view, which may have it set itself. Valid until it is set again on the same
/// ancestor: read it where it is used.
[[nodiscard]] const Theme& value(const QWidget& view);

/// Gives `root` and everything below it this theme. Each widget there is sent an event of
/// `changeEvent` and repainted, unless the theme is what it was.
void set(QWidget& root, const Theme& theme);

/// The type of the event that tells a widget that its theme has changed. Only those that keep
/// something made from colours need it.
[[nodiscard]] QEvent::Type changeEvent();

}  // namespace ThemeKey

}  // namespace quillbar
