// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/panel/PreferencesView.h"

#include "Quillbar/panel/ColorsSection.h"
#include "Quillbar/panel/TextSizeSection.h"
#include "Quillbar/platform/Translated.h"
#include "Quillbar/text/SystemFont.h"
#include "Quillbar/widgets/Announcement.h"
#include "Quillbar/widgets/ScrollColumn.h"
#include "Quillbar/widgets/TextScale.h"
#include "Quillbar/widgets/ThemedLabel.h"
#include "QuillbarCore/state/PreferencesState.h"

#include <QMargins>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace quillbar {

namespace {

/// With the padding of a row, its mark stands 12 points from the panel's edge, as all texts do.
constexpr QMargins kMargins(4, 0, 4, 12);
constexpr int kSpacing = 4;
constexpr int kSectionSpacing = 12;
constexpr double kErrorFontSize = 10.5;

}  // namespace

QString PreferencesView::title() {
    return translated("panel", "偏好设置");
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
    m_sections->add(m_first);
    m_sections->add(new TextSizeSection(preferences, this));
    stack->addWidget(m_sections);
    m_error->setWordWrap(true);
    Announcement::mark(*m_error);
    stack->addWidget(m_error);
    stack->addStretch();
    TextScale::follow(*this, [this, stack] {
        stack->setContentsMargins(TextScale::margins(*this, kMargins));
        stack->setSpacing(TextScale::length(*this, kSpacing));
        m_error->setContentsMargins(TextScale::margins(
            *this, {PreferencesSection::kTextIndent, 0, PreferencesSection::kTextIndent, 0}));
    });
    m_errorObservation =
        preferences.isUnsaved().observe([this](bool /*isUnsaved*/) { refreshError(); });
    refreshError();
}

void PreferencesView::add(PreferencesSection* section) {
    m_sections->add(section);
}

int PreferencesView::heightFor(int width) const {
    const QMargins margins = TextScale::margins(*this, kMargins);
    const int inside = width - margins.left() - margins.right();
    int height = m_sections->heightFor(inside) + margins.bottom();
    if (!m_error->isHidden()) {
        height += TextScale::length(*this, kSpacing) + m_error->heightForWidth(inside);
    }
    return std::min(height, TextScale::length(*this, kMaxHeight));
}

void PreferencesView::takeFocus(Qt::FocusReason reason) {
    m_sections->scrollToTop();
    m_first->takeFocus(reason);
}

void PreferencesView::refreshError() {
    const QString line =
        *m_preferences.isUnsaved() ? translated("panel", "偏好设置未能保存到磁盘") : QString();
    if (line != m_error->text()) {
        m_error->setText(line);
        m_error->setAccessibleName(line);
    }
    m_error->setVisible(!line.isEmpty());
}

}  // namespace quillbar
