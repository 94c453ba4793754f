// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/model/DocumentError.h"
#include "QuillbarCore/state/WatchlistStore.h"
#include "tests/support/CapturedLog.h"
#include "tests/support/Files.h"
#include "tests/support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace quillbar {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct WatchlistStoreTest : testing::Test {
    Watchlist load(std::string_view text) {
        writeContents(folder.path() / "watchlist.json", text);
        return WatchlistStore(folder.path()).load();
    }

    CapturedLog log;
    TemporaryFolder folder;
};

TEST_F(WatchlistStoreTest, keepsAnEmptyListAsItIs) {
    EXPECT_EQ(load(R"({"schemaVersion":1,"coins":[]})"), (Watchlist{1, {}}));
    EXPECT_THAT(log.lines(), IsEmpty());
}

TEST_F(WatchlistStoreTest, keepsAPinThatNamesNoListedCoin) {
    EXPECT_EQ(load(R"({"schemaVersion":1,"coins":[],"pinnedSymbol":"GONEUSDT"})"),
              (Watchlist{1, {}, "GONEUSDT"}));
    EXPECT_THAT(log.lines(), IsEmpty());
}

TEST_F(WatchlistStoreTest, loadsTheDefaultForAListWithoutCoins) {
    EXPECT_EQ(load(R"({"schemaVersion":1})"), Watchlist::defaultWatchlist());
    EXPECT_THAT(log.lines(),
                ElementsAre("WatchlistStore|default|load watchlist failed "
                            R"(("coins" is missing), using default)"));
}

TEST_F(WatchlistStoreTest, loadsTheDefaultForACoinWithoutItsBaseAsset) {
    EXPECT_EQ(load(R"({"schemaVersion":1,"coins":[{"symbol":"BTCUSDT"}]})"),
              Watchlist::defaultWatchlist());
    EXPECT_THAT(log.lines(),
                ElementsAre("WatchlistStore|default|load watchlist failed "
                            R"(("baseAsset" is missing), using default)"));
}

TEST_F(WatchlistStoreTest, checksTheVersionOnlyOfADocumentThatItCanDecode) {
    EXPECT_EQ(load(R"({"schemaVersion":2,"list":[]})"), Watchlist::defaultWatchlist());
    EXPECT_THAT(log.lines(),
                ElementsAre("WatchlistStore|default|load watchlist failed "
                            R"(("coins" is missing), using default)"));
}

TEST_F(WatchlistStoreTest, keepsNamesBeyondAscii) {
    const Watchlist list{1, {{"币安人生USDT", "币安人生"}}, "币安人生USDT"};
    WatchlistStore(folder.path()).save(list);
    EXPECT_EQ(WatchlistStore(folder.path()).load(), list);
}

TEST_F(WatchlistStoreTest, doesNotSaveATextThatIsNotUtf8) {
    const Watchlist before = load(R"({"schemaVersion":1,"coins":[]})");
    EXPECT_THROW(WatchlistStore(folder.path()).save(before.adding({"\xFFUSDT", "\xFF"})),
                 DocumentError);
    EXPECT_EQ(WatchlistStore(folder.path()).load(), before);
}

}  // namespace
}  // namespace quillbar
