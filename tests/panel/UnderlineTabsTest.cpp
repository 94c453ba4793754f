// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/panel/UnderlineTabs.h"
#include "Quillbar/widgets/Theme.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QAccessibleInterface>
#include <QImage>
#include <QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <iostream>
#include <stdexcept>
#include <string>
#include <vector>

namespace quillbar {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// What screen readers take a widget for.
std::string roleOf(QWidget& widget) {
    return qAccessibleRoleString(QAccessible::queryAccessibleInterface(&widget)->role());
}

class UnderlineTabsTest : public ::testing::Test {
protected:
    UnderlineTabsTest() {
        m_tabs.onSelect = [this](std::size_t index) { m_selected.push_back(index); };
        m_tabs.show();
    }

    QAbstractButton& tab(const QString& title) {
        for (auto* const button : m_tabs.findChildren<QAbstractButton*>()) {
            if (button->accessibleName() == title) {
                return *button;
            }
        }
        throw std::runtime_error("no such tab");
    }

    /// The colours in the middle of a tab from its bottom edge upwards, one of each row of pixels,
    /// on a screen of this scale.
    std::vector<QColor> upwards(const QString& title, int rows, int scale = 1) {
        const QRect place = tab(title).geometry();
        QImage picture(m_tabs.size() * scale, QImage::Format_ARGB32_Premultiplied);
        picture.setDevicePixelRatio(scale);
        picture.fill(ThemeColors::dark().surface);
        m_tabs.render(&picture, QPoint(), QRegion(), QWidget::DrawChildren);
        std::vector<QColor> colors;
        for (int row = 1; row <= rows; ++row) {
            colors.push_back(
                picture.pixelColor(place.center().x() * scale, (place.bottom() + 1) * scale - row));
        }
        return colors;
    }
    /// The colour of the bar along a tab's bottom edge.
    QColor underline(const QString& title) { return upwards(title, 1).front(); }

    std::vector<std::size_t> m_selected;
    UnderlineTabs m_tabs{{QStringLiteral("自选"), QStringLiteral("涨幅"), QStringLiteral("跌幅")},
                         8,
                         1.5};
};

TEST_F(UnderlineTabsTest, aClickSelectsAndTellsOnce) {
    QTest::mouseClick(&tab(QStringLiteral("跌幅")), Qt::LeftButton);
    EXPECT_THAT(m_selected, ElementsAre(2U));
    EXPECT_EQ(m_tabs.selection(), 2U);
    QTest::mouseClick(&tab(QStringLiteral("跌幅")), Qt::LeftButton);
    EXPECT_THAT(m_selected, ElementsAre(2U));
    EXPECT_TRUE(tab(QStringLiteral("跌幅")).isChecked());
}

TEST_F(UnderlineTabsTest, theSelectedTabAloneIsUnderlined) {
    m_tabs.setSelection(1);
    EXPECT_THAT(m_selected, IsEmpty());
    EXPECT_EQ(underline(QStringLiteral("涨幅")), ThemeColors::dark().accent);
    EXPECT_EQ(underline(QStringLiteral("自选")), ThemeColors::dark().surface);
}

TEST_F(UnderlineTabsTest, theBarIsOneAndAHalfPointsHigh) {
    const QColor accent = ThemeColors::dark().accent;
    const QColor surface = ThemeColors::dark().surface;
    const std::vector<QColor> single = upwards(QStringLiteral("自选"), 3);
    EXPECT_EQ(single.at(0), accent);
    EXPECT_NEAR(single.at(1).red(), (accent.red() + surface.red()) / 2.0, 2);
    EXPECT_NEAR(single.at(1).green(), (accent.green() + surface.green()) / 2.0, 2);
    EXPECT_NEAR(single.at(1).blue(), (accent.blue() + surface.blue()) / 2.0, 2);
    EXPECT_EQ(single.at(2), surface);
    EXPECT_THAT(upwards(QStringLiteral("自选"), 4, 2),
                ElementsAre(accent, accent, accent, surface));
}

TEST_F(UnderlineTabsTest, theArrowsGoFromTabToTabAndStopAtTheEnds) {
    tab(QStringLiteral("自选")).setFocus(Qt::TabFocusReason);
    QTest::keyClick(&tab(QStringLiteral("自选")), Qt::Key_Right);
    QTest::keyClick(&tab(QStringLiteral("涨幅")), Qt::Key_Right);
    QTest::keyClick(&tab(QStringLiteral("跌幅")), Qt::Key_Right);
    EXPECT_THAT(m_selected, ElementsAre(1U, 2U));
    QTest::keyClick(&tab(QStringLiteral("跌幅")), Qt::Key_Left);
    EXPECT_EQ(m_tabs.selection(), 1U);
}

TEST_F(UnderlineTabsTest, theTabKeyStopsAtTheSelectedTabAlone) {
    m_tabs.setSelection(1);
    EXPECT_EQ(tab(QStringLiteral("自选")).focusPolicy(), Qt::NoFocus);
    EXPECT_EQ(tab(QStringLiteral("涨幅")).focusPolicy(), Qt::TabFocus);
}

TEST_F(UnderlineTabsTest, tabsAreEightPointsApartAndKeepTheirWidth) {
    const QRect first = tab(QStringLiteral("自选")).geometry();
    const QRect second = tab(QStringLiteral("涨幅")).geometry();
    EXPECT_EQ(first.left(), 8);
    EXPECT_EQ(second.left() - (first.right() + 1), 8);
    m_tabs.setSelection(2);
    EXPECT_EQ(tab(QStringLiteral("自选")).geometry(), first);
}

// Qt keeps the interface that it made of an object first.
TEST(UnderlineTabsDeathTest, theFirstTabsOfAProcessAreTabsToScreenReaders) {
    // This style runs the test alone, in a process of its own.
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const auto roles = [] {
        UnderlineTabs tabs({QStringLiteral("自选"), QStringLiteral("涨幅")}, 8, 1.5);
        std::cerr << "strip " << roleOf(tabs);
        for (auto* const tab : tabs.findChildren<QAbstractButton*>()) {
            std::cerr << ", tab " << roleOf(*tab);
        }
    };
    EXPECT_EXIT(
        {
            roles();
            std::exit(0);
        },
        ::testing::ExitedWithCode(0),
        "strip PageTabList, tab PageTab, tab PageTab");
}

}  // namespace

}  // namespace quillbar
