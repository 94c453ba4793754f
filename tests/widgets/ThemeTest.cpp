// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/widgets/Theme.h"
#include "tests/qtsupport/PaintCount.h"
#include "tests/qtsupport/SpinUntil.h"

#include <QWidget>
#include <QWindow>

#include <gtest/gtest.h>

#include <array>

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
    EXPECT_EQ(&ThemeColors::of(ColorScheme::dark), &ThemeColors::dark());
    EXPECT_EQ(&ThemeColors::of(ColorScheme::light), &ThemeColors::light());
}

TEST(ThemeTest, theOpaqueRolesAreTheseColours) {
    struct Row {
        const char* name = nullptr;
        QColor ThemeColors::Resolved::*role = nullptr;
        QColor dark;
        QColor light;
    };
    using Roles = ThemeColors::Resolved;
    const std::array rows{
        Row{"up", &Roles::up, {62, 207, 142}, {26, 138, 84}},
        Row{"down", &Roles::down, {255, 92, 92}, {207, 58, 58}},
        Row{"primaryText", &Roles::primaryText, {232, 232, 234}, {29, 29, 31}},
        Row{"secondaryText", &Roles::secondaryText, {154, 154, 160}, {134, 134, 139}},
        Row{"tertiaryText", &Roles::tertiaryText, {99, 99, 107}, {154, 154, 160}},
        Row{"accent", &Roles::accent, {77, 141, 250}, {47, 111, 208}},
        Row{"warning", &Roles::warning, {217, 131, 36}, {185, 106, 16}},
        Row{"surface", &Roles::surface, {23, 23, 26}, {252, 252, 253}},
        Row{"danger", &Roles::danger, {255, 92, 92}, {207, 58, 58}},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(ThemeColors::dark().*row.role, row.dark) << row.name;
        EXPECT_EQ(ThemeColors::light().*row.role, row.light) << row.name;
    }
}

TEST(ThemeTest, theTranslucentRolesAreStraightWhiteOrBlack) {
    struct Row {
        const char* name;
        QColor ThemeColors::Resolved::*role;
        double darkOpacity;
        double lightOpacity;
    };
    using Roles = ThemeColors::Resolved;
    const std::array rows{
        Row{"separator", &Roles::separator, 0.08, 0.08},
        Row{"rowAlternate", &Roles::rowAlternate, 0.025, 0.018},
        Row{"rowHover", &Roles::rowHover, 0.055, 0.04},
    };
    for (const Row& row : rows) {
        const auto faint = [](QColor color, double opacity) {
            color.setAlphaF(static_cast<float>(opacity));
            return color;
        };
        EXPECT_EQ(ThemeColors::dark().*row.role, faint(Qt::white, row.darkOpacity)) << row.name;
        EXPECT_EQ(ThemeColors::light().*row.role, faint(Qt::black, row.lightOpacity)) << row.name;
    }
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

TEST(ThemeTest, theRootIsToldToo) {
    Listener panel;
    ThemeKey::set(panel, light());
    ThemeKey::set(panel, dark());
    EXPECT_EQ(panel.changes, 2);
}

TEST(ThemeTest, aChangeRepaintsThePanelAndTheWindowsOverIt) {
    QWidget panel;
    auto* const row = new QWidget(&panel);
    row->setGeometry(0, 0, 10, 10);
    auto* const popover = new QWidget(&panel, Qt::Tool);
    ThemeKey::set(panel, dark());
    for (QWidget* const window : {&panel, popover}) {
        window->resize(100, 40);
        window->show();
        ASSERT_TRUE(spinUntil([window] { return window->windowHandle()->isExposed(); }));
    }
    spinUntilIdle();
    const PaintCount ofPanel(panel);
    const PaintCount ofRow(*row);
    const PaintCount ofPopover(*popover);
    ThemeKey::set(panel, dark());
    spinUntilIdle();
    EXPECT_EQ(ofPanel.count + ofRow.count + ofPopover.count, 0) << "nothing looks different";
    ThemeKey::set(panel, light());
    spinUntilIdle();
    EXPECT_EQ(ofPanel.region, panel.rect()) << "more than what is below the row";
    EXPECT_GT(ofRow.count, 0);
    EXPECT_GT(ofPopover.count, 0);
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
