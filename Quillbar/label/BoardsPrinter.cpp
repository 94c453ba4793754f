// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/label/BoardsPrinter.h"

#include "Quillbar/platform/AmountText.h"
#include "Quillbar/platform/Formatted.h"
#include "Quillbar/platform/MarketCapAgeText.h"
#include "Quillbar/platform/Translated.h"
#include "QuillbarCore/market/MarketCapAge.h"
#include "QuillbarCore/market/MarketCapRanking.h"
#include "QuillbarCore/market/Ranking.h"
#include "QuillbarCore/model/ChangeBasis.h"
#include "QuillbarCore/model/ChangeCalculator.h"
#include "QuillbarCore/model/PriceFormatter.h"
#include "QuillbarCore/runtime/OutsideText.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

namespace quillbar {

namespace {

std::string rowText(const RankedCoin& row) {
    const Ticker& ticker = row.ticker;
    const auto change = ChangeCalculator::percent(
        ticker.lastPrice, ticker.openPrice24h, std::nullopt, ChangeBasis::rolling24h);
    const std::string amount = row.marketCap ? AmountText::marketCap(row.marketCap)
                                             : AmountText::volume(ticker.quoteVolume24h);
    // The amount is the last column, because its Chinese unit is two columns wide.
    return fmt::format("{:>3}  {:<10}{:>14}  {:>9}  {}\n",
                       row.rank,
                       OutsideText::oneLine(row.coin.baseAsset),
                       PriceFormatter::price(ticker.lastPrice),
                       PriceFormatter::percent(change.value_or(0)),
                       amount);
}

}  // namespace

std::string boardText(RankingBoard board,
                      const std::vector<RankedCoin>& rows,
                      bool isLoaded,
                      const std::optional<std::string>& note) {
    std::string text = translatedFromCore(displayName(board)).toStdString();
    if (note && !rows.empty()) {
        text += formatted(translated("label", "（{}）"), *note);
    }
    text += '\n';
    for (const RankedCoin& row : rows) {
        text += rowText(row);
    }
    if (rows.empty()) {
        const QString reason =
            isLoaded ? translated("label", "暂无数据") : translated("label", "加载行情失败");
        text += fmt::format("     {}\n", reason.toStdString());
    }
    return text;
}

BoardsPrinter::BoardsPrinter(MarketState& market,
                             MarketCapState& marketCaps,
                             Executor& executor,
                             Sleeper sleeper,
                             Output output)
    : m_market(market)
    , m_marketCaps(marketCaps)
    , m_sleeper(std::move(sleeper))
    , m_output(std::move(output))
    , m_scope(executor) {}

void BoardsPrinter::start() {
    m_scope.spawn(load(m_market.refreshOnce()));
    m_scope.spawn(load(m_marketCaps.refreshOnce()));
    m_scope.spawn(giveUp());
}

Task<void> BoardsPrinter::load(Task<void> refresh) {
    co_await std::move(refresh);
    --m_pendingLoads;
    if (m_pendingLoads == 0) {
        finish();
    }
}

Task<void> BoardsPrinter::giveUp() {
    co_await m_sleeper(kPatience);
    finish();
}

std::vector<RankedCoin> BoardsPrinter::rowsOf(RankingBoard board) {
    if (const auto exchangeBoard = Ranking::exchangeBoard(board)) {
        return m_market.board(*exchangeBoard, kRows);
    }
    const MarketState::Snapshot market = m_market.snapshot();
    return MarketCapRanking::rank(m_marketCaps.entries(), market.tickers, market.universe, kRows);
}

bool BoardsPrinter::isLoaded(RankingBoard board) const {
    const bool hasMarket = m_market.lastUpdate()->has_value();
    return board == RankingBoard::marketCap ? hasMarket && m_marketCaps.lastUpdate()->has_value()
                                            : hasMarket;
}

std::optional<std::string> BoardsPrinter::noteOf(RankingBoard board) const {
    const auto age = board == RankingBoard::marketCap ? MarketCapAge::ifOld(m_marketCaps.dataAge())
                                                      : std::nullopt;
    return age ? std::optional(marketCapAgeText(*age).toStdString()) : std::nullopt;
}

void BoardsPrinter::finish() {
    if (std::exchange(m_isFinished, true)) {
        return;
    }
    std::string text;
    bool isComplete = true;
    for (const RankingBoard board : kAllRankingBoards) {
        const std::vector<RankedCoin> rows = rowsOf(board);
        isComplete = isComplete && !rows.empty();
        text += (text.empty() ? "" : "\n") + boardText(board, rows, isLoaded(board), noteOf(board));
    }
    const int status = isComplete ? kSuccess : kMissing;
    m_output.finish(m_output.print(text) ? status : kNotWritten);
}

}  // namespace quillbar
