// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/catalog/CoinCatalog.h"
#include "QuillbarCore/exchange/BinanceError.h"
#include "QuillbarCore/runtime/TaskScope.h"
#include "tests/manual/ManualExecutor.h"
#include "tests/manual/ManualTime.h"
#include "tests/support/CapturedLog.h"
#include "tests/support/FakeBinanceAPI.h"
#include "tests/support/Files.h"
#include "tests/support/Outcome.h"
#include "tests/support/TemporaryFolder.h"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace quillbar {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;

using Coins = std::vector<Coin>;
using CoinsOutcome = std::shared_ptr<Outcome<Coins>>;

Coin coin(const std::string& baseAsset) {
    return {baseAsset + "USDT", baseAsset};
}

Coins coins(const std::vector<std::string>& baseAssets) {
    Coins result;
    for (const std::string& baseAsset : baseAssets) {
        result.push_back(coin(baseAsset));
    }
    return result;
}

/// The start of the test's clock, 2026-11-14T12:00:00Z, as the file counts: from 2001.
constexpr double kStart = 816350400;

struct CoinCatalogTest : testing::Test {
    void theExchangeLists(const std::vector<std::string>& baseAssets) {
        api.exchangeInfoAnswers.otherwise(coins(baseAssets));
    }

    void theFileHolds(const std::string& text) { writeContents(file, text); }

    /// A file with one coin, OLD.
    void theFileWasWritten(Seconds ago) {
        theFileHolds(
            fmt::format(R"({{"fetchedAt":{},"coins":[{{"symbol":"OLDUSDT","baseAsset":"OLD"}}]}})",
                        kStart - ago.count()));
    }

    CoinsOutcome allCoins(TaskScope::Handle* handle = nullptr) {
        auto outcome = spawnRecorded(scope, catalog->allCoins(), handle);
        executor.run();
        return outcome;
    }

    /// The base assets that the query finds.
    std::vector<std::string> found(const std::string& query) {
        const CoinsOutcome outcome = spawnRecorded(scope, catalog->search(query));
        executor.run();
        const std::optional<Coins>& listed = outcome->value;
        if (!listed) {
            return {"(no answer)"};
        }
        std::vector<std::string> baseAssets;
        for (const Coin& each : *listed) {
            baseAssets.push_back(each.baseAsset);
        }
        return baseAssets;
    }

    void restart() {
        catalog = std::make_unique<CoinCatalog>(executor, api, folder.path() / "a/b", time.clock());
    }

    CapturedLog log;
    ManualExecutor executor;
    ManualTime time{executor};
    TemporaryFolder folder;
    std::filesystem::path file = folder.path() / "a/b/coin-catalog.json";
    FakeBinanceAPI api;
    std::unique_ptr<CoinCatalog> catalog =
        std::make_unique<CoinCatalog>(executor, api, folder.path() / "a/b", time.clock());
    TaskScope scope{executor};
};

TEST_F(CoinCatalogTest, loadsFromTheNetworkInTheExchangesOrder) {
    theExchangeLists({"ETH", "BTC", "AAVE"});
    EXPECT_EQ(allCoins()->value, coins({"ETH", "BTC", "AAVE"}));
    EXPECT_THAT(log.lines(), IsEmpty());
}

TEST_F(CoinCatalogTest, writesWhatItLoadedCompactlyInDeclaredOrder) {
    theExchangeLists({"ETH", "BTC"});
    time.advance(Seconds(0.25));
    allCoins();
    EXPECT_EQ(contentsOf(file),
              R"({"fetchedAt":816350400.25,"coins":[{"symbol":"ETHUSDT","baseAsset":"ETH"},)"
              R"({"symbol":"BTCUSDT","baseAsset":"BTC"}]})");
}

TEST_F(CoinCatalogTest, stampsTheFileWhenTheAnswerHasCome) {
    const auto answer = api.exchangeInfoAnswers.held();
    allCoins();
    time.advance(Seconds(5));
    answer.setValue(coins({"ETH"}));
    executor.run();
    EXPECT_THAT(contentsOf(file), StartsWith(R"({"fetchedAt":816350405.0,)"));
}

