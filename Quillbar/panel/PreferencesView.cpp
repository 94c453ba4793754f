// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/panel/PreferencesView.h"

#include "Quillbar/text/SystemFont.h"
#include "Quillbar/text/TabularText.h"
#include "Quillbar/widgets/Announcement.h"
#include "Quillbar/widgets/ChoiceList.h"
#include "Quillbar/widgets/ThemedLabel.h"
#include "QuillbarCore/state/ChangeColors.h"
#include "QuillbarCore/state/PreferencesState.h"

#include <QPainter>
#include <QRectF>
#include <QVBoxLayout>

#include <algorithm>
#include <cstddef>
#include <utility>

namespace quillbar {

namespace {

/// With the padding of a row, its mark stands 12 points from the panel's edge, as all texts do.
constexpr int kHorizontalMargin = 4;
constexpr int kTextIndent = 8;
constexpr int kBottomMargin = 12;
constexpr int kSpacing = 4;
constexpr double kSectionFontSize = 10.5;
constexpr double kSampleFontSize = 12;
constexpr double kSampleGap = 12;

std::size_t indexOf(ChangeColors colors) {
    const auto* const found = std::find(kAllChangeColors.begin(), kAllChangeColors.end(), colors);
    return static_cast<std::size_t>(found - kAllChangeColors.begin());
}

// A rise and a fall, as a row of the list writes them.
void drawChanges(QPainter& painter, QRectF rectangle, const ThemeColors::Resolved& colors) {
    const QFont font = systemFont(kSampleFontSize);
    const auto drawAtEnd = [&](const QString& text, const QColor& color) {
        painter.setPen(color);
        TabularText::draw(painter, rectangle, Qt::AlignRight | Qt::AlignVCenter, text, font);
        rectangle.setRight(rectangle.right() - TabularText::width(text, font) - kSampleGap);
    };
    drawAtEnd(QStringLiteral("▼ 1.23%"), colors.down);
    drawAtEnd(QStringLiteral("▲ 1.23%"), colors.up);
}

}  // namespace

QString PreferencesView::title() {
    return QStringLiteral("偏好设置");
}

PreferencesView::PreferencesView(PreferencesState& preferences,
                                 std::function<ColorScheme()> scheme,
                                 QWidget* parent)
    : QWidget(parent)
    , m_preferences(preferences)
    , m_scheme(std::move(scheme))
    , m_error(new ThemedLabel(systemFont(kSectionFontSize), &ThemeColors::Resolved::danger, this)) {
    setAccessibleName(title());
    auto* const stack = new QVBoxLayout(this);
    stack->setContentsMargins(kHorizontalMargin, 0, kHorizontalMargin, kBottomMargin);
    stack->setSpacing(kSpacing);
    buildColors(*stack);
    m_error->setWordWrap(true);
    m_error->setContentsMargins(kTextIndent, 0, kTextIndent, 0);
    Announcement::mark(*m_error);
    stack->addWidget(m_error);
    stack->addStretch();
    const auto changed = [this](const auto& /*value*/) { refresh(); };
    m_observations.push_back(preferences.preferences().observe(changed));
    m_observations.push_back(preferences.lastError().observe(changed));
    refresh();
}

void PreferencesView::takeFocus(Qt::FocusReason reason) {
    m_colors->focusSelection(reason);
}

void PreferencesView::buildColors(QVBoxLayout& stack) {
    auto* const section = new ThemedLabel(
        systemFont(kSectionFontSize, QFont::DemiBold), &ThemeColors::Resolved::secondaryText, this);
    section->setText(QStringLiteral("颜色"));
    section->setContentsMargins(kTextIndent, 0, kTextIndent, 0);
    stack.addWidget(section);
    std::vector<QString> titles;
    titles.reserve(kAllChangeColors.size());
    for (const ChangeColors colors : kAllChangeColors) {
        const std::string_view name = displayName(colors);
        titles.push_back(QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size())));
    }
    m_colors = new ChoiceList(section->text(), titles, this);
    m_colors->onSelect = [this](std::size_t index) {
        m_preferences.setChangeColors(kAllChangeColors.at(index));
    };
    m_colors->drawSample = [this](QPainter& painter, const QRectF& rectangle, std::size_t index) {
        drawChanges(painter, rectangle, ThemeColors::of(m_scheme(), kAllChangeColors.at(index)));
    };
    stack.addWidget(m_colors);
}

void PreferencesView::refresh() {
    m_colors->setSelection(indexOf(m_preferences.preferences()->changeColors));
    const auto& error = *m_preferences.lastError();
    const QString line = error ? QString::fromStdString(*error) : QString();
    if (line != m_error->text()) {
        m_error->setText(line);
        m_error->setAccessibleName(line);
    }
    m_error->setVisible(!line.isEmpty());
}

}  // namespace quillbar
