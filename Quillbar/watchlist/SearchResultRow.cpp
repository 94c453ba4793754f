// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/watchlist/SearchResultRow.h"

#include "Quillbar/coins/CoinIconView.h"
#include "Quillbar/platform/Translated.h"
#include "Quillbar/text/OneLineText.h"
#include "Quillbar/widgets/TextScale.h"
#include "QuillbarCore/model/Watchlist.h"

#include <QResizeEvent>

#include <utility>

namespace quillbar {

SearchResultRow::SearchResultRow(const ViewEnvironment& environment,
                                 Content content,
                                 QWidget* parent)
    : SearchRow(parent)
    , m_appState(environment.appState)
    , m_content(std::move(content))
    , m_icon(new CoinIconView(environment, kIconSize, this)) {}

void SearchResultRow::present(const std::string& id, std::size_t index) {
    const Coin& coin = m_content(index);
    const Watched watched = m_appState.watchlist()->contains(id) ? Watched::yes : Watched::no;
    if (coin == m_coin && watched == m_watched) {
        return;
    }
    m_coin = coin;
    m_watched = watched;
    m_icon->setBaseAsset(coin.baseAsset);
    setPickable(watched == Watched::no);
    const QString base = OneLineText::of(coin.baseAsset);
    const QString pair = pairOf(coin);
    const QString atEnd = watched == Watched::yes ? translated("watchlist", "已添加") : QString();
    setTexts({.name = base, .beside = pair, .atEnd = atEnd});
    const QString name = translated("watchlist", "%1，%2").arg(base, pair);
    setAccessibleName(atEnd.isEmpty() ? name : translated("watchlist", "%1，%2").arg(name, atEnd));
}

QString SearchResultRow::pairOf(const Coin& coin) {
    const std::string& base = coin.baseAsset;
    const bool isPair = !base.empty() && coin.symbol.starts_with(base) && coin.symbol != base;
    return OneLineText::of(isPair ? base + "/" + coin.symbol.substr(base.size()) : coin.symbol);
}

void SearchResultRow::resizeEvent(QResizeEvent* event) {
    m_icon->move(TextScale::length(*this, kPadding),
                 (height() - TextScale::length(*this, kIconSize)) / 2);
    SearchRow::resizeEvent(event);
}

}  // namespace quillbar
