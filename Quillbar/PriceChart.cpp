// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/PriceChart.h"

#include "Quillbar/text/LocalTimeText.h"
#include "Quillbar/text/SystemFont.h"
#include "Quillbar/text/TabularText.h"
#include "QuillbarCore/model/PriceFormatter.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QDate>
#include <QFontMetricsF>
#include <QKeyEvent>
#include <QLinearGradient>
#include <QMouseEvent>
#include <QPainter>
#include <QPen>
#include <QTime>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace quillbar {

namespace {

constexpr double kLabelSize = 9.5;
constexpr double kGridWidth = 0.5;
constexpr double kLineWidth = 1.5;
constexpr float kAreaOpacity = 0.18F;
// The area of a marker in square points, a quarter of which is that of its circle's square.
constexpr double kExtremeSymbolSize = 18;
constexpr double kReadingDotRadius = 3;
constexpr double kRingDistance = 3;
constexpr double kBubbleRadius = 4;
constexpr double kBubblePadding = 5;
constexpr double kBubbleSpacing = 6;

QFont labelFont() {
    return systemFont(kLabelSize);
}

/// Down to a whole pixel of the device, so that thin lines are all alike.
double snapped(double position, const QPainter& painter) {
    const double scale = painter.device()->devicePixelRatioF();
    return std::floor(position * scale) / scale;
}

QColor faded(QColor color, float opacity) {
    color.setAlphaF(opacity);
    return color;
}

QString priceText(double price) {
    return QString::fromStdString(PriceFormatter::price(price));
}

QAccessibleInterface* accessibleChart(const QString& /*className*/, QObject* object) {
    // By its type, because it has no class name of its own: it is asked about as a QWidget.
    auto* const chart = dynamic_cast<PriceChart*>(object);
    return chart == nullptr ? nullptr : new QAccessibleWidget(chart, QAccessible::Chart);
}

}  // namespace

PriceChart::PriceChart(Calendar calendar, QWidget* parent)
    : QWidget(parent)
    , m_calendar(std::move(calendar)) {
    // Installing it again changes nothing.
    QAccessible::installFactory(accessibleChart);
    setMouseTracking(true);
    setFocusPolicy(Qt::TabFocus);
}

void PriceChart::setCandles(std::vector<Candle> candles) {
    if (candles == m_candles) {
        return;
    }
    m_candles = std::move(candles);
    m_summary = ChartSummary::of(m_candles);
    m_reading.reset();
    forgetLayout();
    describe();
}

void PriceChart::setOutdated(bool isOutdated) {
    if (isOutdated != m_isOutdated) {
        m_isOutdated = isOutdated;
        m_picture = {};
        update();
    }
}

QString PriceChart::reading() const {
    if (!m_reading || *m_reading >= layout().points.size()) {
        return {};
    }
    const Candle& candle = m_candles[layout().points[*m_reading].candle];
    return timeText(candle) + QStringLiteral("  ") + priceText(candle.close);
}

QColor PriceChart::lineColor(const ChartSummary& summary, const ThemeColors::Resolved& colors) {
    const double change = summary.changePercent.value_or(0);
    if (change > 0) {
        return colors.up;
    }
    return change < 0 ? colors.down : colors.accent;
}

bool PriceChart::event(QEvent* event) {
    switch (event->type()) {
    case QEvent::FontChange:
    case QEvent::ApplicationFontChange:
    case QEvent::LocaleChange:
        forgetLayout();
        break;
    default:
        break;
    }
    return QWidget::event(event);
}

void PriceChart::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const ThemeColors::Resolved& colors = ThemeKey::value(*this).colors;
    painter.drawPixmap(QPointF(), picture(colors));
    paintCrosshair(painter, colors);
    // Around what the arrow keys go through; the prices beside it need the room.
    const QRectF& plot = layout().plot;
    m_focus.drawRing(painter,
                     *this,
                     plot.adjusted(-kRingDistance, -kRingDistance, kRingDistance, kRingDistance));
}

void PriceChart::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    m_picture = {};
}