TEST_F(CoinCatalogTest, readsWhatItWrote) {
    theExchangeLists({"ETH", "币安人生"});
    allCoins();
    restart();
    EXPECT_EQ(allCoins()->value, coins({"ETH", "币安人生"}));
    EXPECT_EQ(api.exchangeInfoRequests, 1);
}

TEST_F(CoinCatalogTest, asksNeitherDiskNorNetworkOnceLoadedHoweverOld) {
    theExchangeLists({"ETH"});
    allCoins();
    std::filesystem::remove(file);
    api.exchangeInfoAnswers.otherwise(coins({"BTC"}));
    time.advance(Seconds(10 * 86400));
    EXPECT_EQ(allCoins()->value, coins({"ETH"}));
    EXPECT_EQ(api.exchangeInfoRequests, 1);
}

TEST_F(CoinCatalogTest, keepsAnEmptyListAsWell) {
    theExchangeLists({});
    allCoins();
    EXPECT_EQ(allCoins()->value, Coins());
    EXPECT_EQ(api.exchangeInfoRequests, 1);
}

TEST_F(CoinCatalogTest, usesAFileWrittenASecondLessThanADayAgo) {
    theFileWasWritten(Seconds(86399));
    EXPECT_EQ(allCoins()->value, coins({"OLD"}));
    EXPECT_EQ(api.exchangeInfoRequests, 0);
}

TEST_F(CoinCatalogTest, keepsInMemoryWhatTheFileHeld) {
    theFileWasWritten(Seconds(86399));
    allCoins();
    time.advance(Seconds(60));
    EXPECT_EQ(allCoins()->value, coins({"OLD"}));
    EXPECT_EQ(api.exchangeInfoRequests, 0);
}

TEST_F(CoinCatalogTest, loadsAgainWhenTheFileWasWrittenExactlyADayAgo) {
    theFileWasWritten(Seconds(86400));
    theExchangeLists({"ETH"});
    EXPECT_EQ(allCoins()->value, coins({"ETH"}));
    EXPECT_EQ(api.exchangeInfoRequests, 1);
}

TEST_F(CoinCatalogTest, leavesAStaleFileInPlaceUntilTheNextSave) {
    theFileWasWritten(Seconds(86400));
    const std::string before = contentsOf(file);
    api.exchangeInfoAnswers.error(BinanceError(503));
    allCoins();
    EXPECT_EQ(contentsOf(file), before);
}

TEST_F(CoinCatalogTest, usesAFileFromTheFuture) {
    theFileWasWritten(Seconds(-1e9));
    EXPECT_EQ(allCoins()->value, coins({"OLD"}));
}

TEST_F(CoinCatalogTest, acceptsAWholeNumberOfSeconds) {
    theFileHolds(R"({"coins":[],"fetchedAt":816350400,"more":[1]})");
    EXPECT_EQ(allCoins()->value, Coins());
    EXPECT_EQ(api.exchangeInfoRequests, 0);
}

TEST_F(CoinCatalogTest, ignoresADamagedFileSilently) {
    const std::string fresh = R"("fetchedAt":816350400.0)";
    for (const std::string& text : {std::string(),
                                    std::string("nonsense"),
                                    std::string("[]"),
                                    "{" + fresh + "}",
                                    "{" + fresh + R"(,"coins":{}})",
                                    "{" + fresh + R"(,"coins":[{"symbol":"BTCUSDT"}]})",
                                    "{" + fresh + R"(,"coins":[7]})",
                                    std::string(R"({"fetchedAt":"816350400","coins":[]})"),
                                    std::string(R"({"fetchedAt":1e999,"coins":[]})"),
                                    std::string(R"({"coins":[]})"),
                                    "{" + fresh + R"(,"coins":[)",
                                    std::string(200000, '[')}) {
        SCOPED_TRACE(text.substr(0, 60));
        theFileHolds(text);
        theExchangeLists({"ETH"});
        restart();
        EXPECT_EQ(allCoins()->value, coins({"ETH"}));
    }
    EXPECT_THAT(log.lines(), IsEmpty());
}

