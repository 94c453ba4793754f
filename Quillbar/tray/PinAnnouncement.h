// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/runtime/Executor.h"
#include "QuillbarCore/runtime/Sleeper.h"
#include "QuillbarCore/runtime/Task.h"
#include "QuillbarCore/runtime/TaskScope.h"
#include "QuillbarCore/runtime/Time.h"

#include <QString>

#include <functional>
#include <optional>

namespace quillbar {

/// Decides when a square shows the name of the coin instead of the price, as it has no room for
/// both: for a short time after another coin was pinned.
///
/// Main thread.
class PinAnnouncement final {
public:
    static constexpr Seconds kSpan{3};

    /// `onEnd` is called when an announcement is over. The executor outlives it.
    PinAnnouncement(Executor& executor, Sleeper sleeper, std::function<void()> onEnd);

    /// Call it with the pinned coin, or with an empty text for none. The first call is not
    /// announced, because that coin was pinned before.
    void pinnedIs(const QString& symbol);

    [[nodiscard]] bool isOn() const noexcept { return m_isOn; }

private:
    Task<void> endLater();

    Sleeper m_sleeper;
    std::function<void()> m_onEnd;
    std::optional<QString> m_symbol;
    bool m_isOn = false;
    TaskScope::Handle m_end;
    // Last: its tasks use all of the above.
    TaskScope m_scope;
};

}  // namespace quillbar
