// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/panel/TextSizeSection.h"

#include "Quillbar/platform/Translated.h"
#include "Quillbar/widgets/ChoiceList.h"
#include "Quillbar/widgets/ChoiceValues.h"
#include "QuillbarCore/state/PreferencesState.h"
#include "QuillbarCore/state/TextSize.h"

#include <cstddef>

namespace quillbar {

namespace {

QString titleOf(TextSize size) {
    return QString::number(percentOf(size)) + u'%';
}

}  // namespace

TextSizeSection::TextSizeSection(PreferencesState& preferences, QWidget* parent)
    : PreferencesSection(translated("panel", "字号"), parent)
    , m_sizes(new ChoiceList(title(), titlesOf(kAllTextSizes, titleOf), this)) {
    m_sizes->onSelect = [&preferences](std::size_t index) {
        preferences.setTextSize(kAllTextSizes.at(index));
    };
    add(m_sizes);
    const auto show = [this](const Preferences& chosen) {
        m_sizes->setSelection(indexIn(kAllTextSizes, chosen.textSize));
    };
    m_observation = preferences.preferences().observe(show);
    show(*preferences.preferences());
}

}  // namespace quillbar
