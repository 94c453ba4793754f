// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/qtsupport/SpinUntil.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
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
    // The timer's own word that it is over, not a clock's: a timer may fire a little early, and no
    // event would end the wait after that.
    bool isOver = false;
    QTimer end;
    end.setSingleShot(true);
    QObject::connect(&end, &QTimer::timeout, &end, [&isOver] { isOver = true; });
    end.start(timeout);
    while (!predicate()) {
        if (isOver) {
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
