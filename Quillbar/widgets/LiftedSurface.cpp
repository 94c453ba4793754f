// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/widgets/LiftedSurface.h"

#include "Quillbar/widgets/LiftedShadow.h"
#include "Quillbar/widgets/RoundedWindow.h"

#include <QEvent>
#include <QObject>
#include <QPoint>
#include <QWidget>

namespace quillbar::LiftedSurface {

namespace {

constexpr const char* kLiftedProperty = "_quillbar_lifted";

/// Cuts the corners of a window, its parent, at each size that it gets.
class CornerCutter final : public QObject {
public:
    explicit CornerCutter(QWidget& window)
        : QObject(&window)
        , m_window(window) {
        window.installEventFilter(this);
    }

protected:
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        if (event->type() == QEvent::Resize) {
            RoundedWindow::cutCorners(m_window, kRadius);
        }
        return false;
    }

private:
    QWidget& m_window;
};

QColor over(const QColor& ground, const QColor& tint) {
    const float alpha = tint.alphaF();
    const auto mixed = [alpha](float below, float above) {
        return below * (1 - alpha) + above * alpha;
    };
    const QColor result = QColor::fromRgbF(mixed(ground.redF(), tint.redF()),
                                           mixed(ground.greenF(), tint.greenF()),
                                           mixed(ground.blueF(), tint.blueF()));
    // As a screen shows it.
    return result.rgb();
}

}  // namespace

QColor color(const ThemeColors::Resolved& colors) {
    return over(colors.surface, colors.rowHover);
}

QColor under(const QWidget& view) {
    const ThemeColors::Resolved& colors = ThemeKey::value(view).colors;
    return view.window()->property(kLiftedProperty).toBool() ? color(colors) : colors.surface;
}

void lift(QWidget& window) {
    if (window.property(kLiftedProperty).toBool()) {
        return;
    }
    window.setProperty(kLiftedProperty, true);
    // Whoever made the window below has found out whether windows are blended.
    QWidget& below = *window.parentWidget()->window();
    const bool isTranslucent = below.testAttribute(Qt::WA_TranslucentBackground);
    window.setAttribute(Qt::WA_TranslucentBackground, isTranslucent);
    if (!isTranslucent || !below.mask().isEmpty()) {
        new CornerCutter(window);
    } else {
        new LiftedShadow(window, below);
    }
}

void paint(QPainter& painter, const QWidget& window) {
    RoundedWindow::fill(painter, window, kRadius, under(window));
    RoundedWindow::drawEdge(painter, window, kRadius, ThemeKey::value(window).colors.separator);
}

QRect anchorOf(const QWidget& button) {
    const QWidget& window = *button.window();
    const QPoint corner = button.mapToGlobal(QPoint(0, 0));
    const int right = window.mapToGlobal(QPoint(window.width(), 0)).x();
    return {corner, QSize(right - corner.x(), button.height())};
}

}  // namespace quillbar::LiftedSurface