void PriceChart::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    forgetLayout();
}

void PriceChart::mouseMoveEvent(QMouseEvent* event) {
    read(layout().nearest(event->position().x()), Reader::pointer);
    QWidget::mouseMoveEvent(event);
}

void PriceChart::leaveEvent(QEvent* event) {
    stopReading(Reader::pointer);
    QWidget::leaveEvent(event);
}

void PriceChart::keyPressEvent(QKeyEvent* event) {
    if (!readByKey(event->key())) {
        QWidget::keyPressEvent(event);
    }
}

void PriceChart::focusInEvent(QFocusEvent* event) {
    m_focus.focusIn(event->reason());
    QWidget::focusInEvent(event);
}

void PriceChart::focusOutEvent(QFocusEvent* event) {
    stopReading(Reader::keyboard);
    QWidget::focusOutEvent(event);
}

const ChartLayout& PriceChart::layout() const {
    if (!m_layout) {
        const QFont font = labelFont();
        m_layout = ChartLayout::of({
            .candles = m_candles,
            .size = QSizeF(size()),
            .text = {.width =
                         [&font](const QString& text) { return TabularText::width(text, font); },
                     .height = QFontMetricsF(font).height()},
            .calendar = m_calendar,
            .locale = locale(),
        });
    }
    return *m_layout;
}

void PriceChart::forgetLayout() {
    m_layout.reset();
    m_picture = {};
    update();
}

void PriceChart::read(std::optional<std::size_t> point, Reader reader) {
    m_reader = reader;
    if (point != m_reading) {
        m_reading = point;
        describe();
        update();
    }
}

void PriceChart::stopReading(Reader reader) {
    if (reader == m_reader) {
        read(std::nullopt, reader);
    }
}

bool PriceChart::readByKey(int key) {
    const std::size_t count = layout().points.size();
    if (count == 0) {
        return false;
    }
    const std::size_t last = count - 1;
    std::size_t point = last;
    switch (key) {
    case Qt::Key_Left:
        point = m_reading ? *m_reading - std::min<std::size_t>(*m_reading, 1) : last;
        break;
    case Qt::Key_Right:
        point = m_reading ? std::min(*m_reading + 1, last) : last;
        break;
    case Qt::Key_Home:
        point = 0;
        break;
    case Qt::Key_End:
        break;
    default:
        return false;
    }
    read(point, Reader::keyboard);
    return true;
}

QString PriceChart::timeText(const Candle& candle) const {
    const CalendarTime time = m_calendar.timeAt(candle.openTime);
    const QDate date(
        time.date.year, static_cast<int>(time.date.month), static_cast<int>(time.date.day));
    return LocalTimeText::dayAndMonth(date, locale()) + u' '
           + LocalTimeText::hoursAndMinutes(QTime(0, 0).addSecs(time.minuteOfDay * 60), locale());
}

void PriceChart::describe() {
    const QString summary = m_summary.text();
    const QString reading = this->reading();
    setAccessibleDescription(reading.isEmpty() ? summary
                                               : reading + QStringLiteral("; ") + summary);
}

const QPixmap& PriceChart::picture(const ThemeColors::Resolved& colors) {
    const double scale = devicePixelRatioF();
    if (m_picture.isNull() || m_picture.devicePixelRatioF() != scale || m_pictureColors != colors) {
        m_picture = QPixmap(size() * scale);
        m_picture.setDevicePixelRatio(scale);
        m_picture.fill(Qt::transparent);
        m_pictureColors = colors;
        QPainter painter(&m_picture);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setOpacity(m_isOutdated ? kOutdatedOpacity : 1);
        paintGrid(painter, colors.separator);
        paintLabels(painter, colors.secondaryText);
        paintLine(painter, lineColor(m_summary, colors));
    }
    return m_picture;
}

void PriceChart::paintGrid(QPainter& painter, const QColor& color) const {
    const QRectF& plot = layout().plot;
    for (const double y : layout().priceGrid) {
        painter.fillRect(QRectF(plot.left(), snapped(y, painter), plot.width(), kGridWidth), color);
    }
    for (const double x : layout().timeGrid) {
        painter.fillRect(QRectF(snapped(x, painter), plot.top(), kGridWidth, plot.height()), color);
    }
}

