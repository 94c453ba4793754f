// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/list/RowDrag.h"

#include "Quillbar/widgets/Theme.h"

#include <QApplication>
#include <QColor>
#include <QEvent>
#include <QKeyEvent>
#include <QLinearGradient>
#include <QMouseEvent>
#include <QPainter>
#include <QRectF>
#include <QWidget>

#include <algorithm>
#include <utility>
#include <vector>

namespace quillbar {

namespace {

constexpr int kShadow = 8;
constexpr int kShadowAlpha = 70;
// How many points nearer to the edge make a step one point longer.
constexpr int kPointsPerStep = 3;

/// The surface below a lifted row, with a shadow above and below it.
class Backdrop final : public QWidget {
public:
    explicit Backdrop(QWidget* parent)
        : QWidget(parent) {
        setAttribute(Qt::WA_TransparentForMouseEvents);
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        const ThemeColors::Resolved& colors = ThemeKey::value(*this).colors;
        const QRectF surface = QRectF(rect()).adjusted(0, kShadow, 0, -kShadow);
        castShadow(painter, surface.top(), 0);
        castShadow(painter, surface.bottom(), height());
        painter.fillRect(surface, colors.surface);
        painter.fillRect(QRectF(0, surface.top() - 1, width(), 1), colors.separator);
        painter.fillRect(QRectF(0, surface.bottom(), width(), 1), colors.separator);
    }

private:
    void castShadow(QPainter& painter, double from, double to) const {
        QLinearGradient shadow(0, from, 0, to);
        shadow.setColorAt(0, QColor(0, 0, 0, kShadowAlpha));
        shadow.setColorAt(1, QColor(0, 0, 0, 0));
        painter.fillRect(QRectF(0, std::min(from, to), width(), kShadow), shadow);
    }
};

}  // namespace

RowDrag::RowDrag(RowStage& stage)
    : m_stage(stage)
    , m_scrolling(&stage.view) {
    m_scrolling.setObjectName(QStringLiteral("dragScroll"));
    m_scrolling.setInterval(kScrollInterval);
    m_scrolling.setTimerType(Qt::PreciseTimer);
    connect(&m_scrolling, &QTimer::timeout, this, [this] {
        m_stage.scroll.scrollTo(m_stage.scroll.offset() + scrollStep());
    });
}

// Places

std::size_t RowDrag::placeAmong(const RowLayout& others, int line) {
    if (line >= others.height()) {
        return others.rowCount();
    }
    const std::size_t row = others.rowAt(line).value_or(0);
    const int middle = (others.top(row) + others.bottom(row)) / 2;
    return line < middle ? row : row + 1;
}

int RowDrag::pointerLine() const {
    return m_stage.view.mapFromGlobal(m_pointer).y();
}

int RowDrag::liftedTop() const {
    const int lowest = std::max(0, m_stage.view.height() - m_stage.places.layout().rowHeight());
    return std::clamp(pointerLine() - m_grip, 0, lowest);
}

void RowDrag::findPlace() {
    if (!m_lifted) {
        return;
    }
    // The detail of the lifted row counts for the gap only.
    const std::size_t gap = m_stage.places.gapTo();
    const RowLayout& all = m_stage.places.layout();
    std::vector<RowLayout::Detail> details;
    for (const RowLayout::Detail& detail : all.details()) {
        if (detail.row != gap) {
            const std::size_t row = detail.row > gap ? detail.row - 1 : detail.row;
            details.push_back({.row = row, .height = detail.height});
        }
    }
    RowLayout others(all.rowHeight());
    others.setRowCount(all.rowCount() - 1);
    others.setDetails(std::move(details));
    const std::size_t to = placeAmong(others, m_stage.scroll.offset() + liftedTop());
    m_stage.places.setGap(m_stage.places.gapFrom(), to);

    const int step = scrollStep();
    if (step == 0) {
        m_scrolling.stop();
    } else if (!m_scrolling.isActive()) {
        m_scrolling.start();
    }
}

int RowDrag::scrollStep() const {
    const int line = pointerLine();
    const int zone = std::min(kScrollZone, m_stage.view.height() / 3);
    const int above = zone - line;
    const int below = line - (m_stage.view.height() - zone);
    const int rest =
        m_stage.places.layout().height() - m_stage.view.height() - m_stage.scroll.offset();
    if (above > 0 && m_stage.scroll.offset() > 0) {
        return -std::min(1 + above / kPointsPerStep, kGreatestStep);
    }
    if (below > 0 && rest > 0) {
        return std::min(1 + below / kPointsPerStep, kGreatestStep);
    }
    return 0;
}

// The pointer

bool RowDrag::follow(const std::string& id, const QEvent& event) {
    switch (event.type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        return press(id, static_cast<const QMouseEvent&>(event));
    case QEvent::MouseMove:
        return pull(id, static_cast<const QMouseEvent&>(event));
    case QEvent::MouseButtonRelease:
        return release(static_cast<const QMouseEvent&>(event));
    default:
        return false;
    }
}

bool RowDrag::press(const std::string& id, const QMouseEvent& event) {
    if (event.button() != Qt::LeftButton) {
        if (isHeld()) {
            // If the left button is up already, its release went to another widget.
            putBack(event.buttons().testFlag(Qt::LeftButton) ? State::spent : State::idle);
        }
        return isHeld();
    }
    m_pressed = id;
    putBack(State::idle);
    m_pressedAt = event.globalPosition().toPoint();
    const bool isMovable = m_stage.content.canMove(m_pressed);
    // A list that says nothing of a refused drag leaves the row its click.
    m_refusal = isMovable || !m_stage.content.drag.refused ? Refusal::none : Refusal::pressed;
    if (isMovable) {
        m_state = State::pressed;
        m_grip = event.position().toPoint().y();
    }
    return false;
}

bool RowDrag::pull(const std::string& id, const QMouseEvent& event) {
    if (!event.buttons().testFlag(Qt::LeftButton)) {
        if (isHeld()) {
            // The release went elsewhere.
            putBack(State::idle);
        }
        return false;
    }
    m_pointer = event.globalPosition().toPoint();
    const int distance = (m_pointer - m_pressedAt).manhattanLength();
    if (m_state == State::pressed && distance >= QApplication::startDragDistance()) {
        // Meanwhile the row may have got another item, or the user has chosen a sorted order.
        if (id == m_pressed && m_stage.content.canMove(id)) {
            lift();
        } else {
            m_state = State::spent;
        }
    }
    if (m_state == State::dragging) {
        m_stage.update();
    }
    if (m_refusal == Refusal::pressed && distance >= QApplication::startDragDistance()) {
        m_refusal = Refusal::told;
        refuse();
    }
    return isHeld();
}

void RowDrag::refuse() {
    m_stage.content.drag.refused(m_pressed, m_pointer);
}

bool RowDrag::release(const QMouseEvent& event) {
    if (event.button() != Qt::LeftButton) {
        return isHeld();
    }
    // Do not pass the release on to the row's parents: Qt hides the tooltip each time it delivers
    // one.
    const bool wasRefused = std::exchange(m_refusal, Refusal::none) == Refusal::told;
    if (wasRefused) {
        refuse();
    }
    const bool wasHeld = wasRefused || m_state == State::dragging || m_state == State::spent;
    if (m_state == State::dragging) {
        m_pointer = event.globalPosition().toPoint();
        drop();
    }
    putDown(State::idle);
    return wasHeld;
}

void RowDrag::lift() {
    const std::size_t index = m_stage.places.indexOf(m_pressed).value_or(0);
    m_lifted = m_pressed;
    m_stage.places.setGap(index, index);
    m_state = State::dragging;
    if (m_backdrop == nullptr) {
        m_backdrop = new Backdrop(&m_stage.view);
    }
    QApplication::instance()->installEventFilter(this);
}

void RowDrag::drop() {
    findPlace();
    const std::string id = *m_lifted;
    const std::size_t from = m_stage.places.gapFrom();
    const std::size_t to = m_stage.places.gapTo();
    putDown(State::idle);
    if (to != from && m_stage.content.canMove(id)) {
        m_stage.content.drag.moved(id, to > from ? to + 1 : to);
    }
    m_stage.update();
}

void RowDrag::cancel() {
    putBack(State::idle);
}

void RowDrag::putBack(State next) {
    const bool wasLifted = m_lifted.has_value();
    putDown(next);
    if (wasLifted) {
        m_stage.update();
    }
}

void RowDrag::putDown(State next) {
    m_lifted.reset();
    m_stage.places.closeGap();
    m_scrolling.stop();
    if (m_backdrop != nullptr) {
        m_backdrop->hide();
    }
    m_state = next;
    if (next == State::idle) {
        QApplication::instance()->removeEventFilter(this);
    }
}

// The list

void RowDrag::followIds() {
    if (!m_lifted) {
        return;
    }
    const auto index = m_stage.places.indexOf(*m_lifted);
    if (!index || !m_stage.content.canMove(*m_lifted)) {
        putDown(State::spent);
        return;
    }
    m_stage.places.setGap(*index, *index);
}

void RowDrag::raise() {
    if (!m_lifted) {
        return;
    }
    QWidget* const row = m_stage.widgets.find(*m_lifted)->widget;
    m_backdrop->setGeometry(row->geometry().adjusted(0, -kShadow, 0, kShadow));
    m_backdrop->raise();
    m_backdrop->show();
    row->raise();
}

// The keys

bool RowDrag::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::KeyPress:
        if (static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
            putBack(State::spent);
        }
        return true;
    case QEvent::ShortcutOverride:
        // Otherwise Qt would use the key as a shortcut first.
        event->accept();
        return true;
    case QEvent::MouseMove:
        // The release went to another widget, and the pointer may come back over something that is
        // not a row.
        if (!static_cast<QMouseEvent*>(event)->buttons().testFlag(Qt::LeftButton)) {
            putBack(State::idle);
        }
        return false;
    case QEvent::MouseButtonRelease:
        // A row that is gone gets no release.
        if (m_state == State::spent
            && !static_cast<QMouseEvent*>(event)->buttons().testFlag(Qt::LeftButton)) {
            putDown(State::idle);
        }
        return false;
    default:
        return QObject::eventFilter(watched, event);
    }
}

}  // namespace quillbar
