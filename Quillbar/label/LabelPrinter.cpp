// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/label/LabelPrinter.h"

#include "Quillbar/platform/Formatted.h"
#include "Quillbar/platform/Translated.h"

#include <algorithm>
#include <utility>

namespace quillbar {

namespace {

bool showsPrice(const LabelSnapshot& label) {
    return label.quote.showsPrice();
}

bool isComplete(const LabelSnapshot& label) {
    return label.quote.showsPrice() && label.quote.changePercent;
}

}  // namespace

LabelPrinter::LabelPrinter(PrintedLabels& labels,
                           Executor& executor,
                           Sleeper sleeper,
                           LabelOptions options,
                           Output output)
    : m_labels(labels)
    , m_sleeper(std::move(sleeper))
    , m_options(std::move(options))
    , m_output(std::move(output))
    , m_scope(executor) {}

LabelPrinter::~LabelPrinter() {
    m_labels.observe({});
}

void LabelPrinter::start() {
    m_labels.observe([this] { update(); });
    if (m_options.mode == LabelMode::once) {
        m_scope.spawn(giveUp());
    }
    update();
}

LabelPrinter::Snapshots LabelPrinter::snapshots() const {
    Snapshots labels = m_labels.snapshots();
    if (m_options.labelTemplate) {
        for (LabelSnapshot& label : labels) {
            label.text = m_options.labelTemplate->text(label.quote);
        }
    }
    return labels;
}

void LabelPrinter::update() {
    if (m_isFinished) {
        return;
    }
    const std::vector<std::string> unknown = m_labels.unknownCoins();
    if (!unknown.empty()) {
        rejectCoins(unknown);
    } else if (m_options.mode == LabelMode::once) {
        updateOnce(snapshots());
    } else {
        updateFollowing(snapshots());
    }
}

void LabelPrinter::updateOnce(const Snapshots& labels) {
    if (std::ranges::all_of(labels, &LabelSnapshot::isDiscreet)) {
        // That there is no price is what the user wants.
        printOnce(labels, kSuccess);
        return;
    }
    const auto hasNoCoin = [](const LabelSnapshot& label) { return !label.quote.coin; };
    if (std::ranges::any_of(labels, hasNoCoin)) {
        // Without a pinned coin no price can come.
        printOnce(labels, kNoPrice);
        return;
    }
    if (std::ranges::all_of(labels, m_labels.isStarted() ? showsPrice : isComplete)) {
        printOnce(labels, kSuccess);
    }
}

void LabelPrinter::updateFollowing(const Snapshots& labels) {
    const auto isSame = [this](const LabelSnapshot& previous, const LabelSnapshot& current) {
        return !differsVisibly(previous, current, m_options.format);
    };
    const bool isReadTheSame =
        m_options.format == LabelFormat::text || m_printedIn == TextLanguages::inUse();
    if (isReadTheSame && std::ranges::equal(m_printed, labels, isSame)) {
        return;
    }
    m_printed = labels;
    m_printedIn = TextLanguages::inUse();
    // All of them: a slow reader gets only what was printed last.
    if (!print(labels)) {
        finish(kSuccess);
    }
}

Task<void> LabelPrinter::giveUp() {
    co_await m_sleeper(kPatience);
    if (m_isFinished) {
        co_return;
    }
    const Snapshots labels = snapshots();
    printOnce(labels, std::ranges::all_of(labels, showsPrice) ? kSuccess : kNoPrice);
}

void LabelPrinter::printOnce(const Snapshots& labels, int status) {
    const bool isWritten = print(labels);
    finish(isWritten ? status : kNotWritten);
}

bool LabelPrinter::print(const Snapshots& labels) {
    return m_output.print(labelLines(labels, m_options.format));
}

void LabelPrinter::rejectCoins(const std::vector<std::string>& names) {
    std::string list;
    for (const std::string& name : names) {
        if (!list.empty()) {
            list += translated("label", "、").toStdString();
        }
        list += formatted(translated("label", "「{}」"), name);
    }
    m_output.complain(formatted(translated("label", "交易所没有币种{}"), list));
    finish(kUnknownCoin);
}

void LabelPrinter::finish(int status) {
    m_isFinished = true;
    m_output.finish(status);
}

}  // namespace quillbar
