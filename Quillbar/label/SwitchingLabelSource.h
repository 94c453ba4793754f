// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/instance/LabelMessage.h"
#include "Quillbar/labelstate/LabelSource.h"

#include <functional>
#include <memory>
#include <optional>

namespace quillbar {

/// The label of the running application, or this program's own while none runs: only one of them
/// keeps a connection. Main thread.
///
/// When the source changes, the price stays on the screen. The last price of the application is
/// shown as stale until the own connection has its first answers. An application that starts takes
/// over when it has something to show.
class SwitchingLabelSource final : public LabelSource {
public:
    /// Makes the own source, which begins to connect at once. What it uses outlives this object.
    using MakeOwn = std::function<std::unique_ptr<LabelSource>()>;

    explicit SwitchingLabelSource(MakeOwn makeOwn);

    /// Sets the report of the application; absent while none runs or answers. Call it before
    /// anything is read, and at each change, but not inside an observer.
    void applicationTells(std::optional<LabelReport> report);

    [[nodiscard]] LabelSnapshot snapshot() const override;
    [[nodiscard]] bool isStarted() const override;
    void observe(std::function<void()> onChange) override;

private:
    [[nodiscard]] bool takesOver(const LabelReport& report) const;
    void connectOnItsOwn();
    void ownChanged();
    void tell() const;

    MakeOwn m_makeOwn;
    std::function<void()> m_onChange;
    // One of these two is set at a time.
    std::optional<LabelReport> m_application;
    std::unique_ptr<LabelSource> m_own;
    /// What the application showed last, while the own source has nothing to show.
    std::optional<LabelSnapshot> m_bridge;
};

}  // namespace quillbar
