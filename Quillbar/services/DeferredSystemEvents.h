// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/platform/SystemEvents.h"
#include "QuillbarCore/runtime/Executor.h"
#include "QuillbarCore/runtime/Observed.h"
#include "QuillbarCore/runtime/Sleeper.h"
#include "QuillbarCore/runtime/TaskScope.h"
#include "QuillbarCore/runtime/Time.h"

#include <optional>

namespace quillbar {

class AppServices;

/// Makes the services connect again when the machine wakes or a network comes back. It begins to
/// listen after the first price, because connecting to the system bus may block. Main thread; its
/// arguments outlive it.
class DeferredSystemEvents final {
public:
    /// A machine that starts without a network must still learn that one has come.
    static constexpr Seconds kDelay{30};

    DeferredSystemEvents(AppServices& services, Executor& executor, const Sleeper& sleeper);
    DeferredSystemEvents(const DeferredSystemEvents&) = delete;
    DeferredSystemEvents& operator=(const DeferredSystemEvents&) = delete;
    DeferredSystemEvents(DeferredSystemEvents&&) = delete;
    DeferredSystemEvents& operator=(DeferredSystemEvents&&) = delete;
    ~DeferredSystemEvents() = default;

private:
    Task<void> beginAfter(Task<void> delay);
    Task<void> begin();

    AppServices& m_services;
    std::optional<SystemEvents> m_events;
    Observation m_priced;
    // Last: its tasks use `this`.
    TaskScope m_scope;
};

}  // namespace quillbar
