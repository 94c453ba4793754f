// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/platform/TextLanguage.h"

#include "QuillbarCore/model/ProgrammingError.h"
#include "QuillbarCore/state/AppDirectories.h"
#include "QuillbarCore/state/DocumentFile.h"
#include "QuillbarCore/state/PreferencesStore.h"

#include <QLocale>
#include <QTranslator>

#include <exception>
#include <memory>

// The linker leaves the resource of a static library out unless something names it. The macro works
// outside of namespaces alone.
static void keepTranslations() {
    Q_INIT_RESOURCE(translations);
}

namespace quillbar::TextLanguages {

namespace {

std::unique_ptr<QTranslator> loadedEnglish() {
    keepTranslations();
    auto translator = std::make_unique<QTranslator>();
    if (!translator->load(QStringLiteral(":/translations/quillbar_en.qm"))) {
        programmingError("the program was built without its English texts");
    }
    return translator;
}

std::unique_ptr<QTranslator>& current() {
    static std::unique_ptr<QTranslator> translator;
    return translator;
}

}  // namespace

TextLanguage chosen(Language choice, const QStringList& desktopLanguages) {
    switch (choice) {
    case Language::chinese:
        return TextLanguage::chinese;
    case Language::english:
        return TextLanguage::english;
    case Language::desktop:
        break;
    }
    for (const QString& name : desktopLanguages) {
        const QLocale::Language language = QLocale(name).language();
        if (language == QLocale::Chinese) {
            return TextLanguage::chinese;
        }
        if (language == QLocale::English) {
            return TextLanguage::english;
        }
    }
    return TextLanguage::english;
}

TextLanguage chosen(Language choice) {
    return chosen(choice,
                  choice == Language::desktop ? QLocale::system().uiLanguages() : QStringList());
}

Language storedIn(const std::filesystem::path& folder) {
    try {
        const DocumentFile file(folder / PreferencesDocument::kFileName);
        const Preferences preferences = PreferencesDocument::decode(file.read());
        return preferences.schemaVersion == Preferences::kCurrentSchemaVersion
                   ? preferences.language
                   : Language::chinese;
    } catch (const std::exception& /*error*/) {
        return Language::chinese;
    }
}

void use(TextLanguage language) {
    if (language != inUse()) {
        current() = language == TextLanguage::english ? loadedEnglish() : nullptr;
    }
}

void useStored() {
    if (const auto folder = AppDirectories::applicationSupportIfAny()) {
        use(chosen(storedIn(*folder)));
    }
}

TextLanguage inUse() {
    return current() ? TextLanguage::english : TextLanguage::chinese;
}

const QTranslator* translation() {
    return current().get();
}

}  // namespace quillbar::TextLanguages
