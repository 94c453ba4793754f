// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/instance/LabelMessage.h"
#include "Quillbar/labelstate/LabelSource.h"

#include <functional>
#include <string>
#include <utility>

namespace quillbar {

/// A price of BTC that is live and complete.
inline LabelReport pricedReport(const std::string& price) {
    LabelReport report;
    report.label.text = "BTC " + price;
    report.label.quote.coin = Coin{"BTCUSDT", "BTC"};
    report.label.quote.ticker = Ticker{101, 100};
    report.label.quote.changePercent = 1;
    report.label.quote.connection = ConnectionState::connected;
    report.label.quote.freshness = PriceFreshness::live;
    report.isStarted = true;
    return report;
}

/// A label that is what it is set to.
class FakeLabelSource final : public LabelSource {
public:
    explicit FakeLabelSource(LabelReport report = pricedReport("101.00"))
        : m_report(std::move(report)) {}

    [[nodiscard]] LabelSnapshot snapshot() const override {
        ++m_reads;
        return m_report.label;
    }
    [[nodiscard]] bool isStarted() const override { return m_report.isStarted; }
    void observe(std::function<void()> onChange) override { m_onChange = std::move(onChange); }

    void set(LabelReport report) {
        m_report = std::move(report);
        if (m_onChange) {
            m_onChange();
        }
    }
    [[nodiscard]] const LabelReport& report() const { return m_report; }
    /// How often it was read.
    [[nodiscard]] int reads() const { return m_reads; }
    [[nodiscard]] bool isObserved() const { return m_onChange != nullptr; }

private:
    LabelReport m_report;
    mutable int m_reads = 0;
    std::function<void()> m_onChange;
};

}  // namespace quillbar
