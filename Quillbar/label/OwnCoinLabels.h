// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/label/CoinLabels.h"
#include "Quillbar/label/LabelOptions.h"
#include "Quillbar/services/AppServices.h"
#include "Quillbar/services/DeferredSystemEvents.h"
#include "QuillbarCore/model/Coin.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace quillbar {

/// The labels of any coins over the program's own connection, which begins and ends with this
/// object. Neither the user's list nor a running application has a part in it, but the user's
/// settings do. Main thread.
class OwnCoinLabels final : public PrintedLabels {
public:
    /// At least one coin, none twice. Whoever follows also connects anew when the machine wakes.
    OwnCoinLabels(const ServicePlatform& platform,
                  const ServiceEndpoints& endpoints,
                  const std::filesystem::path& folder,
                  LabelMode mode,
                  std::vector<Coin> coins);

    [[nodiscard]] std::vector<LabelSnapshot> snapshots() const override {
        return m_labels.snapshots();
    }
    [[nodiscard]] bool isStarted() const override { return m_labels.isStarted(); }
    [[nodiscard]] std::vector<std::string> unknownCoins() const override {
        return m_labels.unknownCoins();
    }
    void observe(std::function<void()> onChange) override { m_labels.observe(std::move(onChange)); }

private:
    AppServices m_services;
    CoinLabels m_labels;
    std::optional<DeferredSystemEvents> m_systemEvents;
};

}  // namespace quillbar
