// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/alerts/Alert.h"
#include "QuillbarCore/catalog/IconStore.h"
#include "QuillbarCore/market/MarketCapState.h"
#include "QuillbarCore/market/MarketState.h"
#include "QuillbarCore/model/Calendar.h"
#include "QuillbarCore/runtime/Executor.h"
#include "QuillbarCore/runtime/Observed.h"
#include "QuillbarCore/runtime/Sleeper.h"
#include "QuillbarCore/runtime/TaskScope.h"
#include "QuillbarCore/runtime/Time.h"
#include "QuillbarCore/state/AppState.h"

#include <functional>
#include <vector>

namespace quillbar {

class AlertKeeper;
class Notices;

/// The models of the boards. Both outlive the views.
struct MarketModels final {
    MarketState& market;
    MarketCapState& marketCaps;
};

/// What all views of the panel use. Everything in it, and the environment itself, outlives the
/// views.
struct ViewEnvironment final {
    /// Its thread is that of the views.
    Executor& executor;
    Clock now;
    /// The calendar of the charts' days and hours.
    Calendar calendar;
    AppState& appState;
    /// The scope of the edits that views begin. They are finished even if the view is destroyed. It
    /// is destroyed before `appState`.
    TaskScope& edits;
    /// Null for coins without logos.
    IconStore* iconStore = nullptr;
    /// Returns the models of the boards, which are made when the first board asks for them. Not
    /// empty if there are boards.
    std::function<MarketModels()> marketModels = nullptr;
    /// Sleeps on a monotonic clock. Not empty if there is a search. Without it, an open chart is
    /// not loaded again.
    Sleeper sleeper = nullptr;
    /// The notices about the session; null for none.
    Notices* notices = nullptr;
    /// The price alerts; null where there are none.
    AlertKeeper* alerts = nullptr;
    /// What fired and could not be shown as a notice of the desktop; null for none.
    const Observed<std::vector<FiredAlert>>* unshownAlerts = nullptr;
};

}  // namespace quillbar
