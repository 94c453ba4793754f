// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/widgets/TextScale.h"

#include "Quillbar/text/SystemFont.h"
#include "Quillbar/widgets/Theme.h"

#include <QEvent>
#include <QLayout>
#include <QObject>
#include <QPainter>
#include <QWidget>

#include <cmath>
#include <utility>

namespace quillbar::TextScale {

namespace {

/// Calls a function at each other factor of a view, its parent.
class Follower final : public QObject {
public:
    Follower(QWidget& view, std::function<void()> apply)
        : QObject(&view)
        , m_view(view)
        , m_apply(std::move(apply))
        , m_scale(of(view)) {
        view.installEventFilter(this);
        m_apply();
    }

protected:
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        // A parent may have got the view after its theme was set. There is no event for that.
        const bool mayHaveChanged = event->type() == ThemeKey::changeEvent()
                                    || event->type() == QEvent::Show
                                    || event->type() == QEvent::ParentChange;
        if (mayHaveChanged && of(m_view) != m_scale) {
            m_scale = of(m_view);
            m_apply();
        }
        return false;
    }

private:
    QWidget& m_view;
    std::function<void()> m_apply;
    double m_scale;
};

}  // namespace

double of(const QWidget& view) {
    return ThemeKey::value(view).scale;
}

int length(const QWidget& view, double points) {
    return static_cast<int>(std::lround(points * of(view)));
}

QSize size(const QWidget& view, const QSize& points) {
    return {length(view, points.width()), length(view, points.height())};
}

QMargins margins(const QWidget& view, const QMargins& points) {
    return {length(view, points.left()),
            length(view, points.top()),
            length(view, points.right()),
            length(view, points.bottom())};
}

QFont font(const QWidget& view, double points, QFont::Weight weight) {
    return systemFont(points * of(view), weight);
}

QFont font(const QWidget& view, QFont font) {
    const double scale = of(view);
    // A font has one of the two; the other is negative then.
    if (font.pointSizeF() > 0) {
        font.setPointSizeF(font.pointSizeF() * scale);
    } else {
        font.setPixelSize(length(view, font.pixelSize()));
    }
    return font;
}

QRectF enlarge(QPainter& painter, const QWidget& view) {
    const double scale = of(view);
    painter.scale(scale, scale);
    return {0, 0, view.width() / scale, view.height() / scale};
}

void follow(QWidget& view, std::function<void()> apply) {
    // The view owns it, as its child.
    new Follower(view, std::move(apply));
}

void followSpaces(QWidget& view, QLayout& layout, const QMargins& points, int spacing) {
    follow(view, [&view, &layout, points, spacing] {
        layout.setContentsMargins(margins(view, points));
        layout.setSpacing(length(view, spacing));
    });
}

void followMargins(QWidget& view, const QMargins& points) {
    follow(view, [&view, points] { view.setContentsMargins(margins(view, points)); });
}

}  // namespace quillbar::TextScale
