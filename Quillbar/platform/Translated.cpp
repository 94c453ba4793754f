// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/platform/Translated.h"

#include "Quillbar/platform/TextLanguage.h"

#include <QTranslator>

#include <string>

namespace quillbar {

namespace {

/// For a text without a number.
constexpr int kNoCount = -1;

QString found(const char* context, const char* chinese, const char* note, int count) {
    QString text;
    if (const QTranslator* const translation = TextLanguages::translation()) {
        text = translation->translate(context, chinese, note, count);
    }
    return text.isEmpty() ? QString::fromUtf8(chinese) : text;
}

}  // namespace

QString translated(const char* context, const char* chinese) {
    return found(context, chinese, nullptr, kNoCount);
}

QString translated(const char* context, const char* chinese, const char* note, int count) {
    return found(context, chinese, note, count)
        .replace(QStringLiteral("%n"), QString::number(count));
}

QString translatedFromCore(std::string_view chinese) {
    return translated("core", std::string(chinese).c_str());
}

}  // namespace quillbar
