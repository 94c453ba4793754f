// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/widgets/ViewEnvironment.h"

#include <QWidget>

#include <string>

namespace quillbar {

class CoinIconView;

/// Whether a coin carries the mark of the one in the menu bar.
enum class PinMark { none, pinned };

/// Whether a coin carries the bell of price alerts.
enum class BellMark { none, bell };

/// A coin in a table: its icon, its base asset and, after it, the mark of the pinned one and the
/// bell. It takes the width that it is given. A long name is written smaller, and then elided. The
/// pointer passes through it.
class CoinCell final : public QWidget {
public:
    static constexpr int kIconSize = 16;
    static constexpr int kSpacing = 4;

    /// The environment outlives the cell.
    explicit CoinCell(const ViewEnvironment& environment, QWidget* parent = nullptr);

    /// Repaints only for another base asset.
    void setBaseAsset(const std::string& baseAsset);
    [[nodiscard]] const std::string& baseAsset() const noexcept { return m_baseAsset; }

    /// Repaints only for another mark.
    void setPinMark(PinMark mark);
    [[nodiscard]] PinMark pinMark() const noexcept { return m_mark; }

    /// Repaints only for another mark.
    void setBellMark(BellMark mark);
    [[nodiscard]] BellMark bellMark() const noexcept { return m_bell; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    CoinIconView* m_icon;
    std::string m_baseAsset;
    PinMark m_mark = PinMark::none;
    BellMark m_bell = BellMark::none;
};

}  // namespace quillbar
