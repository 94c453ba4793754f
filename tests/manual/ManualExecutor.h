// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/runtime/Executor.h"

#include <functional>
#include <mutex>
#include <utility>
#include <vector>

namespace quillbar {

/// An executor that runs only when told to, for tests.
class ManualExecutor final : public Executor {
public:
    void post(std::function<void()> function) override {
        const std::lock_guard lock(m_mutex);
        m_posted.push_back(std::move(function));
    }

    /// Runs until nothing is queued or posted.
    void run() {
        for (;;) {
            while (runOne()) {}
            std::vector<std::function<void()>> posted;
            {
                const std::lock_guard lock(m_mutex);
                posted = std::exchange(m_posted, {});
            }
            if (posted.empty()) {
                return;
            }
            for (const auto& function : posted) {
                function();
            }
        }
    }

private:
    void wake() noexcept override {}

    std::mutex m_mutex;
    std::vector<std::function<void()>> m_posted;
};

}  // namespace quillbar
