// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/watchlist/CoinRowView.h"

#include "Quillbar/coins/CoinCell.h"
#include "Quillbar/list/ChangeText.h"
#include "Quillbar/list/ColumnWidths.h"
#include "Quillbar/list/NumericCell.h"
#include "Quillbar/list/TableRow.h"
#include "Quillbar/platform/AmountText.h"
#include "Quillbar/platform/Translated.h"
#include "Quillbar/text/AgeText.h"
#include "Quillbar/text/OneLineText.h"
#include "Quillbar/widgets/TextScale.h"
#include "QuillbarCore/alerts/AlertKeeper.h"
#include "QuillbarCore/model/MissingValue.h"
#include "QuillbarCore/model/PriceFormatter.h"
#include "QuillbarCore/model/Ticker.h"

#include <QHBoxLayout>

#include <optional>
#include <string>

namespace quillbar {

namespace {

constexpr double kVolumeSize = 10.5;
constexpr double kPriceSize = 12;

}  // namespace

CoinRowView::CoinRowView(const ViewEnvironment& environment, QWidget* parent)
    : QWidget(parent)
    , m_environment(environment)
    , m_coinCell(new CoinCell(environment, this))
    , m_volume(new NumericCell(ColumnWidths::kAmount, kVolumeSize, this))
    , m_price(new NumericCell(ColumnWidths::kPrice, kPriceSize, this))
    , m_change(new ChangeText(ColumnWidths::kChange, this)) {
    // The gap after the last cell consists of a margin and of the spacing before it.
    auto* const layout = new QHBoxLayout(this);
    TextScale::follow(*this, [this, layout] {
        const int spacing = TextScale::length(*this, TableRow::kSpacing);
        const int trailing = TextScale::length(*this, ColumnWidths::kTrailing);
        layout->setContentsMargins(0, 0, trailing + spacing, 0);
        layout->setSpacing(spacing);
    });
    layout->addWidget(m_coinCell, 1);
    layout->addWidget(m_volume);
    layout->addWidget(m_price);
    layout->addWidget(m_change);
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void CoinRowView::setCoin(const Coin& coin) {
    m_coin = coin;
    m_coinCell->setBaseAsset(coin.baseAsset);
    refresh();
}

void CoinRowView::refresh() {
    const AppState& state = m_environment.appState;
    const Ticker* const ticker = state.tickers().find(m_coin.symbol);
    const std::optional<double> volume = ticker == nullptr ? std::nullopt : ticker->quoteVolume24h;
    const std::string price = ticker == nullptr ? std::string(kMissingValueText)
                                                : PriceFormatter::price(ticker->lastPrice);
    const bool isPinned = state.watchlist()->pinnedSymbol == m_coin.symbol;
    m_coinCell->setPinMark(isPinned ? PinMark::pinned : PinMark::none);
    m_coinCell->setBellMark(hasAlert() ? BellMark::bell : BellMark::none);
    m_volume->setText(QString::fromStdString(AmountText::volume(volume)));
    m_price->setText(QString::fromStdString(price));
    m_price->setColor(state.isDataStale() ? &ThemeColors::Resolved::secondaryText
                                          : &ThemeColors::Resolved::primaryText);
    m_change->setPercent(state.displayPercent(m_coin.symbol));
}

QString CoinRowView::ageText() const {
    const TimePoint now = m_environment.now();
    const auto update = m_environment.appState.lastUpdateOf(m_coin.symbol);
    if (!update) {
        return translated("watchlist", "尚无数据");
    }
    return now - *update < AgeText::kLive ? QString() : AgeText::of(*update, now);
}

bool CoinRowView::hasAlert() const {
    return m_environment.alerts != nullptr && m_environment.alerts->has(m_coin.symbol);
}

QString CoinRowView::spokenText() const {
    const QString text = translated("watchlist", "%1，价格 %2，涨跌 %3，成交额 %4")
                             .arg(OneLineText::of(m_coin.baseAsset),
                                  m_price->text(),
                                  m_change->text(),
                                  m_volume->text());
    return hasAlert() ? translated("watchlist", "%1，有价格提醒").arg(text) : text;
}

}  // namespace quillbar
