// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/qtsupport/SpinUntil.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEvent>
#include <QTimer>

namespace quillbar {

namespace {

// Deletions asked for outside an event handler are otherwise left until a loop is entered.
void deleteWhatWaits() {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

}  // namespace

bool spinUntil(const std::function<bool()>& predicate, std::chrono::milliseconds timeout) {
    const QDeadlineTimer deadline(timeout);
    // Its event ends the last wait; nothing listens to it.
    QTimer wake;
    wake.setSingleShot(true);
    wake.start(timeout);
    while (!predicate()) {
        if (deadline.hasExpired()) {
            return false;
        }
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        deleteWhatWaits();
    }
    return true;
}

void spinUntilIdle() {
    QAbstractEventDispatcher* const dispatcher = QAbstractEventDispatcher::instance();
    while (dispatcher != nullptr && dispatcher->processEvents(QEventLoop::AllEvents)) {
        deleteWhatWaits();
    }
}

}  // namespace quillbar
