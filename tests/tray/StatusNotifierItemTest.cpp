// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/tray/StatusNotifierItem.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <optional>
#include <vector>

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

TEST(StatusNotifierItemPositionTest, handsNoPositionOnThatIsOutsideOfEveryScreen) {
    constexpr int kLowest = std::numeric_limits<int>::min();
    constexpr int kHighest = std::numeric_limits<int>::max();
    std::vector<QPoint> positions;
    const auto note = [&positions](std::optional<QPoint> reported) {
        positions.push_back(reported.value_or(QPoint()));
    };
    StatusNotifierItem item{QStringLiteral("/Menu"),
                            {.activate = note,
                             .secondaryActivate = note,
                             .contextMenu = note,
                             .scroll = {},
                             .activationToken = {}}};
    item.Activate(kLowest, kHighest);
    item.SecondaryActivate(kHighest, kLowest);
    item.ContextMenu(kLowest, kLowest);
    item.Activate(1900, -20);
    constexpr int kFarthest = StatusNotifierItem::kFarthest;
    EXPECT_THAT(positions,
                ElementsAre(QPoint(-kFarthest, kFarthest),
                            QPoint(kFarthest, -kFarthest),
                            QPoint(-kFarthest, -kFarthest),
                            QPoint(1900, -20)));
}

}  // namespace

}  // namespace quillbar
