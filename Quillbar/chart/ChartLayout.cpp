// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/chart/ChartLayout.h"

#include "Quillbar/chart/ChartDomain.h"
#include "Quillbar/chart/PriceTicks.h"
#include "Quillbar/chart/TimeTicks.h"
#include "Quillbar/text/LocalTimeText.h"
#include "QuillbarCore/model/PriceFormatter.h"

#include <QDate>
#include <QTime>

#include <algorithm>
#include <cmath>

namespace quillbar {

namespace {

// Half of a marker, or of the line's end, lies beyond the first and the last candle. This is the
// room for it.
constexpr double kPlotInset = 3;
constexpr double kPriceLabelGap = 5;
constexpr double kTimeLabelGap = 3;
// The padding around the text of the last price's tag.
constexpr double kTagPadding = 3;
constexpr double kTagVerticalPadding = 1;
// The least space between two labels, so that they look separate.
constexpr double kLeastSpaceBetweenTimes = 12;
constexpr double kLeastSpaceBetweenPrices = 12;
constexpr int kMostPriceTicks = 5;
// The greatest part of the chart's width that the price axis may take.
constexpr double kMostPriceWidth = 0.4;
constexpr Seconds kLeastTimeStep{60};
// Around the year 5100: no candle opens later, and further off no date has a name.
constexpr double kFurthestTime = 1e11;

bool isSound(const Candle& candle) {
    const double time = candle.openTime.time_since_epoch().count();
    return std::abs(time) <= kFurthestTime && std::isfinite(candle.high)
           && std::isfinite(candle.low) && std::isfinite(candle.close) && std::isfinite(candle.open)
           && candle.low >= 0 && candle.high >= 0 && candle.close >= 0;
}

/// The candles that count, with their places among all.
struct SoundCandles {
    explicit SoundCandles(const std::vector<Candle>& all) {
        for (std::size_t index = 0; index < all.size(); ++index) {
            const Candle& candle = all[index];
            if (isSound(candle) && (candles.empty() || candle.openTime > candles.back().openTime)) {
                candles.push_back(candle);
                indices.push_back(index);
            }
        }
    }

    std::vector<Candle> candles;
    std::vector<std::size_t> indices;
};

/// From times and prices to points.
class Scale final {
public:
    Scale(const QRectF& plot, const PriceRange& prices, TimePoint first, TimePoint last)
        : m_plot(plot)
        , m_prices(prices)
        , m_first(first)
        , m_last(last) {}

    [[nodiscard]] double x(TimePoint time) const {
        // A single candle stands in the middle.
        const double part = m_last > m_first ? (time - m_first) / (m_last - m_first) : 0.5;
        return m_plot.left() + part * m_plot.width();
    }
    [[nodiscard]] double y(double price) const {
        // A close above the high of its own candle must stay visible too.
        const double part = (price - m_prices.lower) / (m_prices.upper - m_prices.lower);
        return m_plot.bottom() - std::clamp(part, 0.0, 1.0) * m_plot.height();
    }
    [[nodiscard]] QPointF at(TimePoint time, double price) const { return {x(time), y(price)}; }

private:
    QRectF m_plot;
    PriceRange m_prices;
    TimePoint m_first;
    TimePoint m_last;
};

QString priceText(double price) {
    return QString::fromStdString(PriceFormatter::price(price));
}

class Builder final {
public:
    explicit Builder(const ChartLayout::Input& input)
        : m_input(input)
        , m_sound(input.candles) {}

    [[nodiscard]] ChartLayout build() {
        const auto domain =
            ChartDomain::priceRange(m_sound.candles, ChartDomain::kDefaultPaddingRatio);
        if (!domain || !std::isfinite(domain->upper) || !(domain->upper > domain->lower)) {
            return {};
        }
        const std::vector<double> prices = PriceTicks::within(*domain, mostPriceTicks());
        if (!placePlot(prices)) {
            return {};
        }
        const Scale scale(m_layout.plot, *domain, first(), last());
        placePrices(prices, scale);
        placeLastPrice(scale);
        placeTimes(scale);
        placeLine(scale);
        placeExtremes(scale);
        return std::move(m_layout);
    }

private:
    [[nodiscard]] TimePoint first() const { return m_sound.candles.front().openTime; }
    [[nodiscard]] TimePoint last() const { return m_sound.candles.back().openTime; }
    [[nodiscard]] double lastPrice() const { return m_sound.candles.back().close; }
    [[nodiscard]] double textHeight() const { return m_input.text.height; }

