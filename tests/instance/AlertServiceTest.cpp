// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/instance/AlertService.h"
#include "Quillbar/instance/ApplicationService.h"
#include "tests/instance/BusFixture.h"
#include "tests/qtsupport/AlertListener.h"

#include <QString>
#include <QVariantMap>

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace quillbar {
namespace {

FiredAlert firedAlert(std::int64_t serial) {
    return {.serial = serial,
            .alert = {.id = 1,
                      .symbol = "BTCUSDT",
                      .baseAsset = "BTC",
                      .kind = AlertKind::changeAtMost,
                      .threshold = -5,
                      .note = "卖"},
            .price = 95.5,
            .changePercent = -5.25,
            .time = 1794657600,
            .isMeanwhile = true};
}

struct AlertServiceTest : BusFixture {
    [[nodiscard]] bool hears(std::size_t count) const {
        return spinUntil([&] { return listener->heard.size() >= count; });
    }
    void begin() { service.emplace(application->alerts(), fired); }
    void SetUp() override {
        application.emplace(
            connect(), [](ApplicationAction /*action*/, const ActivationTokens& /*tokens*/) {});
        listener.emplace(connect());
    }
    void TearDown() override {
        service.reset();
        listener.reset();
        application.reset();
        BusFixture::TearDown();
    }

    Observed<std::vector<FiredAlert>> fired;
    std::optional<ApplicationService> application;
    std::optional<AlertListener> listener;
    std::optional<AlertService> service;
};

TEST_F(AlertServiceTest, tellsTheBusWhatFired) {
    begin();
    fired.set({firedAlert(7)});
    ASSERT_TRUE(hears(1));
    const QVariantMap expected{{QStringLiteral("symbol"), QStringLiteral("BTCUSDT")},
                               {QStringLiteral("baseAsset"), QStringLiteral("BTC")},
                               {QStringLiteral("condition"), QStringLiteral("changeAtMost")},
                               {QStringLiteral("threshold"), -5.0},
                               {QStringLiteral("price"), 95.5},
                               {QStringLiteral("changePercent"), -5.25},
                               {QStringLiteral("note"), QStringLiteral("卖")},
                               {QStringLiteral("when"), qlonglong{1794657600}},
                               {QStringLiteral("meanwhile"), true}};
    EXPECT_EQ(listener->heard.front(), expected);
}

TEST_F(AlertServiceTest, tellsEachOnceAndNothingOfWhatFiredBefore) {
    fired.set({firedAlert(7)});
    begin();
    FiredAlert other = firedAlert(8);
    other.alert.symbol = "ETHUSDT";
    fired.set({firedAlert(7), other});
    fired.set({firedAlert(7)});
    fired.set({firedAlert(7), firedAlert(9)});
    ASSERT_TRUE(hears(2));
    EXPECT_EQ(listener->heard.size(), 2U);
    EXPECT_EQ(listener->heard.at(0).value(QStringLiteral("symbol")), QStringLiteral("ETHUSDT"));
    EXPECT_EQ(listener->heard.at(1).value(QStringLiteral("symbol")), QStringLiteral("BTCUSDT"));
}

TEST_F(AlertServiceTest, textsThatAreNoGoodUtf8AreMended) {
    begin();
    FiredAlert odd = firedAlert(7);
    odd.alert.note = "\xff卖";
    fired.set({odd});
    ASSERT_TRUE(hears(1));
    EXPECT_TRUE(listener->heard.front().value(QStringLiteral("note")).toString().endsWith(u'卖'));
}

}  // namespace
}  // namespace quillbar
