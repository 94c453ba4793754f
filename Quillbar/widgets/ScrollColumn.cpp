// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/widgets/ScrollColumn.h"

#include "Quillbar/widgets/TextScale.h"

#include <QAbstractSlider>
#include <QApplication>
#include <QEvent>
#include <QFrame>
#include <QKeyEvent>
#include <QResizeEvent>
#include <QScrollBar>
#include <QVBoxLayout>

#include <algorithm>

namespace quillbar {

namespace {

/// Its height is what it needs at its width. The least height of lines that wrap is that of a
/// narrower widget, and a scroll area never makes its widget lower than that.
class Content final : public QWidget {
public:
    using QWidget::QWidget;

    [[nodiscard]] QSize minimumSizeHint() const override {
        return layout()->hasHeightForWidth() ? QSize(0, 0) : QWidget::minimumSizeHint();
    }
};

}  // namespace

ScrollColumn::ScrollColumn(int spacing, QWidget* parent)
    : QScrollArea(parent)
    , m_content(new Content(this))
    , m_stack(new QVBoxLayout(m_content))
    , m_fade(*viewport()) {
    m_stack->setContentsMargins(0, 0, 0, 0);
    setWidget(m_content);
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::NoFocus);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    // The surface of the window shows through.
    viewport()->setAutoFillBackground(false);
    m_content->setAutoFillBackground(false);
    QScrollBar* const bar = verticalScrollBar();
    TextScale::follow(*this, [this, bar, spacing] {
        m_stack->setSpacing(TextScale::length(*this, spacing));
        bar->setSingleStep(TextScale::length(*this, kStep));
    });
    connect(bar, &QAbstractSlider::valueChanged, this, [this] { updateFade(); });
    connect(bar, &QAbstractSlider::rangeChanged, this, [this] {
        // The parts get their places only after the column has the new height.
        QMetaObject::invokeMethod(
            this, [this] { follow(); }, Qt::QueuedConnection);
        updateFade();
    });
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget* /*before*/, QWidget* focused) {
        reveal(focused);
    });
}

void ScrollColumn::add(QWidget* widget) {
    m_stack->addWidget(widget);
}

void ScrollColumn::scrollToTop() {
    verticalScrollBar()->setValue(0);
}

int ScrollColumn::heightFor(int width) const {
    return m_stack->hasHeightForWidth() ? m_stack->totalHeightForWidth(width)
                                        : m_stack->sizeHint().height();
}

QSize ScrollColumn::sizeHint() const {
    return {m_stack->sizeHint().width(), heightFor(width())};
}

QSize ScrollColumn::minimumSizeHint() const {
    return {0, std::min(kStep, sizeHint().height())};
}

bool ScrollColumn::event(QEvent* event) {
    // The content wants another height.
    if (event->type() == QEvent::LayoutRequest) {
        updateGeometry();
    }
    return QScrollArea::event(event);
}

bool ScrollColumn::focusNextPrevChild(bool next) {
    // NOLINTNEXTLINE(bugprone-parent-virtual-call): QScrollArea's scrolls further than `reveal`
    return QFrame::focusNextPrevChild(next);
}

void ScrollColumn::keyPressEvent(QKeyEvent* event) {
    QScrollBar* const bar = verticalScrollBar();
    switch (event->key()) {
    case Qt::Key_PageUp:
        bar->triggerAction(QAbstractSlider::SliderPageStepSub);
        break;
    case Qt::Key_PageDown:
        bar->triggerAction(QAbstractSlider::SliderPageStepAdd);
        break;
    case Qt::Key_Home:
        bar->triggerAction(QAbstractSlider::SliderToMinimum);
        break;
    case Qt::Key_End:
        bar->triggerAction(QAbstractSlider::SliderToMaximum);
        break;
    default:
        // The arrows choose in the widgets of the column. They do not scroll it.
        event->ignore();
        break;
    }
}

void ScrollColumn::resizeEvent(QResizeEvent* event) {
    QScrollArea::resizeEvent(event);
    if (event->size().width() != event->oldSize().width()) {
        updateGeometry();
    }
    updateFade();
}

QWidget* ScrollColumn::partOf(QWidget* widget) const {
    while (widget != nullptr && widget->parentWidget() != m_content) {
        widget = widget->parentWidget();
    }
    return widget;
}

void ScrollColumn::reveal(QWidget* focused) {
    if (const QWidget* const part = partOf(focused)) {
        m_revealedHeight = part->height();
        ensureWidgetVisible(focused, 0, ScrollFade::kHeight);
    }
}

void ScrollColumn::follow() {
    QWidget* const focused = QApplication::focusWidget();
    QWidget* const part = partOf(focused);
    if (part == nullptr || part->height() <= m_revealedHeight) {
        return;
    }
    m_revealedHeight = part->height();
    // The part's end is what has come. Where not all of it has room, its beginning is what the
    // user looks at.
    ensureVisible(0, part->geometry().bottom(), 0, ScrollFade::kHeight);
    ensureVisible(0, std::max(0, focused->mapTo(m_content, QPoint()).y()), 0, ScrollFade::kHeight);
}

void ScrollColumn::updateFade() {
    const QScrollBar& bar = *verticalScrollBar();
    m_fade.follow(
        {.upwards = bar.value() > bar.minimum(), .downwards = bar.value() < bar.maximum()});
}

}  // namespace quillbar
