// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/list/NumericCell.h"

#include <optional>

namespace quillbar {

/// A change in percent, at 12 points: rising and falling in their colours, "—" when unknown.
class ChangeText final : public NumericCell {
public:
    explicit ChangeText(int width, QWidget* parent = nullptr);

    /// 2.5 means +2.5 %. Repaints only when what is shown changes.
    void setPercent(std::optional<double> percent);
};

}  // namespace quillbar
