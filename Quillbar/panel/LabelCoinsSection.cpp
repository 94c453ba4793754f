// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/panel/LabelCoinsSection.h"

#include "Quillbar/platform/Translated.h"
#include "Quillbar/widgets/ChoiceList.h"
#include "Quillbar/widgets/ChoiceValues.h"
#include "Quillbar/widgets/TextScale.h"
#include "QuillbarCore/state/LabelCoins.h"
#include "QuillbarCore/state/PreferencesState.h"

#include <QMargins>

#include <cstddef>

namespace quillbar {

namespace {

/// As far as the title of a choice stands from its mark.
constexpr int kSpanIndent = 21;

QString titleOf(LabelCoins coins) {
    switch (coins) {
    case LabelCoins::pinned:
        return translated("panel", "固定的币种");
    case LabelCoins::rotating:
        return translated("panel", "轮流显示自选");
    case LabelCoins::sideBySide:
        break;
    }
    return translated("panel", "并排显示");
}

QString spanTitle(int seconds) {
    return translated("panel", "每 %n 秒", nullptr, seconds);
}

}  // namespace

LabelCoinsSection::LabelCoinsSection(PreferencesState& preferences, QWidget* parent)
    : PreferencesSection(translated("panel", "状态栏的币种"), parent)
    , m_coins(new ChoiceList(title(), titlesOf(kAllLabelCoins, titleOf), this))
    , m_spans(new ChoiceList(translated("panel", "轮流显示的间隔"),
                             titlesOf(kAllRotationSeconds, spanTitle),
                             this)) {
    m_coins->onSelect = [&preferences](std::size_t index) {
        LabelPreferences label = preferences.preferences()->label;
        label.coins = kAllLabelCoins.at(index);
        preferences.setLabel(label);
    };
    m_spans->onSelect = [&preferences](std::size_t index) {
        LabelPreferences label = preferences.preferences()->label;
        label.rotationSeconds = kAllRotationSeconds.at(index);
        preferences.setLabel(label);
    };
    add(m_coins);
    // Under the title of the choice to which they belong.
    TextScale::followMargins(*m_spans, QMargins(kSpanIndent, 0, 0, 0));
    add(m_spans);
    m_observation = preferences.preferences().observe(
        [this](const Preferences& chosen) { showChoice(chosen); });
    showChoice(*preferences.preferences());
}

void LabelCoinsSection::showChoice(const Preferences& preferences) {
    const LabelPreferences& label = preferences.label;
    m_coins->setSelection(indexIn(kAllLabelCoins, label.coins));
    m_spans->setSelection(indexIn(kAllRotationSeconds, label.rotationSeconds));
    m_spans->setVisible(label.coins == LabelCoins::rotating);
}

}  // namespace quillbar
