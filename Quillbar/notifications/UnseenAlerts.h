// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/alerts/Alert.h"
#include "QuillbarCore/runtime/Observed.h"

#include <cstdint>
#include <set>
#include <vector>

namespace quillbar {

/// How many alerts fired, could not be shown as notices of the desktop, and are still to be seen by
/// the user: those that fired since the panel last listed them. It lists them while it is open, but
/// for the page of preferences. Main thread.
class UnseenAlerts final {
public:
    /// `unshown` is what could not be shown, and outlives it. The panel is closed and has no page
    /// of preferences.
    explicit UnseenAlerts(const Observed<std::vector<FiredAlert>>& unshown);

    /// Call it when the panel opens and when it closes.
    void setPanelOpen(bool isOpen);
    /// Call it when the page of preferences takes the place of the rest of the panel, and when the
    /// rest comes back.
    void setPreferencesShown(bool isShown);

    [[nodiscard]] const Observed<int>& count() const noexcept { return m_count; }

private:
    void refresh();

    const Observed<std::vector<FiredAlert>>& m_unshown;
    bool m_isPanelOpen = false;
    bool m_isPreferencesShown = false;
    // By serial. Kept when one is no longer unshown, because a notice that is tried once more may
    // fail once more.
    std::set<std::int64_t> m_seen;
    Observed<int> m_count{0};
    Observation m_observation;
};

}  // namespace quillbar
