// SPDX-FileCopyrightText: 2026 The Quillbar developers
// SPDX-License-Identifier: MIT
#include "Quillbar/widgets/ScrollFade.h"

#include "Quillbar/widgets/LiftedSurface.h"

#include <QColor>
#include <QLinearGradient>
#include <QPainter>
#include <QPaintEvent>
#include <QString>
#include <QWidget>

#include <algorithm>

namespace quillbar {

namespace {

class Edge final : public QWidget {
public:
    enum class Side { upper, lower };

    Edge(Side side, QWidget* parent)
        : QWidget(parent)
        , m_side(side) {
        setObjectName(side == Side::upper ? QStringLiteral("upperFade")
                                          : QStringLiteral("lowerFade"));
        setAttribute(Qt::WA_TransparentForMouseEvents);
        hide();
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        const QColor surface = LiftedSurface::under(*this);
        QColor nothing = surface;
        nothing.setAlpha(0);
        QLinearGradient fade(0, 0, 0, height());
        fade.setColorAt(0, m_side == Side::upper ? surface : nothing);
        fade.setColorAt(1, m_side == Side::upper ? nothing : surface);
        QPainter(this).fillRect(rect(), fade);
    }

private:
    Side m_side;
};

}  // namespace

ScrollFade::ScrollFade(QWidget& list)
    : m_list(list)
    , m_edges{new Edge(Edge::Side::upper, &list), new Edge(Edge::Side::lower, &list)} {}

void ScrollFade::follow(Further further) {
    const auto [upper, lower] = m_edges;
    upper->setGeometry(0, 0, m_list.width(), kHeight);
    lower->setGeometry(0, m_list.height() - kHeight, m_list.width(), kHeight);
    upper->setVisible(further.upwards);
    lower->setVisible(further.downwards);
    // Raising repaints, also what is in front already.
    if (!isInFront()) {
        upper->raise();
        lower->raise();
    }
}

bool ScrollFade::isInFront() const {
    const QObjectList& children = m_list.children();
    const auto last = std::find_if(children.rbegin(), children.rend(), [this](QObject* child) {
        return child->isWidgetType()
               && std::find(m_edges.begin(), m_edges.end(), child) == m_edges.end();
    });
    return std::count_if(
               children.rbegin(), last, [](QObject* child) { return child->isWidgetType(); })
           == static_cast<std::ptrdiff_t>(m_edges.size());
}

}  // namespace quillbar
