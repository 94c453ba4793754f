// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Quillbar/chart/ChartLayout.h"
#include "Quillbar/chart/ChartSummary.h"
#include "Quillbar/widgets/KeyboardFocus.h"
#include "Quillbar/widgets/Theme.h"
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
/// rings, round prices and times along the axes, the last close as a dashed line with a tag. A
/// crosshair follows the pointer or the arrow keys, and shows the time and the close of the nearest
/// candle, and the change up to it.
///
/// Times are those of the calendar, written as in the widget's locale, which follows the texts
/// until another is set, whatever the user's is. For screen readers it is a chart; give it an
/// accessible name.
class PriceChart final : public QWidget {
public:
    /// The opacity of an outdated chart.
    static constexpr double kOutdatedOpacity = 0.35;

    explicit PriceChart(Calendar calendar, QWidget* parent = nullptr);

    /// Shows these candles. A crosshair stays where the pointer is, or at the candle that the keys
    /// have reached, as long as the candle that it read is among them. The accessible description
    /// consists of the text of the crosshair, the name of the range, and the summary of the
    /// candles.
    void setCandles(std::vector<Candle> candles, const QString& rangeName = {});

    [[nodiscard]] const std::vector<Candle>& candles() const noexcept { return m_candles; }

    /// Whether the chart is shown faintly, because it is not what was asked for last.
    void setOutdated(bool isOutdated);
    [[nodiscard]] bool isOutdated() const noexcept { return m_isOutdated; }

    /// The text of the crosshair, "11/14 16:05  67,234.50  +1.23%"; empty without a crosshair. The
    /// change is the one since the first candle opened, and is left out if there is none.
    [[nodiscard]] QString reading() const;

    /// The line's colour: that of gains or of losses, by the change over the candles, and the
    /// accent if the change is 0 or absent. Pure.
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
    // The candle of the crosshair; null without one.
    [[nodiscard]] const Candle* candleRead() const;
    // The new place of a crosshair that was on the candle of this time; absent when that candle is
    // gone.
    [[nodiscard]] std::optional<std::size_t> placeOf(TimePoint time) const;
    bool readByKey(int key);
    [[nodiscard]] QString timeText(const Candle& candle) const;
    void describe();

    const QPixmap& picture(const ThemeColors::Resolved& colors);
    void paintCrosshair(QPainter& painter, const ThemeColors::Resolved& colors) const;

    Calendar m_calendar;
    std::vector<Candle> m_candles;
    QString m_rangeName;
    ChartSummary m_summary;
    bool m_isOutdated = false;
    // In points at a text size of 100 %. Reset when the candles, the size or the font change.
    mutable std::optional<ChartLayout> m_layout;
    // All but the crosshair, in these colours: drawing the line takes milliseconds, and the
    // crosshair follows every move of the pointer. Null when it has to be drawn.
    QPixmap m_picture;
    ThemeColors::Resolved m_pictureColors;
    // The index of the layout's point that the crosshair is on.
    std::optional<std::size_t> m_reading;
    // Whether the pointer or the keys put it there.
    Reader m_reader = Reader::pointer;
    // The last place of the pointer, in the layout.
    double m_pointerX = 0;
    KeyboardFocus m_focus;
};

}  // namespace quillbar
