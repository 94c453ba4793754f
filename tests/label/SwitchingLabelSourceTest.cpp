// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/label/SwitchingLabelSource.h"
#include "tests/instance/FakeLabelSource.h"

#include <gtest/gtest.h>

#include <utility>

namespace quillbar {

namespace {

/// What a source shows that has only just begun to connect.
LabelReport beginning() {
    LabelReport report;
    report.label.text = "BTC";
    report.label.quote.coin = Coin{"BTCUSDT", "BTC"};
    return report;
}

class SwitchingLabelSourceTest : public ::testing::Test {
protected:
    SwitchingLabelSourceTest() {
        m_source.observe([this] { ++m_changes; });
    }

    /// The own source, as long as there is one.
    struct Own final : LabelSource {
        explicit Own(SwitchingLabelSourceTest& test)
            : test(test) {
            test.m_own = this;
        }
        ~Own() override { test.m_own = nullptr; }
        Own(const Own&) = delete;
        Own& operator=(const Own&) = delete;
        Own(Own&&) = delete;
        Own& operator=(Own&&) = delete;

        [[nodiscard]] LabelSnapshot snapshot() const override { return fake.snapshot(); }
        [[nodiscard]] bool isStarted() const override { return fake.isStarted(); }
        void observe(std::function<void()> onChange) override { fake.observe(std::move(onChange)); }

        SwitchingLabelSourceTest& test;
        FakeLabelSource fake{beginning()};
    };

    [[nodiscard]] bool isConnectedOnItsOwn() const { return m_own != nullptr; }
    [[nodiscard]] std::string text() const { return m_source.snapshot().text; }

    Own* m_own = nullptr;
    int m_owns = 0;
    int m_changes = 0;
    SwitchingLabelSource m_source{[this] {
        ++m_owns;
        return std::make_unique<Own>(*this);
    }};
};

TEST_F(SwitchingLabelSourceTest, withoutAnApplicationItConnectsOnItsOwn) {
    m_source.applicationTells(std::nullopt);
    ASSERT_TRUE(isConnectedOnItsOwn());
    EXPECT_EQ(text(), "BTC");
    EXPECT_FALSE(m_source.isStarted());
    m_own->fake.set(pricedReport("1.00"));
    EXPECT_EQ(text(), "BTC 1.00");
    EXPECT_TRUE(m_source.isStarted());
    EXPECT_EQ(m_changes, 2);
}

TEST_F(SwitchingLabelSourceTest, anApplicationSparesItsOwnConnection) {
    m_source.applicationTells(pricedReport("2.00"));
    EXPECT_EQ(text(), "BTC 2.00");
    EXPECT_TRUE(m_source.isStarted());
    m_source.applicationTells(pricedReport("3.00"));
    EXPECT_EQ(text(), "BTC 3.00");
    EXPECT_EQ(m_changes, 2);
    EXPECT_EQ(m_owns, 0);
}

TEST_F(SwitchingLabelSourceTest, anApplicationWithoutAPriceIsTakenAtItsWordAtTheStart) {
    m_source.applicationTells(beginning());
    EXPECT_EQ(text(), "BTC");
    EXPECT_FALSE(m_source.isStarted());
    EXPECT_EQ(m_owns, 0);
}

TEST_F(SwitchingLabelSourceTest, itConnectsOnItsOwnOnceHoweverOftenNobodyRuns) {
    m_source.applicationTells(std::nullopt);
    m_source.applicationTells(std::nullopt);
    EXPECT_EQ(m_owns, 1);
    EXPECT_EQ(m_changes, 1);
}

TEST_F(SwitchingLabelSourceTest, theLastPriceStaysAsStaleUntilTheOwnOneComes) {
    m_source.applicationTells(pricedReport("2.00"));
    m_source.applicationTells(std::nullopt);
    EXPECT_EQ(text(), "BTC 2.00");
    EXPECT_TRUE(m_source.snapshot().quote.isStale());
    EXPECT_EQ(m_source.snapshot().quote.connection, ConnectionState::connecting);
    EXPECT_FALSE(m_source.isStarted());
    m_own->fake.set(beginning());
    EXPECT_EQ(text(), "BTC 2.00");
    m_own->fake.set(pricedReport("2.10"));
    EXPECT_EQ(text(), "BTC 2.10");
    EXPECT_FALSE(m_source.snapshot().quote.isStale());
}

TEST_F(SwitchingLabelSourceTest, theLastPriceGoesWhenTheOwnRequestsHaveFailed) {
    m_source.applicationTells(pricedReport("2.00"));
    m_source.applicationTells(std::nullopt);
    LabelReport failed = beginning();
    failed.isStarted = true;
    m_own->fake.set(failed);
    EXPECT_EQ(text(), "BTC");
}

TEST_F(SwitchingLabelSourceTest, anApplicationThatStartsTakesOverOnceItHasAPrice) {
    m_source.applicationTells(std::nullopt);
    m_own->fake.set(pricedReport("1.00"));
    m_source.applicationTells(beginning());
    EXPECT_EQ(text(), "BTC 1.00");
    EXPECT_TRUE(isConnectedOnItsOwn());
    m_source.applicationTells(pricedReport("1.10"));
    EXPECT_EQ(text(), "BTC 1.10");
    EXPECT_FALSE(isConnectedOnItsOwn());
}

TEST_F(SwitchingLabelSourceTest, anApplicationThatFindsNoPriceTakesOverToo) {
    m_source.applicationTells(std::nullopt);
    m_own->fake.set(pricedReport("1.00"));
    LabelReport failed = beginning();
    failed.isStarted = true;
    m_source.applicationTells(failed);
    EXPECT_EQ(text(), "BTC");
    EXPECT_FALSE(isConnectedOnItsOwn());
}

TEST_F(SwitchingLabelSourceTest, anApplicationTakesOverAtOnceWhereThereIsNoPrice) {
    m_source.applicationTells(std::nullopt);
    m_source.applicationTells(beginning());
    EXPECT_FALSE(isConnectedOnItsOwn());
}

TEST_F(SwitchingLabelSourceTest, anApplicationThatReturnsEndsTheBridge) {
    m_source.applicationTells(pricedReport("2.00"));
    m_source.applicationTells(std::nullopt);
    m_source.applicationTells(pricedReport("3.00"));
    m_source.applicationTells(std::nullopt);
    EXPECT_EQ(text(), "BTC 3.00");
    EXPECT_EQ(m_owns, 2);
}

}  // namespace

}  // namespace quillbar
