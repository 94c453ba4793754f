// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/text/FontWeights.h"

namespace quillbar {

QFont::Weight FontWeights::closest(QFont::Weight wanted, const QList<int>& offered) {
    const bool isMissing = wanted == QFont::DemiBold && !offered.contains(QFont::DemiBold);
    return isMissing && offered.contains(QFont::Medium) ? QFont::Medium : wanted;
}

}  // namespace quillbar
