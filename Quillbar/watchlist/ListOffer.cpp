// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/watchlist/ListOffer.h"

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
    const QString told = named.join(u'、');
    return count == texts.size() ? told : told + QStringLiteral(" 等 %1 个").arg(texts.size());
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
    return QStringLiteral("添加 %1 个币种").arg(fresh.size());
}

QString ListOffer::names() const {
    return enumeration(fresh);
}

QStringList ListOffer::notes() const {
    QStringList lines;
    if (!found.unknown.empty()) {
        lines.append(QStringLiteral("未找到 ") + enumeration(found.unknown));
    }
    if (!watched.empty()) {
        lines.append(QStringLiteral("已添加 ") + enumeration(watched));
    }
    if (list.isCut) {
        lines.append(QStringLiteral("内容太长，只读了前面 %1 个").arg(list.names.size()));
    }
    return lines;
}

QString ListOffer::spoken() const {
    QStringList parts = notes();
    if (!fresh.empty()) {
        parts.prepend(title() + QStringLiteral("，") + names());
    }
    return parts.join(QStringLiteral("，"));
}

}  // namespace quillbar
