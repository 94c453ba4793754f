// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/market/PollingLoop.h"
#include "QuillbarCore/runtime/Logger.h"
#include "QuillbarCore/runtime/Observed.h"
#include "QuillbarCore/runtime/Task.h"
#include "QuillbarCore/runtime/Time.h"

#include <optional>
#include <string_view>

namespace quillbar {

/// The common part of the boards' models. It tells a view whether the data are being loaded,
/// whether loading failed, and how old they are. Belongs to the main thread.
class PolledModel {
public:
    PolledModel(const PolledModel&) = delete;
    PolledModel& operator=(const PolledModel&) = delete;
    PolledModel(PolledModel&&) = delete;
    PolledModel& operator=(PolledModel&&) = delete;

    /// When the data were fetched; absent before the first time.
    [[nodiscard]] const Observed<std::optional<TimePoint>>& lastUpdate() const noexcept {
        return m_lastUpdate;
    }
    /// Whether a refresh runs and there is nothing to show yet.
    [[nodiscard]] const Observed<bool>& isLoading() const noexcept { return m_isLoading; }
    /// Whether the last refresh failed.
    [[nodiscard]] const Observed<bool>& loadFailed() const noexcept { return m_loadFailed; }
    /// How long ago the data were fetched; absent before the first time.
    [[nodiscard]] std::optional<Seconds> dataAge() const;

    /// Refreshes at once and then at each interval until `stopPolling`, or until nobody has read
    /// the data for the idle time-out. Does nothing while it polls.
    void startPolling() { m_polling.start(); }
    void stopPolling() { m_polling.stop(); }
    [[nodiscard]] bool isPolling() const noexcept { return m_polling.isRunning(); }

protected:
    /// `polling` is the model's last member, so that its refresh ends before the members that it
    /// uses are destroyed. It need not be constructed yet.
    PolledModel(Clock now, PollingLoop& polling);
    ~PolledModel() = default;

    enum class Shown { nothing, data };
    enum class Outcome { succeeded, unchanged };

    /// Runs a load, which stores its result. `succeeded` clears `loadFailed`; `unchanged` changes
    /// nothing. An error is logged as "WHAT failed: ERROR" and sets `loadFailed`, unless the
    /// transfer or the running task was cancelled. Throws only `Cancelled`.
    Task<void> run(Shown shown, Task<Outcome> load, std::string_view what, Logger logger);

    /// Notes that somebody reads the data.
    void recordDemand() { m_polling.recordDemand(); }
    /// Notes when the data were fetched.
    void setLastUpdate(TimePoint fetchedAt) { m_lastUpdate.set(fetchedAt); }
    [[nodiscard]] TimePoint now() const { return m_now(); }

private:
    Clock m_now;
    PollingLoop& m_polling;
    Observed<std::optional<TimePoint>> m_lastUpdate;
    Observed<bool> m_isLoading;
    Observed<bool> m_loadFailed;
};

}  // namespace quillbar
