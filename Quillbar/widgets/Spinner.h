// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QBasicTimer>
#include <QWidget>

#include <chrono>

namespace quillbar {

/// Shows that something is under way: spokes that fade around a circle. It turns only while it can
/// be seen.
class Spinner final : public QWidget {
public:
    static constexpr int kSpokes = 8;
    /// The time from one spoke to the next.
    static constexpr std::chrono::milliseconds kStep{100};

    /// `diameter` is in points.
    explicit Spinner(double diameter, QWidget* parent = nullptr);

    [[nodiscard]] bool isTurning() const noexcept { return m_timer.isActive(); }

    /// The brightest spoke, counted clockwise from the top one, which is 0.
    [[nodiscard]] int phase() const noexcept { return m_phase; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    double m_diameter;
    int m_phase = 0;
    QBasicTimer m_timer;
};

}  // namespace quillbar