TEST_F(CoinCatalogTest, logsOnceAndReturnsTheListWhenTheFolderCannotBeMade) {
    theExchangeLists({"ETH"});
    writeContents(folder.path() / "a", "a file where the folder should be");
    EXPECT_EQ(allCoins()->value, coins({"ETH"}));
    EXPECT_THAT(
        log.lines(),
        ElementsAre(StartsWith(
            "CoinCatalog|error|failed to save coin catalog cache: cannot make the folder ")));
    EXPECT_EQ(allCoins()->value, coins({"ETH"}));
    EXPECT_THAT(log.lines(), SizeIs(1));
}

TEST_F(CoinCatalogTest, logsOnceAndReturnsTheListWhenTheFileCannotBeReplaced) {
    theExchangeLists({"ETH"});
    std::filesystem::create_directories(file);
    EXPECT_EQ(allCoins()->value, coins({"ETH"}));
    EXPECT_THAT(log.lines(),
                ElementsAre(StartsWith(
                    "CoinCatalog|error|failed to save coin catalog cache: cannot replace ")));
    EXPECT_EQ(entryCount(file.parent_path()), 1U);
}

TEST_F(CoinCatalogTest, makesOneRequestForConcurrentCallers) {
    const auto answer = api.exchangeInfoAnswers.held();
    const CoinsOutcome first = allCoins();
    const CoinsOutcome second = allCoins();
    EXPECT_TRUE(first->isPending());
    answer.setValue(coins({"ETH"}));
    executor.run();
    EXPECT_EQ(first->value, coins({"ETH"}));
    EXPECT_EQ(second->value, coins({"ETH"}));
    EXPECT_EQ(api.exchangeInfoRequests, 1);
}

TEST_F(CoinCatalogTest, tellsConcurrentCallersOfTheErrorAndTheNextCallTriesAgain) {
    const auto answer = api.exchangeInfoAnswers.held();
    theExchangeLists({"ETH"});
    const CoinsOutcome first = allCoins();
    const CoinsOutcome second = allCoins();
    answer.setError(std::make_exception_ptr(BinanceError(503)));
    executor.run();
    EXPECT_EQ(first->error, BinanceError(503).what());
    EXPECT_EQ(second->error, BinanceError(503).what());
    EXPECT_EQ(api.exchangeInfoRequests, 1);
    EXPECT_EQ(allCoins()->value, coins({"ETH"}));
    EXPECT_EQ(api.exchangeInfoRequests, 2);
    EXPECT_THAT(log.lines(), IsEmpty());
}

TEST_F(CoinCatalogTest, goesOnLoadingWhenTheCallerThatStartedItIsCancelled) {
    const auto answer = api.exchangeInfoAnswers.held();
    TaskScope::Handle handle;
    const CoinsOutcome first = allCoins(&handle);
    const CoinsOutcome second = allCoins();
    handle.cancel();
    executor.run();
    EXPECT_TRUE(first->isCancelled);
    EXPECT_TRUE(second->isPending());
    answer.setValue(coins({"ETH"}));
    executor.run();
    EXPECT_EQ(second->value, coins({"ETH"}));
}

TEST_F(CoinCatalogTest, cancelsEveryWaitWhenItIsDestroyed) {
    const auto answer = api.exchangeInfoAnswers.held();
    const CoinsOutcome all = allCoins();
    const CoinsOutcome search = spawnRecorded(scope, catalog->search("eth"));
    executor.run();
    EXPECT_EQ(api.exchangeInfoAnswers.waitingCount(), 1U);
    catalog.reset();
    EXPECT_EQ(api.exchangeInfoAnswers.waitingCount(), 0U);
    answer.setValue(coins({"ETH"}));
    executor.run();
    EXPECT_TRUE(all->isCancelled);
    EXPECT_TRUE(search->isCancelled);
    EXPECT_FALSE(std::filesystem::exists(file));
}

