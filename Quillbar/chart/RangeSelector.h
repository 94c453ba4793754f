// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QuillbarCore/exchange/ChartRange.h"

#include <QString>
#include <QWidget>

#include <functional>

namespace quillbar {

/// The choice of a chart's range: a small button for each, in a row, one of them chosen. The Tab
/// key stops at the row once; the arrow keys choose within it.
class RangeSelector final : public QWidget {
public:
    /// In points.
    static constexpr int kHeight = 20;

    /// The name of the range for screen readers: "一天", "一周", "一个月".
    [[nodiscard]] static QString nameOf(ChartRange range);

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
