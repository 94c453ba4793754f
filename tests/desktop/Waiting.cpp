// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "tests/desktop/Waiting.h"

#include "tests/qtsupport/SpinUntil.h"

#include <QDeadlineTimer>
#include <QTimer>

namespace quillbar {

namespace {

using namespace std::chrono_literals;

constexpr auto kPatience = 60s;
constexpr auto kPulse = 20ms;

}  // namespace

bool eventually(const std::function<bool()>& predicate) {
    QTimer pulse;
    pulse.start(kPulse);
    return spinUntil(predicate, kPatience);
}

void pause(std::chrono::milliseconds duration) {
    const QDeadlineTimer end(duration);
    // Cannot fail: time goes on.
    static_cast<void>(eventually([&end] { return end.hasExpired(); }));
}

}  // namespace quillbar
