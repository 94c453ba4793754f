// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/panel/LabelCoinsSection.h"

#include "Quillbar/platform/Translated.h"
#include "Quillbar/widgets/ChoiceList.h"
#include "QuillbarCore/state/LabelCoins.h"
#include "QuillbarCore/state/PreferencesState.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace quillbar {

namespace {

/// As far as the title of a choice stands from its mark.
constexpr int kSpanIndent = 21;

template <class Values>
std::size_t indexOf(const Values& values, typename Values::value_type value) {
    return static_cast<std::size_t>(std::find(values.begin(), values.end(), value)
                                    - values.begin());
}

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

std::vector<QString> coinsTitles() {
    std::vector<QString> titles;
    titles.reserve(kAllLabelCoins.size());
    for (const LabelCoins coins : kAllLabelCoins) {
        titles.push_back(titleOf(coins));
    }
    return titles;
}

std::vector<QString> spanTitles() {
    std::vector<QString> titles;
    titles.reserve(kAllRotationSeconds.size());
    for (const int seconds : kAllRotationSeconds) {
        titles.push_back(translated("panel", "每 %n 秒", nullptr, seconds));
    }
    return titles;
}

}  // namespace

LabelCoinsSection::LabelCoinsSection(PreferencesState& preferences, QWidget* parent)
    : PreferencesSection(translated("panel", "状态栏的币种"), parent)
    , m_coins(new ChoiceList(title(), coinsTitles(), this))
    , m_spans(new ChoiceList(translated("panel", "轮流显示的间隔"), spanTitles(), this)) {
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
    m_spans->setContentsMargins(kSpanIndent, 0, 0, 0);
    add(m_spans);
    m_observation = preferences.preferences().observe(
        [this](const Preferences& chosen) { showChoice(chosen); });
    showChoice(*preferences.preferences());
}

void LabelCoinsSection::showChoice(const Preferences& preferences) {
    const LabelPreferences& label = preferences.label;
    m_coins->setSelection(indexOf(kAllLabelCoins, label.coins));
    m_spans->setSelection(indexOf(kAllRotationSeconds, label.rotationSeconds));
    m_spans->setVisible(label.coins == LabelCoins::rotating);
}

}  // namespace quillbar
