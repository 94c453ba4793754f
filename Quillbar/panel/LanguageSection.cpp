// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/panel/LanguageSection.h"

#include "Quillbar/platform/Translated.h"
#include "Quillbar/widgets/ChoiceList.h"
#include "Quillbar/widgets/ChoiceValues.h"
#include "QuillbarCore/state/Language.h"
#include "QuillbarCore/state/PreferencesState.h"

#include <cstddef>

namespace quillbar {

namespace {

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

}  // namespace

LanguageSection::LanguageSection(PreferencesState& preferences, QWidget* parent)
    : PreferencesSection(translated("panel", "语言"), parent)
    , m_languages(new ChoiceList(title(), titlesOf(kAllLanguages, titleOf), this)) {
    m_languages->onSelect = [&preferences](std::size_t index) {
        preferences.setLanguage(kAllLanguages.at(index));
    };
    add(m_languages);
    const auto show = [this](const Preferences& chosen) {
        m_languages->setSelection(indexIn(kAllLanguages, chosen.language));
    };
    m_observation = preferences.preferences().observe(show);
    show(*preferences.preferences());
}

void LanguageSection::takeFocus(Qt::FocusReason reason) {
    m_languages->focusSelection(reason);
}

}  // namespace quillbar
