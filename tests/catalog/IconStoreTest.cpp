// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/catalog/IconStore.h"
#include "QuillbarCore/exchange/URLError.h"
#include "QuillbarCore/runtime/Time.h"
#include "tests/manual/ManualExecutor.h"
#include "tests/runtime/HookedFileOperations.h"
#include "tests/support/CapturedLog.h"
#include "tests/support/FakeFetcher.h"
#include "tests/support/Files.h"
#include "tests/support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace quillbar {

namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

const std::string kLogo = "\x89PNG and the rest";
const std::string kOther = "\x89PNG of another";

class IconStoreTest : public ::testing::Test {
protected:
    // What each request brought, in the order in which they ended; "-" for nothing.
    TaskScope::Handle ask(const std::string& baseAsset) {
        auto handle = m_scope.spawn(keep(baseAsset));
        m_executor.run();
        return handle;
    }

    Task<void> keep(std::string baseAsset) {
        const std::optional<std::string> icon = co_await m_store->iconData(std::move(baseAsset));
        m_icons.push_back(icon.value_or("-"));
    }

    void theFileHolds(const std::string& name, const std::string& bytes) const {
        writeContents(iconsFolder() / name, bytes);
    }

    [[nodiscard]] std::string file(const std::string& name) const {
        return contentsOf(iconsFolder() / name);
    }

    [[nodiscard]] bool exists(const std::string& name) const {
        return std::filesystem::exists(iconsFolder() / name);
    }

    [[nodiscard]] std::filesystem::path iconsFolder() const { return m_folder.path() / "Icons"; }

    CapturedLog m_log;
    ManualExecutor m_executor;
    TemporaryFolder m_folder;
    std::shared_ptr<FakeFetcher> m_fetcher = std::make_shared<FakeFetcher>();
    HookedFileOperations m_files;
    TimePoint m_now{Seconds(1794657600)};
    std::unique_ptr<IconStore> m_store = std::make_unique<IconStore>(m_executor,
                                                                     m_folder.path() / "Icons",
                                                                     m_fetcher,
                                                                     "https://icons.test/logos",
                                                                     m_files,
                                                                     [this] { return m_now; });
    std::vector<std::string> m_icons;
    // Last: its tasks use the store.
    TaskScope m_scope{m_executor};
};

TEST_F(IconStoreTest, returnsAStoredLogoWithoutARequest) {
    theFileHolds("btc.png", kLogo);
    ask("BTC");
    EXPECT_THAT(m_icons, ElementsAre(kLogo));
    EXPECT_THAT(m_fetcher->requests, IsEmpty());
}

TEST_F(IconStoreTest, fetchesALogoOnceAndKeepsIt) {
    m_fetcher->answer(200, kLogo);
    ask("btc");
    ask("BTC");
    EXPECT_THAT(m_icons, ElementsAre(kLogo, kLogo));
    EXPECT_THAT(m_fetcher->requests, ElementsAre("https://icons.test/logos/BTC.png"));
    EXPECT_EQ(file("btc.png"), kLogo);
    EXPECT_THAT(m_log.lines(), IsEmpty());
}

TEST_F(IconStoreTest, replacesAFileThatIsNoLogo) {
    for (const std::string& bad : {std::string("\x89PN"), std::string("<html>"), std::string()}) {
        theFileHolds("btc.png", bad);
        m_fetcher->answer(200, kLogo);
        ask("BTC");
        EXPECT_EQ(file("btc.png"), kLogo);
    }
    EXPECT_THAT(m_icons, ElementsAre(kLogo, kLogo, kLogo));
}

TEST_F(IconStoreTest, recognisesALogoByItsFirstFourBytes) {
    theFileHolds("btc.png", "\x89PNG");
    ask("BTC");
    EXPECT_THAT(m_icons, ElementsAre("\x89PNG"));
}