void PriceChart::paintLabels(QPainter& painter, const QColor& color) const {
    const QFont font = labelFont();
    painter.setPen(color);
    for (const auto* const labels : {&layout().priceLabels, &layout().timeLabels}) {
        for (const ChartLayout::Label& label : *labels) {
            TabularText::draw(
                painter, label.rectangle, Qt::AlignLeft | Qt::AlignVCenter, label.text, font);
        }
    }
}

void PriceChart::paintLine(QPainter& painter, const QColor& color) const {
    painter.setPen(Qt::NoPen);
    for (const QPolygonF& area : layout().areas) {
        QLinearGradient gradient(0, area.boundingRect().top(), 0, layout().plot.bottom());
        gradient.setColorAt(0, faded(color, kAreaOpacity));
        gradient.setColorAt(1, faded(color, 0));
        painter.setBrush(gradient);
        painter.drawPolygon(area);
    }
    painter.setPen(QPen(color, kLineWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    for (const QPolygonF& line : layout().lines) {
        if (line.size() == 1) {
            painter.drawPoint(line.first());
        } else {
            painter.drawPolyline(line);
        }
    }
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    const double radius = std::sqrt(kExtremeSymbolSize / std::numbers::pi);
    for (const auto& extreme : {layout().high, layout().low}) {
        if (extreme) {
            painter.drawEllipse(*extreme, radius, radius);
        }
    }
}

void PriceChart::paintCrosshair(QPainter& painter, const ThemeColors::Resolved& colors) const {
    if (!m_reading || *m_reading >= layout().points.size()) {
        return;
    }
    const ChartLayout::Point& point = layout().points[*m_reading];
    const QRectF& plot = layout().plot;
    painter.fillRect(QRectF(point.position.x() - 0.5, plot.top(), 1, plot.height()),
                     faded(colors.secondaryText, 0.5F));
    painter.setPen(QPen(colors.surface, 1.5));
    painter.setBrush(lineColor(m_summary, colors));
    painter.drawEllipse(point.position, kReadingDotRadius, kReadingDotRadius);
    paintReading(painter, point, colors);
}

void PriceChart::paintReading(QPainter& painter,
                              const ChartLayout::Point& point,
                              const ThemeColors::Resolved& colors) const {
    const Candle& candle = m_candles[point.candle];
    const QFont font = labelFont();
    const QString time = timeText(candle);
    const QString price = priceText(candle.close);
    const double timeWidth = TabularText::width(time, font);
    const double width =
        timeWidth + kBubbleSpacing + TabularText::width(price, font) + 2 * kBubblePadding;
    const double height = QFontMetricsF(font).height() + 4;
    const QRectF& plot = layout().plot;
    // Beside the prices of the axis, if there is room.
    const double furthest = std::max(0.0, plot.right() - width);
    const double left = std::clamp(point.position.x() - width / 2, 0.0, furthest);
    // At the end of the crosshair that is away from the price.
    const bool isPriceBelow = point.position.y() > plot.center().y();
    const double top = isPriceBelow ? plot.top() : plot.bottom() - height;
    const QRectF bubble(left, top, width, height);
    painter.setPen(QPen(colors.separator, 1));
    painter.setBrush(colors.surface);
    painter.drawRoundedRect(bubble.adjusted(0.5, 0.5, -0.5, -0.5), kBubbleRadius, kBubbleRadius);
    const QRectF text = bubble.adjusted(kBubblePadding, 0, -kBubblePadding, 0);
    painter.setPen(colors.secondaryText);
    TabularText::draw(painter, text, Qt::AlignLeft | Qt::AlignVCenter, time, font);
    painter.setPen(colors.primaryText);
    TabularText::draw(painter, text, Qt::AlignRight | Qt::AlignVCenter, price, font);
}

}  // namespace quillbar
