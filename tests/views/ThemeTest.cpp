// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/Theme.h"

#include <QWidget>

#include <gtest/gtest.h>

namespace quillbar {

namespace {

Theme dark() {
    return {.colors = ThemeColors::dark()};
}

Theme light() {
    return {.colors = ThemeColors::light()};
}

/// Counts the changes of theme that it is told of.
class Listener final : public QWidget {
public:
    using QWidget::QWidget;

    int changes = 0;

protected:
    bool event(QEvent* event) override {
        changes += event->type() == ThemeKey::changeEvent() ? 1 : 0;
        return QWidget::event(event);
    }
};

TEST(ThemeTest, theUsersChoiceHoldsOnAnyDesktop) {
    EXPECT_EQ(resolvedScheme(AppearanceMode::dark, ColorScheme::light), ColorScheme::dark);
    EXPECT_EQ(resolvedScheme(AppearanceMode::light, ColorScheme::dark), ColorScheme::light);
    EXPECT_EQ(resolvedScheme(AppearanceMode::system, ColorScheme::dark), ColorScheme::dark);
    EXPECT_EQ(resolvedScheme(AppearanceMode::system, ColorScheme::light), ColorScheme::light);
}

TEST(ThemeTest, eachSchemeHasItsPalette) {
    EXPECT_EQ(ThemeColors::of(ColorScheme::dark).surface, QColor(23, 23, 26));
    EXPECT_EQ(ThemeColors::of(ColorScheme::light).surface, QColor(252, 252, 253));
    EXPECT_EQ(ThemeColors::dark().up, QColor(62, 207, 142));
    EXPECT_EQ(ThemeColors::light().down, QColor(207, 58, 58));
    EXPECT_EQ(ThemeColors::light().tertiaryText, ThemeColors::dark().secondaryText);
}

TEST(ThemeTest, translucentRolesAreStraightWhiteOrBlack) {
    EXPECT_EQ(ThemeColors::dark().separator.rgb(), QColor(Qt::white).rgb());
    EXPECT_NEAR(ThemeColors::dark().separator.alphaF(), 0.08, 1e-4);
    EXPECT_NEAR(ThemeColors::dark().rowAlternate.alphaF(), 0.025, 1e-4);
    EXPECT_NEAR(ThemeColors::dark().rowHover.alphaF(), 0.055, 1e-4);
    EXPECT_EQ(ThemeColors::light().separator.rgb(), QColor(Qt::black).rgb());
    EXPECT_NEAR(ThemeColors::light().rowAlternate.alphaF(), 0.018, 1e-4);
    EXPECT_NEAR(ThemeColors::light().rowHover.alphaF(), 0.04, 1e-4);
}

TEST(ThemeTest, aViewWithoutAPanelIsDark) {
    const QWidget view;
    EXPECT_EQ(ThemeKey::value(view), dark());
}

TEST(ThemeTest, reachesEveryViewBelowAndTellsItOnce) {
    QWidget panel;
    auto* const list = new Listener(&panel);
    auto* const row = new Listener(list);
    ThemeKey::set(panel, light());
    EXPECT_EQ(ThemeKey::value(*row), light());
    EXPECT_EQ(list->changes, 1);
    EXPECT_EQ(row->changes, 1);
    ThemeKey::set(panel, light());
    EXPECT_EQ(row->changes, 1);
    ThemeKey::set(panel, dark());
    EXPECT_EQ(ThemeKey::value(*row), dark());
    EXPECT_EQ(row->changes, 2);
}

TEST(ThemeTest, theNearestAncestorHolds) {
    QWidget panel;
    auto* const popover = new QWidget(&panel);
    auto* const view = new QWidget(popover);
    ThemeKey::set(panel, dark());
    ThemeKey::set(*popover, light());
    EXPECT_EQ(ThemeKey::value(*view), light());
    EXPECT_EQ(ThemeKey::value(panel), dark());
}

}  // namespace

}  // namespace quillbar
