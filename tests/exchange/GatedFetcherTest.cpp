// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/exchange/GatedFetcher.h"
#include "QuillbarCore/exchange/ServiceGate.h"
#include "QuillbarCore/model/ReferenceDate.h"
#include "QuillbarCore/runtime/TaskScope.h"
#include "tests/manual/ManualExecutor.h"
#include "tests/manual/ManualTime.h"
#include "tests/support/CapturedLog.h"
#include "tests/support/FakeFetcher.h"
#include "tests/support/Files.h"
#include "tests/support/TemporaryFolder.h"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace quillbar {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using ::testing::StartsWith;

/// One service with its gate; the statuses are what the client was answered.
class GatedFetcherTest : public ::testing::Test {
protected:
    GatedFetcherTest() { restart(); }

    void restart() {
        m_gate = std::make_shared<ServiceGate>("exchange", m_folder.path(), m_time.clock());
        m_fetcher = std::make_unique<GatedFetcher>(
            m_service, m_gate, HostBreakers(m_time.clock(), [](double seconds) {
                return seconds;
            }));
    }

    void theServiceAnswers(int status, std::optional<std::string> retryAfter = std::nullopt) {
        HTTPResponse response;
        response.status = status;
        response.body = "body";
        response.retryAfter = std::move(retryAfter);
        m_service->answers.value(std::move(response));
    }

    int ask(const std::string& url = "https://one.test/x") {
        m_scope.spawn(keep(url));
        m_executor.run();
        return m_responses.back().status;
    }

    Task<void> keep(std::string url) {
        HTTPResponse response = co_await m_fetcher->fetch(std::move(url));
        m_responses.push_back(std::move(response));
    }

    /// How long, in seconds, the gate stays closed after this answer; 0 when it stays open.
    double pauseAfter(int status, const std::optional<std::string>& retryAfter) {
        ServiceGate gate("other", m_folder.path() / "other", m_time.clock());
        gate.noteAnswer(status, retryAfter);
        const TimePoint start = m_time.now();
        double low = 0;
        double high = 10 * 86400;
        while (high - low > 0.5) {
            const double middle = (low + high) / 2;
            m_time.setClock(start + Seconds(middle));
            // A copy, because asking opens it.
            ServiceGate probe = gate;
            (probe.closedWith() ? low : high) = middle;
        }
        m_time.setClock(start);
        std::filesystem::remove_all(m_folder.path() / "other");
        return low < 1 ? 0 : high;
    }

    CapturedLog m_log;
    ManualExecutor m_executor;
    ManualTime m_time{m_executor};
    TemporaryFolder m_folder;
    std::shared_ptr<FakeFetcher> m_service = std::make_shared<FakeFetcher>();
    std::shared_ptr<ServiceGate> m_gate;
    std::unique_ptr<GatedFetcher> m_fetcher;
    std::vector<HTTPResponse> m_responses;
    // Last: its tasks use the fetcher.
    TaskScope m_scope{m_executor};
};

TEST_F(GatedFetcherTest, passesOrdinaryAnswersOn) {
    for (const int status : {200, 400, 403, 404, 451, 500, 503, 0}) {
        theServiceAnswers(status, "60");
        EXPECT_EQ(ask(), status);
        EXPECT_EQ(m_responses.back().body, "body");
    }
    EXPECT_THAT(m_service->requests, SizeIs(8));
    EXPECT_THAT(m_log.lines(), IsEmpty());
}

TEST_F(GatedFetcherTest, sendsNothingUntilTheTimeHasPassed) {
    theServiceAnswers(429, "30");
    EXPECT_EQ(ask(), 429);
    m_time.advance(Seconds(29.9));
    EXPECT_EQ(ask(), 429);
    EXPECT_EQ(m_responses.back().body, "");
    EXPECT_THAT(m_service->requests, SizeIs(1));
    m_time.advance(Seconds(0.1));
    theServiceAnswers(200);
    EXPECT_EQ(ask(), 200);
    EXPECT_THAT(m_service->requests, SizeIs(2));
}

