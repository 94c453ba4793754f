// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/market/MarketCapCache.h"
#include "tests/support/CapturedLog.h"
#include "tests/support/Files.h"
#include "tests/support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace quillbar {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::StartsWith;

// 2026-11-14T12:00:00.5Z, which is 816350400.5 s after the files' first second.
constexpr TimePoint kNow{Seconds(1794657600.5)};
const std::vector<MarketCapEntry> kEntries{{"BTC", 1, 1.35e12, 67234.5}, {"ETH", 2, 4e11, 3000}};

class MarketCapCacheTest : public ::testing::Test {
protected:
    void theFileHolds(const std::string& bytes) const {
        writeContents(m_folder.path() / "market-cap.json", bytes);
    }

    [[nodiscard]] std::string file() const {
        return contentsOf(m_folder.path() / "market-cap.json");
    }

    CapturedLog m_log;
    TemporaryFolder m_folder;
    MarketCapCache m_cache{m_folder.path(), [] { return kNow; }};
};

TEST_F(MarketCapCacheTest, bringsBackWhatWasSaved) {
    m_cache.save(kEntries);
    EXPECT_EQ(m_cache.load(), (MarketCapCache::Snapshot{kNow, kEntries}));
}

TEST_F(MarketCapCacheTest, writesCompactJSONInItsOrder) {
    m_cache.save({{"BTC", 1, 1.5, 2.25}});
    EXPECT_EQ(file(),
              R"({"fetchedAt":816350400.5,"entries":[{"symbol":"BTC","rank":1,)"
              R"("marketCap":1.5,"referencePrice":2.25}]})");
}

TEST_F(MarketCapCacheTest, makesItsFolder) {
    const MarketCapCache deep(m_folder.path() / "a" / "b", [] { return kNow; });
    deep.save(kEntries);
    EXPECT_TRUE(deep.load());
}

TEST_F(MarketCapCacheTest, neverReplacesAListWithAnEmptyOne) {
    m_cache.save(kEntries);
    m_cache.save({});
    EXPECT_EQ(m_cache.load()->entries, kEntries);
}

TEST_F(MarketCapCacheTest, givesBackAnOldList) {
    theFileHolds(R"({"fetchedAt":0,"entries":[]})");
    ASSERT_TRUE(m_cache.load());
    EXPECT_EQ(m_cache.load()->fetchedAt, TimePoint(Seconds(978307200)));
}

TEST_F(MarketCapCacheTest, ignoresWhatItCannotRead) {
    EXPECT_EQ(m_cache.load(), std::nullopt);
    for (
        const char* const bytes :
        {"",
         "{",
         "[]",
         R"({"fetchedAt":0})",
         R"({"entries":[]})",
         R"({"fetchedAt":"0","entries":[]})",
         R"({"fetchedAt":0,"entries":{}})",
         R"({"fetchedAt":0,"entries":[{"symbol":"BTC","rank":1,"marketCap":1}]})",
         R"({"fetchedAt":0,"entries":[{"symbol":1,"rank":1,"marketCap":1,"referencePrice":1}]})"}) {
        theFileHolds(bytes);
        EXPECT_EQ(m_cache.load(), std::nullopt) << bytes;
    }
    EXPECT_THAT(m_log.lines(), IsEmpty());
}

TEST_F(MarketCapCacheTest, logsAFailedSaveOnce) {
    const MarketCapCache blocked(m_folder.path() / "market-cap.json" / "below",
                                 [] { return kNow; });
    theFileHolds("a file where the folder should be");
    blocked.save(kEntries);
    EXPECT_THAT(m_log.lines(),
                ElementsAre(StartsWith("MarketCapCache|error|failed to save market cap cache: ")));
}

}  // namespace

}  // namespace quillbar
