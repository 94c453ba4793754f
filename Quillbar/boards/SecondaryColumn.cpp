// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/boards/SecondaryColumn.h"

#include "Quillbar/platform/AmountText.h"
#include "Quillbar/platform/Translated.h"

namespace quillbar {

SecondaryColumn secondaryColumnOf(RankingBoard board) {
    return board == RankingBoard::marketCap ? SecondaryColumn::marketCap : SecondaryColumn::volume;
}

QString columnTitle(SecondaryColumn column) {
    return column == SecondaryColumn::marketCap ? translated("boards", "市值")
                                                : translated("boards", "成交额");
}

QString columnText(SecondaryColumn column, const RankedCoin& entry) {
    return QString::fromStdString(column == SecondaryColumn::marketCap
                                      ? AmountText::marketCap(entry.marketCap)
                                      : AmountText::volume(entry.ticker.quoteVolume24h));
}

}  // namespace quillbar
