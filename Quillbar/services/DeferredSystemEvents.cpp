// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/services/DeferredSystemEvents.h"

#include "Quillbar/services/AppServices.h"

#include <utility>

namespace quillbar {

DeferredSystemEvents::DeferredSystemEvents(AppServices& services,
                                           Executor& executor,
                                           const Sleeper& sleeper)
    : m_services(services)
    , m_priced(services.appState().lastUpdate().observe(
          [this](const std::optional<TimePoint>& /*time*/) { m_scope.spawn(begin()); }))
    , m_scope(executor) {
    m_scope.spawn(beginAfter(sleeper(kDelay)));
}

Task<void> DeferredSystemEvents::beginAfter(Task<void> delay) {
    co_await std::move(delay);
    co_await begin();
}

Task<void> DeferredSystemEvents::begin() {
    m_priced.disconnect();
    if (!m_events) {
        m_events.emplace([this] { m_services.resume(); });
    }
    co_return;
}

}  // namespace quillbar
