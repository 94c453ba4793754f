// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/instance/LabelAdaptor.h"
#include "Quillbar/instance/LabelMessage.h"
#include "Quillbar/labelstate/LabelSource.h"

#include <optional>

namespace quillbar {

/// Publishes the label on the session bus: it answers reads at once, and sends a signal when
/// something visible has changed. Main thread.
class LabelService final {
public:
    /// Both outlive it. The service is the only observer of the source. It publishes the present
    /// label at once.
    LabelService(LabelAdaptor& adaptor, LabelSource& source);
    LabelService(const LabelService&) = delete;
    LabelService& operator=(const LabelService&) = delete;
    LabelService(LabelService&&) = delete;
    LabelService& operator=(LabelService&&) = delete;
    ~LabelService();

private:
    [[nodiscard]] LabelReport report() const;
    void update();

    LabelAdaptor& m_adaptor;
    LabelSource& m_source;
    std::optional<LabelReport> m_told;
};

}  // namespace quillbar
