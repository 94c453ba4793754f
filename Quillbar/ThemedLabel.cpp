// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/ThemedLabel.h"

#include "Quillbar/Theme.h"

#include <QEvent>
#include <QPalette>

namespace quillbar {

ThemedLabel::ThemedLabel(const QFont& font, ColorRole role, QWidget* parent)
    : QLabel(parent)
    , m_role(role) {
    setFont(font);
    setTextFormat(Qt::PlainText);
    applyTheme();
}

bool ThemedLabel::event(QEvent* event) {
    // What it stands in may have been put under a theme after it was made, and nobody says so.
    if (event->type() == ThemeKey::changeEvent() || event->type() == QEvent::Show) {
        applyTheme();
    }
    return QLabel::event(event);
}

void ThemedLabel::applyTheme() {
    QPalette colors = palette();
    colors.setColor(QPalette::WindowText, ThemeKey::value(*this).colors.*m_role);
    setPalette(colors);
}

}  // namespace quillbar