TEST_F(GatedFetcherTest, logsOnceWhenItClosesAndOnceWhenItOpens) {
    theServiceAnswers(429, "30");
    ask();
    ask();
    ask();
    m_time.advance(Seconds(30));
    theServiceAnswers(200);
    theServiceAnswers(200);
    ask();
    ask();
    EXPECT_THAT(m_log.lines(),
                ElementsAre("ServiceGate|default|exchange answered 429: not asked again for 30 s",
                            "ServiceGate|default|exchange may be asked again"));
}

TEST_F(GatedFetcherTest, stopsRequestsToTheOtherHostsToo) {
    theServiceAnswers(418, "600");
    ask("https://one.test/x");
    EXPECT_EQ(ask("https://two.test/x"), 418);
    EXPECT_THAT(m_service->requests, SizeIs(1));
}

TEST_F(GatedFetcherTest, acceptsOnlySecondsAsRetryAfter) {
    EXPECT_NEAR(pauseAfter(429, "119"), 119, 1);
    EXPECT_NEAR(pauseAfter(429, std::nullopt), 60, 1);
    for (const char* const nonsense :
         {"", "soon", "-5", "+5", "1.5", "5 ", " 5", "5s", "Wed, 21 Oct 2026 07:28:00 GMT"}) {
        EXPECT_NEAR(pauseAfter(429, nonsense), 60, 1) << nonsense;
    }
    EXPECT_EQ(pauseAfter(429, "0"), 0);
    EXPECT_EQ(pauseAfter(503, "119"), 0);
}

TEST_F(GatedFetcherTest, isClosedForAnHourOrThreeDaysAtMost) {
    EXPECT_NEAR(pauseAfter(429, "3600"), 3600, 1);
    EXPECT_NEAR(pauseAfter(429, "3601"), 3600, 1);
    EXPECT_NEAR(pauseAfter(429, "99999999999999999999999"), 3600, 1);
    EXPECT_NEAR(pauseAfter(418, "259200"), 259200, 1);
    EXPECT_NEAR(pauseAfter(418, "999999"), 259200, 1);
    EXPECT_NEAR(pauseAfter(418, std::nullopt), 60, 1);
}

TEST_F(GatedFetcherTest, staysClosedOverARestart) {
    theServiceAnswers(418, "600");
    ask();
    m_time.advance(Seconds(599));
    restart();
    EXPECT_EQ(ask(), 418);
    EXPECT_THAT(m_service->requests, SizeIs(1));
    m_time.advance(Seconds(1));
    restart();
    theServiceAnswers(200);
    EXPECT_EQ(ask(), 200);
    EXPECT_THAT(std::filesystem::exists(m_folder.path() / "exchange-gate.json"), false);
}

TEST_F(GatedFetcherTest, beginsItsPauseAnewWhenTheClockWasSetBack) {
    theServiceAnswers(429, "30");
    ask();
    m_time.setClock(m_time.now() - Seconds(10 * 86400));
    EXPECT_EQ(ask(), 429);
    m_time.advance(Seconds(29));
    EXPECT_EQ(ask(), 429);
    m_time.advance(Seconds(1));
    theServiceAnswers(200);
    EXPECT_EQ(ask(), 200);
}

TEST_F(GatedFetcherTest, isNotHeldByAClockThatWasSetBackHoweverOftenItIsRestarted) {
    theServiceAnswers(418, "600");
    ask();
    m_time.setClock(m_time.now() - Seconds(365 * 86400));
    for (int run = 0; run < 6; ++run) {
        restart();
        EXPECT_EQ(ask(), 418);
        m_time.advance(Seconds(100));
    }
    restart();
    theServiceAnswers(200);
    EXPECT_EQ(ask(), 200);
}

TEST_F(GatedFetcherTest, limitsItsPauseWhateverItsFileHolds) {
    const double now = (m_time.now() - kReferenceDate).count();
    for (const double closedAt : {now, now + 1e6}) {
        writeContents(m_folder.path() / "exchange-gate.json",
                      fmt::format(R"({{"status":429,"closedAt":{},"until":9e99}})", closedAt));
        restart();
        EXPECT_EQ(ask(), 429);
        m_time.advance(Seconds(3600));
        theServiceAnswers(200);
        EXPECT_EQ(ask(), 200);
        m_time.setClock(kReferenceDate + Seconds(now));
    }
}

