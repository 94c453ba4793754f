// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/label/LabelPrinter.h"

#include "QuillbarCore/state/AppState.h"

#include <utility>

namespace quillbar {

LabelPrinter::LabelPrinter(const AppState& state,
                           const Observed<bool>& isStarted,
                           Executor& executor,
                           Sleeper sleeper,
                           LabelOptions options,
                           Output output)
    : m_state(state)
    , m_isStarted(isStarted)
    , m_sleeper(std::move(sleeper))
    , m_options(options)
    , m_output(std::move(output))
    , m_scope(executor) {}

void LabelPrinter::start() {
    observe();
    if (m_options.mode == LabelMode::once) {
        m_scope.spawn(giveUp());
    }
    update();
}

void LabelPrinter::observe() {
    const auto changed = [this](const auto& /*value*/) { update(); };
    m_observations.emplace_back(m_state.menuBarText().observe(changed));
    m_observations.emplace_back(m_state.connectionState().observe(changed));
    m_observations.emplace_back(m_state.todayOpens().observe(changed));
    m_observations.emplace_back(m_state.watchlist().observe(changed));
    m_observations.emplace_back(m_isStarted.observe(changed));
}

void LabelPrinter::update() {
    if (m_isFinished) {
        return;
    }
    const LabelSnapshot snapshot = LabelSnapshot::of(m_state);
    if (m_options.mode == LabelMode::once) {
        updateOnce(snapshot);
    } else {
        updateFollowing(snapshot);
    }
}

void LabelPrinter::updateOnce(const LabelSnapshot& snapshot) {
    if (!snapshot.coin) {
        // Without a pinned coin no price can come.
        printOnce(snapshot, kNoPrice);
        return;
    }
    const bool isComplete = snapshot.changePercent.has_value() || *m_isStarted;
    if (snapshot.showsPrice() && isComplete) {
        printOnce(snapshot, kSuccess);
    }
}

void LabelPrinter::updateFollowing(const LabelSnapshot& snapshot) {
    if (m_printed && !differsVisibly(*m_printed, snapshot, m_options.format)) {
        return;
    }
    m_printed = snapshot;
    if (!m_output.print(labelLine(snapshot, m_options.format))) {
        finish(kSuccess);
    }
}

Task<void> LabelPrinter::giveUp() {
    co_await m_sleeper(kPatience);
    if (m_isFinished) {
        co_return;
    }
    const LabelSnapshot snapshot = LabelSnapshot::of(m_state);
    printOnce(snapshot, snapshot.showsPrice() ? kSuccess : kNoPrice);
}

void LabelPrinter::printOnce(const LabelSnapshot& snapshot, int status) {
    const bool isWritten = m_output.print(labelLine(snapshot, m_options.format));
    finish(isWritten ? status : kNotWritten);
}

void LabelPrinter::finish(int status) {
    m_isFinished = true;
    m_output.finish(status);
}

}  // namespace quillbar
