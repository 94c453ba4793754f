// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/alerts/AlertStore.h"
#include "tests/support/CapturedLog.h"
#include "tests/support/Files.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace quillbar {
namespace {

constexpr std::string_view kFired =
    R"({"serial":2,"alert":{"id":1,"symbol":"BTCUSDT","baseAsset":"BTC","kind":"priceAtLeast",)"
    R"("threshold":70000,"armed":true},"price":70001,"change":1.5,"time":1794657600,)"
    R"("meanwhile":false})";

/// A stored document of one alert, which has fired too, with one mistake in it.
struct AlertStoreReasonsTest : testing::Test {
    static std::string document() {
        return R"({"schemaVersion":1,"nextNumber":9,"alerts":[{"id":1,"symbol":"BTCUSDT",)"
               R"("baseAsset":"BTC","kind":"priceAtLeast","threshold":70000,"armed":true}],)"
               R"("fired":[)"
               + std::string(kFired) + "]}";
    }
    Alerts load(std::string_view text) {
        writeContents(folder.path() / "alerts.json", text);
        return AlertStore(folder.path()).load();
    }
    /// Why the log says that the document was refused, with one part of it written otherwise.
    std::string reasonWith(std::string_view part, std::string_view instead) {
        std::string text = document();
        const std::size_t place = text.find(part);
        EXPECT_NE(place, std::string::npos) << part;
        log.clear();
        EXPECT_EQ(load(text.replace(place, part.size(), instead)), Alerts()) << instead;
        const std::string begin = "AlertStore|default|load alerts failed (";
        const std::string end = "), using default";
        const std::string line = log.lines().size() == 1 ? log.lines().front() : std::string();
        if (!line.starts_with(begin) || !line.ends_with(end)) {
            return "no such line: " + line;
        }
        return line.substr(begin.size(), line.size() - begin.size() - end.size());
    }

    CapturedLog log;
    TemporaryFolder folder;
};

TEST_F(AlertStoreReasonsTest, aListMustBeOne) {
    EXPECT_EQ(reasonWith(R"("alerts":[)", R"("alerts":{},"others":[)"),
              R"("alerts" is not a list)");
    EXPECT_EQ(reasonWith(R"("fired":[)", R"("fired":0,"others":[)"), R"("fired" is not a list)");
}

TEST_F(AlertStoreReasonsTest, aTruthMustBeOne) {
    EXPECT_EQ(reasonWith(R"("armed":true)", R"("armed":1)"),
              R"("armed" is neither true nor false)");
    EXPECT_EQ(reasonWith(R"("meanwhile":false)", R"("meanwhile":0)"),
              R"("meanwhile" is neither true nor false)");
}

TEST_F(AlertStoreReasonsTest, aNumberMustBeWithinItsBounds) {
    EXPECT_EQ(reasonWith(R"("serial":2)", R"("serial":9)"), R"("serial" cannot be 9)");
    EXPECT_EQ(reasonWith(R"("serial":2)", R"("serial":0)"), R"("serial" cannot be 0)");
    EXPECT_EQ(reasonWith(R"("time":1794657600)", R"("time":-1)"), R"("time" cannot be -1)");
    EXPECT_EQ(reasonWith(R"("time":1794657600)", R"("time":253402300800)"),
              R"("time" cannot be 253402300800)");
}

TEST_F(AlertStoreReasonsTest, takesTheFirstAndTheLastSecond) {
    Alerts alerts = load(document());
    for (const std::int64_t second : {std::int64_t{0}, std::int64_t{253'402'300'799}}) {
        alerts.fired.at(0).time = second;
        AlertStore(folder.path()).save(alerts);
        EXPECT_EQ(AlertStore(folder.path()).load(), alerts) << second;
    }
}

TEST_F(AlertStoreReasonsTest, namesWhatAnAlertHasWrong) {
    EXPECT_EQ(reasonWith("priceAtLeast", "priceBetween"), R"("kind" cannot be "priceBetween")");
    EXPECT_EQ(reasonWith(R"("threshold":70000)", R"("threshold":0)"), "alert 1 is not sound");
    EXPECT_EQ(reasonWith(R"("fired":[)", R"("fired":[)" + std::string(kFired) + ","),
              "2 is given twice");
}

TEST_F(AlertStoreReasonsTest, namesWhatIsMissingOfWhatFired) {
    EXPECT_EQ(reasonWith(R"("serial":2,)", ""), R"("serial" is missing)");
    EXPECT_EQ(reasonWith(R"(,"price":70001)", ""), R"("price" is missing)");
    EXPECT_EQ(reasonWith(R"("change":1.5,)", ""), R"("change" is missing)");
    EXPECT_EQ(reasonWith(R"("time":1794657600,)", ""), R"("time" is missing)");
    EXPECT_EQ(reasonWith(R"(,"meanwhile":false)", ""), R"("meanwhile" is missing)");
}

}  // namespace
}  // namespace quillbar