TEST_F(IconStoreTest, sharesADownloadOfUpperAndLowerCase) {
    auto answer = m_fetcher->answers.held();
    ask("ETH");
    ask("eth");
    EXPECT_THAT(m_fetcher->requests, ElementsAre("https://icons.test/logos/ETH.png"));
    answer.setValue({.body = kLogo, .status = 200});
    m_executor.run();
    EXPECT_THAT(m_icons, ElementsAre(kLogo, kLogo));
}

TEST_F(IconStoreTest, fetchesDifferentLogosSideBySide) {
    auto first = m_fetcher->answers.held();
    auto second = m_fetcher->answers.held();
    ask("BTC");
    ask("ETH");
    second.setValue({.body = kOther, .status = 200});
    m_executor.run();
    first.setValue({.body = kLogo, .status = 200});
    m_executor.run();
    EXPECT_THAT(m_icons, ElementsAre(kOther, kLogo));
}

TEST_F(IconStoreTest, goesOnWhenACallerIsCancelled) {
    auto answer = m_fetcher->answers.held();
    const auto first = ask("ETH");
    ask("ETH");
    first.cancel();
    m_executor.run();
    answer.setValue({.body = kLogo, .status = 200});
    m_executor.run();
    EXPECT_THAT(m_icons, ElementsAre(kLogo));
    EXPECT_EQ(file("eth.png"), kLogo);
}

TEST_F(IconStoreTest, triesAgainAfterAFailure) {
    m_fetcher->answer(404);
    m_fetcher->answer(404);
    ask("NEW");
    EXPECT_THAT(m_log.lines(), ElementsAre("IconStore|default|icon fetch got HTTP 404 for NEW"));
    ask("NEW");
    EXPECT_THAT(m_icons, ElementsAre("-", "-"));
    EXPECT_EQ(m_fetcher->requests.size(), 2U);
}

TEST_F(IconStoreTest, callsALogoMissingForAnHourWhenTheServerDoes) {
    for (const int status : {404, 410}) {
        SCOPED_TRACE(status);
        m_fetcher->answer(status);
        ask("NEW");
        EXPECT_TRUE(m_store->isMissing("NEW"));
        EXPECT_TRUE(m_store->isMissing("new"));
        EXPECT_FALSE(m_store->isMissing("BTC"));
        m_now += Seconds(3599);
        EXPECT_TRUE(m_store->isMissing("NEW"));
        m_now += Seconds(1);
        EXPECT_FALSE(m_store->isMissing("NEW"));
    }
}

TEST_F(IconStoreTest, doesNotCallALogoMissingWhenTheServerDidNot) {
    for (const int status : {403, 408, 418, 429, 451, 500, 503}) {
        SCOPED_TRACE(status);
        m_fetcher->answer(status);
        ask("NEW");
        EXPECT_FALSE(m_store->isMissing("NEW"));
    }
    m_fetcher->fail(URLError(URLError::Code::timedOut, "timed out"));
    ask("NEW");
    EXPECT_FALSE(m_store->isMissing("NEW"));
}

TEST_F(IconStoreTest, doesNotCallALogoMissingWhenAnotherBodyCame) {
    m_fetcher->answer(200, "<html>");
    ask("NEW");
    EXPECT_THAT(m_icons, ElementsAre("-"));
    EXPECT_FALSE(m_store->isMissing("NEW"));
}

TEST_F(IconStoreTest, forgetsWhichLogosAreMissing) {
    m_fetcher->answer(404);
    ask("NEW");
    ASSERT_TRUE(m_store->isMissing("NEW"));
    m_store->forgetMissing();
    EXPECT_FALSE(m_store->isMissing("NEW"));
}

TEST_F(IconStoreTest, asksForAMissingLogoAgainWhenTheClockIsSetBack) {
    m_fetcher->answer(404);
    ask("NEW");
    m_now -= Seconds(8 * 3600);
    EXPECT_FALSE(m_store->isMissing("NEW"));
}

TEST_F(IconStoreTest, doesNotCallALogoMissingOnceItHasCome) {
    m_fetcher->answer(404);
    m_fetcher->answer(200, kLogo);
    ask("NEW");
    ASSERT_TRUE(m_store->isMissing("NEW"));
    ask("NEW");
    EXPECT_FALSE(m_store->isMissing("NEW"));
}

