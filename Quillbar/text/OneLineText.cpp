// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/text/OneLineText.h"

#include <QChar>

namespace quillbar::OneLineText {

QString of(std::string_view text) {
    const QString all = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
    QString line;
    line.reserve(all.size());
    // Some of the invisible characters take two units.
    for (const char32_t character : all.toStdU32String()) {
        switch (QChar::category(character)) {
        case QChar::Other_Format:
            break;
        case QChar::Other_Control:
        case QChar::Separator_Line:
        case QChar::Separator_Paragraph:
            line += u' ';
            break;
        default:
            line += QChar::fromUcs4(character);
            break;
        }
    }
    return line;
}

}  // namespace quillbar::OneLineText
