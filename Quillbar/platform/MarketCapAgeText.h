// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/market/MarketCapAge.h"

#include <QString>

namespace quillbar {

/// The age in words: "数据为3 天前的", or that the data are later than the clock. For the main thread.
[[nodiscard]] QString marketCapAgeText(const MarketCapAge& age);

}  // namespace quillbar
