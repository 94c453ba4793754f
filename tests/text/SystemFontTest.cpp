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

#include <algorithm>
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

/// An installed family that looks unlike another.
QString otherFamilyThan(const QString& family) {
    for (const QString& each : QFontDatabase::families()) {
        QString real = QFontInfo(QFont(each)).family();
        if (inMainlandShapes(real.toStdString()) != inMainlandShapes(family.toStdString())) {
            return real;
        }
    }
    return {};
}

/// The desktop's font itself, as large as `systemFont` makes it.
QFont plainFont(const QFont& like) {
    QFont font = QGuiApplication::font();
    font.setPointSizeF(like.pointSizeF());
    font.setWeight(like.weight());
    return font;
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

TEST(SystemFontTest, drawsLettersAndDigitsInTheDesktopsFont) {
    const QString text = QStringLiteral("0123456789.,%+-BTC/USDT");
    for (const QFont::Weight weight : kWeights) {
        const QFont font = systemFont(10.5, weight);
        const QFont plain = plainFont(font);
        std::vector<std::string> families = familiesOf(text, plain);
        std::ranges::transform(families, families.begin(), inMainlandShapes);
        EXPECT_EQ(familiesOf(text, font), families);
        EXPECT_EQ(familyOf(font), inMainlandShapes(familyOf(plain)));
        const QFontMetricsF metrics(font);
        const QFontMetricsF expected(plain);
        EXPECT_EQ(metrics.height(), expected.height());
        EXPECT_EQ(metrics.ascent(), expected.ascent());
        for (const QChar character : text) {
            EXPECT_EQ(metrics.horizontalAdvance(character), expected.horizontalAdvance(character));
        }
    }
}

TEST(SystemFontTest, followsTheDesktopsFontWhenThatChanges) {
    const QFont before = QGuiApplication::font();
    const QStringList families = systemFont(13).families();
    QGuiApplication::setFont(QFont(otherFamilyThan(QFontInfo(before).family())));
    EXPECT_NE(systemFont(13).families(), families);
    EXPECT_EQ(familyOf(systemFont(13)), inMainlandShapes(familyOf(QGuiApplication::font())));
    QGuiApplication::setFont(before);
    EXPECT_EQ(systemFont(13).families(), families);
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
