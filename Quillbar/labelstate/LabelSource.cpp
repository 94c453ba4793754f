// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/labelstate/LabelSource.h"

namespace quillbar {

bool isSettled(const LabelSnapshot& snapshot, bool isStarted) {
    return !snapshot.coin || isStarted || (snapshot.showsPrice() && snapshot.changePercent);
}

}  // namespace quillbar