TEST_F(CoinCatalogTest, findsNothingForAQueryOfSpacesAndLoadsNothing) {
    theExchangeLists({"BTC"});
    EXPECT_THAT(found("  \n\u3000"), IsEmpty());
    EXPECT_THAT(found(""), IsEmpty());
    EXPECT_EQ(api.exchangeInfoRequests, 0);
}

TEST_F(CoinCatalogTest, findsExactThenPrefixThenSubstring) {
    theExchangeLists({"WBTC", "BTCUP", "BTC", "ETH"});
    EXPECT_THAT(found("btc"), ElementsAre("BTC", "BTCUP", "WBTC"));
}

TEST_F(CoinCatalogTest, keepsTheExchangesOrderWithinEachGroup) {
    theExchangeLists({"XBB", "BB2", "ABB", "BB1", "BB"});
    EXPECT_THAT(found(" bB\t"), ElementsAre("BB", "BB2", "BB1", "XBB", "ABB"));
}

TEST_F(CoinCatalogTest, comparesTheBaseAssetAlone) {
    theExchangeLists({"BTC"});
    EXPECT_THAT(found("usdt"), IsEmpty());
    EXPECT_THAT(found("BTCUSDT"), IsEmpty());
}

TEST_F(CoinCatalogTest, comparesBothSidesInUpperCase) {
    theExchangeLists({"beamX", "币安人生", "ДОГ"});
    EXPECT_THAT(found("BEAMx"), ElementsAre("beamX"));
    EXPECT_THAT(found("安人"), ElementsAre("币安人生"));
    EXPECT_THAT(found("до"), ElementsAre("ДОГ"));
}

TEST_F(CoinCatalogTest, foldsNoAccentsAndNoWidths) {
    theExchangeLists({"CAFÉ", "ＢＴＣ"});
    EXPECT_THAT(found("cafe"), IsEmpty());
    EXPECT_THAT(found("btc"), IsEmpty());
}

TEST_F(CoinCatalogTest, findsTwentyCoinsAtMostTheBestOnes) {
    std::vector<std::string> listed;
    for (int number = 10; number < 32; ++number) {
        listed.push_back(fmt::format("Y{}X", number));
    }
    listed.emplace_back("X1");
    listed.emplace_back("X");
    listed.emplace_back("X2");
    theExchangeLists(listed);
    std::vector<std::string> expected{"X", "X1", "X2"};
    expected.insert(expected.end(), listed.begin(), listed.begin() + 17);
    EXPECT_EQ(found("x"), expected);
}

TEST_F(CoinCatalogTest, findsExactlyTwentyWhenTwentyMatch) {
    std::vector<std::string> listed;
    for (int number = 10; number < 30; ++number) {
        listed.push_back(fmt::format("X{}", number));
    }
    theExchangeLists(listed);
    EXPECT_EQ(found("x"), listed);
}

TEST_F(CoinCatalogTest, looksUpNamesInTheWholeCatalog) {
    theExchangeLists({"WBTC", "BTC", "ETH"});
    auto outcome = spawnRecorded(scope, catalog->find({"ETH/USDT", "FOO", "BTC"}));
    executor.run();
    EXPECT_EQ(outcome->value,
              (CoinNames::Found{.coins = coins({"ETH", "BTC"}), .unknown = {"FOO"}}));
}

TEST_F(CoinCatalogTest, lookingUpFailsAsTheLoadDoes) {
    api.exchangeInfoAnswers.error(BinanceError(418));
    auto outcome = spawnRecorded(scope, catalog->find({"BTC"}));
    executor.run();
    EXPECT_EQ(outcome->error, BinanceError(418).what());
}

TEST_F(CoinCatalogTest, searchFailsAsTheLoadDoes) {
    api.exchangeInfoAnswers.error(BinanceError(418));
    const CoinsOutcome outcome = spawnRecorded(scope, catalog->search("btc"));
    executor.run();
    EXPECT_EQ(outcome->error, BinanceError(418).what());
}

}  // namespace
}  // namespace quillbar
