// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/widgets/ChangePalette.h"
#include "Quillbar/widgets/ColorRole.h"
#include "Quillbar/widgets/Theme.h"
#include "tests/qtsupport/Contrast.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

namespace quillbar {
namespace {

using Ground = ChangePalette::Ground;

constexpr std::array kAdded{ChangeColors::redUp, ChangeColors::blueUp};
constexpr std::array kSchemes{ColorScheme::dark, ColorScheme::light};

/// What small text needs.
constexpr double kReadable = 4.5;

std::string nameOf(ChangeColors colors, ColorScheme scheme) {
    return std::string(rawValue(colors)) + (scheme == ColorScheme::dark ? ", dark" : ", light");
}

TEST(ChangePaletteTest, theDefaultIsGreenForRisingAndRedForFalling) {
    EXPECT_EQ(ChangePalette::of(ChangeColors::greenUp, Ground::darkPanel),
              (ChangePalette{{62, 207, 142}, {255, 92, 92}}));
    EXPECT_EQ(ChangePalette::of(ChangeColors::greenUp, Ground::lightPanel),
              (ChangePalette{{26, 138, 84}, {207, 58, 58}}));
    EXPECT_EQ(ChangePalette::of(ChangeColors::greenUp, Ground::statusArea),
              (ChangePalette{{84, 230, 160}, {255, 128, 128}}));
}

TEST(ChangePaletteTest, eachChoiceHasTheColorsThatItsNameSays) {
    for (const Ground ground : {Ground::darkPanel, Ground::lightPanel, Ground::statusArea}) {
        const auto isRed = [](const QColor& color) {
            return color.red() > 3 * color.green() / 2 && color.red() > 3 * color.blue() / 2;
        };
        const auto isGreen = [](const QColor& color) {
            return color.green() > color.red() && color.green() > 5 * color.blue() / 4;
        };
        const auto isBlue = [](const QColor& color) {
            return color.blue() > color.green() && color.green() > color.red();
        };
        const auto isOrange = [](const QColor& color) {
            return color.red() > 5 * color.green() / 4 && color.green() > 5 * color.blue() / 4;
        };
        const ChangePalette green = ChangePalette::of(ChangeColors::greenUp, ground);
        EXPECT_TRUE(isGreen(green.up) && isRed(green.down)) << static_cast<int>(ground);
        const ChangePalette red = ChangePalette::of(ChangeColors::redUp, ground);
        EXPECT_TRUE(isRed(red.up) && isGreen(red.down)) << static_cast<int>(ground);
        const ChangePalette blue = ChangePalette::of(ChangeColors::blueUp, ground);
        EXPECT_TRUE(isBlue(blue.up) && isOrange(blue.down)) << static_cast<int>(ground);
    }
}

TEST(ChangePaletteTest, addedColorsCanBeReadOnBothSurfacesAndOnTintedRows) {
    for (const ColorScheme scheme : kSchemes) {
        for (const ChangeColors choice : kAdded) {
            const ThemeColors::Resolved colors = ThemeColors::of(scheme, choice);
            for (const QColor& ground : {colors.surface,
                                         over(colors.surface, colors.rowAlternate),
                                         over(colors.surface, colors.rowHover)}) {
                EXPECT_GE(contrastOf(colors.up.rgb(), ground.rgb()), kReadable)
                    << nameOf(choice, scheme) << ", up on " << ground.name().toStdString();
                EXPECT_GE(contrastOf(colors.down.rgb(), ground.rgb()), kReadable)
                    << nameOf(choice, scheme) << ", down on " << ground.name().toStdString();
            }
        }
    }
}

TEST(ChangePaletteTest, everyColorCanBeReadInTheStatusArea) {
    // Over a white bar the dark ground of a picture is at its palest.
    const QColor palest = over(Qt::white, QColor(24, 24, 28, 225));
    for (const ChangeColors choice : kAllChangeColors) {
        const ChangePalette palette = ChangePalette::of(choice, Ground::statusArea);
        EXPECT_GE(contrastOf(palette.up.rgb(), palest.rgb()), kReadable) << rawValue(choice);
        EXPECT_GE(contrastOf(palette.down.rgb(), palest.rgb()), kReadable) << rawValue(choice);
    }
}

TEST(ChangePaletteTest, decidesOverTheThemesGainsAndLossesAlone) {
    for (const ColorScheme scheme : kSchemes) {
        EXPECT_EQ(ThemeColors::of(scheme, ChangeColors::greenUp), ThemeColors::of(scheme));
        for (const ChangeColors choice : kAdded) {
            ThemeColors::Resolved colors = ThemeColors::of(scheme, choice);
            const ChangePalette expected = ChangePalette::of(
                choice, scheme == ColorScheme::dark ? Ground::darkPanel : Ground::lightPanel);
            EXPECT_EQ(colors.up, expected.up) << nameOf(choice, scheme);
            EXPECT_EQ(colors.down, expected.down) << nameOf(choice, scheme);
            EXPECT_EQ(colors.*colorOfChange(1), expected.up);
            EXPECT_EQ(colors.*colorOfChange(-1), expected.down);
            colors.up = ThemeColors::of(scheme).up;
            colors.down = ThemeColors::of(scheme).down;
            EXPECT_EQ(colors, ThemeColors::of(scheme)) << nameOf(choice, scheme);
        }
    }
}

}  // namespace
}  // namespace quillbar
