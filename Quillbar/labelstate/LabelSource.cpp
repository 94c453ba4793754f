// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/labelstate/LabelSource.h"

namespace quillbar {

bool isSettled(const LabelSnapshot& snapshot, bool isStarted) {
    const PinnedQuote& quote = snapshot.quote;
    return !quote.coin || isStarted || (quote.showsPrice() && quote.changePercent);
}

}  // namespace quillbar
