// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/instance/LabelMessage.h"

#include <gtest/gtest.h>

#include <limits>

namespace quillbar {

namespace {

LabelReport fullReport() {
    LabelReport report;
    report.label.text = "BTC 67,234.50 ▲ 1.23%";
    report.label.quote.coin = Coin{"BTCUSDT", "BTC"};
    report.label.quote.ticker = Ticker{67234.5, 66417.61, 1.5e9};
    report.label.quote.changePercent = 1.2299327;
    report.label.quote.basis = ChangeBasis::today;
    report.label.quote.connection = ConnectionState::connected;
    report.label.lastUpdate = TimePoint(Seconds(1794657600.123));
    report.label.failure = "连接超时";
    report.label.quote.freshness = PriceFreshness::live;
    report.label.lastError = "保存失败";
    report.isStarted = true;
    report.language = TextLanguage::english;
    return report;
}

QString key(const char* name) {
    return QString::fromLatin1(name);
}

/// The full report after a journey on which one entry was replaced.
LabelReport reportWith(const char* name, const QVariant& value) {
    QVariantMap message = labelMessage(fullReport());
    EXPECT_TRUE(message.contains(key(name))) << name;
    message.insert(key(name), value);
    return labelReport(message).value();
}

TEST(LabelMessageTest, everythingArrives) {
    EXPECT_EQ(labelReport(labelMessage(fullReport())), fullReport());
}

TEST(LabelMessageTest, theLeastThereIsArrives) {
    LabelReport least;
    least.label.text = "Quillbar";
    EXPECT_EQ(labelReport(labelMessage(least)), least);
}

TEST(LabelMessageTest, thatTheNumbersAreHiddenArrives) {
    LabelReport hidden = fullReport();
    hidden.label = hidden.label.hidden();
    EXPECT_EQ(labelReport(labelMessage(hidden)), hidden);
}

TEST(LabelMessageTest, nothingTellsOfChineseTextsAndNothingElseIsEnglish) {
    LabelReport report = fullReport();
    report.language = TextLanguage::chinese;
    EXPECT_FALSE(labelMessage(report).contains(key("language")));
    for (const QVariant& value : {QVariant(key("EN")), QVariant(key("zh")), QVariant(1)}) {
        EXPECT_EQ(reportWith("language", value).language, TextLanguage::chinese);
    }
}

TEST(LabelMessageTest, everyConnectionAndBasisArrives) {
    LabelReport report = fullReport();
    for (const auto connection : {ConnectionState::disconnected,
                                  ConnectionState::connecting,
                                  ConnectionState::connected,
                                  ConnectionState::waitingRetry}) {
        for (const auto basis : kAllChangeBases) {
            report.label.quote.connection = connection;
            report.label.quote.basis = basis;
            EXPECT_EQ(labelReport(labelMessage(report)), report);
        }
    }
}

TEST(LabelMessageTest, everyFreshnessArrives) {
    LabelReport report = fullReport();
    for (const auto freshness :
         {PriceFreshness::none, PriceFreshness::stale, PriceFreshness::live}) {
        report.label.quote.freshness = freshness;
        EXPECT_EQ(labelReport(labelMessage(report)), report);
    }
}

TEST(LabelMessageTest, whatIsAbsentHasNoEntry) {
    LabelReport least;
    least.label.text = "Quillbar";
    EXPECT_EQ(labelMessage(least).keys().join(key(",")).toStdString(),
              "basis,connection,showsPrice,stale,started,text");
}

TEST(LabelMessageTest, withoutATextItIsNoLabel) {
    EXPECT_EQ(labelReport({}), std::nullopt);
    QVariantMap message = labelMessage(fullReport());
    message.insert(key("text"), 5);
    EXPECT_EQ(labelReport(message), std::nullopt);
    message.remove(key("text"));
    EXPECT_EQ(labelReport(message), std::nullopt);
}

TEST(LabelMessageTest, aTextAloneIsALabelThatIsNotLive) {
    LabelReport least;
    least.label.text = "BTC";
    EXPECT_EQ(labelReport({{key("text"), key("BTC")}}), least);
    EXPECT_TRUE(least.label.quote.isStale());
}

TEST(LabelMessageTest, entriesOfAnotherTypeAreMissing) {
    const QVariant wrong = QVariantMap{{key("a"), 1}};
    EXPECT_EQ(reportWith("symbol", wrong).label.quote.coin, std::nullopt);
    EXPECT_EQ(reportWith("baseAsset", wrong).label.quote.coin, std::nullopt);
    EXPECT_EQ(reportWith("price", key("67234.5")).label.quote.ticker, std::nullopt);
    EXPECT_EQ(reportWith("openPrice24h", 66417).label.quote.ticker, std::nullopt);
    EXPECT_EQ(reportWith("quoteVolume24h", wrong).label.quote.ticker->quoteVolume24h, std::nullopt);
    EXPECT_EQ(reportWith("changePercent", true).label.quote.changePercent, std::nullopt);
    EXPECT_EQ(reportWith("basis", wrong).label.quote.basis, ChangeBasis::rolling24h);
    EXPECT_EQ(reportWith("connection", 2).label.quote.connection, ConnectionState::disconnected);
    EXPECT_EQ(reportWith("lastUpdate", key("noon")).label.lastUpdate, std::nullopt);
    EXPECT_EQ(reportWith("failure", wrong).label.failure, std::nullopt);
    EXPECT_TRUE(reportWith("stale", 0).label.quote.isStale());
    EXPECT_EQ(reportWith("lastError", wrong).label.lastError, std::nullopt);
    EXPECT_FALSE(reportWith("started", key("yes")).isStarted);
}

TEST(LabelMessageTest, unknownNamesAreMissing) {
    EXPECT_EQ(reportWith("basis", key("Today")).label.quote.basis, ChangeBasis::rolling24h);
    EXPECT_EQ(reportWith("connection", key("")).label.quote.connection,
              ConnectionState::disconnected);
}

TEST(LabelMessageTest, withoutTheEntryTheTextSaysWhetherItShowsThePrice) {
    LabelReport stale = fullReport();
    stale.label.quote.freshness = PriceFreshness::stale;
    QVariantMap message = labelMessage(stale);
    const auto freshnessWith = [&message](const QString& text) {
        message.insert(key("text"), text);
        return labelReport(message)->label.quote.freshness;
    };
    const QString withPrice = message.value(key("text")).toString();
    // First an entry that is no boolean, which counts as missing.
    message.insert(key("showsPrice"), 0);
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(freshnessWith(withPrice), PriceFreshness::stale);
        EXPECT_EQ(freshnessWith(key("BTC")), PriceFreshness::none);
        message.remove(key("showsPrice"));
    }
}

TEST(LabelMessageTest, impossibleNumbersAreMissing) {
    for (const double number : {std::numeric_limits<double>::quiet_NaN(),
                                std::numeric_limits<double>::infinity(),
                                -std::numeric_limits<double>::infinity()}) {
        EXPECT_EQ(reportWith("price", number).label.quote.ticker, std::nullopt);
        EXPECT_EQ(reportWith("openPrice24h", number).label.quote.ticker, std::nullopt);
        EXPECT_EQ(reportWith("quoteVolume24h", number).label.quote.ticker->quoteVolume24h,
                  std::nullopt);
        EXPECT_EQ(reportWith("changePercent", number).label.quote.changePercent, std::nullopt);
        EXPECT_EQ(reportWith("lastUpdate", number).label.lastUpdate, std::nullopt);
    }
}

TEST(LabelMessageTest, impossibleTimesAreMissing) {
    EXPECT_EQ(reportWith("lastUpdate", -1.0).label.lastUpdate, std::nullopt);
    EXPECT_EQ(reportWith("lastUpdate", 253402300800.0).label.lastUpdate, std::nullopt);
    EXPECT_EQ(reportWith("lastUpdate", 1e300).label.lastUpdate, std::nullopt);
    EXPECT_EQ(reportWith("lastUpdate", 253402300799.0).label.lastUpdate,
              TimePoint(Seconds(253402300799.0)));
}

TEST(LabelMessageTest, aTickerNeedsItsCoin) {
    const LabelReport report = reportWith("symbol", 1);
    EXPECT_EQ(report.label.quote.ticker, std::nullopt);
    EXPECT_EQ(report.label.quote.changePercent, std::nullopt);
    EXPECT_FALSE(report.label.quote.showsPrice());
}

TEST(LabelMessageTest, textsThatAreNotUtf8AreMended) {
    LabelReport report = fullReport();
    report.label.text = "BTC\xff";
    report.label.failure = "\xff";
    EXPECT_EQ(labelReport(labelMessage(report))->label.text, "BTC\xef\xbf\xbd");
    EXPECT_EQ(labelReport(labelMessage(report))->label.failure, "\xef\xbf\xbd");
}

TEST(LabelMessageTest, entriesOfTheFutureAreLeftAlone) {
    QVariantMap message = labelMessage(fullReport());
    message.insert(key("mood"), key("calm"));
    EXPECT_EQ(labelReport(message), fullReport());
}

}  // namespace

}  // namespace quillbar
