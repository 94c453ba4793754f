// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/ChartLayout.h"
#include "Quillbar/ChartSummary.h"
#include "Quillbar/KeyboardFocus.h"
#include "Quillbar/Theme.h"
#include "QuillbarCore/exchange/Candle.h"
#include "QuillbarCore/model/Calendar.h"

#include <QPixmap>
#include <QString>
#include <QWidget>

#include <cstddef>
#include <optional>
#include <vector>

namespace quillbar {

/// A price chart: the closes as a line over a fading area, the highest and the lowest price as
/// dots, round prices and times along the axes. Where the pointer is, or where the arrow keys have
/// gone, a crosshair reads the nearest candle's time and close.
///
/// Times are those of the calendar, written as the widget's locale does. Screen readers are told of
/// a chart; give it an accessible name.
class PriceChart final : public QWidget {
public:
    /// How faintly it is shown when it is outdated.
    static constexpr double kOutdatedOpacity = 0.35;

    explicit PriceChart(Calendar calendar, QWidget* parent = nullptr);

    /// Shows these candles, without a crosshair. The accessible description tells their summary,
    /// and what the crosshair reads.
    void setCandles(std::vector<Candle> candles);

    [[nodiscard]] const std::vector<Candle>& candles() const noexcept { return m_candles; }

    /// Whether the chart is shown faintly, because it is not what was asked for last.
    void setOutdated(bool isOutdated);
    [[nodiscard]] bool isOutdated() const noexcept { return m_isOutdated; }

    /// What the crosshair reads, "11/14 16:05  67,234.50"; empty without a crosshair.
    [[nodiscard]] QString reading() const;

    /// The line's colour: of rising or falling by the change over the candles, of the accent for
    /// one that is 0 or absent. Pure.
    [[nodiscard]] static QColor lineColor(const ChartSummary& summary,
                                          const ThemeColors::Resolved& colors);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    [[nodiscard]] const ChartLayout& layout() const;
    void forgetLayout();
    enum class Reader { pointer, keyboard };

    void read(std::optional<std::size_t> point, Reader reader);
    void stopReading(Reader reader);
    bool readByKey(int key);
    [[nodiscard]] QString timeText(const Candle& candle) const;
    void describe();

    const QPixmap& picture(const ThemeColors::Resolved& colors);
    void paintGrid(QPainter& painter, const QColor& color) const;
    void paintLabels(QPainter& painter, const QColor& color) const;
    void paintLine(QPainter& painter, const QColor& color) const;
    void paintCrosshair(QPainter& painter, const ThemeColors::Resolved& colors) const;
    void paintReading(QPainter& painter,
                      const ChartLayout::Point& point,
                      const ThemeColors::Resolved& colors) const;

    Calendar m_calendar;
    std::vector<Candle> m_candles;
    ChartSummary m_summary;
    bool m_isOutdated = false;
    // Until the candles, the size or the font change.
    mutable std::optional<ChartLayout> m_layout;
    // All but the crosshair, in these colours: drawing the line takes milliseconds, and the
    // crosshair follows every move of the pointer. Null when it has to be drawn.
    QPixmap m_picture;
    ThemeColors::Resolved m_pictureColors;
    // The place among the layout's points that the crosshair is on.
    std::optional<std::size_t> m_reading;
    // Who put it there.
    Reader m_reader = Reader::pointer;
    KeyboardFocus m_focus;
};

}  // namespace quillbar
