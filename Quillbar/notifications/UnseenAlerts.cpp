// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/notifications/UnseenAlerts.h"

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

void UnseenAlerts::setPreferencesShown(bool isShown) {
    m_isPreferencesShown = isShown;
    refresh();
}

void UnseenAlerts::refresh() {
    const bool isListed = m_isPanelOpen && !m_isPreferencesShown;
    int count = 0;
    for (const FiredAlert& each : *m_unshown) {
        if (isListed) {
            m_seen.insert(each.serial);
        } else if (!m_seen.contains(each.serial)) {
            ++count;
        }
    }
    if (count != *m_count) {
        m_count.set(count);
    }
}

}  // namespace quillbar
