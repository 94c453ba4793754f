// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/text/SystemFont.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetricsF>
#include <QGlyphRun>
#include <QGuiApplication>
#include <QRawFont>
#include <QString>
#include <QTextLayout>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace quillbar {

namespace {

using ::testing::AnyOf;
using ::testing::Each;
using ::testing::EndsWith;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

/// The families whose shapes draw the text, piece by piece.
std::vector<std::string> familiesOf(const QString& text, const QFont& font) {
    QTextLayout layout(text, font);
    layout.beginLayout();
    static_cast<void>(layout.createLine());
    layout.endLayout();
    std::vector<std::string> families;
    for (const QGlyphRun& run : layout.glyphRuns()) {
        families.push_back(run.rawFont().familyName().toStdString());
    }
    return families;
}

/// The family of the same design whose Chinese shapes are those of mainland China.
std::string inMainlandShapes(const std::string& family) {
    return family.find(" CJK ") == std::string::npos ? family
                                                     : family.substr(0, family.rfind(' ')) + " SC";
}

std::string familyOf(const QFont& font) {
    return QFontInfo(font).family().toStdString();
}

constexpr auto kWeights = {QFont::Normal, QFont::Medium, QFont::DemiBold};

TEST(SystemFontTest, drawsChineseAsItIsWrittenInMainlandChina) {
    for (const QFont::Weight weight : kWeights) {
        const auto families = familiesOf(QStringLiteral("直骨涨跌"), systemFont(13, weight));
        EXPECT_THAT(families, Not(IsEmpty()));
        EXPECT_THAT(families,
                    Each(AnyOf(EndsWith(" SC"), EndsWith(" CN"), StartsWith("WenQuanYi "))));
    }
}

TEST(SystemFontTest, drawsChineseLettersAndDigitsInOneFamily) {
    const QString text = QStringLiteral("24 小时 0123456789.,%+-BTC/USDT");
    for (const QFont::Weight weight : kWeights) {
        const std::string family = familyOf(systemFont(10.5, weight));
        EXPECT_THAT(family, AnyOf(EndsWith(" SC"), EndsWith(" CN"), StartsWith("WenQuanYi ")));
        EXPECT_THAT(familiesOf(text, systemFont(10.5, weight)), Each(family));
    }
}

TEST(SystemFontTest, isTheSameWhateverLatinFontTheDesktopHas) {
    const QFont before = QGuiApplication::font();
    const std::string family = familyOf(systemFont(13));
    for (const char* const latin : {"DejaVu Sans", "DejaVu Sans Mono", "Sans Serif"}) {
        QGuiApplication::setFont(QFont(QString::fromLatin1(latin)));
        EXPECT_EQ(familyOf(systemFont(13)), family) << latin;
    }
    QGuiApplication::setFont(before);
}

TEST(SystemFontTest, keepsADesktopsFontThatWritesChinese) {
    const QFont before = QGuiApplication::font();
    for (const QString& each : QFontDatabase::families(QFontDatabase::SimplifiedChinese)) {
        const std::string real = QFontInfo(QFont(each)).family().toStdString();
        QGuiApplication::setFont(QFont(each));
        EXPECT_EQ(familyOf(systemFont(13)), inMainlandShapes(real)) << each.toStdString();
    }
    QGuiApplication::setFont(before);
}

TEST(SystemFontTest, leavesTheDesktopsFontForWhatNoChineseFamilyHas) {
    const QStringList families =
        withChineseFamilies(QFont(QStringLiteral("DejaVu Sans"))).families();
    EXPECT_EQ(families.back(), QStringLiteral("DejaVu Sans"));
    EXPECT_GT(families.size(), 1);
}

TEST(SystemFontTest, drawsAFontOfAnotherRegionInItsMainlandShapes) {
    const QString characters = QStringLiteral("直骨涨跌 0123456789.,%+-BTC/USDT");
    for (const char* const region : {"JP", "KR", "TC", "HK"}) {
        const QFont font(QStringLiteral("Noto Sans CJK ") + QString::fromLatin1(region));
        const QFont mainland = withChineseFamilies(font);
        EXPECT_THAT(familiesOf(characters, mainland), Each("Noto Sans CJK SC")) << region;
        for (const QChar character : characters) {
            EXPECT_EQ(QFontMetricsF(mainland).horizontalAdvance(character),
                      QFontMetricsF(font).horizontalAdvance(character));
        }
    }
}

TEST(SystemFontTest, namesNoFamilyTwice) {
    QFont font = withChineseFamilies(QGuiApplication::font());
    QStringList families = font.families();
    EXPECT_EQ(families.removeDuplicates(), 0);
    EXPECT_EQ(withChineseFamilies(font).families(), font.families());
    font.setFamilies({QStringLiteral("Noto Sans CJK SC")});
    families = withChineseFamilies(font).families();
    EXPECT_EQ(families.removeDuplicates(), 0);
}

}  // namespace

}  // namespace quillbar
