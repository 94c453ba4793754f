// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "QuillbarCore/alerts/Alert.h"

#include "QuillbarCore/model/RawValue.h"

#include <cmath>
#include <limits>

namespace quillbar {

std::string_view rawValue(AlertKind kind) {
    switch (kind) {
    case AlertKind::priceAtLeast:
        return "priceAtLeast";
    case AlertKind::priceAtMost:
        return "priceAtMost";
    case AlertKind::changeAtLeast:
        return "changeAtLeast";
    case AlertKind::changeAtMost:
        break;
    }
    return "changeAtMost";
}

std::optional<AlertKind> alertKindFromRawValue(std::string_view rawText) {
    return valueWithRawText(rawText, kAllAlertKinds);
}

bool isRising(AlertKind kind) {
    return kind == AlertKind::priceAtLeast || kind == AlertKind::changeAtLeast;
}

bool watchesPrice(AlertKind kind) {
    return kind == AlertKind::priceAtLeast || kind == AlertKind::priceAtMost;
}

bool Alert::isReachedBy(double value) const {
    return isRising(kind) ? value >= threshold : value <= threshold;
}

double Alert::rearmLevel() const {
    const double infinity = std::numeric_limits<double>::infinity();
    if (!margin) {
        // The nearest value on the near side.
        return std::nextafter(threshold, isRising(kind) ? -infinity : infinity);
    }
    return isRising(kind) ? threshold - *margin : threshold + *margin;
}

bool Alert::isSound() const {
    if (!std::isfinite(threshold) || (watchesPrice(kind) && threshold <= 0)) {
        return false;
    }
    const double level = rearmLevel();
    const bool isWithinReach = std::isfinite(level) && (!watchesPrice(kind) || level > 0);
    return isWithinReach && (!margin || *margin > 0) && !isReachedBy(level);
}

}  // namespace quillbar
