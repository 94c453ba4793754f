// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/ConnectionBanner.h"
#include "Quillbar/ErrorLine.h"
#include "tests/views/ViewFixture.h"

#include <QImage>

#include <gtest/gtest.h>

namespace quillbar {

namespace {

QLocale chinese() {
    return QLocale(QLocale::Chinese, QLocale::China);
}

TEST(ConnectionBannerTextTest, saysWhenTheLastPriceCame) {
    // 2026-11-14T12:00:00Z
    const TimePoint noon{Seconds{1'794'657'600}};
    EXPECT_EQ(ConnectionBanner::bannerText(noon, QTimeZone("Asia/Shanghai"), chinese()),
              QStringLiteral("连接中… 最后更新 20:00"));
    EXPECT_EQ(ConnectionBanner::bannerText(noon, QTimeZone::utc(), chinese()),
              QStringLiteral("连接中… 最后更新 12:00"));
    EXPECT_EQ(ConnectionBanner::bannerText(std::nullopt, QTimeZone::utc(), chinese()),
              QStringLiteral("连接中…"));
}

struct ConnectionBannerTest : ViewFixture {
    ConnectionBannerTest() {
        start();
        panel.resize(400, 60);
        banner = new ConnectionBanner(*state, &panel, QTimeZone::utc, chinese());
        error = new ErrorLine(*state, &panel);
        panel.show();
    }

    QWidget panel;
    ConnectionBanner* banner = nullptr;
    ErrorLine* error = nullptr;
};

TEST_F(ConnectionBannerTest, showsWhileTheStreamIsNotConnected) {
    EXPECT_TRUE(banner->isVisible());
    EXPECT_EQ(banner->height(), 20);
    tell(ConnectionState::connected);
    EXPECT_FALSE(banner->isVisible());
    for (const ConnectionState down : {ConnectionState::disconnected,
                                       ConnectionState::connecting,
                                       ConnectionState::waitingRetry}) {
        tell(down);
        EXPECT_TRUE(banner->isVisible());
        EXPECT_TRUE(banner->accessibleName().startsWith(QStringLiteral("连接中…")));
    }
}

TEST_F(ConnectionBannerTest, aReconnectingStreamTellsTheLastUpdate) {
    tell(ConnectionState::connected);
    price("BTC", 65000);
    tell(ConnectionState::waitingRetry);
    EXPECT_EQ(banner->accessibleName(), QStringLiteral("连接中… 最后更新 12:00"));
}

TEST_F(ConnectionBannerTest, anErrorOnALiveStreamShowsTheErrorAlone) {
    tell(ConnectionState::connected);
    EXPECT_FALSE(error->isVisible());
    files.breakAll();
    state->pin("ETHUSDT");
    EXPECT_TRUE(error->isVisible());
    EXPECT_FALSE(error->text().isEmpty());
    EXPECT_EQ(error->accessibleName(), error->text());
    EXPECT_FALSE(banner->isVisible());
}

struct ErrorLineTest : ViewFixture {};

TEST_F(ErrorLineTest, aListThatIsTooLongToFollowSaysSo) {
    std::vector<std::string> baseAssets;
    for (int index = 0; index < 1025; ++index) {
        baseAssets.push_back("C" + std::to_string(index));
    }
    theUserHas(listOf(baseAssets));
    build();
    const ErrorLine line(*state);
    EXPECT_EQ(line.text(), QStringLiteral("自选列表过长,只更新前 1024 个币种"));
    EXPECT_FALSE(line.isHidden());
}

}  // namespace

}  // namespace quillbar
