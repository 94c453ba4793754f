// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/notifications/AlertAnnouncer.h"

#include "Quillbar/text/AlertText.h"

#include <utility>

namespace quillbar {

AlertAnnouncer::AlertAnnouncer(AlertKeeper& keeper,
                               const Observed<Preferences>& preferences,
                               const QDBusConnection& bus)
    : m_keeper(keeper)
    , m_preferences(preferences)
    , m_fired(
          keeper.fired().observe([this](const std::vector<FiredAlert>& /*fired*/) { announce(); }))
    , m_notifications(bus) {
    m_notifications.onChosen = [this](uint number, const QString& token) {
        const auto found = m_symbols.find(number);
        if (found != m_symbols.end() && onChosen) {
            onChosen(found->second, token);
        }
    };
    m_notifications.onServer = [this] {
        for (const std::int64_t serial : std::exchange(m_failed, {})) {
            m_asked.erase(serial);
        }
        announce();
    };
    announce();
}

void AlertAnnouncer::announce() {
    // A copy, because a notice that is shown changes the list.
    const std::vector<FiredAlert> fired = *m_keeper.fired();
    for (const FiredAlert& each : fired) {
        if (m_asked.insert(each.serial).second) {
            show(each);
        }
    }
    refreshUnshown();
}

void AlertAnnouncer::show(const FiredAlert& fired) {
    const auto earlier = m_numbers.find(fired.alert.id);
    m_notifications.show({.title = AlertText::title(fired),
                          .text = AlertText::details(fired),
                          .replaces = earlier == m_numbers.end() ? 0 : earlier->second,
                          .hasSound = m_preferences->alertSound},
                         [this, fired](std::optional<uint> number) { onOutcome(fired, number); });
}

void AlertAnnouncer::onOutcome(const FiredAlert& fired, std::optional<uint> number) {
    if (!number) {
        m_failed.insert(fired.serial);
        refreshUnshown();
        return;
    }
    m_symbols[*number] = fired.alert.symbol;
    m_numbers[fired.alert.id] = *number;
    m_asked.erase(fired.serial);
    m_keeper.markShown(fired.serial);
}

void AlertAnnouncer::refreshUnshown() {
    std::vector<FiredAlert> unshown;
    for (const FiredAlert& each : *m_keeper.fired()) {
        if (m_failed.contains(each.serial)) {
            unshown.push_back(each);
        }
    }
    m_unshown.set(std::move(unshown));
}

}  // namespace quillbar
