// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/panel/LanguageSection.h"

#include "Quillbar/platform/Translated.h"
#include "Quillbar/widgets/ChoiceList.h"
#include "QuillbarCore/state/Language.h"
#include "QuillbarCore/state/PreferencesState.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace quillbar {

namespace {

std::size_t indexOf(Language language) {
    const auto* const found = std::find(kAllLanguages.begin(), kAllLanguages.end(), language);
    return static_cast<std::size_t>(found - kAllLanguages.begin());
}

QString titleOf(Language language) {
    switch (language) {
    case Language::chinese:
        return translated("panel", "简体中文");
    case Language::english:
        return QStringLiteral("English");
    case Language::desktop:
        break;
    }
    return translated("panel", "跟随系统");
}

std::vector<QString> titles() {
    std::vector<QString> result;
    result.reserve(kAllLanguages.size());
    for (const Language language : kAllLanguages) {
        result.push_back(titleOf(language));
    }
    return result;
}

}  // namespace

LanguageSection::LanguageSection(PreferencesState& preferences, QWidget* parent)
    : PreferencesSection(translated("panel", "语言"), parent)
    , m_languages(new ChoiceList(title(), titles(), this)) {
    m_languages->onSelect = [&preferences](std::size_t index) {
        preferences.setLanguage(kAllLanguages.at(index));
    };
    add(m_languages);
    const auto show = [this](const Preferences& chosen) {
        m_languages->setSelection(indexOf(chosen.language));
    };
    m_observation = preferences.preferences().observe(show);
    show(*preferences.preferences());
}

void LanguageSection::takeFocus(Qt::FocusReason reason) {
    m_languages->focusSelection(reason);
}

}  // namespace quillbar
