// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/instance/AlertAdaptor.h"
#include "QuillbarCore/alerts/Alert.h"
#include "QuillbarCore/runtime/Observed.h"

#include <QVariantMap>

#include <cstdint>
#include <vector>

namespace quillbar {

/// What fired, as it goes over the bus. Texts that are not good UTF-8 are mended. Pure.
///
/// | entry | type | |
/// |---|---|---|
/// | symbol, baseAsset | text | the pair and its coin |
/// | condition | text | priceAtLeast, priceAtMost, changeAtLeast or changeAtMost |
/// | threshold | double | in USDT, or in percent |
/// | price | double | at which it fired |
/// | changePercent | double | over 24 hours, at that time |
/// | note | text | the user's own words; may be empty |
/// | when | 64-bit integer | seconds since 1970-01-01T00:00:00Z |
/// | meanwhile | boolean | whether the line was crossed while no prices came |
[[nodiscard]] QVariantMap alertMessage(const FiredAlert& fired);

/// Tells the session bus of each alert, once, when it fires. What fired before it was made is not
/// told. Main thread.
class AlertService final {
public:
    /// Both outlive it. `fired` is what fired and was not shown yet.
    AlertService(AlertAdaptor& adaptor, const Observed<std::vector<FiredAlert>>& fired);

private:
    void tell(const std::vector<FiredAlert>& fired);

    AlertAdaptor& m_adaptor;
    // The greatest serial so far.
    std::int64_t m_last = 0;
    // Last, because it calls a function of this object.
    Observation m_observation;
};

}  // namespace quillbar
