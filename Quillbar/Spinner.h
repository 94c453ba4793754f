// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/ColorRole.h"

#include <QBasicTimer>
#include <QWidget>

#include <chrono>

namespace quillbar {

/// Says that something is under way, without saying how far: spokes that fade around a circle. It
/// turns only while it can be seen.
class Spinner final : public QWidget {
public:
    static constexpr int kSpokes = 8;
    /// From one spoke to the next.
    static constexpr std::chrono::milliseconds kStep{100};

    /// `diameter` is in points.
    explicit Spinner(double diameter, QWidget* parent = nullptr);

    /// The role of its colour; that of secondary text unless told otherwise.
    void setColorRole(ColorRole role);

    [[nodiscard]] bool isTurning() const noexcept { return m_timer.isActive(); }

    /// The spoke that is brightest, clockwise from the top one, 0.
    [[nodiscard]] int phase() const noexcept { return m_phase; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    double m_diameter;
    ColorRole m_role = &ThemeColors::Resolved::secondaryText;
    int m_phase = 0;
    QBasicTimer m_timer;
};

}  // namespace quillbar
