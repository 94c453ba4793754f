// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/tray/StatusItemFixture.h"

namespace quillbar {
namespace {

using namespace std::chrono_literals;

struct StatusItemPinTest : StatusItemFixture {
    static LabelFace ether() {
        LabelFace result = face(QStringLiteral("ETH 3,456.00 ▲ 0.50%"));
        result.symbol = QStringLiteral("ETH");
        result.shortPrice = QStringLiteral("3456");
        result.shortChange = QStringLiteral("+0.5%");
        return result;
    }

    static QImage drawn(const LabelFace& face, SquareTop top) {
        return LabelPicture::of(face, LabelForm::square, PictureGround::own, top).drawn(22);
    }

    [[nodiscard]] bool shows(const LabelFace& face, SquareTop top) {
        return host->icon()[0] == StatusImage::of(drawn(face, top));
    }
};

TEST_F(StatusItemPinTest, namesTheCoinForThreeSecondsInASquare) {
    startAt("kded5");
    EXPECT_TRUE(shows(face(), SquareTop::price)) << "nobody has pinned it just now";
    item->show(ether());
    EXPECT_TRUE(shows(ether(), SquareTop::name));
    LabelFace next = ether();
    next.shortPrice = QStringLiteral("3457");
    pass(2.9s);
    item->show(next);
    EXPECT_TRUE(shows(next, SquareTop::name));
    host->signalled.clear();
    pass(0.1s);
    settle();
    EXPECT_TRUE(shows(next, SquareTop::price));
    EXPECT_EQ(host->signalled.count(QStringLiteral("NewIcon")), 1);
}

TEST_F(StatusItemPinTest, namesTheCoinInTheOlderTrayToo) {
    hasOlderTray = true;
    start(QDBusConnection(QStringLiteral("no such connection")));
    ASSERT_NE(olderIcon(), nullptr);
    const auto shown = [this] { return olderIcon()->icon().pixmap(QSize(22, 22), 1).toImage(); };
    item->show(ether());
    EXPECT_EQ(shown(), drawn(ether(), SquareTop::name));
    pass(3s);
    EXPECT_EQ(shown(), drawn(ether(), SquareTop::price));
}

TEST_F(StatusItemPinTest, changesNothingWhereTheNameIsShownAnyway) {
    startAt("waybar");
    item->show(ether());
    settle();
    host->signalled.clear();
    pass(3s);
    settle();
    EXPECT_EQ(host->signalled.count(QStringLiteral("NewIcon")), 0);
}

}  // namespace
}  // namespace quillbar
