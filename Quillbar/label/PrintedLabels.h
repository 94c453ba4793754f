// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/labelstate/LabelSource.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace quillbar {

/// The labels that the program prints, in their order: at least one. Main thread.
class PrintedLabels {
public:
    PrintedLabels() = default;
    PrintedLabels(const PrintedLabels&) = delete;
    PrintedLabels& operator=(const PrintedLabels&) = delete;
    PrintedLabels(PrintedLabels&&) = delete;
    PrintedLabels& operator=(PrintedLabels&&) = delete;
    virtual ~PrintedLabels() = default;

    /// The labels now, always as many.
    [[nodiscard]] virtual std::vector<LabelSnapshot> snapshots() const = 0;

    /// As `LabelSource::isStarted`.
    [[nodiscard]] virtual bool isStarted() const = 0;

    /// The names of the coins that can never have a price, because the exchange does not know them.
    [[nodiscard]] virtual std::vector<std::string> unknownCoins() const = 0;

    /// Calls `onChange` after each change of the above, perhaps also without a change. Another call
    /// replaces it; an empty function ends the calls. `onChange` must not destroy this object.
    virtual void observe(std::function<void()> onChange) = 0;
};

/// The one label of a source, which outlives this object.
class PinnedLabel final : public PrintedLabels {
public:
    explicit PinnedLabel(LabelSource& source)
        : m_source(source) {}

    [[nodiscard]] std::vector<LabelSnapshot> snapshots() const override {
        return {m_source.snapshot()};
    }
    [[nodiscard]] bool isStarted() const override { return m_source.isStarted(); }
    [[nodiscard]] std::vector<std::string> unknownCoins() const override { return {}; }
    void observe(std::function<void()> onChange) override { m_source.observe(std::move(onChange)); }

private:
    LabelSource& m_source;
};

}  // namespace quillbar
