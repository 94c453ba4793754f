// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/notifications/UnseenAlerts.h"

#include <utility>

namespace quillbar {

UnseenAlerts::UnseenAlerts(const Observed<std::vector<FiredAlert>>& unshown)
    : m_unshown(unshown)
    , m_observation(
          unshown.observe([this](const std::vector<FiredAlert>& /*unshown*/) { refresh(); })) {
    refresh();
}

void UnseenAlerts::setPanelOpen(bool isOpen) {
    m_isPanelOpen = isOpen;
    refresh();
}

void UnseenAlerts::refresh() {
    const std::set<std::int64_t> before = std::exchange(m_seen, {});
    int count = 0;
    for (const FiredAlert& each : *m_unshown) {
        if (m_isPanelOpen || before.contains(each.serial)) {
            m_seen.insert(each.serial);
        } else {
            ++count;
        }
    }
    if (count != *m_count) {
        m_count.set(count);
    }
}

}  // namespace quillbar
