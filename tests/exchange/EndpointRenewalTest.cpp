// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/exchange/EndpointRenewal.h"
#include "tests/support/CapturedLog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace quillbar {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

struct EndpointRenewalTest : ::testing::Test {
    EndpointRenewalTest() {
        renewal.whenRenewed([this](std::shared_ptr<EndpointSelector> selector) {
            renewed.push_back(std::move(selector));
        });
    }

    // Reports a failure of whichever endpoint is in use, once for each.
    static void failThroughout(EndpointSelector& selector) {
        for (int index = 0; index < selector.count(); ++index) {
            selector.markFailed(index);
        }
    }

    CapturedLog log;
    TimePoint now{Seconds(1e9)};
    EndpointRenewal renewal{{"one", "two"}, [this] { return now; }};
    std::vector<std::shared_ptr<EndpointSelector>> renewed;
};

}  // namespace

TEST_F(EndpointRenewalTest, beginsAnewOnceTheLastEndpointFails) {
    const auto selector = renewal.makeSelector();
    selector->markFailed(0);
    EXPECT_THAT(renewed, IsEmpty());
    selector->markFailed(1);
    ASSERT_THAT(renewed, SizeIs(1));
    EXPECT_EQ(renewed[0]->current(), (EndpointSelector::Endpoint{"one", 0}));
    EXPECT_EQ(selector->current(), (EndpointSelector::Endpoint{"two", 1}));
    EXPECT_THAT(log.lines("Endpoint"),
                ElementsAre("Endpoint|default|switching endpoint to two",
                            "Endpoint|default|every endpoint has failed, beginning anew with one"));
}

TEST_F(EndpointRenewalTest, beginsAnewOnceInTenMinutesHoweverOftenTheLastFails) {
    failThroughout(*renewal.makeSelector());
    ASSERT_THAT(renewed, SizeIs(1));
    now += EndpointRenewal::kSpacing - Seconds(1);
    failThroughout(*renewed.back());
    EXPECT_THAT(renewed, SizeIs(1));
    now += Seconds(1);
    renewed.back()->markFailed(1);
    EXPECT_THAT(renewed, SizeIs(2));
}

TEST_F(EndpointRenewalTest, isNotHeldUpByAClockThatWasSetBack) {
    failThroughout(*renewal.makeSelector());
    now -= Seconds(3600);
    failThroughout(*renewed.back());
    EXPECT_THAT(renewed, SizeIs(2));
}

TEST_F(EndpointRenewalTest, beginsAnewAtEachRenewal) {
    renewal.renew();
    renewal.renew();
    EXPECT_THAT(renewed, SizeIs(2));
    failThroughout(*renewed.back());
    EXPECT_THAT(renewed, SizeIs(3));
}

TEST_F(EndpointRenewalTest, ignoresALateReportOfAnEndpointThatWasLeft) {
    const auto selector = renewal.makeSelector();
    selector->markFailed(0);
    selector->markFailed(0);
    EXPECT_THAT(renewed, IsEmpty());
}

TEST_F(EndpointRenewalTest, doesNotBeginAnewWithASingleEndpoint) {
    EndpointRenewal single{{"one"}, [this] { return now; }};
    int count = 0;
    single.whenRenewed([&count](const auto&) { ++count; });
    single.makeSelector()->markFailed(0);
    EXPECT_EQ(count, 0);
}

TEST_F(EndpointRenewalTest, worksWithoutAUser) {
    EndpointRenewal unused{{"one", "two"}, [this] { return now; }};
    failThroughout(*unused.makeSelector());
    unused.renew();
    EXPECT_THAT(renewed, IsEmpty());
}

}  // namespace quillbar
