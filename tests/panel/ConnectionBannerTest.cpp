// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/labelstate/ConnectionName.h"
#include "Quillbar/panel/ConnectionBanner.h"
#include "Quillbar/panel/ErrorLine.h"
#include "QuillbarCore/exchange/URLError.h"
#include "tests/qtsupport/ViewFixture.h"

#include <QAccessible>
#include <QAccessibleInterface>
#include <QEvent>
#include <QImage>

#include <gtest/gtest.h>

#include <vector>

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

QString adviceOn(ConnectionFailure::Kind kind) {
    return ConnectionBanner::advice(ConnectionFailure{.kind = kind});
}

TEST(ConnectionBannerAdviceTest, isSilentWithoutAFailure) {
    EXPECT_EQ(ConnectionBanner::advice(std::nullopt), QString());
}

TEST(ConnectionBannerAdviceTest, saysThatTheProxyIsToBlame) {
    EXPECT_EQ(adviceOn(ConnectionFailure::Kind::proxyFailed),
              QStringLiteral("连不上代理。请检查 https_proxy、all_proxy 或桌面网络设置里的代理。\n"
                             "改了变量后，按 Ctrl+Q 退出后重新启动"));
}

TEST(ConnectionBannerAdviceTest, saysWhatToDoWhereTheNetworkStandsInTheWay) {
    EXPECT_EQ(adviceOn(ConnectionFailure::Kind::timedOut),
              QStringLiteral("连接超时。请检查网络。\n"
                             "需要代理时，在桌面的网络设置里填写；\n"
                             "或设置 https_proxy、all_proxy，按 Ctrl+Q 退出后重新启动。\n"
                             "也可以改用自己的镜像：\n"
                             "QUILLBAR_REST_ENDPOINTS、QUILLBAR_STREAM_ENDPOINTS"));
    for (const auto kind : {ConnectionFailure::Kind::hostNotFound,
                            ConnectionFailure::Kind::cannotConnect,
                            ConnectionFailure::Kind::lost}) {
        const QString advice = adviceOn(kind);
        EXPECT_TRUE(advice.startsWith(QString::fromStdString(displayName({.kind = kind}))));
        EXPECT_TRUE(advice.contains(QStringLiteral("all_proxy"))) << advice.toStdString();
    }
}

TEST(ConnectionBannerAdviceTest, leavesEveryOtherFailureToItsOwnWords) {
    EXPECT_EQ(ConnectionBanner::advice(
                  ConnectionFailure{.kind = ConnectionFailure::Kind::refused, .httpStatus = 418}),
              QStringLiteral("服务器返回 418"));
    EXPECT_EQ(adviceOn(ConnectionFailure::Kind::notServedHere),
              QStringLiteral("当前地区无法访问行情服务"));
}

/// Notes under which name a widget appears, each time that it does.
class Showings final : public QObject {
public:
    explicit Showings(QWidget& widget) { widget.installEventFilter(this); }

    std::vector<QString> names;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Show) {
            names.push_back(dynamic_cast<QWidget&>(*watched).accessibleName());
        }
        return false;
    }
};

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

TEST_F(ConnectionBannerTest, itsTooltipAndDescriptionFollowTheFailure) {
    EXPECT_EQ(banner->toolTip(), QString());
    for (const auto kind :
         {ConnectionFailure::Kind::timedOut, ConnectionFailure::Kind::proxyFailed}) {
        stream.fails({.kind = kind});
        EXPECT_TRUE(banner->isVisible());
        EXPECT_EQ(banner->toolTip(), adviceOn(kind));
        EXPECT_EQ(QAccessible::queryAccessibleInterface(banner)->text(QAccessible::Description),
                  adviceOn(kind));
    }
    stream.recovers();
    EXPECT_EQ(banner->toolTip(), QString());
    EXPECT_EQ(banner->accessibleDescription(), QString());
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

TEST_F(ConnectionBannerTest, screenReadersTakeBannerAndErrorForNotifications) {
    for (QWidget* const widget : {static_cast<QWidget*>(banner), static_cast<QWidget*>(error)}) {
        const QAccessibleInterface* const told = QAccessible::queryAccessibleInterface(widget);
        ASSERT_NE(told, nullptr);
        EXPECT_EQ(told->role(), QAccessible::Notification);
        EXPECT_EQ(told->text(QAccessible::Name), widget->accessibleName());
    }
    EXPECT_NE(QAccessible::queryAccessibleInterface(&panel)->role(), QAccessible::Notification);
}

TEST_F(ConnectionBannerTest, anErrorAppearsOnceForEachThingThatItSays) {
    Showings showings(*error);
    tell(ConnectionState::connected);
    files.breakAll();
    state->pin("ETHUSDT");
    ASSERT_TRUE(error->isVisible());
    EXPECT_EQ(showings.names, std::vector{error->text()}) << "it has its text when it appears";
    state->pin("BTCUSDT");
    EXPECT_EQ(showings.names.size(), 1U) << "it says the same";
    state->setAppearance(AppearanceMode::light);
    ASSERT_EQ(showings.names.size(), 2U);
    EXPECT_EQ(showings.names.back(), error->text());
    EXPECT_NE(showings.names.front(), showings.names.back());
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
    EXPECT_EQ(line.text(), QStringLiteral("自选列表过长，只更新前 1024 个币种"));
    EXPECT_FALSE(line.isHidden());
}

TEST_F(ErrorLineTest, theLongestListThatIsFollowedSaysNothing) {
    std::vector<std::string> baseAssets;
    for (int index = 0; index < 1024; ++index) {
        baseAssets.push_back("C" + std::to_string(index));
    }
    theUserHas(listOf(baseAssets));
    build();
    EXPECT_TRUE(ErrorLine(*state).isHidden());
}

TEST_F(ErrorLineTest, aRegionThatNoServerServesIsNamedUntilPricesStream) {
    build();
    const ErrorLine line(*state);
    api.ticker24hAnswers.error(URLError(URLError::Code::notServedHere, "not here"));
    run(state->refreshSnapshot());
    EXPECT_TRUE(line.isHidden());
    stream.fails({.kind = ConnectionFailure::Kind::timedOut});
    EXPECT_EQ(line.text(), QStringLiteral("当前地区无法访问行情服务"));
    EXPECT_EQ(line.accessibleName(), line.text());
    EXPECT_FALSE(line.isHidden());
    stream.recovers();
    EXPECT_TRUE(line.isHidden());
}

TEST_F(ErrorLineTest, everyOtherFailureOfTheConnectionIsLeftToTheBanner) {
    build();
    const ErrorLine line(*state);
    stream.fails({.kind = ConnectionFailure::Kind::refused, .httpStatus = 451});
    EXPECT_TRUE(line.isHidden());
}

}  // namespace

}  // namespace quillbar
