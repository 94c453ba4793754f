// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/label/LabelOptions.h"
#include "Quillbar/labelstate/StateLabelSource.h"
#include "Quillbar/services/AppServices.h"
#include "Quillbar/services/DeferredSystemEvents.h"
#include "QuillbarCore/runtime/Observed.h"
#include "QuillbarCore/state/Preferences.h"

#include <filesystem>
#include <functional>
#include <optional>

namespace quillbar {

/// The label over the program's own connection, which begins and ends with this object. It is
/// hidden if the stored preferences hid the numbers when it began. Main thread.
class OwnLabel final : public LabelSource {
public:
    /// Whoever follows also connects anew when the machine wakes.
    OwnLabel(const ServicePlatform& platform,
             const ServiceEndpoints& endpoints,
             const std::filesystem::path& folder,
             LabelMode mode);

    [[nodiscard]] LabelSnapshot snapshot() const override { return m_label.snapshot(); }
    [[nodiscard]] bool isStarted() const override { return m_label.isStarted(); }
    void observe(std::function<void()> onChange) override { m_label.observe(std::move(onChange)); }

private:
    AppServices m_services;
    Observed<Preferences> m_preferences;
    StateLabelSource m_label{m_services.appState(), m_services.isStarted(), &m_preferences};
    std::optional<DeferredSystemEvents> m_systemEvents;
};

}  // namespace quillbar
