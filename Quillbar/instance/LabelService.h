// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/instance/LabelAdaptor.h"
#include "Quillbar/instance/LabelMessage.h"
#include "Quillbar/labelstate/LabelSource.h"

#include <optional>

namespace quillbar {

/// Tells the session bus of the label: whoever asks, at once; everybody, when something that can be
/// seen has changed. Main thread.
class LabelService final {
public:
    /// Both outlive it; the service is the source's one observer. Tells of the label as it stands.
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
