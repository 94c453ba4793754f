// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/list/RowPlaces.h"
#include "Quillbar/list/RowScroll.h"
#include "Quillbar/widgets/ScrollFade.h"
#include "tests/list/NamedRow.h"

#include <QWidget>

#include <gtest/gtest.h>

namespace quillbar {
namespace {

constexpr int kRow = 28;

/// Five rows in a view that is as high as two of them.
struct RowScrollTest : testing::Test {
    void SetUp() override {
        places.setIds(numbered(5));
        view.resize(100, 2 * kRow);
    }

    QWidget view;
    RowPlaces places{kRow};
    int calls = 0;
    RowScroll scroll{view, places, [this] { ++calls; }};
};

TEST_F(RowScrollTest, goesNoFurtherThanTheList) {
    scroll.scrollTo(1000);
    EXPECT_EQ(scroll.offset(), 3 * kRow);
    scroll.scrollTo(-1);
    EXPECT_EQ(scroll.offset(), 0);
    EXPECT_EQ(calls, 2);
    places.setIds(numbered(1));
    EXPECT_EQ(scroll.end(), 0);
}

TEST_F(RowScrollTest, scrollsBackWhenTheListGetsShorter) {
    scroll.scrollTo(3 * kRow);
    places.setIds(numbered(3));
    scroll.followRows();
    EXPECT_EQ(scroll.offset(), kRow);
}

TEST_F(RowScrollTest, scrollsAsLittleAsItTakesToSeeARow) {
    scroll.scrollTo(kRow);
    scroll.reveal(kRow, 3 * kRow);
    EXPECT_EQ(scroll.offset(), kRow);
    EXPECT_EQ(calls, 1) << "what can be seen already needs no scrolling";
    scroll.reveal(3 * kRow, 4 * kRow);
    EXPECT_EQ(scroll.offset(), 2 * kRow + ScrollFade::kHeight) << "clear of the fade";
    scroll.reveal(0, kRow);
    EXPECT_EQ(scroll.offset(), 0);
}

TEST_F(RowScrollTest, keepsTheAnchorInPlaceWhileADetailAboveItGrows) {
    scroll.scrollTo(2 * kRow);
    scroll.anchor("2");
    places.setDetails({{.row = 0, .height = 50}});
    scroll.followDetails();
    EXPECT_EQ(scroll.offset(), 2 * kRow + 50);
    scroll.scrollTo(scroll.offset() - 10);
    places.setDetails({});
    scroll.followDetails();
    EXPECT_EQ(scroll.offset(), 3 * kRow) << "who scrolls gives up the anchor";
}

}  // namespace
}  // namespace quillbar
