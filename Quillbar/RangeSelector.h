// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/exchange/ChartRange.h"

#include <QWidget>

#include <functional>

namespace quillbar {

/// The choice of a chart's range: a small button for each, in a row, one of them chosen. The Tab
/// key stops at the row once; the arrow keys choose within it.
class RangeSelector final : public QWidget {
public:
    /// In points.
    static constexpr int kHeight = 20;

    /// The day is chosen.
    explicit RangeSelector(QWidget* parent = nullptr);

    [[nodiscard]] ChartRange range() const noexcept { return m_range; }

    /// Called when the user chooses another range.
    std::function<void(ChartRange range)> onChoose;

private:
    class Segment;

    void choose(ChartRange range);

    ChartRange m_range = ChartRange::day;
};

}  // namespace quillbar
