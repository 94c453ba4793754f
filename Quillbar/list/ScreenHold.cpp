// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/list/ScreenHold.h"

#include <QPoint>

#include <algorithm>
#include <utility>

namespace quillbar {

namespace {

// The smaller of two distances in the same direction; 0 for opposite ones.
int sharedBy(int one, int other) {
    if (one > 0 && other > 0) {
        return std::min(one, other);
    }
    return one < 0 && other < 0 ? std::max(one, other) : 0;
}

}  // namespace

ScreenHold::ScreenHold(QWidget& list,
                       std::function<void(int distance)> moved,
                       std::function<void(int sum)> ended)
    : m_list(list)
    , m_moved(std::move(moved))
    , m_ended(std::move(ended))
    , m_afterLeaving(&list) {
    m_afterLeaving.setObjectName(QStringLiteral("screenHold"));
    m_afterLeaving.setSingleShot(true);
    m_afterLeaving.setInterval(kAfterLeaving);
    QObject::connect(&m_afterLeaving, &QTimer::timeout, &list, [this] {
        if (!m_list.underMouse()) {
            end();
        }
    });
}

ScreenHold::Place ScreenHold::place() const {
    const QWidget& window = *m_list.window();
    return {.list = m_list.mapToGlobal(QPoint(0, 0)).y(),
            .window = window.y(),
            .windowHeight = window.height()};
}

void ScreenHold::begin() {
    m_place = place();
    m_wanted = m_list.sizeHint().height();
}

void ScreenHold::follow() {
    const Place before = std::exchange(m_place, place());
    const int windowMoved = m_place.window - before.window;
    int distance = m_place.list - before.list;
    if (m_place.windowHeight == before.windowHeight) {
        distance -= windowMoved;
    } else {
        const int wanted = m_list.sizeHint().height();
        distance += sharedBy(-windowMoved, wanted - std::exchange(m_wanted, wanted));
    }
    if (distance != 0 && isHeld() && m_list.isVisible()) {
        m_sum += distance;
        m_moved(distance);
    }
}

bool ScreenHold::isHeld() const {
    return m_list.underMouse() || m_afterLeaving.isActive();
}

void ScreenHold::pointerLeft() {
    if (m_list.isVisible()) {
        m_afterLeaving.start();
    }
}

void ScreenHold::end() {
    m_afterLeaving.stop();
    m_ended(std::exchange(m_sum, 0));
}

}  // namespace quillbar
