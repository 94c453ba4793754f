// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/text/OneLineText.h"

#include <QChar>
#include <QString>

#include <gtest/gtest.h>

#include <unicode/uchar.h>

namespace quillbar {

namespace {

TEST(OneLineTextTest, leavesWhatIsOneLineAlone) {
    EXPECT_EQ(OneLineText::of("1000SATS 币 🚀"), QStringLiteral("1000SATS 币 🚀"));
    EXPECT_EQ(OneLineText::of(""), QString());
}

TEST(OneLineTextTest, hasASpaceForEachControlAndEndOfALine) {
    EXPECT_EQ(OneLineText::of("A\nB\tC\rD\x7f"), QStringLiteral("A B C D "));
    EXPECT_EQ(OneLineText::of("A\u2028B\u2029C\u0085D"), QStringLiteral("A B C D"));
}

TEST(OneLineTextTest, dropsWhatSaysHowToWriteOthers) {
    EXPECT_EQ(OneLineText::of("\u202eCTB\u202c"), QStringLiteral("CTB"));
    EXPECT_EQ(OneLineText::of("\u2066B\u200eT\u200bC\u2069\U000e0041"), QStringLiteral("BTC"));
}

// What Qt's own table of characters makes of one.
QString judged(char32_t character) {
    switch (QChar::category(character)) {
    case QChar::Other_Format:
        return {};
    case QChar::Other_Control:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return QStringLiteral(" ");
    default:
        return QString::fromUcs4(&character, 1);
    }
}

// ICU, which the text passes, and Qt each have a table, of a version of Unicode of its own: what
// only the newer one has assigned has no kind that both know.
bool isInBothTables(char32_t character) {
    return !QChar::isSurrogate(character) && QChar::category(character) != QChar::Other_NotAssigned
           && u_charType(static_cast<UChar32>(character)) != U_UNASSIGNED;
}

TEST(OneLineTextTest, followsTheKindOfEveryCharacter) {
    constexpr char32_t kBlock = 256;
    for (char32_t block = 0; block <= QChar::LastValidCodePoint; block += kBlock) {
        QString text;
        QString expected;
        for (char32_t character = block; character < block + kBlock; ++character) {
            if (isInBothTables(character)) {
                text += QString::fromUcs4(&character, 1);
                expected += judged(character);
            }
        }
        EXPECT_EQ(OneLineText::of(text.toStdString()), expected) << static_cast<unsigned>(block);
    }
}

TEST(OneLineTextTest, takesBytesThatAreNoText) {
    EXPECT_EQ(OneLineText::of("A\xff"), QStringLiteral("A\ufffd"));
}

}  // namespace

}  // namespace quillbar
