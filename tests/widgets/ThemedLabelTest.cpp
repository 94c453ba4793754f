// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/text/SystemFont.h"
#include "Quillbar/widgets/ThemedLabel.h"
#include "tests/qtsupport/Widgets.h"

#include <gtest/gtest.h>

namespace quillbar {
namespace {

constexpr ColorRole kRole = &ThemeColors::Resolved::down;

QColor colorOf(const QLabel& label) {
    return label.palette().color(label.foregroundRole());
}

struct ThemedLabelTest : testing::Test {
    static void give(QWidget& root, const ThemeColors::Resolved& colors) {
        ThemeKey::set(root, {.colors = colors});
    }

    QWidget light;
    QWidget dark;

    void SetUp() override {
        give(light, ThemeColors::light());
        give(dark, ThemeColors::dark());
    }
};

TEST_F(ThemedLabelTest, isWrittenInItsFontAndInItsColourOfTheTheme) {
    const QFont font = systemFont(10.5, QFont::DemiBold);
    const ThemedLabel label(font, kRole, &light);
    EXPECT_EQ(label.font(), font);
    EXPECT_EQ(colorOf(label), ThemeColors::light().down);
}

TEST_F(ThemedLabelTest, takesAnotherColour) {
    ThemedLabel label(systemFont(12), kRole, &light);
    label.setRole(&ThemeColors::Resolved::up);
    EXPECT_EQ(colorOf(label), ThemeColors::light().up);
}

TEST_F(ThemedLabelTest, followsTheTheme) {
    const ThemedLabel label(systemFont(12), kRole, &light);
    give(light, ThemeColors::dark());
    EXPECT_EQ(colorOf(label), ThemeColors::dark().down);
}

TEST_F(ThemedLabelTest, showsTheThemeOfWhatItHasBeenPutIn) {
    auto* const between = new QWidget;
    const auto* const label = new ThemedLabel(systemFont(12), kRole, between);
    between->setParent(&light);
    light.show();
    EXPECT_EQ(colorOf(*label), ThemeColors::light().down);
}

TEST_F(ThemedLabelTest, showsMarkupAsItIs) {
    ThemedLabel marked(systemFont(12), kRole, &light);
    marked.setText(QStringLiteral("<b></b>"));
    EXPECT_GT(marked.sizeHint().width(), 0);
    EXPECT_EQ(marked.textFormat(), Qt::PlainText);
}

}  // namespace
}  // namespace quillbar
