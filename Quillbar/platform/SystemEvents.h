// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include <functional>

namespace quillbar {

/// Tells when a connection is probably dead: the machine has woken from sleep (logind on the system
/// bus), or a network has come back (NetworkManager there). These are only hints: if another
/// program manages the network, or without a system bus, nothing is told.
///
/// Lives on the main thread. Constructing it connects to the system bus, which blocks for up to 25
/// s when the bus hangs: do so once a price is on screen.
class SystemEvents final : public QObject {
    Q_OBJECT

public:
    /// `onResume` is called on the main thread, perhaps several times for one cause.
    explicit SystemEvents(std::function<void()> onResume);

private:
    Q_SLOT void prepareForSleep(bool isGoingToSleep);
    Q_SLOT void networkStateChanged(uint state);

    std::function<void()> m_onResume;
    // Unknown at first, so the first report of a connection counts.
    bool m_isConnected = false;
};

}  // namespace quillbar
