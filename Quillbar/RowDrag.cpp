// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/RowDrag.h"

#include "Quillbar/RowList.h"
#include "Quillbar/Theme.h"

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
// The pointer is so many points nearer the edge for one more point of a step.
constexpr int kPointsPerStep = 3;

/// The surface that a lifted row has to itself, and the shadow that it casts up and down.
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

RowDrag::RowDrag(RowList& list, Purpose purpose, std::function<void()> onChanged)
    : m_list(list)
    , m_purpose(std::move(purpose))
    , m_onChanged(std::move(onChanged))
    , m_scrolling(&list) {
    m_scrolling.setObjectName(QStringLiteral("dragScroll"));
    m_scrolling.setInterval(kScrollInterval);
    m_scrolling.setTimerType(Qt::PreciseTimer);
    connect(&m_scrolling, &QTimer::timeout, this, [this] {
        m_list.scrollTo(m_list.scrollOffset() + scrollStep());
    });
}

// Places

std::size_t RowDrag::positionOf(std::size_t index) const {
    if (index == m_from) {
        return m_to;
    }
    const std::size_t amongOthers = index > m_from ? index - 1 : index;
    return amongOthers >= m_to ? amongOthers + 1 : amongOthers;
}

std::size_t RowDrag::indexAt(std::size_t position) const {
    if (position == m_to) {
        return m_from;
    }
    const std::size_t amongOthers = position > m_to ? position - 1 : position;
    return amongOthers >= m_from ? amongOthers + 1 : amongOthers;
}

std::size_t RowDrag::placeAmong(const RowLayout& others, int line) {
    if (line >= others.height()) {
        return others.rowCount();
    }
    const std::size_t row = others.rowAt(line).value_or(0);
    const int middle = (others.top(row) + others.bottom(row)) / 2;
    return line < middle ? row : row + 1;
}

int RowDrag::pointerLine() const {
    return m_list.mapFromGlobal(m_pointer).y();
}

int RowDrag::liftedTop() const {
    const int lowest = std::max(0, m_list.height() - m_list.rowLayout().rowHeight());
    return std::clamp(pointerLine() - m_grip, 0, lowest);
}

bool RowDrag::findPlace() {
    if (!m_lifted) {
        return false;
    }
    // What unfolds under the lifted row takes part in the gap alone.
    const RowLayout& all = m_list.rowLayout();
    std::vector<RowLayout::Detail> details;
    for (const RowLayout::Detail& detail : all.details()) {
        if (detail.row != m_to) {
            const std::size_t row = detail.row > m_to ? detail.row - 1 : detail.row;
            details.push_back({.row = row, .height = detail.height});
        }
    }
    RowLayout others(all.rowHeight());
    others.setRowCount(all.rowCount() - 1);
    others.setDetails(std::move(details));
    const std::size_t to = placeAmong(others, m_list.scrollOffset() + liftedTop());
    const bool isAnother = to != m_to;
    m_to = to;

    const int step = scrollStep();
    if (step == 0) {
        m_scrolling.stop();
    } else if (!m_scrolling.isActive()) {
        m_scrolling.start();
    }
    return isAnother;
}

int RowDrag::scrollStep() const {
    const int line = pointerLine();
    const int zone = std::min(kScrollZone, m_list.height() / 3);
    const int above = zone - line;
    const int below = line - (m_list.height() - zone);
    const int rest = m_list.rowLayout().height() - m_list.height() - m_list.scrollOffset();
    if (above > 0 && m_list.scrollOffset() > 0) {
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
            // Without the left button its release went elsewhere.
            putBack(event.buttons().testFlag(Qt::LeftButton) ? State::spent : State::idle);
        }
        return isHeld();
    }
    m_pressed = id;
    putBack(State::idle);
    if (canMove(m_pressed)) {
        m_state = State::pressed;
        m_pressedAt = event.globalPosition().toPoint();
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
        // By now the row may show another item, or the items have an order of their own.
        if (id == m_pressed && canMove(id)) {
            lift();
        } else {
            m_state = State::spent;
        }
    }
    if (m_state == State::dragging) {
        m_onChanged();
    }
    return isHeld();
}

bool RowDrag::release(const QMouseEvent& event) {
    if (event.button() != Qt::LeftButton) {
        return isHeld();
    }
    const bool wasHeld = m_state == State::dragging || m_state == State::spent;
    if (m_state == State::dragging) {
        m_pointer = event.globalPosition().toPoint();
        drop();
    }
    putDown(State::idle);
    return wasHeld;
}

void RowDrag::lift() {
    const std::vector<std::string>& ids = m_list.ids();
    m_lifted = m_pressed;
    m_from = static_cast<std::size_t>(std::find(ids.begin(), ids.end(), m_pressed) - ids.begin());
    m_to = m_from;
    m_state = State::dragging;
    if (m_backdrop == nullptr) {
        m_backdrop = new Backdrop(&m_list);
    }
    QApplication::instance()->installEventFilter(this);
}

void RowDrag::drop() {
    findPlace();
    const std::string id = *m_lifted;
    const std::size_t from = m_from;
    const std::size_t to = m_to;
    putDown(State::idle);
    if (to != from && canMove(id)) {
        move(id, to > from ? to + 1 : to);
    }
    m_onChanged();
}

void RowDrag::cancel() {
    putBack(State::idle);
}

void RowDrag::putBack(State next) {
    const bool wasLifted = m_lifted.has_value();
    putDown(next);
    if (wasLifted) {
        m_onChanged();
    }
}

void RowDrag::putDown(State next) {
    m_lifted.reset();
    m_from = 0;
    m_to = 0;
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
    const std::vector<std::string>& ids = m_list.ids();
    const auto found = std::find(ids.begin(), ids.end(), *m_lifted);
    if (found == ids.end() || !canMove(*m_lifted)) {
        putDown(State::spent);
        return;
    }
    m_from = static_cast<std::size_t>(found - ids.begin());
    m_to = m_from;
}

void RowDrag::raise() {
    if (!m_lifted) {
        return;
    }
    QWidget* const row = m_list.row(*m_lifted);
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
        // Else the key would be taken for a shortcut before it is pressed.
        event->accept();
        return true;
    case QEvent::MouseMove:
        // The release went elsewhere, and the pointer may come back to anything but a row.
        if (!static_cast<QMouseEvent*>(event)->buttons().testFlag(Qt::LeftButton)) {
            putBack(State::idle);
        }
        return false;
    case QEvent::MouseButtonRelease:
        // A row that is gone hears of no release.
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
