// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/widgets/ThemedLabel.h"

#include "Quillbar/widgets/TextScale.h"
#include "Quillbar/widgets/Theme.h"

#include <QEvent>
#include <QPalette>

namespace quillbar {

ThemedLabel::ThemedLabel(const QFont& font, ColorRole role, QWidget* parent)
    : QLabel(parent)
    , m_role(role) {
    setTextFormat(Qt::PlainText);
    TextScale::follow(*this, [this, font] { setFont(TextScale::font(*this, font)); });
    applyTheme();
}

void ThemedLabel::setRole(ColorRole role) {
    m_role = role;
    applyTheme();
}

bool ThemedLabel::event(QEvent* event) {
    // A parent may have got the label after its theme was set. There is no event for that.
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