TEST_F(IconStoreTest, logsATransportErrorUnderTheNameAskedFor) {
    m_fetcher->fail(URLError(URLError::Code::timedOut, "timed out"));
    ask("nEw");
    EXPECT_THAT(m_icons, ElementsAre("-"));
    EXPECT_THAT(m_log.lines(), ElementsAre("IconStore|error|icon fetch failed for nEw: timed out"));
}

TEST_F(IconStoreTest, refusesABodyThatIsNoLogo) {
    m_fetcher->answer(200, "<html>");
    ask("BTC");
    m_fetcher->answer(200, kLogo + std::string(IconStore::kMaximumSize, 'x'));
    ask("BTC");
    EXPECT_THAT(m_icons, ElementsAre("-", "-"));
    EXPECT_FALSE(exists("btc.png"));
    const auto* const line = "IconStore|default|icon fetch returned a non-PNG body for BTC";
    EXPECT_THAT(m_log.lines(), ElementsAre(line, line));
}

TEST_F(IconStoreTest, takesALogoOfTheLargestSize) {
    static_assert(IconStore::kMaximumSize == 1'048'576);
    const std::string largest = kLogo + std::string(IconStore::kMaximumSize - kLogo.size(), 'x');
    m_fetcher->answer(200, largest);
    ask("BTC");
    m_icons.clear();
    ask("BTC");
    EXPECT_EQ(m_icons.at(0), largest);
    EXPECT_EQ(m_fetcher->requests.size(), 1U);
}

TEST_F(IconStoreTest, replacesAFileThatIsTooLargeForALogo) {
    theFileHolds("btc.png", kOther + std::string(IconStore::kMaximumSize, 'x'));
    m_fetcher->answer(200, kLogo);
    ask("BTC");
    EXPECT_THAT(m_icons, ElementsAre(kLogo));
    EXPECT_EQ(file("btc.png"), kLogo);
}

TEST_F(IconStoreTest, doesNotWaitForTheDisk) {
    m_fetcher->answer(200, kLogo);
    ask("BTC");
    EXPECT_EQ(file("btc.png"), kLogo);
    EXPECT_THAT(m_files.calls, Contains("rename"));
    EXPECT_THAT(m_files.calls, Not(Contains("synchronise")));
}

TEST_F(IconStoreTest, returnsALogoThatItCannotStore) {
    writeContents(iconsFolder(), "a file where the folder should be");
    m_fetcher->answer(200, kLogo);
    ask("BTC");
    EXPECT_THAT(m_icons, ElementsAre(kLogo));
    EXPECT_THAT(m_log.lines(),
                ElementsAre(StartsWith("IconStore|error|icon cache write failed for BTC: ")));
}

TEST_F(IconStoreTest, neitherAsksNorWritesForANameThatCouldLeaveTheFolder) {
    for (const std::string& name : {std::string(),
                                    std::string("."),
                                    std::string(".."),
                                    std::string("../secret"),
                                    std::string("a\0b", 3),
                                    std::string(65, 'A')}) {
        ask(name);
    }
    EXPECT_THAT(m_icons, ElementsAre("-", "-", "-", "-", "-", "-"));
    EXPECT_THAT(m_fetcher->requests, IsEmpty());
    EXPECT_THAT(m_log.lines(), IsEmpty());
    EXPECT_FALSE(std::filesystem::exists(m_folder.path() / "secret.png"));
}

TEST_F(IconStoreTest, endsItsDownloadsWhenItIsDestroyed) {
    auto answer = m_fetcher->answers.held();
    const auto waiting = ask("BTC");
    m_store.reset();
    m_executor.run();
    EXPECT_FALSE(waiting.isRunning());
    EXPECT_EQ(m_fetcher->answers.waitingCount(), 0U);
    EXPECT_THAT(m_icons, IsEmpty());
    EXPECT_THAT(m_log.lines(), IsEmpty());
}

}  // namespace

}  // namespace quillbar
