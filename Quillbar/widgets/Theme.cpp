// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/widgets/Theme.h"

#include "Quillbar/widgets/ChangePalette.h"

#include <QCoreApplication>
#include <QObject>
#include <QWidget>

#include <memory>

namespace quillbar {

namespace {

QColor white(double opacity) {
    return QColor::fromRgbF(1, 1, 1, static_cast<float>(opacity));
}

QColor black(double opacity) {
    return QColor::fromRgbF(0, 0, 0, static_cast<float>(opacity));
}

ChangePalette changesOn(ColorScheme scheme, ChangeColors colors) {
    return ChangePalette::of(colors,
                             scheme == ColorScheme::dark ? ChangePalette::Ground::darkPanel
                                                         : ChangePalette::Ground::lightPanel);
}

const Theme& darkTheme() {
    static const Theme theme{.colors = ThemeColors::dark()};
    return theme;
}

/// Keeps a theme, as a child of the widget that it was set on.
class ThemeHolder final : public QObject {
public:
    ThemeHolder(QWidget& root, const Theme& theme)
        : QObject(&root)
        , theme(theme) {}

    Theme theme;
};

// A property, because views ask while they paint, and searching children by type is slow.
constexpr const char* kHolderProperty = "_quillbar_theme";

ThemeHolder* holder(const QWidget& root) {
    return static_cast<ThemeHolder*>(root.property(kHolderProperty).value<QObject*>());
}

}  // namespace

const ThemeColors::Resolved& ThemeColors::dark() {
    const ChangePalette changes = changesOn(ColorScheme::dark, ChangeColors::greenUp);
    static const Resolved colors{
        .up = changes.up,
        .down = changes.down,
        .primaryText = QColor(232, 232, 234),
        .secondaryText = QColor(154, 154, 160),
        .tertiaryText = QColor(99, 99, 107),
        .separator = white(0.08),
        .rowAlternate = white(0.025),
        .rowHover = white(0.055),
        .accent = QColor(77, 141, 250),
        .warning = QColor(217, 131, 36),
        .surface = QColor(23, 23, 26),
        .danger = QColor(255, 92, 92),
    };
    return colors;
}

const ThemeColors::Resolved& ThemeColors::light() {
    const ChangePalette changes = changesOn(ColorScheme::light, ChangeColors::greenUp);
    static const Resolved colors{
        .up = changes.up,
        .down = changes.down,
        .primaryText = QColor(29, 29, 31),
        .secondaryText = QColor(134, 134, 139),
        .tertiaryText = QColor(154, 154, 160),
        .separator = black(0.08),
        .rowAlternate = black(0.018),
        .rowHover = black(0.04),
        .accent = QColor(47, 111, 208),
        .warning = QColor(185, 106, 16),
        .surface = QColor(252, 252, 253),
        .danger = QColor(207, 58, 58),
    };
    return colors;
}

const ThemeColors::Resolved& ThemeColors::of(ColorScheme scheme) {
    return scheme == ColorScheme::dark ? dark() : light();
}

ThemeColors::Resolved ThemeColors::of(ColorScheme scheme, ChangeColors changeColors) {
    Resolved colors = of(scheme);
    const ChangePalette changes = changesOn(scheme, changeColors);
    colors.up = changes.up;
    colors.down = changes.down;
    return colors;
}

ColorScheme resolvedScheme(AppearanceMode mode, ColorScheme system) {
    switch (mode) {
    case AppearanceMode::dark:
        return ColorScheme::dark;
    case AppearanceMode::light:
        return ColorScheme::light;
    case AppearanceMode::system:
        break;
    }
    return system;
}

namespace ThemeKey {

const Theme& value(const QWidget& view) {
    for (const QWidget* widget = &view; widget != nullptr; widget = widget->parentWidget()) {
        if (const ThemeHolder* const found = holder(*widget)) {
            return found->theme;
        }
    }
    return darkTheme();
}

void set(QWidget& root, const Theme& theme) {
    if (ThemeHolder* const found = holder(root)) {
        if (found->theme == theme) {
            return;
        }
        found->theme = theme;
    } else {
        auto made = std::make_unique<ThemeHolder>(root, theme);
        root.setProperty(kHolderProperty, QVariant::fromValue<QObject*>(made.get()));
        // The root owns it, as its child.
        static_cast<void>(made.release());
    }
    QEvent event(changeEvent());
    QCoreApplication::sendEvent(&root, &event);
    root.update();
    for (QWidget* const widget : root.findChildren<QWidget*>()) {
        QCoreApplication::sendEvent(widget, &event);
        widget->update();
    }
}

QEvent::Type changeEvent() {
    static const auto type = static_cast<QEvent::Type>(QEvent::registerEventType());
    return type;
}

}  // namespace ThemeKey

}  // namespace quillbar
