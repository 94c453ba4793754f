// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/panel/TextSizeSection.h"

#include "Quillbar/platform/Translated.h"
#include "Quillbar/widgets/ChoiceList.h"
#include "QuillbarCore/state/PreferencesState.h"
#include "QuillbarCore/state/TextSize.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace quillbar {

namespace {

std::size_t indexOf(TextSize size) {
    const auto* const found = std::find(kAllTextSizes.begin(), kAllTextSizes.end(), size);
    return static_cast<std::size_t>(found - kAllTextSizes.begin());
}

std::vector<QString> titles() {
    std::vector<QString> result;
    result.reserve(kAllTextSizes.size());
    for (const TextSize size : kAllTextSizes) {
        result.push_back(QString::number(percentOf(size)) + u'%');
    }
    return result;
}

}  // namespace

TextSizeSection::TextSizeSection(PreferencesState& preferences, QWidget* parent)
    : PreferencesSection(translated("panel", "字号"), parent)
    , m_sizes(new ChoiceList(title(), titles(), this)) {
    m_sizes->onSelect = [&preferences](std::size_t index) {
        preferences.setTextSize(kAllTextSizes.at(index));
    };
    add(m_sizes);
    const auto show = [this](const Preferences& chosen) {
        m_sizes->setSelection(indexOf(chosen.textSize));
    };
    m_observation = preferences.preferences().observe(show);
    show(*preferences.preferences());
}

}  // namespace quillbar