    [[nodiscard]] double plotHeight() const {
        return m_input.size.height() - textHeight() / 2 - kTimeLabelGap - textHeight();
    }

    [[nodiscard]] int mostPriceTicks() const {
        const double most = plotHeight() / (textHeight() + kLeastSpaceBetweenPrices);
        return std::clamp(static_cast<int>(most), 1, kMostPriceTicks);
    }

    // Only prices that no coin has are wider.
    [[nodiscard]] bool hasRoom(double price) const {
        return m_input.text.width(priceText(price)) <= m_input.size.width() * kMostPriceWidth;
    }

    // Half a label sticks out above the plot. The widest label, or the tag, sets the width of the
    // price axis.
    bool placePlot(const std::vector<double>& prices) {
        double axis = 0;
        for (const double price : prices) {
            if (hasRoom(price)) {
                axis = std::max(axis, m_input.text.width(priceText(price)));
            }
        }
        if (hasRoom(lastPrice())) {
            axis = std::max(axis, m_input.text.width(priceText(lastPrice())) + kTagPadding);
        }
        const double width = m_input.size.width() - 2 * kPlotInset - kPriceLabelGap - axis;
        if (!(width > 0 && plotHeight() > 0)) {
            return false;
        }
        m_layout.plot = QRectF(kPlotInset, textHeight() / 2, width, plotHeight());
        return true;
    }

    [[nodiscard]] double labelLeft() const {
        return m_layout.plot.right() + kPlotInset + kPriceLabelGap;
    }

    void placePrices(const std::vector<double>& prices, const Scale& scale) {
        const double left = labelLeft();
        for (const double price : prices) {
            const double y = scale.y(price);
            m_layout.priceGrid.push_back(y);
            const QString text = priceText(price);
            const QRectF place(left, y - textHeight() / 2, m_input.text.width(text), textHeight());
            auto& labels = m_layout.priceLabels;
            // A price is written in four digits at most below 1, and in cents above.
            const bool isApart =
                labels.empty()
                || (labels.back().text != text && !labels.back().rectangle.intersects(place));
            if (isApart && hasRoom(price)) {
                labels.push_back({text, place});
            }
        }
    }

    // The tag is below the labels of the axis, and does not touch the times.
    void placeLastPrice(const Scale& scale) {
        if (!hasRoom(lastPrice())) {
            return;
        }
        const QString text = priceText(lastPrice());
        const double height = textHeight() + 2 * kTagVerticalPadding;
        const double lowest = std::max(0.0, m_layout.plot.bottom() + kTimeLabelGap - height);
        const double top = std::clamp(scale.y(lastPrice()) - height / 2, 0.0, lowest);
        const double width = m_input.text.width(text) + 2 * kTagPadding;
        m_layout.lastPrice =
            ChartLayout::Label{text, QRectF(labelLeft() - kTagPadding, top, width, height)};
    }

    [[nodiscard]] QString text(const TimeTick& tick) const {
        const CalendarTime time = m_input.calendar.timeAt(tick.time);
        if (tick.kind == TimeTick::Kind::day) {
            const QDate date(
                time.date.year, static_cast<int>(time.date.month), static_cast<int>(time.date.day));
            return LocalTimeText::dayAndMonth(date, m_input.locale);
        }
        return LocalTimeText::hoursAndMinutes(QTime(0, 0).addSecs(time.minuteOfDay * 60),
                                              m_input.locale);
    }

    // The least time between two marks whose labels have this width.
    [[nodiscard]] Seconds timeFor(double labelWidth) const {
        const Seconds time =
            (last() - first()) * (labelWidth + kLeastSpaceBetweenTimes) / m_layout.plot.width();
        return std::max(time, kLeastTimeStep);
    }

    [[nodiscard]] TimeTicks::Spacing timeSpacing() const {
        // The widest texts there are. As a number, no month is wider than the last.
        double dayWidth = 0;
        for (int month = m_input.locale.language() == QLocale::English ? 1 : 12; month <= 12;
             ++month) {
            const QString day = LocalTimeText::dayAndMonth({2028, month, 28}, m_input.locale);
            dayWidth = std::max(dayWidth, m_input.text.width(day));
        }
        const QString time = LocalTimeText::hoursAndMinutes({22, 58}, m_input.locale);
        const double timeWidth = m_input.text.width(time);
        return {.times = timeFor(std::max(dayWidth, timeWidth)), .days = timeFor(dayWidth)};
    }

