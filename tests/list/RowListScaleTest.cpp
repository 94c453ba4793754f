// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/widgets/Theme.h"
#include "tests/list/RowListFixture.h"

#include <QApplication>
#include <QPoint>

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <tuple>

namespace quillbar {
namespace {

/// The list at several text sizes.
struct RowListScaleTest : RowListFixture {
    void setScale(double scale) {
        ThemeKey::set(window, {.colors = ThemeColors::dark(), .scale = scale});
        spinUntilIdle();
        expectConsistent();
    }
    /// Where a row begins in the view.
    [[nodiscard]] int topOf(const std::string& id) const { return list->row(id)->y(); }
    /// How far the row of an id begins from the one before it.
    [[nodiscard]] int stepTo(int id) const {
        return topOf(std::to_string(id)) - topOf(std::to_string(id - 1));
    }
};

TEST_F(RowListScaleTest, rowsAndWhatUnfoldsAreHigher) {
    show(30);
    open("2");
    for (const auto& [scale, row, detail] : {std::tuple{1.15, 32, 241}, {1.3, 36, 273}}) {
        SCOPED_TRACE(scale);
        setScale(scale);
        EXPECT_EQ(list->row("2")->height(), row);
        EXPECT_EQ(stepTo(2), row);
        EXPECT_EQ(stepTo(3), row + detail);
    }
    setScale(1);
    EXPECT_EQ(list->row("2")->height(), 28);
    EXPECT_EQ(stepTo(3), 28 + 210);
}

TEST_F(RowListScaleTest, whatUnfoldsAtAnotherSizeHasItsHeight) {
    show(30);
    setScale(1.3);
    open("2");
    EXPECT_EQ(stepTo(3), 36 + 273);
    open(std::nullopt);
    EXPECT_EQ(stepTo(3), 36);
}

TEST_F(RowListScaleTest, theRowAtTheUpperEdgeStaysThere) {
    show(1000);
    list->scrollTo(400 * 28 + 14);
    setScale(1.3);
    ASSERT_EQ(list->scrollOffset(), 400 * 36 + 18);
    EXPECT_EQ(topOf("400"), -18);
    setScale(1);
    EXPECT_EQ(list->scrollOffset(), 400 * 28 + 14);
}

TEST_F(RowListScaleTest, theEndIsNotLeftWhenRowsBecomeLower) {
    show(30);
    setScale(1.3);
    list->scrollTo(30 * 36);
    setScale(1);
    EXPECT_EQ(list->scrollOffset(), 30 * 28 - kHeight);
}

TEST_F(RowListScaleTest, theWheelScrollsByRowsOfAnySize) {
    show(1000);
    setScale(1.3);
    wheel({}, QPoint(0, -120));
    EXPECT_EQ(list->scrollOffset(), QApplication::wheelScrollLines() * 36);
}

TEST_F(RowListScaleTest, aListThatIsHiddenHasItsSizeWhenItIsShown) {
    show(30);
    list->hide();
    setScale(1.3);
    list->show();
    spinUntilIdle();
    EXPECT_EQ(list->row("0")->height(), 36);
    EXPECT_EQ(topOf("3"), 3 * 36);
    expectConsistent();
}

}  // namespace
}  // namespace quillbar
