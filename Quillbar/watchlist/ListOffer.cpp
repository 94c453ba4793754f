// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/watchlist/ListOffer.h"

#include "Quillbar/platform/Translated.h"
#include "Quillbar/text/OneLineText.h"
#include "QuillbarCore/runtime/OutsideText.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <utility>

namespace quillbar {

namespace {

/// The first of these texts, and how many there are when that is not all.
QString enumeration(const std::vector<std::string>& texts) {
    QStringList named;
    const std::size_t count = std::min(texts.size(), ListOffer::kNamed);
    for (std::size_t index = 0; index < count; ++index) {
        named.append(
            OneLineText::of(OutsideText::shortened(texts[index], ListOffer::kLongestName)));
    }
    const QString told = named.join(translated("watchlist", "、"));
    const auto all = static_cast<int>(texts.size());
    return count == texts.size() ? told
                                 : translated("watchlist", "%1 等 %n 个", nullptr, all).arg(told);
}

QString enumeration(const std::vector<Coin>& coins) {
    std::vector<std::string> names;
    names.reserve(coins.size());
    std::transform(coins.begin(), coins.end(), std::back_inserter(names), [](const Coin& coin) {
        return coin.baseAsset;
    });
    return enumeration(names);
}

}  // namespace

ListOffer ListOffer::of(CoinNames::List list, CoinNames::Found found, const Watchlist& watchlist) {
    ListOffer offer{.list = std::move(list), .found = std::move(found)};
    for (const Coin& coin : offer.found.coins) {
        (watchlist.contains(coin.symbol) ? offer.watched : offer.fresh).push_back(coin);
    }
    return offer;
}

QString ListOffer::title() const {
    const auto count = static_cast<int>(fresh.size());
    return translated("watchlist", "添加 %n 个币种", nullptr, count);
}

QString ListOffer::names() const {
    return enumeration(fresh);
}

QStringList ListOffer::notes() const {
    QStringList lines;
    if (!found.unknown.empty()) {
        lines.append(translated("watchlist", "未找到 %1").arg(enumeration(found.unknown)));
    }
    if (!watched.empty()) {
        lines.append(translated("watchlist", "已添加 %1").arg(enumeration(watched)));
    }
    if (list.isCut) {
        const auto count = static_cast<int>(list.names.size());
        lines.append(translated("watchlist", "内容太长，只读了前面 %n 个", nullptr, count));
    }
    return lines;
}

QString ListOffer::spoken() const {
    QStringList parts = notes();
    if (!fresh.empty()) {
        parts.prepend(translated("watchlist", "%1，%2").arg(title(), names()));
    }
    return parts.join(translated("watchlist", "，"));
}

}  // namespace quillbar
