// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QSocketNotifier>

#include <array>
#include <chrono>
#include <functional>
#include <memory>

namespace quillbar {

/// Turns SIGINT and SIGTERM into one call on the main thread. Ignores SIGPIPE: a write to a closed
/// pipe fails instead. One at a time per process; the destructor restores the defaults.
///
/// If the process does not end, a second signal ends it by its default action.
class TerminationSignals final {
public:
    /// A signal within `doubled` after the first counts as the same one, because timeout(1) sends
    /// one to the program and one to its group.
    explicit TerminationSignals(std::function<void()> onTerminate,
                                std::chrono::milliseconds doubled = std::chrono::milliseconds{500});
    TerminationSignals(const TerminationSignals&) = delete;
    TerminationSignals& operator=(const TerminationSignals&) = delete;
    TerminationSignals(TerminationSignals&&) = delete;
    TerminationSignals& operator=(TerminationSignals&&) = delete;
    ~TerminationSignals();

private:
    std::function<void()> m_onTerminate;
    std::array<int, 2> m_pipe{-1, -1};
    std::unique_ptr<QSocketNotifier> m_notifier;
};

}  // namespace quillbar
