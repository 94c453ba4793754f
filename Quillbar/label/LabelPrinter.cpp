// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/label/LabelPrinter.h"

#include <utility>

namespace quillbar {

LabelPrinter::LabelPrinter(LabelSource& source,
                           Executor& executor,
                           Sleeper sleeper,
                           LabelOptions options,
                           Output output)
    : m_source(source)
    , m_sleeper(std::move(sleeper))
    , m_options(std::move(options))
    , m_output(std::move(output))
    , m_scope(executor) {}

LabelPrinter::~LabelPrinter() {
    m_source.observe({});
}

void LabelPrinter::start() {
    m_source.observe([this] { update(); });
    if (m_options.mode == LabelMode::once) {
        m_scope.spawn(giveUp());
    }
    update();
}

LabelSnapshot LabelPrinter::snapshot() const {
    LabelSnapshot snapshot = m_source.snapshot();
    if (m_options.labelTemplate) {
        snapshot.text = m_options.labelTemplate->text(snapshot.quote);
    }
    return snapshot;
}

void LabelPrinter::update() {
    if (m_isFinished) {
        return;
    }
    const LabelSnapshot current = snapshot();
    if (m_options.mode == LabelMode::once) {
        updateOnce(current);
    } else {
        updateFollowing(current);
    }
}

void LabelPrinter::updateOnce(const LabelSnapshot& snapshot) {
    if (!snapshot.quote.coin) {
        // Without a pinned coin no price can come.
        printOnce(snapshot, kNoPrice);
        return;
    }
    const bool isComplete = snapshot.quote.changePercent.has_value() || m_source.isStarted();
    if (snapshot.quote.showsPrice() && isComplete) {
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
    const LabelSnapshot current = snapshot();
    printOnce(current, current.quote.showsPrice() ? kSuccess : kNoPrice);
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
