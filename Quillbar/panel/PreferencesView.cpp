// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/panel/PreferencesView.h"

#include "Quillbar/panel/ColorsSection.h"
#include "Quillbar/text/SystemFont.h"
#include "Quillbar/widgets/Announcement.h"
#include "Quillbar/widgets/ScrollColumn.h"
#include "Quillbar/widgets/ThemedLabel.h"
#include "QuillbarCore/state/PreferencesState.h"

#include <QVBoxLayout>

#include <algorithm>
#include <optional>
#include <string>
#include <utility>

namespace quillbar {

namespace {

/// With the padding of a row, its mark stands 12 points from the panel's edge, as all texts do.
constexpr int kHorizontalMargin = 4;
constexpr int kBottomMargin = 12;
constexpr int kSpacing = 4;
constexpr int kSectionSpacing = 12;
constexpr double kErrorFontSize = 10.5;

}  // namespace

QString PreferencesView::title() {
    return QStringLiteral("偏好设置");
}

PreferencesView::PreferencesView(PreferencesState& preferences,
                                 std::function<ColorScheme()> scheme,
                                 QWidget* parent)
    : QWidget(parent)
    , m_preferences(preferences)
    , m_sections(new ScrollColumn(kSectionSpacing, this))
    , m_first(new ColorsSection(preferences, std::move(scheme), this))
    , m_error(new ThemedLabel(systemFont(kErrorFontSize), &ThemeColors::Resolved::danger, this)) {
    setAccessibleName(title());
    auto* const stack = new QVBoxLayout(this);
    stack->setContentsMargins(kHorizontalMargin, 0, kHorizontalMargin, kBottomMargin);
    stack->setSpacing(kSpacing);
    m_sections->add(m_first);
    stack->addWidget(m_sections);
    m_error->setWordWrap(true);
    m_error->setContentsMargins(
        PreferencesSection::kTextIndent, 0, PreferencesSection::kTextIndent, 0);
    Announcement::mark(*m_error);
    stack->addWidget(m_error);
    stack->addStretch();
    m_errorObservation = preferences.lastError().observe(
        [this](const std::optional<std::string>& /*error*/) { refreshError(); });
    refreshError();
}

void PreferencesView::add(PreferencesSection* section) {
    m_sections->add(section);
}

int PreferencesView::heightFor(int width) const {
    const int inside = width - 2 * kHorizontalMargin;
    int height = m_sections->heightFor(inside) + kBottomMargin;
    if (!m_error->isHidden()) {
        height += kSpacing + m_error->heightForWidth(inside);
    }
    return std::min(height, kMaxHeight);
}

void PreferencesView::takeFocus(Qt::FocusReason reason) {
    m_first->takeFocus(reason);
}

void PreferencesView::refreshError() {
    const auto& error = *m_preferences.lastError();
    const QString line = error ? QString::fromStdString(*error) : QString();
    if (line != m_error->text()) {
        m_error->setText(line);
        m_error->setAccessibleName(line);
    }
    m_error->setVisible(!line.isEmpty());
}

}  // namespace quillbar
