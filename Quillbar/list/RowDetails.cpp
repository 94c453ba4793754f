// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/list/RowDetails.h"

#include <QEasingCurve>
#include <QObject>
#include <QResizeEvent>
#include <QVariant>
#include <QWidget>

#include <algorithm>
#include <cmath>
#include <utility>

namespace quillbar {

namespace {

/// Cuts off the part of a detail that is not unfolded.
class Frame final : public QWidget {
public:
    Frame(int fullHeight, QWidget* parent)
        : QWidget(parent)
        , m_fullHeight(fullHeight) {}

    void setContent(QWidget* content) { m_content = content; }
    /// Holds from the next size of the frame on.
    void setFullHeight(int height) { m_fullHeight = height; }

protected:
    void resizeEvent(QResizeEvent* event) override {
        if (m_content != nullptr) {
            m_content->setGeometry(0, 0, width(), m_fullHeight);
        }
        QWidget::resizeEvent(event);
    }

private:
    int m_fullHeight;
    QWidget* m_content = nullptr;
};

}  // namespace

RowDetails::RowDetails(QWidget& list,
                       int fullHeight,
                       Factory factory,
                       std::function<void()> onChanged,
                       std::function<void()> onSettled)
    : m_list(list)
    , m_fullHeight(fullHeight)
    , m_factory(std::move(factory))
    , m_onChanged(std::move(onChanged))
    , m_onSettled(std::move(onSettled)) {
    m_animation.setDuration(static_cast<int>(kDuration.count()));
    m_animation.setEasingCurve(QEasingCurve::InOutQuad);
    m_animation.setStartValue(0.0);
    m_animation.setEndValue(1.0);
    QObject::connect(&m_animation,
                     &QVariantAnimation::valueChanged,
                     &m_animation,
                     [this](const QVariant& progress) { step(progress.toDouble()); });
    QObject::connect(
        &m_animation, &QVariantAnimation::finished, &m_animation, [this] { settle(); });
}

void RowDetails::open(const std::optional<std::string>& id, Transition transition) {
    m_animation.stop();
    bool isThere = false;
    for (Entry& entry : m_entries) {
        const bool isOpening = entry.id == id;
        isThere = isThere || isOpening;
        entry.from = entry.height;
        entry.to = isOpening ? m_fullHeight : 0;
    }
    if (id && !isThere) {
        m_entries.push_back({.id = *id, .frame = makeFrame(*id), .to = m_fullHeight});
    }
    const bool isThereNothingToDo =
        std::all_of(m_entries.begin(), m_entries.end(), [](const Entry& entry) {
            return entry.height == entry.to && entry.to != 0;
        });
    if (isThereNothingToDo) {
        return;
    }
    if (transition == Transition::animated) {
        m_animation.start();
    } else {
        settle();
    }
}

void RowDetails::setFullHeight(int height) {
    if (height == m_fullHeight) {
        return;
    }
    m_fullHeight = height;
    for (Entry& entry : m_entries) {
        dynamic_cast<Frame&>(*entry.frame).setFullHeight(height);
        if (entry.to != 0) {
            entry.to = height;
            entry.height = isMoving() ? entry.height : height;
        }
    }
    m_onChanged();
}

void RowDetails::settle() {
    m_animation.stop();
    std::erase_if(m_entries, [](const Entry& entry) {
        if (entry.to == 0) {
            discard(entry.frame);
        }
        return entry.to == 0;
    });
    for (Entry& entry : m_entries) {
        entry.height = entry.to;
    }
    m_onChanged();
    m_onSettled();
}

void RowDetails::dropGone(const RowPlaces& places) {
    std::erase_if(m_entries, [&places](const Entry& entry) {
        const bool isGone = !places.indexOf(entry.id);
        if (isGone) {
            discard(entry.frame);
        }
        return isGone;
    });
}

void RowDetails::layOut(RowPlaces& places) const {
    std::vector<RowLayout::Detail> details;
    for (const Entry& entry : m_entries) {
        if (const auto index = places.indexOf(entry.id)) {
            details.push_back({.row = *index, .height = entry.height});
        }
    }
    places.setDetails(std::move(details));
}

QWidget* RowDetails::frame(const std::string& id) const {
    const auto found = std::find_if(
        m_entries.begin(), m_entries.end(), [&id](const Entry& entry) { return entry.id == id; });
    return found == m_entries.end() ? nullptr : found->frame;
}

bool RowDetails::isMoving() const {
    return m_animation.state() == QAbstractAnimation::Running;
}

void RowDetails::step(double progress) {
    for (Entry& entry : m_entries) {
        entry.height =
            entry.from + static_cast<int>(std::lround((entry.to - entry.from) * progress));
    }
    m_onChanged();
}

QWidget* RowDetails::makeFrame(const std::string& id) {
    auto* const frame = new Frame(m_fullHeight, &m_list);
    frame->hide();
    frame->setContent(m_factory(id, frame));
    return frame;
}

void RowDetails::discard(QWidget* frame) {
    // Deleted later, because the call may come from a button of the detail or from a model that it
    // observes.
    frame->hide();
    frame->deleteLater();
}

}  // namespace quillbar
