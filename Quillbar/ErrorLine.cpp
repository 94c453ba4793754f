// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/ErrorLine.h"

#include "Quillbar/text/SystemFont.h"

namespace quillbar {

namespace {

constexpr double kFontSize = 10.5;
constexpr int kHorizontalPadding = 12;
constexpr int kVerticalPadding = 4;

}  // namespace

ErrorLine::ErrorLine(const AppState& state, QWidget* parent)
    : ThemedLabel(systemFont(kFontSize), &ThemeColors::Resolved::down, parent)
    , m_state(state) {
    const auto changed = [this](const auto& /*value*/) { refresh(); };
    m_observations.push_back(state.lastError().observe(changed));
    m_observations.push_back(state.watchlist().observe(changed));
    setWordWrap(true);
    setContentsMargins(kHorizontalPadding, kVerticalPadding, kHorizontalPadding, kVerticalPadding);
    setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    refresh();
}

void ErrorLine::refresh() {
    QString line;
    if (const auto& error = *m_state.lastError()) {
        line = QString::fromStdString(*error);
    } else if (m_state.watchlist()->coins.size() > AppState::kMaximumFollowed) {
        line = QStringLiteral("自选列表过长,只更新前 %1 个币种").arg(AppState::kMaximumFollowed);
    }
    setText(line);
    setAccessibleName(line);
    setVisible(!line.isEmpty());
}

}  // namespace quillbar
