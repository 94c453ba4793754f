// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/panel/ColorsSection.h"

#include "Quillbar/platform/Translated.h"
#include "Quillbar/text/SystemFont.h"
#include "Quillbar/text/TabularText.h"
#include "Quillbar/widgets/ChoiceList.h"
#include "Quillbar/widgets/ChoiceValues.h"
#include "QuillbarCore/state/ChangeColors.h"
#include "QuillbarCore/state/PreferencesState.h"

#include <QPainter>
#include <QRectF>

#include <cstddef>
#include <utility>

namespace quillbar {

namespace {

constexpr double kSampleFontSize = 12;
constexpr double kSampleGap = 12;

QString titleOf(ChangeColors colors) {
    switch (colors) {
    case ChangeColors::greenUp:
        return translated("panel", "绿涨红跌");
    case ChangeColors::redUp:
        return translated("panel", "红涨绿跌");
    case ChangeColors::blueUp:
        break;
    }
    return translated("panel", "蓝涨橙跌");
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

ColorsSection::ColorsSection(PreferencesState& preferences,
                             std::function<ColorScheme()> scheme,
                             QWidget* parent)
    : PreferencesSection(translated("panel", "颜色"), parent)
    , m_colors(new ChoiceList(title(), titlesOf(kAllChangeColors, titleOf), this)) {
    m_colors->onSelect = [&preferences](std::size_t index) {
        preferences.setChangeColors(kAllChangeColors.at(index));
    };
    m_colors->drawSample = [scheme = std::move(scheme)](
                               QPainter& painter, const QRectF& rectangle, std::size_t index) {
        drawChanges(painter, rectangle, ThemeColors::of(scheme(), kAllChangeColors.at(index)));
    };
    add(m_colors);
    const auto show = [this](const Preferences& chosen) {
        m_colors->setSelection(indexIn(kAllChangeColors, chosen.changeColors));
    };
    m_observation = preferences.preferences().observe(show);
    show(*preferences.preferences());
}

void ColorsSection::takeFocus(Qt::FocusReason reason) {
    m_colors->focusSelection(reason);
}

}  // namespace quillbar