TEST_F(GatedFetcherTest, staysClosedForAnotherProcessThatWasToldToWaitForLonger) {
    ServiceGate another("exchange", m_folder.path(), m_time.clock());
    theServiceAnswers(429, "30");
    ask();
    another.noteAnswer(418, "600");
    m_time.advance(Seconds(30));
    EXPECT_EQ(ask(), 418);
    restart();
    EXPECT_EQ(ask(), 418);
    m_time.advance(Seconds(570));
    theServiceAnswers(200);
    EXPECT_EQ(ask(), 200);
}

TEST_F(GatedFetcherTest, doesNotShortenThePauseOfAnotherProcess) {
    ServiceGate another("exchange", m_folder.path(), m_time.clock());
    another.noteAnswer(418, "600");
    theServiceAnswers(429, "30");
    ask();
    restart();
    m_time.advance(Seconds(599));
    EXPECT_EQ(ask(), 418);
}

TEST_F(GatedFetcherTest, opensThoughAFileThatItCannotReplaceHoldsAFutureTime) {
    const double later = (m_time.now() - kReferenceDate).count() + 1e6;
    const auto file = m_folder.path() / "exchange-gate.json";
    const std::string bytes =
        fmt::format(R"({{"status":429,"closedAt":{},"until":{}}})", later, later + 30);
    writeContents(file, bytes);
    restart();
    EXPECT_EQ(ask(), 429);
    // As it is after a write that failed.
    writeContents(file, bytes);
    m_time.advance(Seconds(30));
    theServiceAnswers(200);
    EXPECT_EQ(ask(), 200);
}

TEST_F(GatedFetcherTest, isProlongedByALateAnswerAndNeverShortened) {
    auto first = m_service->answers.held();
    auto second = m_service->answers.held();
    auto third = m_service->answers.held();
    for (int request = 0; request < 3; ++request) {
        m_scope.spawn(keep("https://one.test/x"));
    }
    m_executor.run();
    first.setValue({.body = {}, .status = 429, .retryAfter = "30"});
    second.setValue({.body = {}, .status = 418, .retryAfter = "100"});
    third.setValue({.body = {}, .status = 429, .retryAfter = "10"});
    m_executor.run();
    m_time.advance(Seconds(99));
    EXPECT_EQ(ask(), 418);
    m_time.advance(Seconds(1));
    theServiceAnswers(200);
    EXPECT_EQ(ask(), 200);
    EXPECT_THAT(m_log.lines(), SizeIs(2));
}

TEST_F(GatedFetcherTest, isOpenWithAFileThatIsNotItsOwn) {
    for (const char* const bytes : {"",
                                    "{",
                                    "[]",
                                    R"({"status":429})",
                                    R"({"status":429,"closedAt":0})",
                                    R"({"status":429,"until":9e9})",
                                    R"({"status":200,"closedAt":8e9,"until":9e9})",
                                    R"({"status":"429","closedAt":8e9,"until":9e9})"}) {
        writeContents(m_folder.path() / "exchange-gate.json", bytes);
        restart();
        theServiceAnswers(200);
        EXPECT_EQ(ask(), 200) << bytes;
    }
    EXPECT_THAT(m_log.lines(), IsEmpty());
}

TEST_F(GatedFetcherTest, worksWithoutItsFile) {
    std::filesystem::create_directories(m_folder.path() / "exchange-gate.json" / "a folder");
    theServiceAnswers(429, "30");
    ask();
    EXPECT_EQ(ask(), 429);
    EXPECT_THAT(m_log.lines(),
                ElementsAre(StartsWith("ServiceGate|default|"),
                            StartsWith("ServiceGate|error|failed to save the gate of exchange: ")));
}

}  // namespace

}  // namespace quillbar
