// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <boost/signals2/connection.hpp>

#include <functional>
#include <memory>

namespace quillbar {

/// Ends the observation when destroyed. May outlive what it observes.
using Observation = boost::signals2::scoped_connection;

/// What `Observed` and `ObservedMap` tell their observers with. It passes on an address whose type
/// only those two know: the signal library is compiled once, in this class's source, and not once
/// for each observed type in each source that includes one. For the main thread.
class ChangeSignal final {
public:
    using Observer = std::function<void(const void* changed)>;

    ChangeSignal() = default;
    ChangeSignal(const ChangeSignal&) = delete;
    ChangeSignal& operator=(const ChangeSignal&) = delete;
    ChangeSignal(ChangeSignal&&) = delete;
    ChangeSignal& operator=(ChangeSignal&&) = delete;
    /// Ends every observation. If an observer causes it, the observers behind that one are not told.
    ~ChangeSignal();

    /// Calls `observer` at each `tell` that begins from now on, until the observation is destroyed.
    [[nodiscard]] Observation observe(const Observer& observer);

    /// Calls the observers in the order in which they began. An observer may end observations, begin
    /// some, tell again, and destroy this signal. Returns false when one has destroyed it: nothing of
    /// what owns the signal is to be touched then.
    bool tell(const void* changed);

private:
    class Signal;

    // Shared only with a running `tell`, which may outlive this. Null until somebody observes.
    std::shared_ptr<Signal> m_signal;
};

}  // namespace quillbar
