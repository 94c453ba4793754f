// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/watchlist/ListOffer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

namespace quillbar {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

using Names = std::vector<std::string>;

Watchlist watching(const Names& baseAssets) {
    Watchlist list;
    for (const std::string& base : baseAssets) {
        list.coins.push_back({base + "USDT", base});
    }
    return list;
}

/// The offer for a list of these coins and unknown names.
ListOffer offerOf(const Names& known, const Names& unknown, const Names& watched) {
    CoinNames::List list{.names = known};
    list.names.insert(list.names.end(), unknown.begin(), unknown.end());
    return ListOffer::of(
        list, {.coins = watching(known).coins, .unknown = unknown}, watching(watched));
}

Names numbered(std::size_t count) {
    Names names;
    for (std::size_t index = 1; index <= count; ++index) {
        names.push_back("C" + std::to_string(index));
    }
    return names;
}

TEST(ListOffer, offersWhatIsNotWatchedInItsOrder) {
    const ListOffer offer = offerOf({"SOL", "BTC", "ADA"}, {"FOO", "BAR"}, {"BTC", "BNB"});
    EXPECT_EQ(offer.fresh, watching({"SOL", "ADA"}).coins);
    EXPECT_EQ(offer.watched, watching({"BTC"}).coins);
    EXPECT_EQ(offer.title(), QStringLiteral("添加 2 个币种"));
    EXPECT_EQ(offer.names(), QStringLiteral("SOL、ADA"));
    EXPECT_THAT(offer.notes(),
                ElementsAre(QStringLiteral("未找到 FOO、BAR"), QStringLiteral("已添加 BTC")));
    EXPECT_EQ(offer.spoken(),
              QStringLiteral("添加 2 个币种，SOL、ADA，未找到 FOO、BAR，已添加 BTC"));
}

TEST(ListOffer, notesNothingWhenAllCanBeAdded) {
    const ListOffer offer = offerOf({"SOL", "ADA"}, {}, {"BTC"});
    EXPECT_THAT(offer.notes(), IsEmpty());
    EXPECT_EQ(offer.spoken(), QStringLiteral("添加 2 个币种，SOL、ADA"));
}

TEST(ListOffer, speaksOfNotesAloneWhenNothingCanBeAdded) {
    EXPECT_EQ(offerOf({"BTC"}, {"FOO"}, {"BTC"}).spoken(),
              QStringLiteral("未找到 FOO，已添加 BTC"));
}

TEST(ListOffer, namesEightAndTellsHowManyThereAre) {
    EXPECT_EQ(offerOf(numbered(8), {}, {}).names(),
              QStringLiteral("C1、C2、C3、C4、C5、C6、C7、C8"));
    const QString nine = QStringLiteral("C1、C2、C3、C4、C5、C6、C7、C8 等 9 个");
    EXPECT_EQ(offerOf(numbered(9), {}, {}).names(), nine);
    EXPECT_THAT(offerOf(numbered(9), {}, numbered(9)).notes(),
                ElementsAre(QStringLiteral("已添加 ") + nine));
    EXPECT_THAT(offerOf({}, numbered(9), {}).notes(),
                ElementsAre(QStringLiteral("未找到 ") + nine));
}

TEST(ListOffer, cutsWhatIsNoName) {
    EXPECT_THAT(offerOf({}, {std::string(1000, 'A')}, {}).notes(),
                ElementsAre(QStringLiteral("未找到 AAAAAAAAAAAAAAAA…")));
    EXPECT_THAT(offerOf({}, {"A\x1B\u202EB"}, {}).notes(),
                ElementsAre(QStringLiteral("未找到 A B")));
}

TEST(ListOffer, keepsANameThatLooksLikeAPlaceInAText) {
    const ListOffer offer = offerOf(numbered(9), {"%1", "%2"}, {});
    EXPECT_THAT(offer.notes(), ElementsAre(QStringLiteral("未找到 %1、%2")));
    const Names many{"%2", "%1", "C", "D", "E", "F", "G", "H", "I"};
    EXPECT_EQ(offerOf(many, {}, {}).names(), QStringLiteral("%2、%1、C、D、E、F、G、H 等 9 个"));
}

TEST(ListOffer, saysThatTheTextWasTooLong) {
    ListOffer offer = offerOf({"SOL"}, {"FOO"}, {});
    offer.list.isCut = true;
    EXPECT_THAT(
        offer.notes(),
        ElementsAre(QStringLiteral("未找到 FOO"), QStringLiteral("内容太长，只读了前面 2 个")));
}

}  // namespace
}  // namespace quillbar
