// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/panel/ErrorLine.h"

#include "Quillbar/labelstate/ConnectionName.h"
#include "Quillbar/platform/Translated.h"
#include "Quillbar/text/SystemFont.h"
#include "Quillbar/widgets/Announcement.h"
#include "Quillbar/widgets/TextScale.h"

#include <optional>

namespace quillbar {

namespace {

constexpr double kFontSize = 10.5;
constexpr int kHorizontalPadding = 12;
constexpr int kVerticalPadding = 4;

bool isOutsideRegion(const std::optional<ConnectionFailure>& failure) {
    return failure && failure->kind == ConnectionFailure::Kind::notServedHere;
}

}  // namespace

ErrorLine::ErrorLine(const AppState& state, QWidget* parent)
    : ThemedLabel(systemFont(kFontSize), &ThemeColors::Resolved::danger, parent)
    , m_state(state) {
    const auto changed = [this](const auto& /*value*/) { refresh(); };
    m_observations.push_back(state.lastError().observe(changed));
    m_observations.push_back(state.connectionFailure().observe(changed));
    m_observations.push_back(state.watchlist().observe(changed));
    Announcement::mark(*this);
    setWordWrap(true);
    TextScale::follow(*this, [this] {
        setContentsMargins(TextScale::margins(
            *this, {kHorizontalPadding, kVerticalPadding, kHorizontalPadding, kVerticalPadding}));
    });
    hide();
    refresh();
}

void ErrorLine::refresh() {
    QString line;
    if (const auto& error = *m_state.lastError()) {
        line = translatedFromCore(*error);
    } else if (isOutsideRegion(*m_state.connectionFailure())) {
        line = QString::fromStdString(displayName(**m_state.connectionFailure()));
    } else if (m_state.watchlist()->coins.size() > Watchlist::kMaximumFollowed) {
        constexpr int kUpdated = Watchlist::kMaximumFollowed;
        line = translated("panel", "自选列表过长，只更新前 %n 个币种", nullptr, kUpdated);
    }
    if (line == text()) {
        return;
    }
    // Hidden also between two texts, because screen readers read only what appears.
    hide();
    setText(line);
    setAccessibleName(line);
    setVisible(!line.isEmpty());
}

}  // namespace quillbar
