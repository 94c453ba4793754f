// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/Simulator.h"

#include <functional>
#include <memory>

namespace quillbar::simulator {

/// A simulator on a thread of its own, for a client that must not share its event loop (a
/// benchmark, a program under test that blocks). Made, called and destroyed on one other thread.
class SimulatorThread final {
public:
    /// Returns once the simulator listens. Throws what `Simulator` throws.
    explicit SimulatorThread(const SimulatorOptions& options = {});
    /// Ends the simulator and its thread.
    ~SimulatorThread();
    SimulatorThread(const SimulatorThread&) = delete;
    SimulatorThread& operator=(const SimulatorThread&) = delete;
    SimulatorThread(SimulatorThread&&) = delete;
    SimulatorThread& operator=(SimulatorThread&&) = delete;

    /// Runs the function with the simulator, on its thread, and returns when it has returned. What
    /// it throws is thrown here.
    void call(const std::function<void(Simulator&)>& function);

private:
    class Impl;
    std::unique_ptr<Impl> m_impl;
};

}  // namespace quillbar::simulator
