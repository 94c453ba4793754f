// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/widgets/TooltipStyle.h"

#include "Quillbar/widgets/LiftedSurface.h"
#include "Quillbar/widgets/TextScale.h"
#include "Quillbar/widgets/Theme.h"

#include <QApplication>
#include <QEvent>
#include <QPainter>
#include <QPalette>
#include <QPoint>
#include <QRect>
#include <QToolTip>
#include <QWidget>

#include <algorithm>

namespace quillbar {

namespace {

// Qt adds two points before the text.
constexpr int kPadding = 5;
constexpr int kOpaque = 255;

/// Qt's own window of tooltips, which has the widget for its parent.
bool isTooltip(const QWidget* widget) {
    return widget != nullptr && widget->parentWidget() != nullptr && widget->inherits("QTipLabel");
}

/// Moves a tooltip that reaches beyond an edge of its window back to that edge. Near the screen's
/// right edge, Qt puts a tooltip to the left of the pointer.
void keepInWindow(QWidget& tooltip) {
    const QWidget& window = *tooltip.parentWidget()->window();
    const int left = window.mapToGlobal(QPoint(0, 0)).x();
    const int rightmost = std::max(left, left + window.width() - tooltip.width());
    const QRect now = tooltip.geometry();
    QRect place = now;
    if (place.left() > rightmost) {
        place.moveLeft(rightmost);
    } else if (place.left() < left && place.width() <= window.width()) {
        place.moveLeft(left);
    }
    if (place != now) {
        tooltip.setGeometry(place);
    }
}

}  // namespace

TooltipStyle::TooltipStyle()
    : QProxyStyle(QApplication::style()->name()) {}

void TooltipStyle::polish(QWidget* widget) {
    QProxyStyle::polish(widget);
    if (!isTooltip(widget)) {
        return;
    }
    LiftedSurface::lift(*widget);
    widget->installEventFilter(this);
    QPalette colors = widget->palette();
    colors.setColor(QPalette::ToolTipText, ThemeKey::value(*widget).colors.primaryText);
    widget->setPalette(colors);
    widget->setFont(TextScale::font(*widget, QToolTip::font()));
}

void TooltipStyle::drawPrimitive(PrimitiveElement element,
                                 const QStyleOption* option,
                                 QPainter* painter,
                                 const QWidget* widget) const {
    if (element == PE_PanelTipLabel && isTooltip(widget)) {
        LiftedSurface::paint(*painter, *widget);
    } else {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

int TooltipStyle::pixelMetric(PixelMetric metric,
                              const QStyleOption* option,
                              const QWidget* widget) const {
    return metric == PM_ToolTipLabelFrameWidth && isTooltip(widget)
               ? kPadding
               : QProxyStyle::pixelMetric(metric, option, widget);
}

int TooltipStyle::styleHint(StyleHint hint,
                            const QStyleOption* option,
                            const QWidget* widget,
                            QStyleHintReturn* result) const {
    if (isTooltip(widget)) {
        if (hint == SH_ToolTip_Mask) {
            return 0;
        }
        if (hint == SH_ToolTipLabel_Opacity) {
            return kOpaque;
        }
    }
    return QProxyStyle::styleHint(hint, option, widget, result);
}

bool TooltipStyle::eventFilter(QObject* watched, QEvent* event) {
    // Qt places a tooltip by its pointer and the screen alone.
    if (event->type() == QEvent::Move || event->type() == QEvent::Resize) {
        keepInWindow(*qobject_cast<QWidget*>(watched));
    }
    return QProxyStyle::eventFilter(watched, event);
}

}  // namespace quillbar
