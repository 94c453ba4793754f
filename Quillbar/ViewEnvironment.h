// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/Notices.h"
#include "QuillbarCore/catalog/IconStore.h"
#include "QuillbarCore/market/MarketCapState.h"
#include "QuillbarCore/market/MarketState.h"
#include "QuillbarCore/model/Calendar.h"
#include "QuillbarCore/runtime/Executor.h"
#include "QuillbarCore/runtime/Sleeper.h"
#include "QuillbarCore/runtime/TaskScope.h"
#include "QuillbarCore/runtime/Time.h"
#include "QuillbarCore/state/AppState.h"

#include <functional>

namespace quillbar {

/// What the boards show. Both outlive the views.
struct MarketModels final {
    MarketState& market;
    MarketCapState& marketCaps;
};

/// What every view of the panel is built on. All of it, and the environment itself, outlives the
/// views.
struct ViewEnvironment final {
    /// On whose thread the views live.
    Executor& executor;
    Clock now;
    /// In which the charts' days and hours are taken.
    Calendar calendar;
    AppState& appState;
    /// Where the edits that a view asks for run: they are finished even when the view goes. Ends
    /// before `appState`.
    TaskScope& edits;
    /// Without one, coins keep their placeholder.
    IconStore* iconStore = nullptr;
    /// The models behind the boards, which are built when the first board asks for them. Never
    /// empty where there are boards.
    std::function<MarketModels()> marketModels = nullptr;
    /// On a monotonic clock. Never empty where something is searched for.
    Sleeper sleeper = nullptr;
    /// What the session lacks; null for nothing to tell.
    Notices* notices = nullptr;
};

}  // namespace quillbar
