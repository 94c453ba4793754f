// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/alerts/AlertStore.h"
#include "tests/support/CapturedLog.h"
#include "tests/support/Files.h"
#include "tests/support/TemporaryFolder.h"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace quillbar {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr std::string_view kAlert =
    R"({"id":1,"symbol":"BTCUSDT","baseAsset":"BTC","kind":"priceAtLeast","threshold":70000,)"
    R"("armed":true})";

struct AlertStoreTest : testing::Test {
    Alerts load(std::string_view text) {
        writeContents(folder.path() / "alerts.json", text);
        return AlertStore(folder.path()).load();
    }
    Alerts loadAlerts(const std::string& alerts) {
        return load(R"({"schemaVersion":1,"nextNumber":9,"alerts":[)" + alerts
                    + R"(],"fired":[]})");
    }
    /// The alert with one member written otherwise.
    static std::string with(std::string_view member, std::string_view instead) {
        std::string text(kAlert);
        const std::size_t place = text.find(member);
        EXPECT_NE(place, std::string::npos) << member;
        return text.replace(place, member.size(), instead);
    }

    CapturedLog log;
    TemporaryFolder folder;
};

TEST_F(AlertStoreTest, loadsAnAlertWithoutMarginAndNote) {
    const Alerts alerts = loadAlerts(std::string(kAlert));
    const Alert expected{.id = 1,
                         .symbol = "BTCUSDT",
                         .baseAsset = "BTC",
                         .kind = AlertKind::priceAtLeast,
                         .threshold = 70000,
                         .isArmed = true};
    EXPECT_THAT(alerts.alerts, ElementsAre(expected));
    EXPECT_EQ(alerts.nextNumber, 9);
    EXPECT_THAT(log.lines(), IsEmpty());
}

TEST_F(AlertStoreTest, keepsTheNoteUnderItsName) {
    const Alerts alerts =
        loadAlerts(with(R"("armed":true)", R"("note":"跌破就看一眼","armed":true)"));
    ASSERT_EQ(alerts.alerts.size(), 1U);
    EXPECT_EQ(alerts.alerts.front().note, "跌破就看一眼");
    EXPECT_THAT(AlertsDocument::encode(alerts), HasSubstr(R"("note":"跌破就看一眼")"));
}

TEST_F(AlertStoreTest, writesOnlyOfAnAlertThatIsOffWhetherItIsOn) {
    Alerts alerts = loadAlerts(std::string(kAlert));
    EXPECT_TRUE(alerts.alerts.at(0).isOn);
    EXPECT_EQ(AlertsDocument::encode(alerts).find(R"("on")"), std::string::npos);
    alerts.alerts.at(0).isOn = false;
    const std::string text = AlertsDocument::encode(alerts);
    EXPECT_THAT(text, HasSubstr(R"("armed":true,"on":false})"));
    EXPECT_EQ(AlertsDocument::decode(text), alerts);
}

TEST_F(AlertStoreTest, loadsEveryKind) {
    for (const AlertKind kind : kAllAlertKinds) {
        const std::string text(rawValue(kind));
        EXPECT_EQ(loadAlerts(with("priceAtLeast", text)).alerts.at(0).kind, kind) << text;
    }
}

TEST_F(AlertStoreTest, refusesTheWholeDocumentForOneAlertThatIsNotSound) {
    const std::string sound(kAlert);
    for (const std::string& wrong : {with("priceAtLeast", "priceBetween"),
                                     with(R"("id":1)", R"("id":0)"),
                                     with(R"("id":1)", R"("id":9)"),
                                     with(R"("id":1)", R"("id":"1")"),
                                     with("70000", "0"),
                                     with("70000", "-1"),
                                     with("70000", "\"70000\""),
                                     with("70000", R"(70000,"margin":0)"),
                                     with("70000", R"(70000,"margin":-5)"),
                                     with("70000", R"(70000,"margin":70000)"),
                                     with("70000", R"(70000,"margin":1e-12)"),
                                     with("true", "1"),
                                     with("true", R"(true,"on":1)"),
                                     with(R"("armed":true)", R"("note":"a")"),
                                     with(R"("symbol":"BTCUSDT",)", ""),
                                     with(R"("baseAsset":"BTC",)", ""),
                                     fmt::format("{0},{0}", sound),
                                     std::string("[]"),
                                     std::string("1")}) {
        log.clear();
        EXPECT_EQ(loadAlerts(wrong), Alerts()) << wrong;
        EXPECT_THAT(log.lines(), ElementsAre(HasSubstr("load alerts failed ("))) << wrong;
    }
}

TEST_F(AlertStoreTest, refusesNumbersThatCouldNotBeCountedOn) {
    for (const char* const number : {"0", "-1", "1000000000000001", "9223372036854775807", "1.5"}) {
        EXPECT_EQ(load(std::string(R"({"schemaVersion":1,"nextNumber":)") + number
                       + R"(,"alerts":[],"fired":[]})"),
                  Alerts());
    }
    EXPECT_EQ(load(R"({"schemaVersion":1,"nextNumber":1000000000000000,"alerts":[],"fired":[]})")
                  .nextNumber,
              Alerts::kMaximumNumber);
}

TEST_F(AlertStoreTest, refusesTwoThatFiredOfOneAlert) {
    const auto fired = [](int serial) {
        return R"({"serial":)" + std::to_string(serial) + R"(,"alert":)" + std::string(kAlert)
               + R"(,"price":70001,"change":1.5,"time":1794657600,"meanwhile":false})";
    };
    const std::string begin = R"({"schemaVersion":1,"nextNumber":9,"alerts":[],"fired":[)";
    EXPECT_EQ(load(begin + fired(2) + "]}").fired.size(), 1U);
    EXPECT_EQ(load(begin + fired(2) + "," + fired(3) + "]}"), Alerts());
}

}  // namespace
}  // namespace quillbar
