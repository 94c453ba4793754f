// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/widgets/SystemColorScheme.h"

#include <QEvent>
#include <QGuiApplication>
#include <QPalette>

namespace quillbar {

namespace {

ColorScheme schemeOfPalette() {
    const QPalette palette = QGuiApplication::palette();
    return palette.color(QPalette::Window).lightness()
                   < palette.color(QPalette::WindowText).lightness()
               ? ColorScheme::dark
               : ColorScheme::light;
}

}  // namespace

SystemColorScheme::SystemColorScheme(const std::optional<QDBusConnection>& bus)
    : m_scheme(schemeOfPalette()) {
    qGuiApp->installEventFilter(this);
    if (bus) {
        m_shade.emplace(*bus, [this](ShadePreference preference) {
            m_preference = preference;
            refresh();
        });
    }
}

bool SystemColorScheme::eventFilter(QObject* watched, QEvent* event) {
    if (watched == qGuiApp && event->type() == QEvent::ApplicationPaletteChange) {
        refresh();
    }
    return QObject::eventFilter(watched, event);
}

void SystemColorScheme::refresh() {
    switch (m_preference) {
    case ShadePreference::dark:
        m_scheme.set(ColorScheme::dark);
        break;
    case ShadePreference::light:
        m_scheme.set(ColorScheme::light);
        break;
    case ShadePreference::unknown:
        m_scheme.set(schemeOfPalette());
        break;
    }
}

}  // namespace quillbar
