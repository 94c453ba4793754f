// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/platform/MarketCapAgeText.h"

#include "Quillbar/platform/Translated.h"

namespace quillbar {

QString marketCapAgeText(const MarketCapAge& age) {
    switch (age.unit) {
    case MarketCapAge::Unit::unknown:
        break;
    case MarketCapAge::Unit::hours:
        return translated("platform", "数据为%n 小时前的", nullptr, age.count);
    case MarketCapAge::Unit::days:
        return translated("platform", "数据为%n 天前的", nullptr, age.count);
    }
    return translated("platform", "数据的时间晚于系统时钟");
}

}  // namespace quillbar
