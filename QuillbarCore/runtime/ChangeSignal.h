// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <boost/signals2/connection.hpp>

#include <functional>
#include <memory>

namespace quillbar {

/// Ends the observation when destroyed. May outlive what it observes.
using Observation = boost::signals2::scoped_connection;

/// Calls the observers of an `Observed` or `ObservedMap`. It passes on an untyped address, whose
/// type only those two know. So the signal library is compiled once, in this class's source, and
/// not for each observed type in each source. For the main thread.
class ChangeSignal final {
public:
    using Observer = std::function<void(const void* changed)>;

    ChangeSignal() = default;
    ChangeSignal(const ChangeSignal&) = delete;
    ChangeSignal& operator=(const ChangeSignal&) = delete;
    ChangeSignal(ChangeSignal&&) = delete;
    ChangeSignal& operator=(ChangeSignal&&) = delete;
    /// Ends every observation. If an observer destroys the signal, the observers after it are not
    /// called.
    ~ChangeSignal();

    /// Calls `observer` at each `tell` that begins from now on, until the observation is destroyed.
    [[nodiscard]] Observation observe(const Observer& observer);

    /// Calls the observers in the order in which they were added. An observer may end observations,
    /// add some, call `tell` again, and destroy this signal. Returns false if an observer destroyed
    /// the signal: then do not touch the object that owned it.
    bool tell(const void* changed);

private:
    class Signal;

    // Shared only with a running `tell`, which may outlive this object. Null before the first
    // `observe`.
    std::shared_ptr<Signal> m_signal;
};

}  // namespace quillbar
