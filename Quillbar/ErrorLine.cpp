// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/ErrorLine.h"

#include "Quillbar/text/SystemFont.h"
#include "Quillbar/Theme.h"

#include <QEvent>

namespace quillbar {

namespace {

constexpr double kFontSize = 10.5;
constexpr int kHorizontalPadding = 12;
constexpr int kVerticalPadding = 4;

}  // namespace

ErrorLine::ErrorLine(const AppState& state, QWidget* parent)
    : QLabel(parent)
    , m_observation(state.lastError().observe(
          [this](const std::optional<std::string>& error) { update(error); })) {
    setFont(systemFont(kFontSize));
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    setContentsMargins(kHorizontalPadding, kVerticalPadding, kHorizontalPadding, kVerticalPadding);
    setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    applyTheme();
    update(*state.lastError());
}

bool ErrorLine::event(QEvent* event) {
    if (event->type() == ThemeKey::changeEvent()) {
        applyTheme();
    }
    return QLabel::event(event);
}

void ErrorLine::update(const std::optional<std::string>& error) {
    const QString text = QString::fromStdString(error.value_or(std::string()));
    setText(text);
    setAccessibleName(text);
    setVisible(error.has_value());
}

void ErrorLine::applyTheme() {
    QPalette colors = palette();
    colors.setColor(QPalette::WindowText, ThemeKey::value(*this).colors.down);
    setPalette(colors);
}

}  // namespace quillbar
