// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/instance/LabelService.h"
#include "tests/instance/FakeLabelSource.h"
#include "tests/qtsupport/UsedLanguage.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace quillbar {

namespace {

using ::testing::ElementsAre;

class LabelServiceTest : public ::testing::Test {
protected:
    LabelServiceTest() {
        QObject::connect(&m_adaptor, &LabelAdaptor::Changed, &m_object, [this](const auto& label) {
            m_told.push_back(labelReport(label).value());
        });
    }

    [[nodiscard]] std::vector<std::string> toldTexts() const {
        std::vector<std::string> texts;
        for (const LabelReport& report : m_told) {
            texts.push_back(report.label.text);
        }
        return texts;
    }

    QObject m_object;
    // The object's child.
    LabelAdaptor& m_adaptor = *new LabelAdaptor(&m_object);
    FakeLabelSource m_source;
    std::vector<LabelReport> m_told;
};

TEST_F(LabelServiceTest, whoeverAsksGetsTheLabelAsItStands) {
    const LabelService service(m_adaptor, m_source);
    EXPECT_EQ(labelReport(m_adaptor.Read()), pricedReport("101.00"));
    m_source.set(pricedReport("102.00"));
    EXPECT_EQ(labelReport(m_adaptor.Read()), pricedReport("102.00"));
}

TEST_F(LabelServiceTest, everybodyIsToldAtTheStartAndOfEachChange) {
    const LabelService service(m_adaptor, m_source);
    m_source.set(pricedReport("102.00"));
    EXPECT_THAT(toldTexts(), ElementsAre("BTC 101.00", "BTC 102.00"));
}

TEST_F(LabelServiceTest, nobodyIsToldOfWhatCannotBeSeen) {
    const LabelService service(m_adaptor, m_source);
    LabelReport report = m_source.report();
    report.label.lastUpdate = TimePoint(Seconds(1794657600));
    report.label.quote.ticker->quoteVolume24h = 5;
    m_source.set(report);
    EXPECT_EQ(m_told.size(), 1U);
    EXPECT_EQ(labelReport(m_adaptor.Read()), report);
}

TEST_F(LabelServiceTest, everythingThatCanBeSeenIsTold) {
    const LabelService service(m_adaptor, m_source);
    LabelReport report = m_source.report();
    const auto isTold = [&] {
        const std::size_t before = m_told.size();
        m_source.set(report);
        return m_told.size() == before + 1 && m_told.back() == report;
    };
    report.label.quote.connection = ConnectionState::waitingRetry;
    EXPECT_TRUE(isTold());
    report.label.failure = "连接超时";
    EXPECT_TRUE(isTold());
    report.label.quote.freshness = PriceFreshness::stale;
    EXPECT_TRUE(isTold());
    report.label.quote.coin->symbol = "BTCFDUSD";
    EXPECT_TRUE(isTold());
    report.label.quote.changePercent.reset();
    EXPECT_TRUE(isTold());
    report.isStarted = false;
    EXPECT_TRUE(isTold());
}

TEST_F(LabelServiceTest, tellsOfAnotherLanguageAtOnce) {
    const LabelService service(m_adaptor, m_source);
    const UsedLanguage english(TextLanguage::english);
    m_source.set(m_source.report());
    ASSERT_EQ(m_told.size(), 2U);
    EXPECT_EQ(m_told.back().language, TextLanguage::english);
}

TEST_F(LabelServiceTest, afterItsEndThereIsNoLabel) {
    {
        const LabelService service(m_adaptor, m_source);
        EXPECT_TRUE(m_source.isObserved());
    }
    EXPECT_FALSE(m_source.isObserved());
    EXPECT_TRUE(m_adaptor.Read().isEmpty());
}

}  // namespace

}  // namespace quillbar