    void placeTimes(const Scale& scale) {
        const std::vector<TimeTick> ticks = TimeTicks::between(
            first(), last(), timeSpacing(), m_input.calendar, m_input.locale.firstDayOfWeek());
        for (const TimeTick& tick : ticks) {
            m_layout.timeGrid.push_back(scale.x(tick.time));
        }
        // Days first: on a day on which the clock changes there may not be room for all, and the
        // day says more.
        for (const auto kind : {TimeTick::Kind::day, TimeTick::Kind::hour}) {
            for (const TimeTick& tick : ticks) {
                if (tick.kind == kind) {
                    placeTimeLabel(text(tick), scale.x(tick.time));
                }
            }
        }
        std::sort(m_layout.timeLabels.begin(),
                  m_layout.timeLabels.end(),
                  [](const auto& left, const auto& right) {
                      return left.rectangle.left() < right.rectangle.left();
                  });
    }

    void placeTimeLabel(const QString& text, double x) {
        const double width = m_input.text.width(text);
        const QRectF place(
            x - width / 2, m_layout.plot.bottom() + kTimeLabelGap, width, textHeight());
        const QRectF apart =
            place.adjusted(-kLeastSpaceBetweenTimes / 2, 0, kLeastSpaceBetweenTimes / 2, 0);
        const auto touches = [&apart](const auto& label) {
            return label.rectangle.intersects(apart);
        };
        const auto& times = m_layout.timeLabels;
        // The lowest price may be written beside the end of the time axis.
        const auto& prices = m_layout.priceLabels;
        if (place.left() >= 0 && place.right() <= m_input.size.width()
            && std::none_of(times.begin(), times.end(), touches)
            && std::none_of(prices.begin(), prices.end(), touches)) {
            m_layout.timeLabels.push_back({text, place});
        }
    }

    void placeLine(const Scale& scale) {
        for (std::size_t index = 0; index < m_sound.candles.size(); ++index) {
            const Candle& candle = m_sound.candles[index];
            const QPointF position = scale.at(candle.openTime, candle.close);
            m_layout.points.push_back({m_sound.indices[index], position});
            const bool followsAnother =
                index > 0 && m_sound.indices[index] == m_sound.indices[index - 1] + 1;
            if (!followsAnother) {
                m_layout.lines.emplace_back();
            }
            m_layout.lines.back().append(position);
        }
        const double bottom = m_layout.plot.bottom();
        for (const QPolygonF& line : m_layout.lines) {
            QPolygonF area;
            area.append(QPointF(line.first().x(), bottom));
            area.append(line);
            area.append(QPointF(line.last().x(), bottom));
            m_layout.areas.push_back(area);
        }
    }

    void placeExtremes(const Scale& scale) {
        const auto& candles = m_sound.candles;
        const auto highest =
            std::max_element(candles.begin(), candles.end(), [](const auto& a, const auto& b) {
                return a.high < b.high;
            });
        const auto lowest =
            std::min_element(candles.begin(), candles.end(), [](const auto& a, const auto& b) {
                return a.low < b.low;
            });
        m_layout.high = scale.at(highest->openTime, highest->high);
        m_layout.low = scale.at(lowest->openTime, lowest->low);
    }

    const ChartLayout::Input& m_input;
    SoundCandles m_sound;
    ChartLayout m_layout;
};

}  // namespace

ChartLayout ChartLayout::of(const Input& input) {
    return Builder(input).build();
}

std::optional<std::size_t> ChartLayout::nearest(double x) const {
    if (points.empty()) {
        return std::nullopt;
    }
    const auto after =
        std::lower_bound(points.begin(), points.end(), x, [](const Point& point, double place) {
            return point.position.x() < place;
        });
    if (after == points.begin()) {
        return 0;
    }
    const auto before = after - 1;
    const bool isBeforeNearer =
        after == points.end() || x - before->position.x() <= after->position.x() - x;
    return static_cast<std::size_t>((isBeforeNearer ? before : after) - points.begin());
}

}  // namespace quillbar
