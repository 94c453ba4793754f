// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/state/Language.h"

#include <QStringList>

#include <filesystem>

class QTranslator;

namespace quillbar {

/// The languages that texts for users exist in.
enum class TextLanguage {
    /// The language of the sources.
    chinese,
    english,
};

/// The language in which `translated` answers. It belongs to the process, as the texts do: they are
/// also needed before there is an application object, for `--help`. For the main thread.
namespace TextLanguages {

/// What a choice means where the desktop prefers these languages, the most wanted first, as in
/// "zh-Hans-CN" or "en-US". Of the desktop's languages the first counts that is Chinese or English;
/// without any it is English, which more people read. Pure.
[[nodiscard]] TextLanguage chosen(Language choice, const QStringList& desktopLanguages);

/// The same on this desktop, whose languages are asked for only where they matter.
[[nodiscard]] TextLanguage chosen(Language choice);

/// The choice that the preferences in this folder hold; Chinese where they hold none or cannot be
/// read. Logs nothing, because `PreferencesState` does. Reads one small file, which blocks.
[[nodiscard]] Language storedIn(const std::filesystem::path& folder);

/// Makes `translated` answer in that language from now on. The first use of another language than
/// Chinese loads its translation, which Chinese unloads again. Texts that were asked for before
/// stay as they are, so whoever shows them asks again.
void use(TextLanguage language);

/// Uses the language that is stored for this user, for texts before there are preferences. Reads
/// one small file, which blocks.
void useStored();

/// The language in use, at first Chinese.
[[nodiscard]] TextLanguage inUse();

/// The translation in use, for `translated` alone; null for Chinese. Valid until the next `use`.
[[nodiscard]] const QTranslator* translation();

}  // namespace TextLanguages

}  // namespace quillbar
