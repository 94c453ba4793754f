// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/list/RowScroll.h"

#include <QApplication>
#include <QGuiApplication>
#include <QString>
#include <QWheelEvent>
#include <QWidget>

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace quillbar {

namespace {

constexpr double kNotch = 120;

// How far the event scrolls, in points; upwards is positive.
double turnedBy(const QWheelEvent& event, int rowHeight) {
    // Under X11 the pixel delta has a unit of the driver's own, which is not pixels.
    const bool hasPixels =
        !event.pixelDelta().isNull() && QGuiApplication::platformName() != QStringLiteral("xcb");
    if (hasPixels) {
        return event.pixelDelta().y();
    }
    return event.angleDelta().y() / kNotch * QApplication::wheelScrollLines() * rowHeight;
}

}  // namespace

RowScroll::RowScroll(QWidget& view, const RowPlaces& places, std::function<void()> onScrolled)
    : m_view(view)
    , m_places(places)
    , m_onScrolled(std::move(onScrolled))
    , m_hold(
          view,
          [this](int distance) { shift(distance); },
          [this](int sum) { endHold(sum); }) {}

int RowScroll::end() const {
    return std::max(0, m_places.layout().height() - m_view.height());
}

void RowScroll::setOffset(int offset) {
    const int sum = m_hold.sum();
    m_offset = std::clamp(offset, std::min(0, sum), end() + std::max(0, sum));
    // Without the hold the offset would be between the ends of the list. What is left of the sum is
    // computed anew, as the user may have scrolled meanwhile.
    m_hold.setSum(m_offset - std::clamp(m_offset - sum, 0, end()));
}

void RowScroll::scrollTo(int offset) {
    // From now on the user decides what stays in view, not the row that was opened.
    releaseAnchor();
    setOffset(offset);
    m_onScrolled();
}

void RowScroll::reveal(int top, int bottom) {
    // Clear of the fade, but for what is too high for that.
    const int clear = std::clamp((m_view.height() - (bottom - top)) / 2, 0, ScrollFade::kHeight);
    const int upmost = std::max(0, top - clear);
    const int downmost = std::min(end(), bottom + clear - m_view.height());
    if (upmost < m_offset) {
        scrollTo(upmost);
    } else if (downmost > m_offset) {
        scrollTo(downmost);
    }
}

void RowScroll::turn(const QWheelEvent& event) {
    m_turned += turnedBy(event, m_places.layout().rowHeight());
    const double whole = std::trunc(m_turned);
    m_turned -= whole;
    scrollTo(m_offset - static_cast<int>(whole));
}

void RowScroll::anchor(const std::string& id) {
    m_anchor = Anchor{.id = id, .y = m_places.top(*m_places.indexOf(id)) - m_offset};
}

void RowScroll::followRows() {
    setOffset(m_offset);
}

void RowScroll::followDetails() {
    const auto index = m_anchor ? m_places.indexOf(m_anchor->id) : std::nullopt;
    if (!index) {
        setOffset(m_offset);
        return;
    }
    const int top = m_places.top(*index);
    const int toSeeItsDetail = m_places.bottom(*index) + ScrollFade::kHeight - m_view.height();
    setOffset(std::min(top, std::max(top - m_anchor->y, toSeeItsDetail)));
}

void RowScroll::followView() {
    if (m_anchor) {
        followDetails();
    } else if (!m_hold.isHeld()) {
        setOffset(m_offset);
    }
    m_onScrolled();
}

void RowScroll::shift(int distance) {
    if (m_anchor) {
        m_anchor->y -= distance;
    }
    // The offset may go beyond the ends. A window moves and grows in several steps, and the list
    // may be higher between them than before and after.
    m_offset += distance;
    m_onScrolled();
}

void RowScroll::endHold(int sum) {
    if (m_anchor) {
        m_anchor->y += sum;
    }
    const int before = m_offset;
    setOffset(m_offset - sum);
    if (m_offset != before) {
        m_onScrolled();
    }
}

std::string RowScroll::brokenRule() const {
    const bool isWithin = m_offset >= 0 && m_offset <= end();
    return m_hold.isHeld() || isWithin ? "" : fmt::format("scrolled to {} of {}", m_offset, end());
}

}  // namespace quillbar
