// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/chart/PriceChart.h"

#include "Quillbar/chart/ChartPicture.h"
#include "Quillbar/platform/Translated.h"
#include "Quillbar/text/LocalTimeText.h"
#include "Quillbar/text/TabularText.h"
#include "Quillbar/widgets/ColorRole.h"
#include "Quillbar/widgets/TextScale.h"
#include "QuillbarCore/model/PriceFormatter.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QDate>
#include <QFontMetricsF>
#include <QKeyEvent>
#include <QLocale>
#include <QMouseEvent>
#include <QPainter>
#include <QTime>

#include <algorithm>
#include <utility>

namespace quillbar {

namespace {

constexpr double kRingDistance = 3;

QString priceText(double price) {
    return QString::fromStdString(PriceFormatter::price(price));
}

QString percentText(double percent) {
    return QString::fromStdString(PriceFormatter::percent(percent));
}

QAccessibleInterface* accessibleChart(const QString& /*className*/, QObject* object) {
    // Recognised by its type: the class name is that of QWidget.
    auto* const chart = dynamic_cast<PriceChart*>(object);
    return chart == nullptr ? nullptr : new QAccessibleWidget(chart, QAccessible::Chart);
}

}  // namespace

PriceChart::PriceChart(Calendar calendar, QWidget* parent)
    : QWidget(parent)
    , m_calendar(std::move(calendar)) {
    TextScale::follow(*this, [this] { forgetLayout(); });
    // Installing it again changes nothing.
    QAccessible::installFactory(accessibleChart);
    // The language of what stands around it.
    setLocale(LocalTimeText::localeOfTexts());
    setMouseTracking(true);
    setFocusPolicy(Qt::TabFocus);
}

void PriceChart::setCandles(std::vector<Candle> candles, const QString& rangeName) {
    if (candles == m_candles && rangeName == m_rangeName) {
        return;
    }
    const Candle* const read = candleRead();
    const std::optional<TimePoint> time =
        read == nullptr ? std::nullopt : std::optional<TimePoint>(read->openTime);
    m_candles = std::move(candles);
    m_rangeName = rangeName;
    m_summary = ChartSummary::of(m_candles);
    forgetLayout();
    m_reading = time ? placeOf(*time) : std::nullopt;
    describe();
}

void PriceChart::setOutdated(bool isOutdated) {
    if (isOutdated != m_isOutdated) {
        m_isOutdated = isOutdated;
        update();
    }
}

QString PriceChart::reading() const {
    const Candle* const candle = candleRead();
    if (candle == nullptr) {
        return {};
    }
    const QString reading = timeText(*candle) + QStringLiteral("  ") + priceText(candle->close);
    const std::optional<double> change = m_summary.changeTo(candle->close);
    return change ? reading + QStringLiteral("  ") + percentText(*change) : reading;
}

QColor PriceChart::lineColor(const ChartSummary& summary, const ThemeColors::Resolved& colors) {
    const double change = summary.changePercent.value_or(0);
    return colors.*colorOfChange(change, &ThemeColors::Resolved::accent);
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
    painter.setOpacity(m_isOutdated ? kOutdatedOpacity : 1);
    painter.drawPixmap(QPointF(), picture(colors));
    painter.setOpacity(1);
    TextScale::enlarge(painter, *this);
    paintCrosshair(painter, colors);
    // The ring is around the plot, in which the arrow keys move. There is no room for it around the
    // prices.
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
    m_pointerX = event->position().x() / TextScale::of(*this);
    read(layout().nearest(m_pointerX), Reader::pointer);
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
        const QFont font = ChartPicture::font();
        m_layout = ChartLayout::of({
            .candles = m_candles,
            .size = QSizeF(size()) / TextScale::of(*this),
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

const Candle* PriceChart::candleRead() const {
    if (!m_reading || *m_reading >= layout().points.size()) {
        return nullptr;
    }
    return &m_candles[layout().points[*m_reading].candle];
}

std::optional<std::size_t> PriceChart::placeOf(TimePoint time) const {
    const std::vector<ChartLayout::Point>& points = layout().points;
    const auto found =
        std::find_if(points.begin(), points.end(), [this, time](const ChartLayout::Point& point) {
            return m_candles[point.candle].openTime == time;
        });
    if (found == points.end()) {
        return std::nullopt;
    }
    return m_reader == Reader::pointer ? layout().nearest(m_pointerX)
                                       : static_cast<std::size_t>(found - points.begin());
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
    QString text = m_summary.text();
    if (!m_rangeName.isEmpty() && !text.isEmpty()) {
        text = translated("chart", "%1，%2").arg(m_rangeName, text);
    }
    const QString reading = this->reading();
    if (!reading.isEmpty()) {
        text = translated("chart", "%1；%2").arg(reading, text);
    }
    if (text != accessibleDescription()) {
        setAccessibleDescription(text);
    }
}

const QPixmap& PriceChart::picture(const ThemeColors::Resolved& colors) {
    const double ratio = devicePixelRatioF();
    if (m_picture.isNull() || m_picture.devicePixelRatioF() != ratio || m_pictureColors != colors) {
        m_picture = QPixmap(size() * ratio);
        // While it is drawn on, its unit is that of the layout: a point at 100 %.
        m_picture.setDevicePixelRatio(ratio * TextScale::of(*this));
        m_picture.fill(Qt::transparent);
        m_pictureColors = colors;
        {
            QPainter painter(&m_picture);
            painter.setRenderHint(QPainter::Antialiasing);
            ChartPicture::paint(painter, layout(), lineColor(m_summary, colors), colors);
        }
        m_picture.setDevicePixelRatio(ratio);
    }
    return m_picture;
}

void PriceChart::paintCrosshair(QPainter& painter, const ThemeColors::Resolved& colors) const {
    const Candle* const candle = candleRead();
    if (candle == nullptr) {
        return;
    }
    ChartPicture::Reading reading{.time = timeText(*candle),
                                  .price = priceText(candle->close),
                                  .change = {},
                                  .changeColor = {}};
    if (const std::optional<double> change = m_summary.changeTo(candle->close)) {
        reading.change = percentText(*change);
        reading.changeColor = colors.*colorOfChange(*change);
    }
    ChartPicture::paintCrosshair(painter,
                                 layout(),
                                 layout().points[*m_reading],
                                 reading,
                                 lineColor(m_summary, colors),
                                 colors);
}

}  // namespace quillbar
