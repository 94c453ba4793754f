// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/tray/StatusNotifierItem.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quillbar {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

const StatusImage kSmall{.width = 1, .height = 1, .data = QByteArray(4, 'a')};
const StatusImage kLarge{.width = 2, .height = 1, .data = QByteArray(8, 'b')};

struct StatusNotifierItemTest : ::testing::Test {
    StatusNotifierItem item{QStringLiteral("/Menu"), {}};
    int drawn = 0;
    int signalled = 0;

    StatusNotifierItemTest() {
        QObject::connect(&item, &StatusNotifierItem::NewIcon, &item, [this] { ++signalled; });
    }

    StatusNotifierItem::Draw drawing(const StatusImage& image) {
        return [this, image] {
            ++drawn;
            return StatusImages{image};
        };
    }
};

TEST_F(StatusNotifierItemTest, drawsPicturesOnceWhenTheyAreRead) {
    item.setPictures(drawing(kSmall));
    EXPECT_EQ(signalled, 1);
    EXPECT_EQ(drawn, 0);
    EXPECT_THAT(item.iconPixmap(), ElementsAre(kSmall));
    EXPECT_THAT(item.iconPixmap(), ElementsAre(kSmall));
    EXPECT_EQ(drawn, 1);
}

TEST_F(StatusNotifierItemTest, neverDrawsPicturesThatOthersHaveReplaced) {
    item.setPictures(drawing(kSmall));
    item.setPictures(drawing(kLarge));
    EXPECT_EQ(signalled, 2);
    EXPECT_THAT(item.iconPixmap(), ElementsAre(kLarge));
    EXPECT_EQ(drawn, 1);
}

TEST_F(StatusNotifierItemTest, hasEitherAThemeIconOrPictures) {
    item.setPictures(drawing(kSmall));
    item.setThemeIcon(QStringLiteral("coin"));
    EXPECT_EQ(item.iconName(), QStringLiteral("coin"));
    EXPECT_THAT(item.iconPixmap(), IsEmpty());
    item.setPictures(drawing(kSmall));
    EXPECT_EQ(item.iconName(), QString());
    EXPECT_THAT(item.iconPixmap(), ElementsAre(kSmall));
}

TEST_F(StatusNotifierItemTest, tellsOfAThemeIconOnce) {
    item.setThemeIcon(QStringLiteral("coin"));
    item.setThemeIcon(QStringLiteral("coin"));
    EXPECT_EQ(signalled, 1);
}

}  // namespace

}  // namespace quillbar
