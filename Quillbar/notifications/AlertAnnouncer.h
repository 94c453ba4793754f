// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/notifications/DesktopNotifications.h"
#include "QuillbarCore/alerts/Alert.h"
#include "QuillbarCore/alerts/AlertKeeper.h"
#include "QuillbarCore/runtime/Observed.h"
#include "QuillbarCore/state/Preferences.h"

#include <QDBusConnection>
#include <QString>

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace quillbar {

/// Shows what fired as notices of the desktop, and tells the keeper when they are shown. What no
/// server takes is in `unshown` until one comes or the user has seen it elsewhere. An alert that
/// fires again replaces its notice. Main thread.
class AlertAnnouncer final {
public:
    /// The keeper and the preferences, which say whether notices have a sound, outlive it. What
    /// fired before is announced at once.
    AlertAnnouncer(AlertKeeper& keeper,
                   const Observed<Preferences>& preferences,
                   const QDBusConnection& bus);

    /// What fired and could not be shown, the oldest first; for views.
    [[nodiscard]] const Observed<std::vector<FiredAlert>>& unshown() const noexcept {
        return m_unshown;
    }

    /// The user has chosen the notice of that pair. `token` lets a window take the focus, and may
    /// be empty.
    std::function<void(const std::string& symbol, const QString& token)> onChosen;

private:
    void announce();
    void show(const FiredAlert& fired);
    void onOutcome(const FiredAlert& fired, std::optional<uint> number);
    void refreshUnshown();

    AlertKeeper& m_keeper;
    const Observed<Preferences>& m_preferences;
    // By serial: what the server has been asked to show, and what it did not show.
    std::set<std::int64_t> m_asked;
    std::set<std::int64_t> m_failed;
    // The notices that are shown: their pairs by the server's number, and their numbers by alert.
    std::map<uint, std::string> m_symbols;
    std::map<std::int64_t, uint> m_numbers;
    Observed<std::vector<FiredAlert>> m_unshown;
    Observation m_fired;
    // Last: its calls use all of the above.
    DesktopNotifications m_notifications;
};

}  // namespace quillbar
