// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QFontDatabase>
#include <QFontInfo>
#include <QGuiApplication>
#include <QIcon>
#include <QScreen>
#include <QString>
#include <QStringList>
#include <QStyle>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace quillbar {

namespace {

using ::testing::UnorderedElementsAre;

std::vector<std::string> texts(const QStringList& list) {
    std::vector<std::string> result;
    for (const QString& each : list) {
        result.push_back(each.toStdString());
    }
    return result;
}

/// The family that draws what is asked for under a name.
std::string familyOf(const QString& name) {
    return QFontInfo(QFont(name)).family().toStdString();
}

TEST(Fonts, areThoseOfTwoPackagesAndNoOther) {
    EXPECT_THAT(texts(QFontDatabase::families()),
                UnorderedElementsAre("DejaVu Sans",
                                     "DejaVu Sans Mono",
                                     "Noto Sans CJK HK",
                                     "Noto Sans CJK JP",
                                     "Noto Sans CJK KR",
                                     "Noto Sans CJK SC",
                                     "Noto Sans CJK TC",
                                     "Noto Sans Mono CJK HK",
                                     "Noto Sans Mono CJK JP",
                                     "Noto Sans Mono CJK KR",
                                     "Noto Sans Mono CJK SC",
                                     "Noto Sans Mono CJK TC",
                                     "Monospace",
                                     "Sans Serif",
                                     "Serif"));
}

TEST(Fonts, haveTwoWeights) {
    EXPECT_THAT(texts(QFontDatabase::styles(QStringLiteral("DejaVu Sans"))),
                UnorderedElementsAre("Book", "Bold"));
    EXPECT_THAT(texts(QFontDatabase::styles(QStringLiteral("Noto Sans CJK SC"))),
                UnorderedElementsAre("Regular", "Bold"));
}

TEST(Fonts, standForWhateverIsAskedFor) {
    EXPECT_EQ(QFontInfo(QGuiApplication::font()).family(), QStringLiteral("DejaVu Sans"));
    EXPECT_EQ(familyOf(QStringLiteral("sans-serif")), "DejaVu Sans");
    EXPECT_EQ(familyOf(QStringLiteral("No Such Font")), "DejaVu Sans");
    EXPECT_EQ(familyOf(QStringLiteral("monospace")), "DejaVu Sans Mono");
}

TEST(Fonts, areDrawnOnAScreenOfUsualSizeInTheUsualStyle) {
    EXPECT_EQ(QGuiApplication::platformName(), QStringLiteral("offscreen"));
    const QScreen* const screen = QGuiApplication::primaryScreen();
    EXPECT_EQ(screen->devicePixelRatio(), 1);
    EXPECT_EQ(screen->logicalDotsPerInch(), 96);
    EXPECT_EQ(QApplication::style()->name(), QStringLiteral("fusion"));
    EXPECT_EQ(QIcon::themeName(), QString());
}

}  // namespace

}  // namespace quillbar
